#include "zorvex/language/AGILogicSourceSettings.h"

namespace zorvex::test {

class SettingsTest : public testing::Test {
  protected:
    ~SettingsTest() override {
        settings.ResetResDefines();
        settings.SourceExt("lgc");
    }

    /// The name that an entry has after it was renamed and all names were checked.
    std::string NameAfterCheck(std::int16_t group, std::int16_t index, std::string_view name) {
        settings.ResetResDefines();
        settings.ResDef(group, index, name);
        const bool good = settings.ValidateResDefs();
        const TDefine entry = settings.ResDefByGrp(group)[static_cast<std::size_t>(index)];
        EXPECT_EQ(good, entry.Name == name) << name;
        return entry.Name;
    }

    AGILogicSourceSettings settings;
};

TEST_F(SettingsTest, IndexesOutOfRangeRaiseAndChangeNothing) {
    EXPECT_EQ(settings.ArgTypePrefix(8), "c");
    EXPECT_EQ(settings.ArgTypeName(4), "object");
    const auto isSubscript = [](const auto& error) {
        return error->Number() == reSubscript && error->Source() == "Zorvex.agiLogicSourceSettings";
    };
    EXPECT_RAISED(isSubscript(raised), settings.ArgTypePrefix(9));
    EXPECT_RAISED(isSubscript(raised), settings.ArgTypeName(9));
    EXPECT_RAISED(isSubscript(raised), settings.IgnoreWarning(5000, true));
    EXPECT_RAISED(isSubscript(raised), settings.IgnoreWarning(5108));
    EXPECT_RAISED(isSubscript(raised), settings.ResDef(1, 27, "x"));
    EXPECT_RAISED(isSubscript(raised), settings.ResDef(1, -1, "x"));
    EXPECT_RAISED(isSubscript(raised), settings.ResDef(9, 0, "x"));
    EXPECT_RAISED(isSubscript(raised), settings.ResDefByGrp(0));
    EXPECT_TRUE(settings.ValidateResDefs());
}

TEST_F(SettingsTest, SharesAllButTheFourFieldsOfTheObject) {
    AGILogicSourceSettings other;
    settings.ErrorLevel(leLow);
    settings.SourceExt("src");
    settings.ReservedAsText(true);
    settings.IgnoreWarning(5107, true);
    settings.ResDef(1, 0, "room");
    EXPECT_EQ(other.ErrorLevel(), leHigh);
    EXPECT_EQ(other.SourceExt(), ".src");
    EXPECT_TRUE(other.ReservedAsText());
    EXPECT_TRUE(other.IgnoreWarning(5107));
    EXPECT_EQ(other.ReservedDefines(atVar)[0].Name, "room");
    other.IgnoreWarning(5107, false);
    other.ReservedAsText(false);
}

TEST_F(SettingsTest, GivesTheDefinesOfAType) {
    Library().GameID = "GAME";
    const std::vector<TDefine> numbers = settings.ReservedDefines(atNum);
    ASSERT_EQ(numbers.size(), 45U);
    EXPECT_EQ(numbers[5].Name, "STOPPED");
    EXPECT_EQ(numbers[44].Name, "numberOfItems");
    EXPECT_EQ(numbers[44].Value, "0");
    const std::vector<TDefine> flags = settings.ReservedDefines(atFlag);
    ASSERT_EQ(flags.size(), 18U);
    EXPECT_EQ(flags[17].Value, "f20");
    EXPECT_EQ(settings.ReservedDefines(atVar)[26].Value, "v26");
    EXPECT_EQ(settings.ReservedDefines(atDefStr)[2].Value, "\"GAME\"");
    EXPECT_EQ(settings.ReservedDefines(atStr)[0].Value, "s0");
    EXPECT_EQ(settings.ReservedDefines(atMsg), std::vector<TDefine>(1));
    Library().GameID.clear();
}

TEST_F(SettingsTest, BringsBadNamesBack) {
    for (const char* name : {"", "12", " -1.5 ", "set.view", "Said", "adj.ego.move.to.x.y", "ELSE", "goto",
                             "v12", "S3", "a b", "a-b", "a/b", "a@b", "a\\b", "a`b", "a\xE9"}) {
        EXPECT_EQ(NameAfterCheck(1, 0, name), "currentRoom");
    }
    for (const char* name : {"room", "then", "w", "a.b", "a_b", "x12", "CURRENTROOM"}) {
        EXPECT_EQ(NameAfterCheck(1, 0, name), name);
    }
}

TEST_F(SettingsTest, BringsNamesOfOtherValuesBack) {
    EXPECT_EQ(NameAfterCheck(1, 0, "PREVIOUSROOM"), "currentRoom");
    EXPECT_EQ(NameAfterCheck(3, 0, "stopped"), "stopped") << "both stand for 0";
    EXPECT_EQ(NameAfterCheck(8, 2, "gameid"), "gameid") << "both texts are empty";
    Library().GameID = "CAVE";
    EXPECT_EQ(NameAfterCheck(8, 2, "gameid"), "gameAboutMsg") << "different texts of the game";
    Library().GameID.clear();
    EXPECT_EQ(NameAfterCheck(8, 2, "numberofitems"), "gameAboutMsg")
        << "a number, whose value a compile fills";
    EXPECT_EQ(NameAfterCheck(1, 0, "inputprompt"), "inputprompt") << "its name is not compared";
}

}  // namespace zorvex::test
