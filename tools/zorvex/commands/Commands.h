// The commands of the tool; each is declared by its own file.
#pragma once

#include "tools/zorvex/console/Command.h"

namespace zorvex::tool {

void AddAddCommand(CommandLine& line);
void AddBuildCommand(CommandLine& line);
void AddCompileCommand(CommandLine& line);
void AddConvertCommand(CommandLine& line);
void AddDecompileCommand(CommandLine& line);
void AddDisassembleCommand(CommandLine& line);
void AddExtractCommand(CommandLine& line);
void AddInfoCommand(CommandLine& line);
void AddListCommand(CommandLine& line);
void AddNewCommand(CommandLine& line);
void AddObjectsCommand(CommandLine& line);
void AddObjectsImportCommand(CommandLine& line);
void AddPictureCommand(CommandLine& line);
void AddPlayCommand(CommandLine& line);
void AddPropsCommand(CommandLine& line);
void AddPutCommand(CommandLine& line);
void AddRemoveCommand(CommandLine& line);
void AddRenameCommand(CommandLine& line);
void AddRenumberCommand(CommandLine& line);
void AddRepairCommand(CommandLine& line);
void AddSoundCommand(CommandLine& line);
void AddSoundImportCommand(CommandLine& line);
void AddVerifyCommand(CommandLine& line);
void AddViewCommand(CommandLine& line);
void AddViewImportCommand(CommandLine& line);
void AddWordsCommand(CommandLine& line);
void AddWordsImportCommand(CommandLine& line);

/// Adds all of them, in the order in which the help lists them.
void AddAllCommands(CommandLine& line);

}  // namespace zorvex::tool
