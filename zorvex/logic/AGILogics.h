// The logics of the open game.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"
#include "zorvex/logic/AGILogic.h"
#include "zorvex/storage/ResourceCollection.h"

namespace zorvex {

inline constexpr CollectionFamily LogicFamily{rtLogic, "agiLogics", 645, 646, -1, true};

/// The collection of the logics; Max of an empty one is -1.
class AGILogics : public ResourceCollection<AGILogic> {
  public:
    explicit AGILogics(const Internal& key) : ResourceCollection(key, LogicFamily) {}

    /// Lets every logic count as not compiled, so that the next full compile of the game compiles it, and
    /// saves the property file. Raises nothing.
    void MarkAllAsDirty();

    /// What a text would stand for as an argument of the given type in the source of a logic without defines
    /// of its own: global defines, resource IDs and reserved names count. The result is in lower case; a text
    /// that cannot be such an argument comes back as it is, in lower case too. `varOrNum` in: a variable is
    /// acceptable where a number is asked for; out: False when the result is a plain number. Game text. Reads
    /// globals.txt when it has changed.
    std::string ConvertArg(std::string_view argIn, ArgTypeEnum argType, bool& varOrNum) const;
};

}  // namespace zorvex
