#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/AGICommands.h"
#include "zorvex/language/AGITestCommands.h"

namespace zorvex::test {

class CommandTablesTest : public testing::Test {
  protected:
    ~CommandTablesTest() override { InitCommandTables(); }

    AGICommands commands;
};

TEST_F(CommandTablesTest, AreFittedToEveryVersion) {
    struct Fit {
        std::string_view version;
        int count;
        int quitArgs;
        int printAtArgs;
    };
    constexpr Fit fits[] = {{"2.089", 155, 0, 3},     {"2.090", 161, 1, 3},    {"2.272", 161, 1, 3},
                            {"2.4", 169, 1, 3},       {"2.411", 169, 1, 4},    {"2.440", 169, 1, 4},
                            {"2.915", 173, 1, 4},     {"2.917", 173, 1, 4},    {"2.936", 175, 1, 4},
                            {"3.002086", 177, 1, 4},  {"3.002098", 181, 1, 4}, {"3.002149", 181, 1, 4},
                            {"2.917 beta", 173, 1, 4}};
    for (const Fit& fit : fits) {
        SCOPED_TRACE(fit.version);
        SetCommandsForVersion("3.002149");
        SetCommandsForVersion(fit.version);
        EXPECT_EQ(commands.Count(), fit.count);
        EXPECT_EQ(commands(134).ArgCount, fit.quitArgs);
        EXPECT_EQ(commands(151).ArgCount, fit.printAtArgs);
        EXPECT_EQ(CommandCatalogue().ActionCommandTable[152].ArgCount, fit.printAtArgs);
        EXPECT_EQ(AGITestCommands().Count(), 19);
    }
}

TEST_F(CommandTablesTest, FindNamesWhateverTheVersion) {
    SetCommandsForVersion("2.089");
    EXPECT_EQ(ActionCommandNumber("Set.View"), 41);
    EXPECT_EQ(ActionCommandNumber("adj.ego.move.to.x.y"), 182);
    EXPECT_EQ(TestCommandNumber("SAID"), 14);
    EXPECT_EQ(ActionCommandNumber("said"), -1);
    EXPECT_EQ(TestCommandNumber(""), -1);
}

TEST_F(CommandTablesTest, RefuseNumbersAboveTheCount) {
    SetCommandsForVersion("3.002149");
    EXPECT_EQ(commands(181).Name, "release.key");
    commands.strErrSource("here");
    EXPECT_RAISED(raised->Number() == reSubscript && raised->Source() == "here", commands(182));
    EXPECT_RUNTIME(reSubscript, AGITestCommands()(20));
}

}  // namespace zorvex::test
