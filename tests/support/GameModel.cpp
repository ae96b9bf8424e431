#include "tests/support/GameModel.h"

#include <algorithm>
#include <vector>

#include "zorvex/game/Faults.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/storage/ResourceCollection.h"

namespace zorvex::test {

namespace {

constexpr AGIResType v3Order[] = {rtLogic, rtPicture, rtView, rtSound};

ByteArray DirectoryBytes(const std::string& directory, const std::string& id, AGIResType type) {
    constexpr const char* names[] = {"LOGDIR", "PICDIR", "SNDDIR", "VIEWDIR"};
    if (id.empty()) return Files().Read(directory + names[type]);
    const ByteArray file = Files().Read(directory + id + "DIR");
    const auto place =
        static_cast<std::size_t>(std::find(std::begin(v3Order), std::end(v3Order), type) - v3Order);
    const auto offset = [&file](std::size_t at) {
        return static_cast<std::ptrdiff_t>(file.at(2 * at) + file.at(2 * at + 1) * 256);
    };
    const auto end = place == 3 ? static_cast<std::ptrdiff_t>(file.size()) : offset(place + 1);
    return {file.begin() + offset(place), file.begin() + end};
}

struct Stored {
    AGIResType type;
    int number;
    int volume;
    std::size_t location;
    ByteArray bytes;
};

std::vector<Stored> StoredResources(const std::string& directory, const std::string& id) {
    std::vector<Stored> all;
    const std::size_t header = id.empty() ? 5 : 7;
    std::map<int, ByteArray> volumes;
    for (const AGIResType type : v3Order) {
        const ByteArray entries = DirectoryBytes(directory, id, type);
        for (std::size_t n = 0; 3 * n + 2 < entries.size(); ++n) {
            const std::uint8_t* entry = entries.data() + 3 * n;
            if (entry[0] == 255) continue;
            Stored stored{type,
                          static_cast<int>(n),
                          entry[0] >> 4,
                          (entry[0] & 15U) * 65536U + entry[1] * 256U + entry[2],
                          {}};
            const std::string path = directory + id + "VOL." + std::to_string(stored.volume);
            if (!volumes.contains(stored.volume))
                Attempt([&] { volumes[stored.volume] = Files().Read(path); });
            const ByteArray& volume = volumes[stored.volume];
            const std::size_t start = stored.location + header;
            if (start <= volume.size() && volume[stored.location] == 0x12 &&
                volume[stored.location + 1] == 0x34) {
                const std::size_t size =
                    volume[start - 2] + static_cast<std::size_t>(volume[start - 1] * 256);
                if (start + size <= volume.size()) {
                    const auto first = volume.begin() + static_cast<std::ptrdiff_t>(start);
                    stored.bytes.assign(first, first + static_cast<std::ptrdiff_t>(size));
                }
            }
            all.push_back(stored);
        }
    }
    return all;
}

std::string NameOf(AGIResType type, int number) {
    constexpr const char* names[] = {"logic", "picture", "sound", "view"};
    return std::string(names[type]) + " " + std::to_string(number);
}

}  // namespace

Model ReadModel(const std::string& directory, const std::string& v3ID) {
    Model model;
    for (Stored& stored : StoredResources(directory, v3ID))
        model[{stored.type, stored.number}] = std::move(stored.bytes);
    return model;
}

std::string FindOverlap(const std::string& directory, const std::string& v3ID) {
    std::vector<Stored> all = StoredResources(directory, v3ID);
    std::sort(all.begin(), all.end(), [](const Stored& a, const Stored& b) {
        return std::pair(a.volume, a.location) < std::pair(b.volume, b.location);
    });
    for (std::size_t i = 1; i < all.size(); ++i) {
        const Stored& before = all[i - 1];
        const std::size_t end = before.location + before.bytes.size() + (v3ID.empty() ? 5 : 7);
        if (before.volume == all[i].volume && end > all[i].location)
            return NameOf(before.type, before.number) + " and " + NameOf(all[i].type, all[i].number);
    }
    return {};
}

std::string Difference(const Model& left, const Model& right) {
    for (const auto& [key, bytes] : left) {
        const auto other = right.find(key);
        if (other == right.end()) return NameOf(key.first, key.second) + " is missing";
        if (other->second != bytes) return NameOf(key.first, key.second) + " differs";
    }
    for (const auto& [key, bytes] : right) {
        if (!left.contains(key)) return NameOf(key.first, key.second) + " is too many";
    }
    return {};
}

Model LoadedModel() {
    Model model;
    for (const AGIResType type : v3Order) {
        for (const auto& member : CollectionOf(type)->Members()) {
            AGIResource resource;
            resource.ResType(type);
            resource.Init(member->Number(), member->Volume(), member->Loc());
            ByteArray& bytes = model[{type, member->Number()}];
            Attempt([&] {
                resource.Load();
                bytes = resource.AllData();
            });
        }
    }
    return model;
}

}  // namespace zorvex::test
