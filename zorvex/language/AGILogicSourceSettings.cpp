#include "zorvex/language/AGILogicSourceSettings.h"

#include <algorithm>
#include <array>

#include "zorvex/base/Checked.h"
#include "zorvex/base/CodePage.h"
#include "zorvex/base/Text.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/ArgumentMarkers.h"
#include "zorvex/language/ReservedTables.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/vocab/AGIInventoryObjects.h"

namespace zorvex {

namespace {

constexpr std::array<std::string_view, 9> typeNames{
    "number", "variable", "flag", "message", "object", "inventory item", "string", "word", "controller"};

constexpr std::int32_t firstWarning = 5001;
constexpr std::array<ReservedGroup, 5> numberGroups{rgEdgeCodes, rgDirections, rgVideoModes, rgComputerTypes,
                                                    rgColors};

void Append(std::vector<TDefine>& list, const std::vector<TDefine>& more) {
    list.insert(list.end(), more.begin(), more.end());
}

TDefine WithValue(TDefine entry, std::string value) {
    entry.Value = std::move(value);
    return entry;
}

std::string Quoted(std::string_view hostText) {
    return '"' + TextToGame(hostText) + '"';
}

int ItemCount() {
    const LibraryState& library = Library();
    const bool counts = library.GameLoaded && library.InventoryObjects && library.InventoryObjects->Loaded();
    return counts ? library.InventoryObjects->Count() : 0;
}

/// The entry with its value as the open game gives it now; other entries as they are.
TDefine Present(std::size_t gameInfo) {
    const LibraryState& library = Library();
    const TDefine& entry = ReservedNames().Group(rgGameInfo)[gameInfo];
    switch (gameInfo) {
        case giGameVersionMsg: return WithValue(entry, Quoted(library.GameVersion));
        case giGameAboutMsg: return WithValue(entry, Quoted(library.GameAbout));
        case giGameID: return WithValue(entry, Quoted(library.GameID));
        case giNumberOfItems: return WithValue(entry, std::to_string(ItemCount()));
        default: return entry;
    }
}

bool IsForbidden(char character) {
    const auto code = static_cast<unsigned char>(character);
    return (code >= 32 && code <= 45) || code == 47 || (code >= 58 && code <= 64) ||
           (code >= 91 && code <= 94) || code == 96 || code >= 123;
}

bool IsNumeric(std::string_view text) {
    return ParseNumber(text).has_value();
}

bool IsKeyword(std::string_view name) {
    return EqualNoCase(name, "if") || EqualNoCase(name, "else") || EqualNoCase(name, "goto");
}

/// True when another entry has the name and stands for something else; the input prompt's name is free.
bool IsTaken(const TDefine& entry, const AGILogicSourceSettings& settings) {
    const auto clashes = [&entry](const TDefine& other) {
        return other.Default != entry.Default && other.Value != entry.Value &&
               EqualNoCase(other.Name, entry.Name);
    };
    for (const ArgTypeEnum type : {atVar, atFlag, atNum, atSObj, atDefStr}) {
        const std::vector<TDefine> others = settings.ReservedDefines(type);
        if (std::any_of(others.begin(), others.end(), clashes)) return true;
    }
    return false;
}

bool NameIsGood(const TDefine& entry, const AGILogicSourceSettings& settings) {
    const std::string& name = entry.Name;
    if (name == entry.Default) return true;
    if (name.empty() || IsNumeric(name) || IsKeyword(name) || IsMarker(name)) return false;
    if (ActionCommandNumber(name) >= 0 || TestCommandNumber(name) >= 0) return false;
    return !IsTaken(entry, settings) && std::none_of(name.begin(), name.end(), IsForbidden);
}

}  // namespace

std::string_view AGILogicSourceSettings::ArgTypePrefix(std::uint8_t index) const {
    return At(ArgTypePrefixes, index, errSource_);
}

std::string_view AGILogicSourceSettings::ArgTypeName(std::uint8_t index) const {
    return At(typeNames, index, errSource_);
}

bool AGILogicSourceSettings::IgnoreWarning(std::int32_t warningNumber) const {
    return At(Library().IgnoreWarnings, std::int64_t{warningNumber} - firstWarning, errSource_);
}

void AGILogicSourceSettings::IgnoreWarning(std::int32_t warningNumber, bool value) {
    At(Library().IgnoreWarnings, std::int64_t{warningNumber} - firstWarning, errSource_) = value;
}

std::vector<TDefine> AGILogicSourceSettings::ReservedDefines(ArgTypeEnum argType) const {
    std::vector<TDefine> list;
    switch (argType) {
        case atNum:
            for (const ReservedGroup group : numberGroups)
                Append(list, ReservedNames().Group(group));
            list.push_back(Present(giNumberOfItems));
            return list;
        case atVar: return ReservedNames().Group(rgVariables);
        case atFlag: return ReservedNames().Group(rgFlags);
        case atSObj: return {Present(giEgo)};
        case atStr: return {Present(giInputPrompt)};
        case atDefStr: return {Present(giGameVersionMsg), Present(giGameAboutMsg), Present(giGameID)};
        default: return {TDefine{}};
    }
}

std::vector<TDefine> AGILogicSourceSettings::ResDefByGrp(std::int16_t group) const {
    if (group < rgVariables || group > rgGameInfo) RaiseRuntime(reSubscript, errSource_);
    return ReservedNames().Group(static_cast<std::size_t>(group));
}

void AGILogicSourceSettings::ResDef(std::int16_t defType, std::int16_t defIndex, std::string_view name) {
    if (defType < rgVariables || defType > rgGameInfo) RaiseRuntime(reSubscript, errSource_);
    At(ReservedNames().Group(static_cast<std::size_t>(defType)), defIndex, errSource_).Name = name;
}

void AGILogicSourceSettings::ResetResDefines() {
    InitReservedDefines();
}

bool AGILogicSourceSettings::ValidateResDefs() {
    bool allGood = true;
    for (std::size_t group = rgVariables; group <= rgGameInfo; ++group) {
        std::vector<TDefine>& table = ReservedNames().Group(group);
        for (std::size_t i = 0; i < table.size(); ++i) {
            if (NameIsGood(group == rgGameInfo ? Present(i) : table[i], *this)) continue;
            table[i].Name = table[i].Default;
            allGood = false;
        }
    }
    return allGood;
}

bool AGILogicSourceSettings::ReservedAsText() const {
    return Library().ReservedAsText;
}

void AGILogicSourceSettings::ReservedAsText(bool value) {
    Library().ReservedAsText = value;
}

const std::string& AGILogicSourceSettings::SourceExt() const {
    return Library().SourceExt;
}

void AGILogicSourceSettings::SourceExt(std::string_view value) {
    Library().SourceExt = (value.starts_with('.') ? "" : ".") + std::string(value);
}

bool AGILogicSourceSettings::UseReservedNames() const {
    return Library().UseReservedNames;
}

void AGILogicSourceSettings::UseReservedNames(bool value) {
    Library().UseReservedNames = value;
    if (Library().GameLoaded) WriteGameProperty("General", "UseResNames", BoolText(value));
}

}  // namespace zorvex
