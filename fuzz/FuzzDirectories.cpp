// Any bytes as directory files and volume of a small game. The first byte chooses the generation, the second
// how many bytes go to the directories; in V2 each of the four files gets a quarter of them.
#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "fuzz/Check.h"
#include "tests/support/FailingFiles.h"
#include "zorvex/base/Faults.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceCollection.h"

namespace {

using namespace zorvex;

constexpr std::array types{rtLogic, rtPicture, rtSound, rtView};
const std::string gameDir = "\\work\\";

void WriteGame(bool isV3, ByteView directories, ByteView volume) {
    Files().Write(gameDir + (isV3 ? "FUZVOL.0" : "VOL.0"), volume);
    if (isV3) {
        Files().Write(gameDir + "FUZDIR", directories);
        return;
    }
    const std::size_t quarter = directories.size() / 4;
    for (const AGIResType type : types) {
        Files().Write(gameDir + std::string(ResTypeAbbrev[type]) + "DIR",
                      directories.subspan(type * quarter, quarter));
    }
}

/// What can be loaded, by type and number.
using Loaded = std::map<std::pair<AGIResType, int>, ByteArray>;

Loaded LoadAll() {
    Loaded loaded;
    for (const AGIResType type : types) {
        for (const auto& member : CollectionOf(type)->Members()) {
            AGIResource& resource = member->Resource();
            if (Attempt([&] { resource.Load(); })) continue;
            FUZZ_CHECK(resource.Size() > 0);
            loaded[{type, member->Number()}] = resource.AllData();
            resource.Unload();
        }
    }
    return loaded;
}

/// Removes or renumbers the first resource of each type, here and in `loaded`.
void EditAll(std::uint8_t choice, Loaded& loaded) {
    const auto target = static_cast<std::uint8_t>(choice >> 1U);
    for (const AGIResType type : types) {
        ResourceCollectionBase& collection = *CollectionOf(type);
        if (collection.Count() < 1) continue;
        const std::uint8_t number = collection.Members().front()->Number();
        auto former = loaded.extract({type, number});
        if ((choice & 1U) != 0) {
            collection.Remove(number);
        } else if (!Attempt([&] { collection.Renumber(number, target); }) && former) {
            former.key().second = target;
            loaded.insert(std::move(former));
        } else if (collection.Exists(number) && former) {
            loaded.insert(std::move(former));
        }
    }
}

/// False for a damaged file with a directory in its header, where edits do not reach the disk.
bool HasPlainHeader(bool isV3, ByteView directories) {
    return !isV3 || (directories.size() >= 8 && directories[0] + directories[1] * 256 >= 8);
}

}  // namespace

// What is loaded before some edits is there after them and after opening the game again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const test::MemoryFiles files;
    const bool isV3 = (data[0] & 1U) != 0;
    const ByteView bytes(data + 3, size - 3);
    const ByteView directories = bytes.first(std::min<std::size_t>(data[1], bytes.size()));
    WriteGame(isV3, directories, bytes.subspan(directories.size()));
    AGIGame game;
    Attempt([&] { game.OpenGameDIR(gameDir); });
    if (!game.GameLoaded()) return 0;
    Loaded before = LoadAll();
    EditAll(data[2], before);
    game.CloseGame();
    Attempt([&] { game.OpenGameDIR(gameDir); });
    FUZZ_CHECK(game.GameLoaded());
    FUZZ_CHECK(LoadAll() == before || !HasPlainHeader(isV3, directories));
    return 0;
}
