// What an inventory holds, as a plain value: the form in which the two file formats are read and written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

/// The most items that a file can hold.
inline constexpr std::size_t MaxItems = 256;
/// The source that errors of inventories carry.
inline constexpr std::string_view InventoryErrorSource = "ZORVEX.agiObjectFile";
/// The name of an item that is not in use.
inline constexpr std::string_view UnusedItemName = "?";

/// Items in order of their numbers, names as game text.
struct InventoryData {
    struct Item {
        std::string Name;
        std::uint8_t Room = 0;

        bool operator==(const Item&) const = default;
    };

    std::vector<Item> Items;
    std::uint8_t MaxScreenObjects = 16;
    bool Encrypted = false;
    bool AmigaOBJ = false;
    std::string Description;  // host text; only the text form holds it

    bool operator==(const InventoryData&) const = default;
};

}  // namespace zorvex
