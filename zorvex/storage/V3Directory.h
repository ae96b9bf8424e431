// The one directory file of a V3 game: four little-endian offsets, then the four directories that they point
// at.
//
// The offsets stand in the order logic, picture, view, sound; each directory ends where the next one begins,
// and the sound directory ends at the end of the file.
#pragma once

#include <cstdint>
#include <functional>

#include "zorvex/base/Types.h"

namespace zorvex {

inline constexpr std::int32_t V3HeaderLength = 8;

/// A range of bytes of a directory file.
struct DirectoryRange {
    std::int32_t start = 0;
    std::int32_t end = 0;
};

/// Where a type's directory stands in a V3 directory file, by the file's header alone; nothing is promised of
/// the range but that it comes from the header. Raises 9 for a file shorter than the header.
DirectoryRange V3DirectoryRange(ByteView file, AGIResType type);

/// After a type's directory has grown (or, with a negative delta, shrunk): moves the offsets of those behind
/// it.
void MoveV3Directories(ByteArray& file, AGIResType type, std::int32_t delta);

/// A whole V3 directory file from the entries of each type.
ByteArray MakeV3Directory(const std::function<ByteArray(AGIResType)>& entriesOf);

}  // namespace zorvex
