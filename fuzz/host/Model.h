// What must be in a game, as a host that remembers each of its saves knows it.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "zorvex/Zorvex.h"

namespace zorvex::fuzz {

using Key = std::pair<AGIResType, int>;

/// A resource on disk. Where a host cannot know which of two states was reached, there is more than one.
struct Saved {
    std::vector<ByteArray> Bytes;  // those that it may have; none: any
    std::set<std::string> IDs;     // none: any
    bool MayBeAbsent = false;
};

struct Item {
    std::string Name;
    int Room = 0;
    bool operator==(const Item&) const = default;
};

/// A game on disk.
struct Model {
    std::map<Key, Saved> Resources;
    std::vector<std::pair<std::string, int>> Words;
    std::vector<Item> Items;
    bool KnowsLists = true;
    std::map<std::string, std::string> Properties;  // by their names; those that are known
    /// Nothing is known of the contents any more: the host has done what it must not do.
    bool Loose = false;

    void ForgetNames();
};

/// The bytes of a loaded resource, none for an empty one.
ByteArray BytesOf(const GameResource& resource);
std::vector<std::pair<std::string, int>> WordsOf(AGIWordList& list);
std::vector<Item> ItemsOf(AGIInventoryObjects& list);
/// The descriptive values of the open game.
std::map<std::string, std::string> PropertiesOf(const AGIGame& game);

/// The collection of a kind.
ResourceCollectionBase& CollectionIn(const AGIGame& game, AGIResType type);

/// Opens the game of a property file, which changes nothing, and ends the program where it is not the model.
void CheckFreshOpen(const std::shared_ptr<FileSystem>& files, const std::string& gameFile,
                    const Model& model);

}  // namespace zorvex::fuzz
