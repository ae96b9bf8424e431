#include "zorvex/language/AGICommands.h"

#include "zorvex/base/Error.h"

namespace zorvex {

CommandStruct AGICommands::AGICommand(std::uint8_t index) const {
    if (index > Count()) RaiseRuntime(reSubscript, errSource_);
    return CommandCatalogue().ActionCommandTable[index];
}

std::uint8_t AGICommands::Count() const {
    return CommandCatalogue().ActionCount;
}

}  // namespace zorvex
