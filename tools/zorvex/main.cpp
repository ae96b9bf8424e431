#include <cstdio>
#include <exception>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Command.h"
#include "tools/zorvex/console/Console.h"

namespace {

int RunTool(int argc, char** argv) {
    using namespace zorvex::tool;
    CommandLine line;
    AddAllCommands(line);
    try {
        const int status = line.Run(argc, argv);
        // Output that could not be written is a failure, whatever the command thought.
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
            SayError("cannot write to standard output");
            return exitFailed;
        }
        return status;
    } catch (const UsageError& error) {
        SayError(error.what());
        return exitUsage;
    } catch (const zorvex::Error& error) {
        SayError(error);
    } catch (const std::exception& error) {
        SayError(error.what());
    }
    return exitFailed;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const int status = RunTool(argc, argv);
        zorvex::tool::SayReplaced();
        return status;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zorvex: error: %s\n", error.what());
        return zorvex::tool::exitFailed;
    }
}
