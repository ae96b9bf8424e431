#include "tools/zorvex/commands/Commands.h"

namespace zorvex::tool {

void AddAllCommands(CommandLine& line) {
    AddInfoCommand(line);
    AddListCommand(line);
    AddVerifyCommand(line);
    AddRepairCommand(line);
    AddExtractCommand(line);
    AddPutCommand(line);
    AddAddCommand(line);
    AddRemoveCommand(line);
    AddRenumberCommand(line);
    AddRenameCommand(line);
    AddPropsCommand(line);
    AddPictureCommand(line);
    AddViewCommand(line);
    AddViewImportCommand(line);
    AddSoundCommand(line);
    AddSoundImportCommand(line);
    AddPlayCommand(line);
    AddDecompileCommand(line);
    AddDisassembleCommand(line);
    AddCompileCommand(line);
    AddWordsCommand(line);
    AddWordsImportCommand(line);
    AddObjectsCommand(line);
    AddObjectsImportCommand(line);
    AddBuildCommand(line);
    AddConvertCommand(line);
    AddNewCommand(line);
}

}  // namespace zorvex::tool
