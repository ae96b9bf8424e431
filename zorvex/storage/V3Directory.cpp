#include "zorvex/storage/V3Directory.h"

#include <algorithm>
#include <array>

#include "zorvex/base/Checked.h"

namespace zorvex {

namespace {

// The order of the directories in the file.
constexpr std::array fileOrder{rtLogic, rtPicture, rtView, rtSound};

std::size_t PlaceOf(AGIResType type) {
    return static_cast<std::size_t>(std::find(fileOrder.begin(), fileOrder.end(), type) - fileOrder.begin());
}

std::int32_t OffsetAt(ByteView file, std::size_t place) {
    return At(file, 2 * place) + At(file, 2 * place + 1) * 256;
}

}  // namespace

DirectoryRange V3DirectoryRange(ByteView file, AGIResType type) {
    const std::size_t place = PlaceOf(type);
    const bool last = place + 1 == fileOrder.size();
    return {OffsetAt(file, place), last ? Narrow<std::int32_t>(file.size()) : OffsetAt(file, place + 1)};
}

void MoveV3Directories(ByteArray& file, AGIResType type, std::int32_t delta) {
    for (std::size_t place = PlaceOf(type) + 1; place < fileOrder.size(); ++place) {
        const std::int32_t offset = OffsetAt(file, place) + delta;
        At(file, 2 * place) = static_cast<std::uint8_t>(offset & 0xFF);
        At(file, 2 * place + 1) = static_cast<std::uint8_t>((offset >> 8) & 0xFF);
    }
}

ByteArray MakeV3Directory(const std::function<ByteArray(AGIResType)>& entriesOf) {
    ByteArray file(V3HeaderLength);
    for (std::size_t place = 0; place < fileOrder.size(); ++place) {
        file[2 * place] = static_cast<std::uint8_t>(file.size());
        file[2 * place + 1] = static_cast<std::uint8_t>(file.size() >> 8U);
        const ByteArray entries = entriesOf(fileOrder[place]);
        file.insert(file.end(), entries.begin(), entries.end());
    }
    return file;
}

}  // namespace zorvex
