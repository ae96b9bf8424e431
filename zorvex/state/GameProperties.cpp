#include "zorvex/state/GameProperties.h"

#include "zorvex/base/Error.h"
#include "zorvex/base/StringList.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/Clock.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/state/PropertyFile.h"

namespace zorvex {

namespace {

constexpr std::string_view general = "General";
constexpr std::string_view palette = "Palette";

/// "&H" with eight digits, or four such numbers of one byte each behind commas, the highest first.
std::optional<std::int32_t> ParseColor(std::string_view text) {
    if (text.size() == 10 && text.starts_with("&H")) return ParseLong(text);
    const std::vector<std::string> parts = Split(text, ",");
    if (parts.size() != 4) return std::nullopt;
    std::uint32_t color = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::optional<std::int32_t> part = ParseLong(parts[i]);
        if (!parts[i].starts_with("&H") || !part) return std::nullopt;
        color += static_cast<std::uint32_t>(*part) << (24U - 8U * i);
    }
    return static_cast<std::int32_t>(color);
}

void GetPalette() {
    LibraryState& library = Library();
    ResetDefaultPalette();
    for (std::size_t i = 0; i < library.EGAColor.size(); ++i) {
        const std::string key = "Color" + std::to_string(i);
        const std::string text = ReadGameString(palette, key, "&H" + HexPad(library.EGAColor[i], 1));
        const std::string_view trimmed = Trim(text);
        if (const auto color = ParseColor(trimmed)) SetPaletteEntry(i, *color);
        const std::string usual = "&H" + HexPad(library.EGAColor[i], 8);
        if (!EqualNoCase(trimmed, usual)) {
            WritePropertyLine(*library.PropertyList, palette, key, usual);
        }
    }
}

void GetReservedNamesFlag() {
    bool& flag = Library().UseReservedNames;
    flag = ReadGameBool(general, "UseResNames", flag);
}

/// An empty text is how the zero date is written.
std::optional<DateTime> ParseLastEdit(std::string_view text) {
    return Trim(text).empty() ? DateTime() : ParseDate(text);
}

}  // namespace

void WriteGameProperty(std::string_view section, std::string_view key, std::string_view value,
                       std::string_view group) {
    LibraryState& library = Library();
    if (!library.PropertyList) return;
    WritePropertyLine(*library.PropertyList, section, key, value, group);
    if (key != "LastEdit" && key != "ZorvexVersion" && key != palette) library.LastEdit = Now();
}

std::string ReadGameString(std::string_view section, std::string_view key, std::string_view defaultValue) {
    return ReadPropertyString(Library().PropertyList.get(), section, key, defaultValue);
}

std::int32_t ReadGameLong(std::string_view section, std::string_view key, std::int32_t defaultValue) {
    return ReadPropertyLong(Library().PropertyList.get(), section, key, defaultValue);
}

std::uint8_t ReadGameByte(std::string_view section, std::string_view key, std::uint8_t defaultValue) {
    return ReadPropertyByte(Library().PropertyList.get(), section, key, defaultValue);
}

bool ReadGameBool(std::string_view section, std::string_view key, bool defaultValue) {
    return ReadPropertyBool(Library().PropertyList.get(), section, key, defaultValue);
}

void DeleteGameProperty(std::string_view section, std::string_view key) {
    if (Library().PropertyList) DeletePropertyKey(*Library().PropertyList, section, key);
}

void DeleteGameSection(std::string_view section) {
    if (Library().PropertyList) DeletePropertySection(*Library().PropertyList, section);
}

bool SaveGameProperties() {
    return !Library().PropertyList || SavePropertyList(*Library().PropertyList);
}

void GetGameProperties() {
    LibraryState& library = Library();
    if (!library.PropertyList) return;
    GetPalette();
    library.GameDescription = ReadGameString(general, "Description", "");
    library.GameAuthor = ReadGameString(general, "Author", "");
    library.GameAbout = ReadGameString(general, "About", "");
    library.GameVersion = ReadGameString(general, "GameVersion", "");
    const auto lastEdit = ParseLastEdit(ReadGameString(general, "LastEdit", DateText(Now())));
    library.PlatformType = ReadGameLong(general, "PlatformType", 0);
    library.Platform = ReadGameString(general, "Platform", "");
    library.DOSExec = ReadGameString(general, "DOSExec", "");
    library.PlatformOpts = ReadGameString(general, "PlatformOpts", "");
    GetReservedNamesFlag();
    library.UseLE = ReadGameBool(general, "UseLE", false);
    if (!lastEdit) RaiseRuntime(reTypeMismatch);
    library.LastEdit = *lastEdit;
}

void WriteLastEdit() {
    const DateTime lastEdit = Library().LastEdit;
    if (lastEdit != DateTime{}) WriteGameProperty(general, "LastEdit", DateText(lastEdit));
}

void WriteLogEntry(int level, std::string_view text) {
    // A line is logged while a fault is being dealt with, so the record of the last fault must stay as it is.
    try {
        const std::string line = MediumDateText(Now()) + ": " + (level != 0 ? "ERROR: " : "WARNING: ");
        const std::string whole = line + std::string(text) + "\r\n";
        Files().Append(Library().GameDir + "errlog.txt",
                       {reinterpret_cast<const std::uint8_t*>(whole.data()), whole.size()});
    } catch (...) {  // a log that cannot be written is done without
    }
}

}  // namespace zorvex
