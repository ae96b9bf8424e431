#include "tools/zorvex/Commands.h"

namespace zorvex::tool {

void AddAllCommands(CommandLine& line) {
    AddInfoCommand(line);
    AddListCommand(line);
    AddVerifyCommand(line);
    AddExtractCommand(line);
    AddPutCommand(line);
    AddAddCommand(line);
    AddRemoveCommand(line);
    AddRenumberCommand(line);
    AddRenameCommand(line);
    AddViewCommand(line);
    AddViewImportCommand(line);
    AddPropsCommand(line);
    AddBuildCommand(line);
    AddConvertCommand(line);
    AddNewCommand(line);
    AddRepairCommand(line);
    AddSoundCommand(line);
    AddSoundImportCommand(line);
    AddPlayCommand(line);
}

}  // namespace zorvex::tool
