// The directory files of a game under construction.
#pragma once

#include <string>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

struct NewDirectory {
    int Number;  // counts the files
    std::string Name;
    ByteArray Bytes;
};

/// The directory files for what LibraryState::NewDirData holds, up to each collection's highest number: four
/// files in V2, one in V3. An empty collection gets one empty entry.
std::vector<NewDirectory> NewDirectoryFiles(bool isV3, const std::string& gameID);

/// The directory files of a game without resources, all 256 entries of each type empty.
std::vector<NewDirectory> EmptyDirectoryFiles(bool isV3, const std::string& gameID);

}  // namespace zorvex
