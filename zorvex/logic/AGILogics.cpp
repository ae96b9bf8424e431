#include "zorvex/logic/AGILogics.h"

#include "zorvex/compiler/GlobalDefines.h"
#include "zorvex/compiler/NameTable.h"
#include "zorvex/compiler/ResourceIDs.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/Text.h"

namespace zorvex {

std::string AGILogics::ConvertArg(std::string_view argIn, ArgTypeEnum argType, bool& varOrNum) const {
    if (Library().GameLoaded) {
        CurrentGlobalDefines();
        LoadResourceIDs();
    }
    std::string_view result = argIn;
    const NameTable names;
    names.ConvertArgument(result, argType, varOrNum);
    return LowerCase(result);
}

}  // namespace zorvex
