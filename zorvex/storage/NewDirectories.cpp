#include "zorvex/storage/NewDirectories.h"

#include <algorithm>
#include <functional>

#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/storage/V3Directory.h"
#include "zorvex/storage/VolManager.h"

namespace zorvex {

namespace {

ByteArray EntriesOf(AGIResType type) {
    const auto& all = Library().NewDirData[type];
    const int count = std::max<int>(CollectionOf(type)->Max() + 1, 1);
    return {all.begin(), all.begin() + 3 * count};
}

std::vector<NewDirectory> MakeFiles(bool isV3, const std::string& gameID,
                                    const std::function<ByteArray(AGIResType)>& entriesOf) {
    std::vector<NewDirectory> files;
    if (isV3) {
        files.push_back({0, DirectoryFileName(rtLogic, true, gameID), MakeV3Directory(entriesOf)});
        return files;
    }
    for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
        files.push_back({static_cast<int>(type), DirectoryFileName(type, false, gameID), entriesOf(type)});
    }
    return files;
}

}  // namespace

std::vector<NewDirectory> NewDirectoryFiles(bool isV3, const std::string& gameID) {
    return MakeFiles(isV3, gameID, EntriesOf);
}

std::vector<NewDirectory> EmptyDirectoryFiles(bool isV3, const std::string& gameID) {
    return MakeFiles(isV3, gameID, [](AGIResType) { return ByteArray(768, 255); });
}

}  // namespace zorvex
