#include "zorvex/state/PropertyFile.h"

#include "zorvex/base/Faults.h"
#include "zorvex/base/StringList.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"
#include "zorvex/state/PropertyLines.h"
#include "zorvex/state/PropertyText.h"

namespace zorvex {

namespace {

constexpr std::string_view emptyFile = "#";

/// The lines between a group's markers, the markers included.
struct GroupBlock {
    std::int32_t start;
    std::int32_t end;
};

/// An entry's place, or the place where it would be added to its section.
struct EntryPlace {
    std::int32_t at;
    std::optional<std::string_view> behindKey;  // set when the entry exists
};

ByteView BytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// Walks back from a line to the nearest that is not empty, and gives the place behind it.
std::int32_t BehindLastText(const PropertyLines& lines, std::int32_t end) {
    while (end > 1 && lines.Line(end - 1).empty())
        --end;
    return end;
}

EntryPlace FindEntry(const PropertyLines& lines, std::int32_t header, std::string_view key) {
    const std::int32_t end = lines.NextHeader(header);
    for (std::int32_t at = header + 1; at < end; ++at) {
        const std::string_view line = lines.Line(at);
        if (line.empty() || line.front() == '#') continue;
        if (const auto behindKey = TextBehindKey(line, key)) return {at, behindKey};
    }
    return {BehindLastText(lines, end), std::nullopt};
}

/// The end marker of a group that has only its start marker: before the next group, or at the end of the
/// file.
std::int32_t AddEndMarker(PropertyLines& lines, std::int32_t start, std::string_view marker) {
    for (std::int32_t at = lines.NextHeader(start); at < lines.Count(); at = lines.NextHeader(at)) {
        if (!SameLineText(lines.Line(at).substr(0, 9), "[::BEGIN ", false)) continue;
        lines.Insert(at, marker);
        lines.Insert(at + 1, "");
        return at;
    }
    lines.Append(marker);
    return lines.Count() - 1;
}

GroupBlock FindOrMakeGroup(PropertyLines& lines, std::string_view group) {
    const std::string startMarker = std::string("[::BEGIN ").append(group).append("::]");
    const std::string endMarker = std::string("[::END ").append(group).append("::]");
    const auto start = lines.FindMarker(startMarker);
    const auto endBefore = lines.FindMarkerBefore(endMarker, start.value_or(lines.Count()));
    if (start && endBefore) {
        lines.Remove(*endBefore);
        lines.Insert(*start, endMarker);
        return {*start - 1, *start};
    }
    if (start) {
        const auto end = lines.FindMarker(endMarker, *start);
        return {*start, end ? *end : AddEndMarker(lines, *start, endMarker)};
    }
    if (endBefore) {
        lines.Insert(*endBefore, startMarker);
        return {*endBefore, *endBefore + 1};
    }
    lines.Append("");
    lines.Append(startMarker);
    lines.Append(endMarker);
    return {lines.Count() - 2, lines.Count() - 1};
}

/// Moves a section that lies outside its group to the end of the group's block.
void MoveIntoGroup(PropertyLines& lines, std::int32_t header, GroupBlock block) {
    if (header > block.start && header < block.end) return;
    std::int32_t place = block.end;
    if (!lines.Line(place - 1).empty()) {
        lines.Insert(place, "");
        if (header >= place) ++header;
        ++place;
    }
    const std::int32_t length = lines.NextHeader(header) - header;
    lines.Move(header, length, place);
}

void AddSection(PropertyLines& lines, std::string_view section, std::string_view entry, std::int32_t place) {
    if (place > 0 && !lines.Line(place - 1).empty()) lines.Insert(place++, "");
    lines.Insert(place, std::string("[").append(section).append("]"));
    lines.Insert(place + 1, entry);
}

void WriteEntry(StringList& list, std::string_view section, std::string_view key, std::string_view value,
                std::string_view group) {
    PropertyLines lines(list);
    const std::string encoded = EncodeValue(value);
    std::optional<GroupBlock> block;
    if (!group.empty()) block = FindOrMakeGroup(lines, group);

    const auto header = lines.FindSection(section, false);
    if (!header) {
        AddSection(lines, section, EntryLine(key, encoded), block ? block->end : lines.Count());
        return;
    }
    const EntryPlace place = FindEntry(lines, *header, key);
    if (place.behindKey) {
        lines.Replace(place.at, EntryLine(key, encoded, KeptComment(*place.behindKey)));
    } else {
        lines.Insert(place.at, EntryLine(key, encoded));
        if (block && place.at <= block->start) ++block->start;
        if (block && place.at <= block->end) ++block->end;
    }
    if (block) MoveIntoGroup(lines, *header, *block);
}

std::string ReadEntry(StringList& list, std::string_view section, std::string_view key,
                      std::string_view defaultValue) {
    {
        PropertyLines lines(list);
        if (const auto header = lines.FindSection(section, true)) {
            const EntryPlace place = FindEntry(lines, *header, key);
            if (place.behindKey) return DecodeValue(*place.behindKey);
            lines.Insert(place.at, EntryLine(key, EncodeValue(defaultValue)));
            return std::string(defaultValue);
        }
    }
    WritePropertyLine(list, section, key, defaultValue);
    return std::string(defaultValue);
}

template <class Value, class Parse>
Value ReadValue(StringList* list, std::string_view section, std::string_view key, Value defaultValue,
                std::string_view defaultText, Parse parse) {
    const std::string text = ReadPropertyString(list, section, key, defaultText);
    const auto value = parse(text);
    return value ? static_cast<Value>(*value) : defaultValue;
}

}  // namespace

std::shared_ptr<StringList> OpenPropertyList(std::string_view path, bool create) {
    auto list = std::make_shared<StringList>();
    list->Add(emptyFile);
    Attempt([&] {
        const bool exists = FileExists(path);
        const ByteArray bytes = exists ? Files().Read(path) : ByteArray();
        if (!bytes.empty()) {
            list->Assign(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
        } else if (exists || create) {
            Files().Write(path, BytesOf(emptyFile));
        }
    });
    list->Add(path, 0);
    return list;
}

bool SavePropertyList(StringList& list) {
    return !Attempt([&] {
        const std::vector<std::string>& lines = list.Lines();
        if (lines.empty()) RaiseRuntime(reBadFileName);
        std::string text;
        for (std::size_t i = 1; i < lines.size(); ++i) {
            if (i > 1) text.append(StringList::CrLf);
            text.append(lines[i]);
        }
        ReplaceWholeFile(lines.front(), text);
    });
}

std::string ReadPropertyString(StringList* list, std::string_view section, std::string_view key,
                               std::string_view defaultValue) {
    std::string value(defaultValue);
    if (list != nullptr) Attempt([&] { value = ReadEntry(*list, section, key, defaultValue); });
    return value;
}

std::int32_t ReadPropertyLong(StringList* list, std::string_view section, std::string_view key,
                              std::int32_t defaultValue) {
    return ReadValue(list, section, key, defaultValue, std::to_string(defaultValue), ParseLong);
}

std::uint8_t ReadPropertyByte(StringList* list, std::string_view section, std::string_view key,
                              std::uint8_t defaultValue) {
    const auto parse = [](std::string_view text) {
        const std::optional<std::int32_t> value = ParseLong(text);
        return value && std::in_range<std::uint8_t>(*value) ? value : std::nullopt;
    };
    return ReadValue(list, section, key, defaultValue, std::to_string(defaultValue), parse);
}

bool ReadPropertyBool(StringList* list, std::string_view section, std::string_view key, bool defaultValue) {
    return ReadValue(list, section, key, defaultValue, BoolText(defaultValue), ParseBool);
}

void WritePropertyLine(StringList& list, std::string_view section, std::string_view key,
                       std::string_view value, std::string_view group) {
    Attempt([&] { WriteEntry(list, section, key, value, group); });
}

void DeletePropertyKey(StringList& list, std::string_view section, std::string_view key) {
    Attempt([&] {
        PropertyLines lines(list);
        const auto header = lines.FindSection(section, false);
        if (!header) return;
        const std::int32_t end = lines.NextHeader(*header);
        for (std::int32_t at = *header + 1; at < end; ++at) {
            const std::string_view line = lines.Line(at);
            if (line.empty() || line.front() == '#' || !SameLineText(line.substr(0, key.size()), key, false))
                continue;
            lines.Remove(at);
            return;
        }
    });
}

void DeletePropertySection(StringList& list, std::string_view section) {
    Attempt([&] {
        PropertyLines lines(list);
        const auto header = lines.FindSection(section, false);
        if (!header) return;
        for (std::int32_t rest = lines.NextHeader(*header) - *header; rest > 0; --rest)
            lines.Remove(*header);
    });
}

}  // namespace zorvex
