#include "tools/zorvex/Commands.h"

namespace zorvex::tool {

void AddAllCommands(CommandLine& line) {
    AddInfoCommand(line);
    AddListCommand(line);
    AddExtractCommand(line);
    AddPutCommand(line);
}

}  // namespace zorvex::tool
