// The sample game builds from its texts, and what it builds is whole.
#include <sys/wait.h>

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "tests/support/RunTool.h"
#include "tests/support/TestFiles.h"

namespace zorvex {
namespace {

TEST(SampleGame, BuildsAndIsWhole) {
    SKIP_WITHOUT_TOOL();
    const test::TempDir dir;
    const std::string game = dir.Native() + "/game";
    const std::string command = "'" + test::SampleBuilderPath() + "' '" + test::SourceDirectory() +
                                "/examples/sample-game' '" + game + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const test::ToolRun verified = test::RunTool({"verify", game, "--json"});
    EXPECT_EQ(verified.Status, 0);
    EXPECT_EQ(verified.Output, "[]\n") << "no fault of any kind";
    EXPECT_EQ(verified.Diagnostics, "");
    const auto info = nlohmann::json::parse(test::RunTool({"info", game, "--json"}).Output);
    EXPECT_EQ(info["id"], "LAMP");
    EXPECT_EQ(info["resources"]["logic"], 6);
    EXPECT_EQ(info["resources"]["picture"], 5);
    EXPECT_EQ(info["volumes"][0]["free"], 0);
    EXPECT_EQ(test::RunTool({"build", game}).Status, 0) << "it can be built again";
}

}  // namespace
}  // namespace zorvex
