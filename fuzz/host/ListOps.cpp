// What the host does with the vocabulary and the inventory.
#include "fuzz/Check.h"
#include "fuzz/host/Host.h"

namespace zorvex::fuzz {

namespace {

constexpr std::array wordTexts{"look",      "get", "a",    "anyword", "rol", "zebra",
                               "two words", "",    "Look", "\xFF",    "x1"};
constexpr std::array groups{0, 1, 2, 20, 9999, 65535, 65536, -1};

}  // namespace

/// What both lists have.
template <class List>
void Host::ListCalls(List& list) {
    switch (input_.Below(8)) {
        case 0: Try([&] { list.Load(OutFile()); }); break;
        case 1: Try([&] { list.Unload(); }); break;
        case 2: Try([&] { list.Clear(); }); break;
        case 3: Try([&] { list.Description(input_.Text()); }); break;
        case 4: Try([&] { list.Export(OutFile(), input_.Number() % 3, input_.Flag()); }); break;
        case 5: Try([&] { list.IsDirty(input_.Flag()); }); break;
        case 6: Try([&] { list.Load(); }); break;
        default: Try([&] { list.ResFile(OutFile()); }); break;
    }
}

void Host::EditWordGroups(AGIWordList& words) {
    switch (input_.Below(5)) {
        case 0: Try([&] { words.AddGroup(input_.Of(groups)); }); break;
        case 1: Try([&] { words.RemoveGroup(input_.Of(groups)); }); break;
        case 2: {
            const std::int32_t from = input_.Of(groups);
            Try([&] { words.RenumberGroup(from, input_.Of(groups)); });
            break;
        }
        case 3:
            Try([&] {
                group_ = input_.Flag() ? words.GroupN(input_.Of(groups)) : words.Group(input_.Number());
            });
            break;
        default:
            if (group_) {
                Try([&] { group_->Word(input_.Number()); });
                static_cast<void>(group_->GroupName());
            }
            break;
    }
}

void Host::EditWords() {
    if (!words_ || input_.Below(5) == 0)
        words_ = input_.Below(4) == 0 ? std::make_shared<AGIWordList>() : Game().VocabularyWords();
    AGIWordList& words = *words_;
    const auto ofGame = Game().VocabularyWords();
    switch (input_.Below(9)) {
        case 0:
        case 1: {
            const std::string text = input_.Of(wordTexts);
            if (Try([&] { words.AddWord(text, input_.Of(groups)); })) FUZZ_CHECK(words.WordExists(text));
            break;
        }
        case 2: Try([&] { words.RemoveWord(input_.Of(wordTexts)); }); break;
        case 3: EditWordGroups(words); break;
        case 4: {
            const bool dirty = words.IsDirty();
            const bool saved = Try([&] { words.Save(words.InGame() ? "" : OutFile(), input_.Byte() & 1U); });
            if (saved && dirty && words_ == ofGame && Present().IsOpen())
                Present().OnDisk.Words = WordsOf(words);
            break;
        }
        case 5: Try([&] { words.NewWords(); }); break;
        case 6: Try([&] { words.SetWords(input_.Flag() ? *ofGame : words); }); break;
        case 7: Try([&] { ofGame->SetWords(words); }); break;
        default: ListCalls(words); break;
    }
}

void Host::EditItems() {
    if (!items_ || input_.Below(5) == 0)
        items_ = input_.Below(4) == 0 ? std::make_shared<AGIInventoryObjects>() : Game().InventoryObjects();
    AGIInventoryObjects& items = *items_;
    const auto ofGame = Game().InventoryObjects();
    constexpr std::array names{"?", "lamp", "Lamp", "", "key", "\xFE\x01", "a longer name of an item"};
    switch (input_.Below(11)) {
        case 0: Try([&] { item_ = items.Add(input_.Of(names), input_.Byte()); }); break;
        case 1: Try([&] { items.Remove(input_.Number()); }); break;
        case 2: Try([&] { item_ = items.Item(input_.Number()); }); break;
        case 3:
            if (item_) Try([&] { item_->ItemName(input_.Of(names)); });
            break;
        case 4:
            if (item_) Try([&] { item_->Room(input_.Byte()); });
            break;
        case 5: {
            const bool dirty = items.IsDirty();
            const bool saved = Try([&] { items.Save(items.InGame() ? "" : OutFile(), input_.Byte() & 1U); });
            if (saved && dirty && items_ == ofGame && Present().IsOpen())
                Present().OnDisk.Items = ItemsOf(items);
            break;
        }
        case 6: Try([&] { items.NewObjects(); }); break;
        case 7: Try([&] { input_.Flag() ? items.SetObjects(*ofGame) : ofGame->SetObjects(items); }); break;
        case 8: Try([&] { items.MaxScreenObjects(input_.Byte()); }); break;
        case 9: Try([&] { input_.Flag() ? items.Encrypted(input_.Flag()) : items.AmigaOBJ(false); }); break;
        default: ListCalls(items); break;
    }
}

}  // namespace zorvex::fuzz
