#include "zorvex/language/ArgumentMarkers.h"

#include "zorvex/base/Text.h"

namespace zorvex {

ArgTypeEnum MarkerType(std::string_view text) {
    if (text.empty()) return atDefStr;
    const char letter = LowerCase(text.front());
    for (std::uint8_t type = atVar; type <= atCtrl; ++type) {
        if (MarkerLetter(static_cast<ArgTypeEnum>(type)) == letter) return static_cast<ArgTypeEnum>(type);
    }
    return atDefStr;
}

bool IsMarker(std::string_view text) {
    return MarkerType(text) != atDefStr && ParseNumber(text.substr(1)).has_value();
}

}  // namespace zorvex
