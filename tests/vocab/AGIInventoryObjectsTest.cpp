#include <gtest/gtest.h>

#include <random>

#include "tests/support/ExpectError.h"
#include "tests/vocab/VocabSupport.h"
#include "zorvex/game/Text.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/ObjectFile.h"

namespace zorvex::test {
namespace {

/// "name/room", with a "!" behind it for an item that is not unique.
std::vector<std::string> Shown(const AGIInventoryObjects& list) {
    std::vector<std::string> items;
    for (const auto& item : list)
        items.push_back(item->ItemName() + "/" + std::to_string(item->Room()) + (item->Unique() ? "" : "!"));
    return items;
}

using Items = std::vector<std::string>;

class InventoryTest : public testing::Test {
  protected:
    InventoryTest() { list.NewObjects(); }

    TempDir dir;
    AGIInventoryObjects list;
};

TEST_F(InventoryTest, HasContentsOnlyWhileLoaded) {
    EXPECT_EQ(Shown(list), Items{"?/0"});
    EXPECT_TRUE(list.IsDirty());
    EXPECT_ERROR(642, list.NewObjects());
    EXPECT_RUNTIME(9, list.Item(1));
    EXPECT_RUNTIME(9, list.Remove(-1));
    list.Unload();
    EXPECT_ERROR(563, list.begin());
    EXPECT_ERROR(563, list.Item(-1));
    EXPECT_ERROR(563, list.Remove(-1));
    EXPECT_ERROR(563, list.MaxScreenObjects(1));
    EXPECT_ERROR(563, list.Export("", 1));
    EXPECT_ERROR(563, AGIInventoryObjects().SetObjects(list));
}

TEST_F(InventoryTest, UniqueFollowsAnyRunOfChanges) {
    std::mt19937 random(7);
    const std::array<std::string, 5> names{"a", "A", "b", "?", ""};
    for (int step = 0; step < 2000; ++step) {
        const std::string& name = names[random() % names.size()];
        const auto index = static_cast<std::int32_t>(random() % static_cast<std::size_t>(list.Count()));
        switch (random() % 4) {
            case 0: list.Remove(random() % 2 == 0 ? index : list.Count() - 1); break;
            case 1:
                if (list.Count() < 8) list.Add(name, 1);
                break;
            default: list.Item(index)->ItemName(name);
        }
        for (const auto& item : list) {
            const auto same = std::count_if(list.begin(), list.end(), [&](const auto& other) {
                return EqualNoCase(other->ItemName(), item->ItemName());
            });
            ASSERT_EQ(item->Unique(), same == 1 || item->ItemName() == "?") << "step " << step;
        }
    }
}

TEST_F(InventoryTest, NumbersStayWhenItemsAreRemoved) {
    list.Add("key", 1);
    list.Add("lamp", 2);
    list.Add("key", 3);
    list.IsDirty(false);
    const auto last = list.Item(3);
    list.Remove(3);
    EXPECT_TRUE(list.IsDirty());
    EXPECT_EQ(Shown(list), (Items{"?/0", "key/1", "lamp/2"}));
    last->ItemName("lamp");  // it no longer belongs to the list
    list.Remove(1);
    EXPECT_EQ(Shown(list), (Items{"?/0", "?/0", "lamp/2"}));
}

TEST_F(InventoryTest, HoldsNoMoreThan256Items) {
    for (int i = 1; i < 256; ++i)
        list.Add("item" + std::to_string(i), 0);
    EXPECT_ERROR(569, list.Add("x", 0));
}

TEST_F(InventoryTest, SavesBothFormsAndReadsThemUnderAnyName) {
    list.Add("key", 5);
    list.Add("Key", 255);
    list.Encrypted(true);
    list.Description("Mine");
    list.Save(dir.File("object"));
    list.Save(dir.File("items.ago"), 1);
    dir.Write("text", dir.Read("items.ago"));
    dir.Write("bytes.ago", dir.Read("object"));
    for (const char* name : {"object", "items.ago", "text", "bytes.ago"}) {
        SCOPED_TRACE(name);
        const bool isText = dir.ReadText(name).starts_with("2.1.1");
        AGIInventoryObjects other;
        other.Load(dir.File(name));
        EXPECT_EQ(Shown(other), (Items{"?/0", "key/5!", "Key/255!"}));
        EXPECT_EQ(other.Encrypted(), !isText);
        EXPECT_EQ(other.Description(), isText ? "Mine" : "");
        EXPECT_FALSE(other.IsDirty());
    }
}

TEST_F(InventoryTest, AFailedLoadLeavesNothing) {
    dir.Write("bad", "nothing that it knows");
    AGIInventoryObjects other;
    EXPECT_ERROR(599, other.Load());
    EXPECT_ERROR(524, other.Load(dir.File("missing.ago")));
    EXPECT_ERROR_TEXT(692, "Unable to load OBJECT file - invalid data", other.Load(dir.File("bad")));
    const OpenDirectory open(dir);
    other.JoinGame(false);
    dir.Write("OBJECT", "bad");
    EXPECT_ERROR(692, other.Load());
    EXPECT_FALSE(other.Loaded());
    EXPECT_EQ(other.Items().size(), 1U);
}

TEST_F(InventoryTest, WritesOnlyWhatHasChangedAndKeepsTheFileWhenItCannot) {
    EXPECT_ERROR(615, list.Save());
    EXPECT_ERROR(616, list.Export("", 0));
    list.Save(dir.File("o"));
    dir.Write("o", "as it was");
    list.Encrypted(false);
    list.MaxScreenObjects(16);
    list.Save(dir.File("O"));
    EXPECT_EQ(dir.ReadText("o"), "as it was");
    list.Item(0)->ItemName(std::string(40000, 'x'));
    list.Export(dir.File("copy"), 2, false);
    EXPECT_TRUE(list.IsDirty());
    list.Export(dir.File("copy.ago"), 1, false);
    EXPECT_FALSE(list.IsDirty()) << "a text counts as saved in any case";
    list.Add("y", 1);
    EXPECT_ERROR_TEXT(674, "OBJECT file compile error(6:Overflow)", list.Save(dir.File("o")));
    EXPECT_EQ(dir.ReadText("o"), "as it was");
    EXPECT_EQ(dir.All().size(), 2U) << "no file is left behind";
}

TEST_F(InventoryTest, AGamesInventoryKeepsItsFileAndItsDescriptionWithTheGame) {
    InventoryData amiga;
    amiga.Items = {{"?", 0}, {"key", 3}};
    amiga.AmigaOBJ = true;
    dir.Write("OBJECT", EncodeObjectFile(amiga));
    const OpenDirectory open(dir);
    AGIInventoryObjects items;
    items.JoinGame(false);
    items.Load();
    items.Description("What you find");
    EXPECT_ERROR(680, items.ResFile("x"));
    items.AmigaOBJ(false);
    EXPECT_EQ(dir.Read("OBJECT.amg"), EncodeObjectFile(amiga));
    amiga.AmigaOBJ = false;
    EXPECT_EQ(dir.Read("OBJECT"), EncodeObjectFile(amiga));
    items.Item(1)->Room(9);
    items.Save(dir.File("ignored"), 1);
    items.Unload();
    EXPECT_ERROR(510, items.NewObjects());
    items.Load();
    EXPECT_EQ(Shown(items), (Items{"?/0", "key/9"}));
    EXPECT_EQ(items.Description(), "What you find");
    EXPECT_FALSE(dir.Exists("ignored"));
}

TEST_F(InventoryTest, TakesOverAnotherListWithTheRoomOfItsFirstItem) {
    dir.Write("items.ago", "2.1.1\n17\n7\t?\n8\tkey\n9\tKEY\n\xFF\xFF\nMine");
    auto other = std::make_unique<AGIInventoryObjects>();
    other->Load(dir.File("items.ago"));
    EXPECT_EQ(Shown(*other), (Items{"?/0", "key/8!", "KEY/9!"}))
        << "a file's item 0 keeps no room while unused";
    other->Item(0)->Room(7);
    list.SetObjects(*other);
    const auto item = other->Item(1);
    other.reset();
    item->ItemName("outlives its list");
    list.SetObjects(list);
    EXPECT_EQ(Shown(list), (Items{"?/7", "key/8!", "KEY/9!"}));
    EXPECT_TRUE(list.IsDirty() && list.MaxScreenObjects() == 17 && list.Description() == "Mine");
}

}  // namespace
}  // namespace zorvex::test
