#include "tools/zorvex/console/GameText.h"

#include "zorvex/base/Text.h"

namespace zorvex::tool {

std::string GameTextAsUtf8(std::string_view gameText) {
    std::string text;
    for (const char character : gameText)
        AppendCharacter(text, static_cast<unsigned char>(character));
    return text;
}

std::string PrintableGameText(std::string_view gameText) {
    std::string text;
    for (const char character : gameText) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20 || (code >= 0x7F && code < 0xA0)) {
            text += "\\x" + HexPad(code, 2);
        } else {
            AppendCharacter(text, code);
        }
    }
    return text;
}

}  // namespace zorvex::tool
