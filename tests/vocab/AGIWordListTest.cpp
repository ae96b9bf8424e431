#include <gtest/gtest.h>

#include "tests/support/ExpectError.h"
#include "tests/vocab/VocabSupport.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex::test {
namespace {

std::vector<std::string> TextsOf(const AGIWordList& list) {
    std::vector<std::string> texts;
    for (const AGIWord& word : list)
        texts.push_back(word.WordText);
    return texts;
}

/// What must hold for any loaded list.
void ExpectSound(const AGIWordList& list) {
    std::int32_t inGroups = 0;
    for (std::int32_t i = 0; i < list.GroupCount(); ++i) {
        const auto group = list.Group(i);
        if (i > 0) {
            EXPECT_LT(list.Group(i - 1)->GroupNum(), group->GroupNum());
        }
        EXPECT_EQ(list.GroupN(group->GroupNum()), group);
        EXPECT_TRUE(std::is_sorted(group->Words().begin(), group->Words().end()));
        for (const std::string& text : group->Words())
            EXPECT_EQ(list.Item(text), (AGIWord{text, group->GroupNum()}));
        inGroups += group->WordCount();
    }
    EXPECT_EQ(inGroups, list.WordCount());
    const std::vector<std::string> texts = TextsOf(list);
    EXPECT_TRUE(std::is_sorted(texts.begin(), texts.end()));
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(list.Item(static_cast<std::int32_t>(i)).WordText, texts[i]);
}

class WordListTest : public testing::Test {
  protected:
    WordListTest() { list.NewWords(); }
    ~WordListTest() override {
        if (list.Loaded()) ExpectSound(list);
    }

