// The sample game builds from its texts, and what it builds is whole.
#include <sys/wait.h>

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "tests/support/RunTool.h"

namespace zorvex::test {

using SampleGame = ToolTest;

TEST_F(SampleGame, BuildsAndIsWhole) {
    const std::string built = Out("game");
    const std::string command =
        "'" + SampleBuilderPath() + "' '" + SourceDirectory() + "/examples/sample-game' '" + built + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const ToolRun verified = RunTool({"verify", built, "--json"});
    EXPECT_EQ(verified.Status, 0);
    EXPECT_EQ(verified.Output, "[]\n") << "no fault of any kind";
    EXPECT_EQ(verified.Diagnostics, "");
    const auto info = nlohmann::json::parse(RunTool({"info", built, "--json"}).Output);
    EXPECT_EQ(info["id"], "LAMP");
    EXPECT_EQ(info["resources"]["logic"], 6);
    EXPECT_EQ(info["resources"]["picture"], 5);
    EXPECT_EQ(info["volumes"][0]["free"], 0);
    EXPECT_EQ(StatusOf({"build", built}), 0) << "it can be built again";
}

}  // namespace zorvex::test
