#include "zorvex/language/AGITestCommands.h"

#include "zorvex/base/Error.h"

namespace zorvex {

CommandStruct AGITestCommands::TestCmd(std::uint8_t index) const {
    if (index > Count()) RaiseRuntime(reSubscript, errSource_);
    return CommandCatalogue().TestCommandTable[index];
}

std::uint8_t AGITestCommands::Count() const {
    return CommandCatalogue().TestCount;
}

}  // namespace zorvex
