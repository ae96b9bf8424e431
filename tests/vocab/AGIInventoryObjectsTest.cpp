#include "zorvex/base/Internal.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/ObjectFile.h"

namespace zorvex::test {
namespace {

/// "name/room" of each item, with a "!" behind one that is not unique and a blank between them.
std::string Shown(const AGIInventoryObjects& list) {
    std::string shown;
    for (const auto& item : list) {
        if (!shown.empty()) shown += ' ';
        shown += item->ItemName() + "/" + std::to_string(item->Room()) + (item->Unique() ? "" : "!");
    }
    return shown;
}

class InventoryTest : public testing::Test {
  protected:
    InventoryTest() { list.NewObjects(); }

    TempDir dir;
    AGIInventoryObjects list;
};

TEST_F(InventoryTest, NumbersStayWhenItemsAreRemoved) {
    list.Add("key", 1);
    list.Add("lamp", 2);
    list.Add("key", 3);
    list.IsDirty(false);
    const auto last = list.Item(3);
    list.Remove(3);
    EXPECT_TRUE(list.IsDirty());
    EXPECT_EQ(Shown(list), "?/0 key/1 lamp/2");
    last->ItemName("lamp");  // it no longer belongs to the list
    list.Remove(1);
    EXPECT_EQ(Shown(list), "?/0 ?/0 lamp/2");
    for (int i = 3; i < 256; ++i)
        list.Add("item" + std::to_string(i), 0);
    EXPECT_ERROR(569, list.Add("x", 0));
    EXPECT_RUNTIME(9, list.Remove(256));
}

TEST_F(InventoryTest, TheSettingsCountAsContents) {
    EXPECT_ERROR(615, list.Save("", 2));
    EXPECT_ERROR(616, list.Export("", 0));
    list.Save(dir.File("o"));
    list.Encrypted(false);
    list.MaxScreenObjects(16);
    EXPECT_FALSE(list.IsDirty());
    list.Encrypted(true);
    list.Export(dir.File("copy.ago"), 1, false);
    EXPECT_FALSE(list.IsDirty()) << "a text counts as saved in any case";
    list.MaxScreenObjects(9);
    EXPECT_TRUE(list.IsDirty());
}

TEST_F(InventoryTest, AnAmigaFileBecomesAnOrdinaryOne) {
    InventoryData amiga;
    amiga.Items = {{"?", 0}, {"key", 3}};
    amiga.AmigaOBJ = true;
    dir.Write("OBJECT", EncodeObjectFile(amiga));
    const OpenDirectory open(dir);
    AGIInventoryObjects items;
    items.JoinGame(Internal(), false);
    items.Load();
    items.AmigaOBJ(false);
    EXPECT_EQ(dir.Read("OBJECT.amg"), EncodeObjectFile(amiga));
    amiga.AmigaOBJ = false;
    EXPECT_EQ(dir.Read("OBJECT"), EncodeObjectFile(amiga));
}

TEST_F(InventoryTest, AFirstItemNotInUseKeepsItsRoom) {
    dir.Write("items.ago", "2.1.1\n17\n7\t?\n8\tkey\n9\tKEY\n");
    auto other = std::make_unique<AGIInventoryObjects>();
    other->Load(dir.File("items.ago"));
    EXPECT_EQ(Shown(*other), "?/7 key/8! KEY/9!");
    other->Item(0)->Room(6);
    list.SetObjects(*other);
    const auto item = other->Item(1);
    other.reset();
    item->ItemName("outlives its list");
    EXPECT_EQ(Shown(list) + " " + std::to_string(list.MaxScreenObjects()), "?/6 key/8! KEY/9! 17");
}

}  // namespace
}  // namespace zorvex::test
