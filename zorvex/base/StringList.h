// A list of text lines with a cursor. Source text, decompiled text and the property file live in such lists.
// Internal to the library; it keeps bytes and does not ask whether they are host text or game text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Event.h"

namespace zorvex {

class StringList {
  public:
    static constexpr std::string_view ErrorSource = "ZORVEX.StringList";
    static constexpr std::string_view CrLf = "\r\n";

    /// Follows every change of the lines or of the cursor.
    mutable Event<> ListChanged;

    /// Puts a line at an index; an index outside 0 to Count means the end.
    void Add(std::string_view text, std::int32_t index = -1);
    /// All lines; with Count 0 one empty element.
    std::vector<std::string> AllLines() const;
    /// Replaces the contents by the pieces of a text. With a line end as separator (CR LF, CR or LF), CR LF,
    /// CR, LF and vertical tab all end a line. An empty text gives one empty line. The cursor stays.
    void Assign(std::string_view text, std::string_view separator = CrLf);
    void Assign(std::vector<std::string> lines);
    void Assign(const StringList& source);
    /// Removes all lines; the cursor stays.
    void Clear();
    /// Moves the cursor to the next line, or past blank lines to the next that is not blank, and returns it;
    /// "" at the end, where the cursor stays on the last line.
    std::string NextLine(bool skipBlank = false);
    /// Sorts the lines by character code.
    void Sort();
    /// The line at an index, which becomes the cursor, or at the cursor; "" with Count 0. Raises 9.
    const std::string& StringLine(std::int32_t index = -1) const;
    /// Replaces a line. Raises 518 for an index below 0 and 519 for one past the end.
    void StringLine(std::int32_t index, std::string_view text);
    std::int32_t Count() const { return static_cast<std::int32_t>(lines_.size()); }
    /// Removes the line at an index, or at the cursor. Raises 676 on an empty list, 518 and 519.
    void Delete(std::int32_t index = -1);
    /// All lines joined; an empty separator means CR LF.
    std::string Text(std::string_view separator = {}) const;
    std::int32_t CurrentLine() const { return currentLine_; }
    /// Raises 518 and 519.
    void CurrentLine(std::int32_t index);

    /// The lines themselves, for code that walks many of them.
    const std::vector<std::string>& Lines() const { return lines_; }
    /// A number that differs after each change of the lines, also between lists; caches of the lines compare
    /// it.
    std::uint64_t Revision() const { return revision_; }

  private:
    void CheckIndex(std::int32_t index) const;
    void LinesChanged();

    std::vector<std::string> lines_;
    mutable std::int32_t currentLine_ = 0;
    std::uint64_t revision_ = 0;
};

}  // namespace zorvex
