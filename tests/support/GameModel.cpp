#include "tests/support/GameModel.h"
#include "zorvex/base/Internal.h"

#include <gtest/gtest.h>

#include "tests/support/RealGames.h"
#include "zorvex/base/Faults.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/storage/GameFileNames.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/storage/V3Directory.h"

namespace zorvex::test {

namespace {

constexpr AGIResType allTypes[] = {rtLogic, rtPicture, rtView, rtSound};

std::string NameOf(const Model::key_type& key) {
    return NameOfType(key.first) + " " + std::to_string(key.second);
}

/// The entries of a type.
ByteArray DirectoryBytes(const std::string& directory, const std::string& id, AGIResType type) {
    const ByteArray file = Files().Read(directory + DirectoryFileName(type, !id.empty(), id));
    if (id.empty()) return file;
    const DirectoryRange range = V3DirectoryRange(file, type);
    return {file.begin() + range.start, file.begin() + range.end};
}

/// What stands at a place of a volume file; nothing where no resource begins or where it is cut off.
ByteArray StoredBytes(const std::string& path, std::size_t location, std::size_t headerLength) {
    if (Files().Kind(path) != FileKind::File) return {};
    const ByteArray header = Files().ReadAt(path, location, headerLength);
    if (header.size() < headerLength || header[0] != 0x12 || header[1] != 0x34) return {};
    const std::size_t size = header[headerLength - 2] + header[headerLength - 1] * 256U;
    ByteArray bytes = Files().ReadAt(path, location + headerLength, size);
    return bytes.size() == size ? bytes : ByteArray();
}

}  // namespace

Model ReadModel(const std::string& directory, const std::string& v3ID) {
    const std::size_t headerLength = v3ID.empty() ? 5 : 7;
    Model model;
    std::map<std::pair<std::string, std::size_t>, Model::key_type> places;
    for (const AGIResType type : allTypes) {
        const ByteArray entries = DirectoryBytes(directory, v3ID, type);
        for (std::size_t at = 0; at + 2 < entries.size(); at += 3) {
            if (entries[at] == 255) continue;
            const Model::key_type key(type, static_cast<int>(at / 3));
            const std::string volume = directory + v3ID + "VOL." + std::to_string(entries[at] >> 4);
            const std::size_t location =
                (entries[at] & 15U) * 65536U + entries[at + 1] * 256U + entries[at + 2];
            model[key] = StoredBytes(volume, location, headerLength);
            const auto [other, isNew] = places.insert({{volume, location}, key});
            EXPECT_TRUE(isNew) << NameOf(key) << " and " << NameOf(other->second);
        }
    }
    std::pair<std::string, std::size_t> end;
    for (const auto& [place, key] : places) {
        EXPECT_TRUE(place >= end || place.first != end.first) << NameOf(key) << " begins in another resource";
        end = {place.first, place.second + headerLength + model[key].size()};
    }
    return model;
}

std::string Difference(const Model& left, const Model& right) {
    for (const auto& [key, bytes] : left) {
        const auto other = right.find(key);
        if (other == right.end()) return NameOf(key) + " is missing";
        if (other->second != bytes) return NameOf(key) + " differs";
    }
    for (const auto& [key, bytes] : right) {
        if (!left.contains(key)) return NameOf(key) + " is too many";
    }
    return {};
}

Model LoadedModel() {
    Model model;
    for (const AGIResType type : allTypes) {
        for (const auto& member : CollectionOf(type)->Members()) {
            AGIResource resource;
            resource.ResType(Internal(), type);
            resource.Init(Internal(), member->Number(), member->Volume(), member->Loc());
            ByteArray& bytes = model[{type, member->Number()}];
            if (!Attempt([&] { resource.Load(); })) bytes = resource.AllData();
        }
    }
    return model;
}

}  // namespace zorvex::test
