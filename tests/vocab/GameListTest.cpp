// What holds for word lists and inventories alike.
#include "zorvex/base/Internal.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex::test {
namespace {

/// The classes with members of the same names, the names of the game's file and of a text form, and the
/// errors of their own.
struct Words : AGIWordList {
    static constexpr std::array Files{"WORDS.TOK", "list.agw"};
    static constexpr int Unreadable = 529, Unwritable = 672;
    void New() { NewWords(); }
    void Add(std::string_view name) { AddWord(name, 7); }
    void Take(const Words& other) { SetWords(other); }
    bool Has(std::string_view name) const { return WordExists(name) && Item(name).Group == 7; }
};

struct Items : AGIInventoryObjects {
    static constexpr std::array Files{"OBJECT", "list.ago"};
    static constexpr int Unreadable = 692, Unwritable = 674;
    void New() { NewObjects(); }
    void Add(std::string_view name) { AGIInventoryObjects::Add(name, 7); }
    void Take(const Items& other) { SetObjects(other); }
    bool Has(std::string_view name) const {
        return AGIInventoryObjects::Items().size() > 1 && Item(1)->ItemName() == name && Item(1)->Room() == 7;
    }
};

template <class Kind>
class GameListTest : public testing::Test {
  protected:
    GameListTest() {
        first.New();
        first.Add("lamp");
        first.Description("Mine");
    }

    TempDir files;
    Kind first;
    Kind second;
};
using Kinds = testing::Types<Words, Items>;
TYPED_TEST_SUITE(GameListTest, Kinds);

TYPED_TEST(GameListTest, HasContentsOnlyWhileLoaded) {
    auto& list = this->first;
    EXPECT_TRUE(list.IsDirty());
    EXPECT_ERROR(642, list.New());
    EXPECT_ERROR(511, list.Load());
    list.Unload();
    EXPECT_FALSE(list.Loaded() || list.IsDirty());
    EXPECT_ERROR(563, list.Clear());
    EXPECT_ERROR(563, list.Save());
    EXPECT_ERROR(563, list.Export("", 1));
    EXPECT_ERROR(563, list.Description());
    EXPECT_ERROR(563, list.begin());
    EXPECT_ERROR(563, list.Item(-1));
    EXPECT_ERROR(563, this->second.Take(list));
}

TYPED_TEST(GameListTest, SavesBothFormsAndReadsThemUnderAnyName) {
    const TempDir& dir = this->files;
    const std::string text = TypeParam::Files[1];
    this->first.Save(dir.File("file"));
    this->first.Save(dir.File(text), 1);
    dir.Write("text", dir.Read(text));
    dir.Write("bytes" + text, dir.Read("file"));
    for (const std::string& name : {std::string("file"), text, std::string("text"), "bytes" + text}) {
        SCOPED_TRACE(name);
        TypeParam read;
        read.Load(dir.File(name));
        EXPECT_TRUE(read.Has("lamp"));
        EXPECT_EQ(read.Description(), dir.ReadText(name).starts_with("2.1.1") ? "Mine" : "");
        EXPECT_EQ(read.ResFile(), dir.File(name));
        EXPECT_FALSE(read.IsDirty() || read.LoadErrorLine() != 0);
    }
}

TYPED_TEST(GameListTest, AFailedLoadLeavesNothing) {
    const TempDir& dir = this->files;
    auto& other = this->second;
    dir.Write("bad", "nothing that it knows");
    dir.Write("empty", "");
    EXPECT_ERROR(599, other.Load());
    EXPECT_ERROR_TEXT(524, "File not found (no/such.tok)", other.Load("no/such.tok"));
    EXPECT_ERROR(TypeParam::Unreadable, other.Load(dir.File("bad")));
    EXPECT_ERROR(TypeParam::Unreadable, other.Load(dir.File("empty")));
    const OpenDirectory open(dir);
    other.JoinGame(Internal(), false);
    EXPECT_ERROR(TypeParam::Unreadable, other.Load());
    EXPECT_FALSE(other.Loaded());
}

TYPED_TEST(GameListTest, WritesOnlyWhatHasChangedAndKeepsTheFileWhenItCannot) {
    const TempDir& dir = this->files;
    auto& list = this->first;
    list.Save(dir.File("o"));
    dir.Write("o", "as it was");
    list.Description("A description alone is no change");
    list.Save(dir.File("O"));
    list.Add("\xE9" + std::string(40000, 'x'));
    list.Add("z");
    list.Export(dir.File("none"), 2, false);
    EXPECT_TRUE(list.IsDirty());
    EXPECT_RAISED(
        raised->Is(TypeParam::Unwritable) && Has(raised->Description(), " compile error(6:Overflow)"),
        list.Save(dir.File("o")));
    dir.MakeDirectory("taken");
    EXPECT_ERROR(TypeParam::Unwritable, this->first.Save(dir.File("taken")));
    EXPECT_EQ(dir.ReadText("o"), "as it was");
    EXPECT_EQ(dir.All().size(), 1U) << "no file is left behind";
}

TYPED_TEST(GameListTest, ThatOfAGameKeepsItsFileAndItsDescriptionWithTheGame) {
    const TempDir& dir = this->files;
    auto& other = this->second;
    this->first.Save(dir.File(TypeParam::Files[0]));
    const OpenDirectory open(dir);
    other.JoinGame(Internal(), false);
    std::string file = "elsewhere";
    other.Load(file);
    EXPECT_EQ(file, dir.File(TypeParam::Files[0]));
    EXPECT_EQ(other.Description(), "");
    other.Description(std::string(1025, 'x'));
    EXPECT_ERROR(680, other.ResFile("x"));
    other.Add("word");
    other.Export(dir.File("copy"), 0);
    EXPECT_TRUE(other.IsDirty());
    other.Save(dir.File("ignored"), 1);
    EXPECT_EQ(dir.Read("copy"), dir.Read(TypeParam::Files[0]));
    EXPECT_EQ(dir.All().size(), 2U);
    other.Unload();
    EXPECT_ERROR(510, other.New());
    other.Load();
    EXPECT_EQ(other.Description(), std::string(1024, 'x'));
    other.Take(this->first);
    EXPECT_EQ(other.ResFile(), dir.File(TypeParam::Files[0]));
}

TYPED_TEST(GameListTest, TakesOverAnotherList) {
    this->first.Save(this->files.File(TypeParam::Files[1]), 1);
    this->second.Take(this->first);
    EXPECT_FALSE(this->second.IsDirty());
    this->first.Clear();
    this->second.Take(this->second);
    EXPECT_TRUE(this->second.Has("lamp"));
    EXPECT_EQ(this->second.Description() + this->second.ResFile(),
              "Mine" + this->files.File(TypeParam::Files[1]));
}

}  // namespace
}  // namespace zorvex::test
