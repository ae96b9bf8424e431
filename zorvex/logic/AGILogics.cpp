#include "zorvex/logic/AGILogics.h"

#include "zorvex/game/Text.h"

namespace zorvex {

std::string AGILogics::ConvertArg(std::string_view argIn, ArgTypeEnum, bool&) const {
    return LowerCase(argIn);
}

}  // namespace zorvex
