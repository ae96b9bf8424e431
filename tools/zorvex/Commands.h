// The commands of the tool; each is declared by its own file.
#pragma once

#include "tools/zorvex/Command.h"

namespace zorvex::tool {

void AddExtractCommand(CommandLine& line);
void AddInfoCommand(CommandLine& line);
void AddListCommand(CommandLine& line);
void AddPutCommand(CommandLine& line);

/// Adds all of them, in the order in which the help lists them.
void AddAllCommands(CommandLine& line);

}  // namespace zorvex::tool
