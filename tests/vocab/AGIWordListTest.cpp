#include "zorvex/base/Internal.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex::test {
namespace {

std::string TextsOf(const AGIWordList& list) {
    std::string texts;
    for (const AGIWord& word : list)
        texts += (texts.empty() ? "" : " ") + word.WordText;
    return texts;
}

class WordListTest : public testing::Test {
  protected:
    WordListTest() { list.NewWords(); }
    ~WordListTest() override { ExpectSound(); }

    /// What must hold for any loaded list: both orders, and each word in the one group that it names.
    void ExpectSound() const {
        std::int32_t inGroups = 0;
        for (std::int32_t i = 0; list.Loaded() && i < list.GroupCount(); ++i) {
            const auto group = list.Group(i);
            EXPECT_TRUE(i == 0 || list.Group(i - 1)->GroupNum() < group->GroupNum());
            EXPECT_TRUE(std::is_sorted(group->Words().begin(), group->Words().end()));
            for (const std::string& text : group->Words())
                EXPECT_EQ(list.Item(text), (AGIWord{text, group->GroupNum()}));
            inGroups += group->WordCount();
        }
        EXPECT_TRUE(!list.Loaded() || inGroups == list.WordCount());
    }

    TempDir dir;
    AGIWordList list;
};

TEST_F(WordListTest, KeepsWordsInLowerCaseAndInOrder) {
    EXPECT_EQ(TextsOf(list), "a anyword rol");
    for (const char* text : {"Look", "b", "zebra", "2", "apple", "\xE9"})
        list.AddWord(text, 7);
    EXPECT_EQ(TextsOf(list), "2 a anyword apple b look rol zebra \xE9");
    EXPECT_ERROR_TEXT(579, "Can't add word; it already exists", list.AddWord("LOOK", 70000));
    EXPECT_EQ(list.Item("LOOK").Group, 7);
    EXPECT_EQ(list.GroupN(7)->GroupName(), "2");
    EXPECT_ERROR(574, list.GroupN(7)->Word(6));
    EXPECT_ERROR(581, list.AddWord("x", 65536));
    EXPECT_ERROR(586, list.Item("y"));
    EXPECT_RUNTIME(9, list.Item(9));
}

TEST_F(WordListTest, GroupsStayWhenTheirWordsGo) {
    list.IsDirty(false);
    list.RemoveWord(list.Item(0).WordText);
    EXPECT_TRUE(list.IsDirty());
    EXPECT_ERROR(584, list.RemoveWord("a"));
    EXPECT_EQ(list.GroupN(0)->GroupName(), "");
    list.RemoveGroup(9999);
    EXPECT_EQ(TextsOf(list), "anyword");
    EXPECT_ERROR(583, list.RemoveGroup(9999));
    EXPECT_ERROR_TEXT(575, "Invalid wordgroup number", list.GroupN(9999));
    EXPECT_ERROR(588, list.Group(2));
    list.AddGroup(65535);
    EXPECT_ERROR(576, list.AddGroup(65535));
    EXPECT_ERROR(575, list.AddGroup(-1));
}

TEST_F(WordListTest, ARenumberedGroupTakesItsWordsAlong) {
    const auto group = list.GroupN(1);
    list.AddWord("whatever", 1);
    list.RenumberGroup(1, 20000);
    EXPECT_EQ(list.Group(2), group);
    EXPECT_ERROR(575, list.RenumberGroup(20000, 65536));
    EXPECT_ERROR(696, list.RenumberGroup(1, 20000));
    EXPECT_ERROR(697, list.RenumberGroup(20000, 20000));
    ExpectSound();
    list.Unload();
    EXPECT_EQ(group->GroupName(), "anyword") << "a group outlives its list";
    EXPECT_FALSE(list.WordExists("a") || list.GroupExists(0));
}

TEST_F(WordListTest, WritesNoListWithoutWords) {
    EXPECT_ERROR(616, list.Save());
    EXPECT_ERROR(615, list.Save("", 1));
    EXPECT_ERROR(671, list.Export("", 1));
    list.Clear();
    EXPECT_ERROR_TEXT(672, "WORDS.TOK compile error(no word groups to add)", list.Save(dir.File("w.tok")));
    list.AddGroup(4);
    EXPECT_ERROR_TEXT(672, "WORDS.TOK compile error(no words to add)", list.Save(dir.File("w.tok")));
    const OpenDirectory open(dir);
    list.JoinGame(Internal(), true);
    list.AddWord("word", 4);
    list.Save();
    EXPECT_NE(Library().LastEdit, DateTime{});
}

TEST_F(WordListTest, WalksGroupsAndTheirWords) {
    AGIWordList words;
    EXPECT_ERROR(563, words.Groups());
    EXPECT_ERROR(563, words.size());
    words.NewWords();
    words.AddWord("an", 0);
    std::string text;
    for (auto& group : words.Groups()) {
        text += std::to_string(group->GroupNum()) + ":" + std::to_string(group->size());
        for (auto& word : *group)
            text += " " + word;
        text += "; ";
    }
    EXPECT_EQ(text, "0:2 a an; 1:1 anyword; 9999:1 rol; ");
    EXPECT_EQ(words.size(), 4U);
    EXPECT_FALSE(words.empty());
}

TEST_F(WordListTest, TellsWhereATextFormIsBad) {
    dir.Write("twice.agw", "2.1.1\r\n0\ta\r\n1\ta\r\n");
    dir.Write("group", "2.1.1\r\nx\ta\r\n");
    AGIWordList other;
    EXPECT_ERROR(579, other.Load(dir.File("twice.agw")));
    EXPECT_EQ(other.LoadErrorLine(), 3);
    EXPECT_ERROR(529, other.Load(dir.File("group")));
    EXPECT_EQ(other.LoadErrorLine(), 2);
    EXPECT_FALSE(other.Loaded() || other.WordExists("a") || !other.ResFile().empty());
}

}  // namespace
}  // namespace zorvex::test
