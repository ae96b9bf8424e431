// Any bytes as directory files and volume of a small game. The first byte chooses the generation, the second
// how many bytes go to the directories; in V2 each of the four files gets a quarter of them.
#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "fuzz/Check.h"
#include "tests/support/MemoryFileSystem.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/game/Faults.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/platform/FileSystem.h"
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

int LoadAll() {
    int loaded = 0;
    for (const AGIResType type : types) {
        for (const auto& member : CollectionOf(type)->Members()) {
            AGIResource& resource = member->Resource();
            if (Attempt([&] { resource.Load(); })) continue;
            ++loaded;
            FUZZ_CHECK(resource.Size() > 0);
            resource.Unload();
        }
    }
    return loaded;
}

/// Edits must leave the directory files such that they can be read again.
void EditAll(std::uint8_t choice) {
    for (const AGIResType type : types) {
        ResourceCollectionBase& collection = *CollectionOf(type);
        if (collection.Count() < 1) continue;
        const std::uint8_t number = collection.Members().front()->Number();
        if ((choice & 1U) != 0) {
            collection.Remove(number);
        } else {
            Attempt([&] { collection.Renumber(number, static_cast<std::uint8_t>(choice >> 1U)); });
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const test::MemoryFiles files;
    const ByteView bytes(data + 3, size - 3);
    const ByteView directories = bytes.first(std::min<std::size_t>(data[1], bytes.size()));
    WriteGame((data[0] & 1U) != 0, directories, bytes.subspan(directories.size()));
    AGIGame game;
    Attempt([&] { game.OpenGameDIR(gameDir); });
    if (!game.GameLoaded()) return 0;
    const int loaded = LoadAll();
    EditAll(data[2]);
    int members = 0;
    for (const AGIResType type : types)
        members += CollectionOf(type)->Count();
    game.CloseGame();
    Attempt([&] { game.OpenGameDIR(gameDir); });
    FUZZ_CHECK(game.GameLoaded());
    int again = 0;
    for (const AGIResType type : types)
        again += CollectionOf(type)->Count();
    FUZZ_CHECK(again <= members && loaded >= 0);
    return 0;
}
