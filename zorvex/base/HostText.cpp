#include "zorvex/base/HostText.h"

#include "zorvex/base/Text.h"

namespace zorvex {

std::string HostTextOf(std::string_view bytes) {
    constexpr char32_t malformed = 0xFFFD;
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::size_t before = rest.size();
        // The character itself takes more than one byte where it is meant.
        if (TakeCharacter(rest) != malformed || before - rest.size() > 1) continue;
        std::string text;
        for (const char byte : bytes)
            AppendCharacter(text, static_cast<unsigned char>(byte));
        return text;
    }
    return std::string(bytes);
}

}  // namespace zorvex
