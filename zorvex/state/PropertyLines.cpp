#include "zorvex/state/PropertyLines.h"

#include <algorithm>

#include "zorvex/base/Text.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/state/PropertyText.h"

namespace zorvex {

namespace {

/// FNV-1a over the name in lower case, a tab counting as a blank.
std::uint32_t HashOf(std::string_view name) {
    std::uint32_t hash = 2166136261U;
    for (const char character : name) {
        const char plain = character == '\t' ? ' ' : LowerCase(character);
        hash = (hash ^ static_cast<std::uint8_t>(plain)) * 16777619U;
    }
    return hash;
}

PropertyIndex& IndexInUse() {
    std::shared_ptr<PropertyIndex>& index = Library().SectionIndex;
    if (!index) index = std::make_shared<PropertyIndex>();
    return *index;
}

}  // namespace

PropertyLines::PropertyLines(StringList& list) : list_(list), index_(IndexInUse()) {
    if (index_.Revision != list.Revision()) Rebuild();
}

std::string_view PropertyLines::Line(std::int32_t at) const {
    return TrimmedLine(list_.Lines()[static_cast<std::size_t>(at)]);
}

void PropertyLines::Rebuild() {
    index_.Positions.clear();
    index_.Hashes.clear();
    for (std::int32_t at = 1; at < Count(); ++at) {
        const std::string_view line = Line(at);
        if (!line.starts_with('[')) continue;
        index_.Positions.push_back(at);
        index_.Hashes.push_back(HashOf(HeaderName(line)));
    }
    index_.Revision = list_.Revision();
}

std::optional<std::int32_t> PropertyLines::FindSection(std::string_view name, bool ignoreCase) const {
    const std::uint32_t hash = HashOf(name);
    for (std::size_t i = 0; i < index_.Hashes.size(); ++i) {
        if (index_.Hashes[i] != hash) continue;
        const std::int32_t at = index_.Positions[i];
        if (SameLineText(HeaderName(Line(at)), name, ignoreCase)) return at;
    }
    return std::nullopt;
}

std::optional<std::int32_t> PropertyLines::FindMarker(std::string_view marker, std::int32_t from) const {
    const std::uint32_t hash = HashOf(HeaderName(marker));
    for (std::size_t i = EntryAtOrBehind(from); i < index_.Hashes.size(); ++i) {
        const std::int32_t at = index_.Positions[i];
        if (index_.Hashes[i] == hash && SameLineText(Line(at), marker, false)) return at;
    }
    return std::nullopt;
}

std::optional<std::int32_t> PropertyLines::FindMarkerBefore(std::string_view marker,
                                                            std::int32_t before) const {
    const std::uint32_t hash = HashOf(HeaderName(marker));
    for (std::size_t i = EntryAtOrBehind(before); i > 0; --i) {
        const std::int32_t at = index_.Positions[i - 1];
        if (index_.Hashes[i - 1] == hash && SameLineText(Line(at), marker, false)) return at;
    }
    return std::nullopt;
}

std::int32_t PropertyLines::NextHeader(std::int32_t at) const {
    const std::size_t entry = EntryAtOrBehind(at + 1);
    return entry < index_.Positions.size() ? index_.Positions[entry] : Count();
}

// Each edit changes the list first and takes over its revision last, so that an edit that fails halfway
// leaves an index that is seen to be out of date.

void PropertyLines::Insert(std::int32_t at, std::string_view text) {
    list_.Add(text, at);
    ShiftFrom(at, 1);
    IndexLine(at);
    index_.Revision = list_.Revision();
}

void PropertyLines::Remove(std::int32_t at) {
    list_.Delete(at);
    UnindexLine(at);
    ShiftFrom(at + 1, -1);
    index_.Revision = list_.Revision();
}

void PropertyLines::Replace(std::int32_t at, std::string_view text) {
    list_.StringLine(at, text);
    UnindexLine(at);
    IndexLine(at);
    index_.Revision = list_.Revision();
}

void PropertyLines::Move(std::int32_t from, std::int32_t count, std::int32_t to) {
    std::vector<std::string> lines = list_.AllLines();
    const auto first = lines.begin() + from;
    if (from < to) {
        std::rotate(first, first + count, lines.begin() + to);
    } else {
        std::rotate(lines.begin() + to, first, first + count);
    }
    list_.Assign(lines);
    Rebuild();
}

std::size_t PropertyLines::EntryAtOrBehind(std::int32_t at) const {
    const auto found = std::lower_bound(index_.Positions.begin(), index_.Positions.end(), at);
    return static_cast<std::size_t>(found - index_.Positions.begin());
}

void PropertyLines::IndexLine(std::int32_t at) {
    const std::string_view line = Line(at);
    if (at == 0 || !line.starts_with('[')) return;
    const auto entry = static_cast<std::ptrdiff_t>(EntryAtOrBehind(at));
    index_.Positions.insert(index_.Positions.begin() + entry, at);
    index_.Hashes.insert(index_.Hashes.begin() + entry, HashOf(HeaderName(line)));
}

void PropertyLines::UnindexLine(std::int32_t at) {
    const std::size_t found = EntryAtOrBehind(at);
    if (found >= index_.Positions.size() || index_.Positions[found] != at) return;
    index_.Positions.erase(index_.Positions.begin() + static_cast<std::ptrdiff_t>(found));
    index_.Hashes.erase(index_.Hashes.begin() + static_cast<std::ptrdiff_t>(found));
}

void PropertyLines::ShiftFrom(std::int32_t at, std::int32_t by) {
    for (std::size_t i = EntryAtOrBehind(at); i < index_.Positions.size(); ++i)
        index_.Positions[i] += by;
}

}  // namespace zorvex
