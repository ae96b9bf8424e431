// Runs the tool's program and catches what it says.
#pragma once

#include "tests/support/TestFiles.h"

namespace zorvex::test {

struct ToolRun {
    int Status = -1;
    std::string Output;       ///< standard output
    std::string Diagnostics;  ///< standard error
};

/// Runs the tool with these arguments.
ToolRun RunTool(const std::vector<std::string>& arguments);
/// The exit status of the tool with these arguments.
int StatusOf(const std::vector<std::string>& arguments);

/// A directory for a game and one for what comes out of it. The test is skipped where the tool is not built.
class ToolTest : public testing::Test {
  protected:
    void SetUp() override;
    std::string Out(const std::string& name) const { return out.Native() + "/" + name; }

    TempDir game;
    TempDir out;
};

}  // namespace zorvex::test
