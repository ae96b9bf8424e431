// The text form of an inventory: the most screen objects, then per item one line of its room, a tab and its
// name.
#pragma once

#include <cstdint>
#include <optional>

#include "zorvex/base/Types.h"
#include "zorvex/vocab/InventoryData.h"

namespace zorvex {

/// The inventory in a text form; nothing when the bytes are no such file or it has more than 256 items.
/// Numbers out of range become the nearest in range; a line without a tab is a name in room 0. `badLine` gets
/// the number of the line, from 1, at which the reading of a text form ended.
std::optional<InventoryData> DecodeObjectText(ByteView bytes, std::int32_t* badLine = nullptr);

/// The bytes of the text form.
ByteArray EncodeObjectText(const InventoryData& data);

}  // namespace zorvex
