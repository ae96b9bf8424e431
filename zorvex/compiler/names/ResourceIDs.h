// The IDs of a game's resources, which may stand for their numbers in source.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"
#include "zorvex/compiler/names/NameMap.h"

namespace zorvex {

/// The IDs of all resources of the open game by number, as game text. It never changes: a change of resources
/// makes a new table, so that a compile keeps the one it began with.
class ResourceIDTable {
  public:
    /// "" for a number not in use.
    const std::string& ID(AGIResType type, std::uint8_t number) const { return ids_[type][number]; }
    /// The lowest number that has this ID in any of the four kinds.
    std::optional<std::uint8_t> NumberOf(std::string_view id) const;

    void Add(AGIResType type, std::uint8_t number, std::string id);

  private:
    std::array<std::array<std::string, 256>, 4> ids_;
    NameMap<std::uint8_t> numbers_;
};

/// Fills the library's table, unless it is valid.
void LoadResourceIDs();

}  // namespace zorvex
