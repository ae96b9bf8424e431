// Bringing a resource's bytes from its file: the header in the volume, and the two kinds of compression of V3
// games.
//
// A resource in a volume begins with a header: 12 34 (hexadecimal), a byte with the volume number, and the
// data size as two bytes, low byte first. In V3 the size is that of the expanded data, and two more bytes
// give the stored size; bit 7 of the third byte marks a picture packed by nibbles.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

/// Lengths of the resource header in a volume.
inline constexpr std::int32_t HeaderLengthV2 = 5;
inline constexpr std::int32_t HeaderLengthV3 = 7;

/// The bytes of a resource as its file holds them.
struct StoredResource {
    ByteArray data;
    std::int32_t expandedSize = 0;  // what the header says of the data once expanded
    bool packedPicture = false;     // bit 7 of the header's third byte
};

/// Reads the resource whose header stands at `loc` of a volume file; `name` is the file's name for messages.
/// Data that runs past the end of the file reads as zero bytes. Raises 502, 505 and 506.
StoredResource ReadStoredResource(std::string_view path, std::string_view name, std::int32_t loc, bool isV3);

/// The same in a volume's bytes from its beginning on.
StoredResource StoredResourceIn(ByteView volume, std::string_view name, std::int32_t loc, bool isV3);

/// Reads a whole file as a resource. Raises 502.
StoredResource ReadStoredFile(std::string_view path, std::string_view name);

/// Undoes the compression of a V3 resource in place; `name` is the file's name for messages. Raises 507.
void ExpandStored(StoredResource& stored, AGIResType type, std::string_view name);

/// Replaces LZW data by its expansion of exactly `expandedSize` bytes. Raises the plain number 559.
///
/// Codes are 9 to 11 bits wide, lowest bit first. 0 to 255 are bytes, 256 resets the table, 257 ends the
/// data, 258 and up are entries of the table, each a former entry and one byte more.
void ExpandV3(ByteArray& data, std::int32_t expandedSize);

/// Replaces packed picture data by its expansion: the colour arguments of the actions F0 and F2 take one
/// nibble, and what follows is shifted by half a byte up to the next such argument. Raises 504.
void DecompressPicture(ByteArray& data);

/// Scrambles the message text of an expanded logic, as every logic in the library holds it. Raises 6 and 9.
void ScrambleMessages(ByteArray& logic);

}  // namespace zorvex
