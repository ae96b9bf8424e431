#include "fuzz/host/Model.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "fuzz/Check.h"
#include "zorvex/base/HostText.h"
#include "zorvex/state/PropertyText.h"

namespace zorvex::fuzz {

void Model::ForgetNames() {
    for (auto& [key, saved] : Resources)
        saved.IDs.clear();
    Properties.clear();
}

ByteArray BytesOf(const GameResource& resource) {
    const ByteView view = resource.Resource().View();
    return {view.begin(), view.end()};
}

std::vector<std::pair<std::string, int>> WordsOf(AGIWordList& list) {
    std::vector<std::pair<std::string, int>> words;
    for (const AGIWord& word : list)
        words.emplace_back(word.WordText, word.Group);
    return words;
}

std::vector<Item> ItemsOf(AGIInventoryObjects& list) {
    std::vector<Item> items;
    for (const auto& item : list)
        items.push_back({item->ItemName(), item->Room()});
    return items;
}

namespace {

/// A value as a property file gives it back: what is no text has become one, and not every value survives.
std::string AsKept(const std::string& value) {
    return DecodeValue(EncodeValue(HostTextOf(value)));
}

}  // namespace

std::map<std::string, std::string> PropertiesOf(const AGIGame& game) {
    std::map<std::string, std::string> properties{{"GameID", UpperCase(HostTextOf(game.GameID()))},
                                                  {"Author", game.GameAuthor()},
                                                  {"About", game.GameAbout()},
                                                  {"Description", game.GameDescription()},
                                                  {"GameVersion", game.GameVersion()},
                                                  {"Interpreter", game.InterpreterVersion()},
                                                  {"PlatformType", std::to_string(game.PlatformType())},
                                                  {"Platform", game.Platform()},
                                                  {"PlatformOpts", game.PlatformOpts()},
                                                  {"DOSExec", game.DOSExec()},
                                                  {"UseLE", game.UseLE() ? "True" : "False"},
                                                  {"Color3", std::to_string(game.EGAColor(3))}};
    for (auto& [name, value] : properties)
        value = AsKept(value);
    return properties;
}

ResourceCollectionBase& CollectionIn(const AGIGame& game, AGIResType type) {
    switch (type) {
        case rtLogic: return game.Logics();
        case rtPicture: return game.Pictures();
        case rtSound: return game.Sounds();
        default: return game.Views();
    }
}

namespace {

[[noreturn]] void Differs(const std::string& what, const std::string& is, const std::string& expected) {
    std::fprintf(stderr, "a fresh open has %s as \"%s\", the model as \"%s\"\n", what.c_str(), is.c_str(),
                 expected.c_str());
    std::abort();
}

std::string Hex(const ByteArray& bytes) {
    std::string text = std::to_string(bytes.size()) + ":";
    for (std::size_t i = 0; i < std::min<std::size_t>(bytes.size(), 40); ++i) {
        char pair[4];
        std::snprintf(pair, sizeof(pair), " %02x", bytes[i]);
        text += pair;
    }
    return text;
}

std::string NameOf(const Key& key) {
    constexpr const char* words[] = {"logic ", "picture ", "sound ", "view "};
    return words[key.first] + std::to_string(key.second);
}

/// A resource without bytes cannot be read; it may be there or have been blanked.
bool MayLack(const Saved& saved) {
    return saved.MayBeAbsent ||
           std::ranges::any_of(saved.Bytes, [](const ByteArray& bytes) { return bytes.empty(); });
}

void CheckResource(GameResource& resource, const Key& key, const Saved& saved) {
    const auto isOf = [&](const std::string& id) {
        const std::string kept = AsKept(id);
        return kept.empty() || kept == resource.ID();
    };
    if (!saved.IDs.empty() && std::ranges::none_of(saved.IDs, isOf))
        Differs("the ID of " + NameOf(key), resource.ID(), *saved.IDs.begin());
    if (MayLack(saved)) return;
    try {
        resource.Resource().Load();
    } catch (const Error& error) {
        // One that may have any bytes may have none.
        if (saved.Bytes.empty() && error.Is(507)) return;
        throw;
    }
    const ByteArray bytes = resource.AllData();
    if (!saved.Bytes.empty() && std::ranges::find(saved.Bytes, bytes) == saved.Bytes.end())
        Differs("the bytes of " + NameOf(key), Hex(bytes), Hex(saved.Bytes.front()));
}

void CheckResources(const AGIGame& game, const Model& model) {
    for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
        const ResourceCollectionBase& collection = CollectionIn(game, type);
        for (int number = 0; number < 256; ++number) {
            const Key key{type, number};
            const auto saved = model.Resources.find(key);
            const auto resource = collection.Find(number);
            if (saved == model.Resources.end()) {
                if (resource) Differs(NameOf(key), "there", "not there");
            } else if (resource) {
                CheckResource(*resource, key, saved->second);
            } else if (!MayLack(saved->second)) {
                Differs(NameOf(key), "not there", "there");
            }
        }
    }
}

void CheckLists(const AGIGame& game, const Model& model) {
    if (!model.KnowsLists) return;
    const auto words = WordsOf(*game.VocabularyWords());
    if (words != model.Words)
        Differs("the words", std::to_string(words.size()), std::to_string(model.Words.size()));
    const auto items = ItemsOf(*game.InventoryObjects());
    if (items != model.Items)
        Differs("the items", std::to_string(items.size()), std::to_string(model.Items.size()));
}

}  // namespace

void CheckFreshOpen(const std::shared_ptr<FileSystem>& files, const std::string& gameFile,
                    const Model& model) {
    Workspace workspace;
    const auto use = workspace.Enter();
    UseFileSystem(files);
    AGIGame game;
    game.Open(gameFile, {.ReadOnly = true});
    FUZZ_CHECK(game.GameLoaded());
    CheckResources(game, model);
    CheckLists(game, model);
    const auto properties = PropertiesOf(game);
    for (const auto& [name, value] : model.Properties) {
        if (properties.at(name) != value) Differs(name, properties.at(name), value);
    }
    game.CloseGame();
}

}  // namespace zorvex::fuzz
