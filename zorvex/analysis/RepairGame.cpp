#include "zorvex/analysis/RepairGame.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "zorvex/analysis/GameFault.h"
#include "zorvex/base/Error.h"
#include "zorvex/base/Faults.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/storage/GameFileNames.h"
#include "zorvex/view/AGIViews.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex {

namespace {

/// One run over a game.
class Repair {
  public:
    Repair(AGIGame& game, const RepairSettings& settings)
        : game_(game),
          settings_(settings),
          directory_(game.GameDir()),
          isV3_(game.InterpreterVersion().starts_with('3')) {}

    std::vector<RepairStep> Run() {
        MendWords();
        const std::array<ResourceCollectionBase*, 4> kinds{&game_.Logics(), &game_.Pictures(),
                                                           &game_.Sounds(), &game_.Views()};
        for (ResourceCollectionBase* kind : kinds) {
            for (std::int32_t number = 0; number < 256; ++number) {
                if (const auto member = kind->Find(number)) MendResource(*kind, *member);
            }
        }
        game_.SaveProperties();
        return std::move(steps_);
    }

  private:
    void Tell(const GameResource& resource, const std::string& what) {
        const AGIResType type = resource.ResType();
        const std::uint8_t number = resource.Number();
        steps_.push_back({type, number, FaultPlace(type, number) + ": " + what});
    }

    /// Keeps a file of the game as .OLD before its first change.
    void KeepOld(const std::string& name) {
        if (!kept_.insert(name).second) return;
        const std::string path = directory_ + name;
        if (Files().Kind(path) == FileKind::File) Files().Copy(path, path + ".OLD");
    }

    void KeepOldDirectory(AGIResType type) { KeepOld(DirectoryFileName(type, isV3_, game_.GameID())); }

    /// The zero byte at the end is missing when the file reads well with it and ends in something else.
    void MendWords() {
        const std::string path = directory_ + "WORDS.TOK";
        if (Files().Kind(path) != FileKind::File) return;
        ByteArray bytes = Files().Read(path);
        if (bytes.empty() || !LacksFinalZero(bytes)) return;
        KeepOld("WORDS.TOK");
        bytes.push_back(0);
        Files().Write(path, bytes);
        Attempt([&] { game_.VocabularyWords()->Load(path); });
        steps_.push_back({rtWords, -1, "WORDS.TOK: the zero byte at its end was added"});
    }

    /// Walks the entries: prefix length, coded letters up to one with bit 7, two bytes of group.
    static bool LacksFinalZero(const ByteArray& bytes) {
        constexpr std::size_t indexLength = 52;
        if (bytes.size() <= indexLength) return false;
        std::size_t pos = static_cast<std::size_t>(bytes[0]) * 256 + bytes[1];
        if (pos < indexLength) return false;
        while (pos < bytes.size()) {
            ++pos;
            while (pos < bytes.size() && bytes[pos] < 0x80)
                ++pos;
            pos += 3;
        }
        return pos == bytes.size();
    }

    void MendResource(ResourceCollectionBase& kind, GameResource& resource) {
        const bool wasLoaded = resource.Loaded();
        if (wasLoaded) return;  // what a host works on is the host's to mend
        if (const auto error = Attempt([&] { resource.Resource().Load(); })) {
            if (settings_.DropUnreadable) BlankEntry(kind, resource, *error);
            return;
        }
        ByteArray bytes = resource.Resource().AllData();
        resource.Resource().Unload();
        if (resource.ResType() == rtPicture) MendPicture(resource, bytes);
        if (resource.ResType() == rtView) MendView(resource, bytes);
    }

    void BlankEntry(ResourceCollectionBase& kind, const GameResource& resource, const Error& error) {
        KeepOldDirectory(resource.ResType());
        Tell(resource, "its directory entry was blanked, since the resource cannot be read (" +
                           error.Description() + ")");
        kind.Remove(resource.Number());
    }

    void MendPicture(GameResource& picture, ByteArray& bytes) {
        constexpr std::uint8_t endCode = 0xFF;
        if (std::find(bytes.begin(), bytes.end(), endCode) != bytes.end()) return;
        bytes.push_back(endCode);
        Store(picture, bytes);
        Tell(picture, "the end code was added");
    }

    /// A description offset that points at the last byte leaves no room for a text: the view has no
    /// description.
    void MendView(GameResource& view, ByteArray& bytes) {
        constexpr std::size_t offsetPlace = 3;
        if (bytes.size() < offsetPlace + 2) return;
        const std::size_t offset = bytes[offsetPlace] + std::size_t{256} * bytes[offsetPlace + 1];
        if (offset + 1 != bytes.size()) return;
        bytes[offsetPlace] = 0;
        bytes[offsetPlace + 1] = 0;
        Store(view, bytes);
        Tell(view, "the offset of its description pointed at the last byte and was cleared");
    }

    void Store(GameResource& resource, const ByteArray& bytes) {
        KeepOldDirectory(resource.ResType());
        for (std::int32_t n = 0; n <= HighestVolume(isV3_); ++n) {
            KeepOld(VolumeName(n, isV3_, game_.GameID()));
        }
        AGIResource& buffer = resource.Resource();
        buffer.SetAllData(bytes);
        buffer.Save();
        resource.WriteSize();
        buffer.Unload();
        resource.DataDirty(false);
    }

    AGIGame& game_;
    const RepairSettings& settings_;
    const std::string directory_;
    const bool isV3_;
    std::vector<RepairStep> steps_;
    std::set<std::string> kept_;
};

}  // namespace

std::vector<RepairStep> RepairGame(AGIGame& game, const RepairSettings& settings) {
    return Repair(game, settings).Run();
}

}  // namespace zorvex
