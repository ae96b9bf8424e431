#include "zorvex/compiler/lines/SourceText.h"

#include "zorvex/base/Text.h"

namespace zorvex {

std::string_view StripComment(std::string_view line) {
    bool inString = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '"') {
            inString = !inString;
        } else if (inString) {
            if (c == '\\') ++i;
        } else if (c == '[' || (c == '/' && i + 1 < line.size() && line[i + 1] == '/')) {
            return Trim(line.substr(0, i));
        }
    }
    return Trim(line);
}

}  // namespace zorvex