    TempDir dir;
    AGIWordList list;
};

TEST_F(WordListTest, HasContentsOnlyWhileLoaded) {
    EXPECT_EQ(TextsOf(list), (std::vector<std::string>{"a", "anyword", "rol"}));
    EXPECT_TRUE(list.IsDirty());
    EXPECT_ERROR(642, list.NewWords());
    const auto group = list.GroupN(1);
    list.Unload();
    EXPECT_EQ(group->GroupName(), "anyword") << "a group outlives its list";
    EXPECT_ERROR(563, list.begin());
    EXPECT_ERROR(563, list.Item(-1));
    EXPECT_ERROR(563, list.AddWord("a", -1));
    EXPECT_ERROR(563, list.Export("", 0));
    EXPECT_ERROR(563, AGIWordList().SetWords(list));
    EXPECT_FALSE(list.WordExists("a") || list.GroupExists(0) || list.IsDirty());
}

TEST_F(WordListTest, KeepsWordsInLowerCaseAndInOrder) {
    for (const char* text : {"Look", "b", "zebra", "2", "apple", "\xE9"})
        list.AddWord(text, 7);
    EXPECT_EQ(TextsOf(list),
              (std::vector<std::string>{"2", "a", "anyword", "apple", "b", "look", "rol", "zebra", "\xE9"}));
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
    EXPECT_EQ(list.GroupCount(), 3);
    EXPECT_EQ(list.GroupN(0)->GroupName(), "");
    list.RemoveGroup(9999);
    EXPECT_EQ(TextsOf(list), std::vector<std::string>{"anyword"});
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
    EXPECT_EQ(list.Item("whatever").Group, 20000);
    EXPECT_ERROR(575, list.RenumberGroup(20000, 65536));
    EXPECT_ERROR(696, list.RenumberGroup(1, 20000));
    EXPECT_ERROR(697, list.RenumberGroup(20000, 20000));
}

TEST_F(WordListTest, SavesBothFormsAndReadsThemUnderAnyName) {
    list.AddWord("look at", 20);
    list.Description("Mine");
    list.Save(dir.File("words.tok"));
    list.Save(dir.File("list.agw"), 1);
    dir.Write("text.tok", dir.Read("list.agw"));
    dir.Write("tok.agw", dir.Read("words.tok"));
    for (const char* name : {"words.tok", "list.agw", "text.tok", "tok.agw"}) {
        SCOPED_TRACE(name);
        AGIWordList other;
        other.Load(dir.File(name));
        EXPECT_EQ(TextsOf(other), TextsOf(list));
        EXPECT_EQ(other.Item("look at").Group, 20);
        EXPECT_EQ(other.Description(), dir.ReadText(name).starts_with("2.1.1") ? "Mine" : "");
        EXPECT_FALSE(other.IsDirty());
        EXPECT_ERROR(511, other.Load(dir.File(name)));
        ExpectSound(other);
    }
}

TEST_F(WordListTest, AFailedLoadLeavesNothing) {
    dir.Write("empty.tok", "");
    dir.Write("cut.agw", ByteArray{0, 52});
    dir.Write("twice.agw", "2.1.1\r\n0\ta\r\n1\ta\r\n");
    AGIWordList other;
    EXPECT_ERROR(599, other.Load(""));
    EXPECT_ERROR_TEXT(524, "File not found (no/such.tok)", other.Load("no/such.tok"));
    EXPECT_ERROR(529, other.Load(dir.File("empty.tok")));
    EXPECT_ERROR(529, other.Load(dir.File("cut.agw")));
    EXPECT_ERROR(579, other.Load(dir.File("twice.agw")));
    EXPECT_FALSE(other.Loaded() || other.WordExists("a") || !other.ResFile().empty());
}

TEST_F(WordListTest, WritesOnlyWhatHasChanged) {
    list.Save(dir.File("w.tok"));
    dir.Write("w.tok", "as it was");
    list.Save(dir.File("W.TOK"));
    EXPECT_EQ(dir.ReadText("w.tok"), "as it was");
    list.AddGroup(5);
    list.Export(dir.File("other.tok"), 0, false);
    EXPECT_TRUE(list.IsDirty());
    list.Export(dir.File("none"), 2);
    EXPECT_FALSE(dir.Exists("none"));
    EXPECT_FALSE(list.IsDirty());
}

TEST_F(WordListTest, FailedWritesKeepTheOldFile) {
    dir.Write("w.tok", "old");
    EXPECT_ERROR(616, list.Save());
    EXPECT_ERROR(615, list.Save("", 1));
    list.AddWord("\xE9", 3);
    EXPECT_ERROR_TEXT(672, "WORDS.TOK compile error(6:Overflow)", list.Save(dir.File("w.tok")));
    EXPECT_ERROR(671, list.Export("", 1));
    list.Clear();
    EXPECT_ERROR_TEXT(672, "WORDS.TOK compile error(no word groups to add)", list.Save(dir.File("w.tok")));
    list.AddGroup(4);
    EXPECT_ERROR_TEXT(672, "WORDS.TOK compile error(no words to add)", list.Save(dir.File("w.tok")));
    list.AddWord("word", 4);
    dir.MakeDirectory("taken");
    EXPECT_ERROR(672, list.Save(dir.File("taken")));
    EXPECT_EQ(dir.All().size(), 1U) << "no file is left behind";
    EXPECT_EQ(dir.ReadText("w.tok"), "old");
    EXPECT_TRUE(list.IsDirty());
}

TEST_F(WordListTest, AGamesListKeepsItsFileAndItsDescriptionWithTheGame) {
    list.Save(dir.File("WORDS.TOK"));
    const OpenDirectory open(dir);
    AGIWordList words;
    words.JoinGame(false);
    std::string file = "elsewhere";
    words.Load(file);
    EXPECT_EQ(file, dir.File("WORDS.TOK"));
    words.Description(std::string(1025, 'x'));
    EXPECT_ERROR(680, words.ResFile("x"));
    words.AddWord("word", 4);
    words.Export(dir.File("copy.tok"), 0);
    Library().LastEdit = {};
    words.Save(dir.File("ignored.tok"), 1);
    EXPECT_NE(Library().LastEdit, DateTime{});
    EXPECT_EQ(dir.Read("copy.tok"), dir.Read("WORDS.TOK"));

    AGIWordList again;
    again.JoinGame(false);
    EXPECT_ERROR(510, again.NewWords());
    again.Load();
    EXPECT_EQ(again.Description().size(), 1024U);
    EXPECT_EQ(TextsOf(again), TextsOf(words));
    again.Unload();
    dir.Remove("WORDS.TOK");
    EXPECT_ERROR(529, again.Load());
}

TEST_F(WordListTest, TakesOverAnotherList) {
    list.Description("Mine");
    list.Save(dir.File("a.agw"), 1);
    list.AddGroup(77);
    AGIWordList other;
    other.SetWords(list);
    list.RemoveWord("rol");
    other.SetWords(other);
    EXPECT_TRUE(other.IsDirty() && other.GroupExists(77) && other.WordExists("rol"));
    EXPECT_EQ(other.Description() + other.ResFile(), "Mine" + dir.File("a.agw"));
}

}  // namespace
}  // namespace zorvex::test
