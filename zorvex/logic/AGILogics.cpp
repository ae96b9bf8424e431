#include "zorvex/logic/AGILogics.h"

#include "zorvex/base/Faults.h"
#include "zorvex/base/Text.h"
#include "zorvex/compiler/names/GlobalDefines.h"
#include "zorvex/compiler/names/NameTable.h"
#include "zorvex/compiler/names/ResourceIDs.h"
#include "zorvex/language/ReservedTables.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

void AGILogics::MarkAllAsDirty() {
    for (const std::shared_ptr<AGILogic>& logic : *this) {
        Attempt([&] {
            logic->CompiledCRC(0);
            WriteGameProperty(logic->Section(), "CompCRC32", "&H0", logic->Group());
            SaveGameProperties();
        });
    }
}

std::string AGILogics::ConvertArg(std::string_view argIn, ArgTypeEnum argType, bool& varOrNum) const {
    if (Library().GameLoaded) {
        CurrentGlobalDefines();
        LoadResourceIDs();
    }
    std::string_view result = argIn;
    const NameTable names(Library().GlobalDefines, Library().ResourceIDs,
                          Library().UseReservedNames ? &ReservedNames() : nullptr);
    names.ConvertArgument(result, argType, varOrNum);
    return LowerCase(result);
}

}  // namespace zorvex
