// What the compiler has to say about a source.
#pragma once

#include <cstdint>
#include <string>

namespace zorvex {

enum class Severity : std::uint8_t { Warning, Error };

/// One warning or error of the logic compiler. Texts are host text.
struct Diagnostic {
    Severity Level = Severity::Error;
    /// The catalogue's number: 5001 to 5108 for a warning, 4001 to 4164 for an error of the source. An error
    /// that has no place in the source may have another number of the library.
    std::int32_t Number = 0;
    std::string Text;         // without the number
    std::string File;         // the full name of the include file; "" for the logic's own text
    std::int32_t Line = -1;   // from 1 in that file; -1 for none
    std::int32_t Column = 0;  // from 1; 0 when it is not known

    bool IsError() const { return Level == Severity::Error; }
    bool operator==(const Diagnostic&) const = default;
};

}  // namespace zorvex
