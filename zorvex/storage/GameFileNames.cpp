#include "zorvex/storage/GameFileNames.h"

#include "zorvex/base/Checked.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceFunctions.h"

namespace zorvex {

std::string VolumeName(std::int32_t volume, bool isV3, const std::string& gameID) {
    return (isV3 ? gameID : std::string()) + "VOL." + std::to_string(volume);
}

std::string DirectoryFileName(AGIResType type, bool isV3, const std::string& gameID) {
    return (isV3 ? gameID : std::string(At(ResTypeAbbrev, static_cast<int>(type)))) + "DIR";
}

std::int32_t HighestVolume(bool isV3) {
    return isV3 ? 15 : 4;
}

std::int32_t HeaderLength(bool isV3) {
    return isV3 ? HeaderLengthV3 : HeaderLengthV2;
}

}  // namespace zorvex
