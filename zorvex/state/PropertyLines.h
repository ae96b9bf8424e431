// The lines of a property list together with an index of where its sections begin.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "zorvex/base/StringList.h"

namespace zorvex {

/// Where the "[" lines of a list stand, with a hash of their names. It always follows from the lines alone:
/// it is rebuilt when the list's revision is not the one it was made for, so it saves time and never changes
/// a result.
struct PropertyIndex {
    std::uint64_t Revision = 0;
    std::vector<std::int32_t> Positions;  // ascending
    std::vector<std::uint32_t> Hashes;    // of the names, without regard to case
};

/// A property list during one operation. Searches look at "[" lines only and allocate nothing; edits go
/// through this class, which moves the index along. Line 0, the file's path, is never looked at.
class PropertyLines {
  public:
    explicit PropertyLines(StringList& list);

    std::int32_t Count() const { return list_.Count(); }
    /// A line without the blanks around it.
    std::string_view Line(std::int32_t at) const;

    /// The first header of a section.
    std::optional<std::int32_t> FindSection(std::string_view name, bool ignoreCase) const;
    /// The first line at or behind `from` that equals a marker such as "[::BEGIN Logics::]".
    std::optional<std::int32_t> FindMarker(std::string_view marker, std::int32_t from = 1) const;
    /// The last line before `before` that equals a marker.
    std::optional<std::int32_t> FindMarkerBefore(std::string_view marker, std::int32_t before) const;
    /// The first "[" line behind `at`, or Count.
    std::int32_t NextHeader(std::int32_t at) const;

    void Insert(std::int32_t at, std::string_view text);
    void Append(std::string_view text) { Insert(Count(), text); }
    void Remove(std::int32_t at);
    void Replace(std::int32_t at, std::string_view text);
    /// Moves `count` lines from `from` to the place before the line at `to`, which is not among them.
    void Move(std::int32_t from, std::int32_t count, std::int32_t to);

  private:
    void Rebuild();
    std::size_t EntryAtOrBehind(std::int32_t at) const;
    void IndexLine(std::int32_t at);
    void UnindexLine(std::int32_t at);
    void ShiftFrom(std::int32_t at, std::int32_t by);

    StringList& list_;
    PropertyIndex& index_;
};

}  // namespace zorvex
