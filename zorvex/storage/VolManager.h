// The volume and directory files of an open game: the search for free space, and the writing of
// one resource with its directory entry.
//
// A directory entry is three bytes: the high nibble of the first is the volume number, its low nibble and the
// other two bytes, high byte first, are the offset of the resource's header in that volume. A first byte of
// 255 means "empty".
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "zorvex/base/Types.h"
#include "zorvex/storage/GameFileNames.h"

namespace zorvex {

class AGIResource;

using DirectoryEntryBytes = std::array<std::uint8_t, 3>;

/// The entry for a place in a volume.
DirectoryEntryBytes MakeDirectoryEntry(std::int32_t volume, std::int32_t loc);

/// The open game's volume file.
std::string VolumePath(std::int32_t volume);

/// Writes a resource, uncompressed. Without `rebuild` it goes to free space of the open game's volumes and
/// its directory entry follows; with `rebuild` it goes to CurrentLoc, the end of the new volume under
/// construction, and may reach the disk with a later one. Raises 593 and 638; 91, with nothing written, for a
/// resource that does not belong to the open game. False when the directory entry could not be written: then
/// the resource keeps its former place, and the game its former bytes.
bool AddToVol(AGIResource& resource, bool isV3File, bool rebuild = false);

/// Gives a resource the first gap, lowest volume and lowest offset first, that takes its header and bytes.
/// Raises 593. The cost grows with the number of resources, not with the size of the volumes.
void FindFreeVOLSpace(AGIResource& resource);

/// Where a resource lies.
struct VolumePlace {
    std::int32_t Volume;
    std::int32_t Loc;
};

/// Writes a resource's directory entry on disk, or blanks it where it has no place; the directory grows or
/// shrinks to the collection's highest number. Raises nothing; false when the entry could not be written.
bool UpdateDirFile(AGIResType type, std::uint8_t number, std::optional<VolumePlace> place);

/// Stores the size that a resource takes in its volume on the collection's object of that type and number.
void UpdateSizeInVol(const AGIResource& resource, std::int32_t size);

/// The stored data size from a resource's header in the open game, or -1 where there is no header.
std::int32_t ReadSizeInVol(std::int32_t volume, std::int32_t loc);

/// Moves a rebuild on to another new volume when `size` bytes do not fit in the present one; volumes left
/// behind are looked at again. Raises 593 and 640.
void ValidateVolAndLoc(std::int32_t size, bool isV3);

}  // namespace zorvex
