// Runs the tool's program and catches what it says.
#pragma once

#include <string>
#include <vector>

namespace zorvex::test {

struct ToolRun {
    int Status = -1;
    std::string Output;       ///< standard output
    std::string Diagnostics;  ///< standard error
};

/// Runs the tool with these arguments. The test is to be skipped where ToolPath() is empty.
ToolRun RunTool(const std::vector<std::string>& arguments);

}  // namespace zorvex::test

/// Skips a test where the tool is not built.
#define SKIP_WITHOUT_TOOL() \
    if (zorvex::test::ToolPath().empty()) GTEST_SKIP() << "the tool is not built"
