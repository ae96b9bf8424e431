// How the files of a game are called in the two generations.
#pragma once

#include <cstdint>
#include <string>

#include "zorvex/base/Types.h"

namespace zorvex {

/// The name of a volume file: "VOL.3", or with the game's ID in front in V3.
std::string VolumeName(std::int32_t volume, bool isV3, const std::string& gameID);
/// The name of the directory file that holds a type: "LOGDIR", or the game's ID and "DIR" in V3.
std::string DirectoryFileName(AGIResType type, bool isV3, const std::string& gameID);
/// The highest volume number: 4 in V2, 15 in V3.
std::int32_t HighestVolume(bool isV3);
/// The length of a resource header in a volume: 5 bytes in V2, 7 in V3.
std::int32_t HeaderLength(bool isV3);

}  // namespace zorvex
