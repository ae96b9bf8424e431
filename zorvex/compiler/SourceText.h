// Source text as lines.
#pragma once

#include <string_view>

namespace zorvex {

/// Calls `take` for each line of a text. CR LF, CR, LF and vertical tab each end a line; an empty text is one
/// empty line, as is what follows a line end at the very end.
template <class Take>
void ForEachLine(std::string_view text, Take&& take) {
    while (true) {
        std::size_t end = 0;
        while (end < text.size() && !(text[end] >= '\n' && text[end] <= '\r' && text[end] != '\f'))
            ++end;
        take(text.substr(0, end));
        if (end == text.size()) return;
        const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
        text.remove_prefix(end + (pair ? 2 : 1));
    }
}

/// The line without its comment, which begins with "[" or "//" outside a string, and without blanks at both
/// ends.
std::string_view StripComment(std::string_view line);

}  // namespace zorvex
