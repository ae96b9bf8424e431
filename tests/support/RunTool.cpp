#include "tests/support/RunTool.h"

#include <sys/wait.h>

namespace zorvex::test {

namespace {

std::string Quoted(const std::string& argument) {
    std::string quoted = "'";
    for (const char c : argument)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace

ToolRun RunTool(const std::vector<std::string>& arguments) {
    const TempDir dir;
    std::string command = Quoted(ToolPath());
    for (const std::string& argument : arguments)
        command += " " + Quoted(argument);
    command += " >" + Quoted(dir.Native() + "/out") + " 2>" + Quoted(dir.Native() + "/err") + " </dev/null";
    ToolRun run;
    const int status = std::system(command.c_str());
    run.Status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    run.Output = dir.ReadText("out");
    run.Diagnostics = dir.ReadText("err");
    return run;
}

int StatusOf(const std::vector<std::string>& arguments) {
    return RunTool(arguments).Status;
}

void ToolTest::SetUp() {
    if (ToolPath().empty()) GTEST_SKIP() << "the tool is not built";
}

}  // namespace zorvex::test
