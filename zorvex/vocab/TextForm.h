// The text files in which a word list or an inventory can be kept: a version line, lines of its own, and at
// the end, behind a line of two bytes FF (hexadecimal), the description.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

/// The longest description, in characters.
inline constexpr std::size_t MaxDescription = 1024;

/// Takes the lines of a text form one by one. CR LF, CR and LF all end a line; the end of the last line may
/// be missing.
class TextFormReader {
  public:
    /// Views the bytes, which must outlive the reader.
    explicit TextFormReader(ByteView bytes);

    bool AtEnd() const { return rest_.empty(); }
    /// How many lines have been taken, which is the number of the last one.
    std::int32_t LineNumber() const { return lineNumber_; }
    /// The next line without its end; empty at the end of the file.
    std::string_view NextLine();
    /// Takes the first line; true when it names a version of this form, of this library or of an older one.
    bool TakeVersion();
    /// Takes the next line into `line`; false at the end of the file and at the line that ends the list,
    /// which is taken.
    bool NextEntry(std::string_view& line);
    /// The lines left, joined by carriage returns and cut to the longest description, as host text.
    std::string Description();

  private:
    std::string_view rest_;
    std::int32_t lineNumber_ = 0;
};

/// Builds a text form.
class TextFormWriter {
  public:
    TextFormWriter();

    void Line(std::string_view text);
    /// Ends the list with the description, if there is one, and gives the bytes.
    ByteArray Finish(std::string_view description);

  private:
    ByteArray bytes_;
};

}  // namespace zorvex
