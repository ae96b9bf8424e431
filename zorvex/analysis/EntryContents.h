// What lies in the volumes at a place that no resource of the open game claims.
#pragma once

#include <cstdint>

#include "zorvex/base/Types.h"

namespace zorvex {

/// The bytes at a place of a volume, and how many bytes they take there with their header.
struct EntryContents {
    ByteArray Bytes;
    std::int32_t SizeInVolume = 0;
};

/// Reads what a directory entry of the open game points at, expanded if need be, whether or not the entry
/// became a resource when the game was loaded. Raises what AGIResource::Load raises, and 91 when no game is
/// open in the present workspace. Costs one read of the volume.
EntryContents ReadEntry(AGIResType type, std::uint8_t number, std::int32_t volume, std::int32_t location);

}  // namespace zorvex
