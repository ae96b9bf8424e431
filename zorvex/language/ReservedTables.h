// The names of the interpreter's reserved variables, flags and values, in eight groups.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

/// What a group of reserved names stands for; a group's number is that of the host's calls.
enum ReservedGroup : std::uint8_t {
    rgVariables = 1,
    rgFlags = 2,
    rgEdgeCodes = 3,
    rgDirections = 4,
    rgVideoModes = 5,
    rgComputerTypes = 6,
    rgColors = 7,
    rgGameInfo = 8
};

/// Entries of rgGameInfo.
enum ReservedGameInfo : std::uint8_t {
    giEgo = 0,
    giGameVersionMsg = 1,
    giGameAboutMsg = 2,
    giGameID = 3,
    giNumberOfItems = 4,
    giInputPrompt = 5
};

/// The eight tables. Name is the present name, Default the built-in one, Value the text that it stands for. A
/// compile fills the values of the four entries of rgGameInfo that depend on the game.
class ReservedTables {
  public:
    ReservedTables() { Init(); }

    /// A group's table; the number must be 1 to 8.
    std::vector<TDefine>& Group(std::size_t number) { return groups_[number - 1]; }
    const std::vector<TDefine>& Group(std::size_t number) const { return groups_[number - 1]; }

    /// Gives every entry its built-in name and value; the four values that depend on the game stay.
    void Init();

  private:
    std::array<std::vector<TDefine>, 8> groups_;
};

/// The library's tables.
ReservedTables& ReservedNames();

/// Brings back the built-in names.
void InitReservedDefines();

}  // namespace zorvex
