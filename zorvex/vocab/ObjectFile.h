// The bytes of OBJECT.
//
// The file consists of records of 3 bytes, or 4 in the Amiga's form, and a text area. All 16-bit values have
// the low byte first and count from the end of record 0, which is the header:
//
//   header  2 bytes  where the text area begins
//           1 byte   the most screen objects
//   item    2 bytes  where its name stands
//           1 byte   the room that it starts in
//
// A fourth byte is 0. The text area holds names, each with a zero byte behind it. It begins with "?", the
// name of all items that are not in use, and by that the two record sizes are told apart.
//
// The whole file may be XORed with the library's key, over and over from the first byte on. The last byte of
// a plain file is 0, and so that of a scrambled one is a byte of the key.
#pragma once

#include <optional>

#include "zorvex/base/Types.h"
#include "zorvex/vocab/InventoryData.h"

namespace zorvex {

/// The inventory in an OBJECT file; nothing when the bytes are no such file. Names are as they stand in the
/// file, perhaps empty; of more than 256 items the first 256 count.
std::optional<InventoryData> DecodeObjectFile(ByteView bytes);

/// The bytes for an inventory. Raises 6 when the names do not fit below offset 32768.
ByteArray EncodeObjectFile(const InventoryData& data);

}  // namespace zorvex
