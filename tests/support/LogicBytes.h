// Logic resources for tests, put together from their parts.
#pragma once

#include <string>
#include <string_view>

#include "zorvex/game/Types.h"
#include "zorvex/logic/LogDecode.h"
#include "zorvex/logic/MessageSection.h"

namespace zorvex::test {

/// A logic of some code and messages, as the compiler would write it.
ByteArray LogicOf(ByteView code, const MessageTable& messages = {});

/// The lines of a decompiled logic, each ended by a line feed.
std::string TextOfLines(const DecodedLogic& logic);

/// Names for a decompile that needs no game.
class NoNames : public DecodeNames {
  public:
    std::optional<std::string> ResourceID(AGIResType, std::uint8_t) const override { return std::nullopt; }
    bool HasVocabulary() const override { return false; }
    std::optional<std::string> GroupName(std::int32_t) const override { return std::nullopt; }
    bool HasItems() const override { return false; }
    std::optional<ItemName> Item(std::uint8_t) const override { return std::nullopt; }
};

}  // namespace zorvex::test
