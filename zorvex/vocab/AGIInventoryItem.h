// One item that a player may carry.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

class AGIInventoryObjects;

/// An item: a name and the room that it starts in. Items exist only in an AGIInventoryObjects; their position
/// there is their number in logics. An item that has left its list keeps its values and no longer compares
/// itself with others.
class AGIInventoryItem {
  public:
    AGIInventoryItem(const AGIInventoryItem&) = delete;
    AGIInventoryItem& operator=(const AGIInventoryItem&) = delete;

    /// Game text, never empty: an empty value is stored as "?", the name of an item not in use. A new name
    /// makes the list dirty and keeps Unique of all items right.
    std::string ItemName() const { return itemName_; }
    void ItemName(std::string_view value);
    /// 0 to 255; setting it makes the list dirty. 255 stands for "carried by the player". Raises 6 for a
    /// value out of range.
    std::uint8_t Room() const { return room_; }
    void Room(AnyInteger value);
    /// False when another item of the list has the same name, without regard to case, so that source text
    /// cannot call the item by its name. Always true for "?".
    bool Unique() const { return unique_; }

    // --- For the library ---
    explicit AGIInventoryItem(AGIInventoryObjects* parent) : parent_(parent) {}
    /// Takes the item out of the comparison of names; if its name was shared with just one other item, that
    /// one becomes unique.
    void ReleaseName();
    void Detach() { parent_ = nullptr; }

  private:
    AGIInventoryObjects* parent_;
    std::string itemName_ = "?";
    std::uint8_t room_ = 0;
    bool unique_ = true;
};

}  // namespace zorvex
