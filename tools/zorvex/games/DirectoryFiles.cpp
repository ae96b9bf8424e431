#include "tools/zorvex/games/DirectoryFiles.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <optional>

#include "zorvex/base/Text.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/storage/V3Directory.h"

namespace zorvex::tool {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t maxEntries = 256;

struct TypedName {
    AGIResType type;
    std::string_view name;
};
constexpr std::array v2Names{TypedName{rtLogic, "LOGDIR"}, TypedName{rtPicture, "PICDIR"},
                             TypedName{rtSound, "SNDDIR"}, TypedName{rtView, "VIEWDIR"}};

std::optional<AGIResType> V2TypeOf(const fs::path& file) {
    for (const TypedName& typed : v2Names) {
        if (EqualNoCase(file.filename().string(), typed.name)) return typed.type;
    }
    return std::nullopt;
}

ByteArray ReadFile(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void CollectEntries(ByteView bytes, AGIResType type, std::vector<SkippedResource>& entries) {
    const std::size_t count = std::min(bytes.size() / 3, maxEntries);
    for (std::size_t i = 0; i < count; ++i) {
        const ByteView entry = bytes.subspan(3 * i, 3);
        if (entry[0] == 255) continue;
        entries.push_back({type, static_cast<std::uint8_t>(i), entry[0] >> 4,
                           (entry[0] & 15) * 65536 + entry[1] * 256 + entry[2]});
    }
}

}  // namespace

std::vector<fs::path> DirectoryFileNames(const fs::path& directory) {
    std::vector<fs::path> files;
    for (const std::string& name : FilesMatching(InnerPath(directory.string()), "*DIR")) {
        files.push_back(directory / name);
    }
    return files;
}

std::vector<fs::path> EmptyDirectoryFiles(const fs::path& directory) {
    std::vector<fs::path> files = DirectoryFileNames(directory);
    std::erase_if(files, [](const fs::path& file) { return !V2TypeOf(file) || fs::file_size(file) != 0; });
    return files;
}

std::vector<SkippedResource> UsedEntries(const fs::path& directory) {
    std::vector<SkippedResource> entries;
    for (const fs::path& file : DirectoryFileNames(directory)) {
        const ByteArray bytes = ReadFile(file);
        if (const auto type = V2TypeOf(file)) {
            CollectEntries(bytes, *type, entries);
            continue;
        }
        if (bytes.size() < static_cast<std::size_t>(V3HeaderLength)) continue;
        for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
            const DirectoryRange range = V3DirectoryRange(bytes, type);
            if (range.start < 0 || range.end < range.start || std::cmp_greater(range.end, bytes.size()))
                continue;
            CollectEntries(ByteView(bytes).subspan(static_cast<std::size_t>(range.start),
                                                   static_cast<std::size_t>(range.end - range.start)),
                           type, entries);
        }
    }
    return entries;
}

}  // namespace zorvex::tool
