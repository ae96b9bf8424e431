// zorvex repair: what can be mended in a game without guessing.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <set>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/GameCopy.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/storage/GameFileNames.h"

namespace zorvex::tool {

namespace {

struct RepairOptions {
    std::string Game;
    std::string Output;
    bool Json = false;
};

void Declare(Declaration& command, RepairOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("-o,--output", options.Output, "Mend a copy of the game in this new directory");
    DeclareJson(command, options.Json);
}

class Repair {
  public:
    explicit Repair(OpenedGame& opened) : opened_(opened), directory_(opened.Game().GameDir()) {
        for (const std::string& file : opened.MendedDirectories())
            Tell(file + ": had no bytes and was given one empty entry");
        // What the load itself has mended: entries of resources that cannot be read.
        for (const SkippedResource& skipped : opened.Skipped()) {
            Tell(TypeName(skipped.Type) + " " + std::to_string(skipped.Number) +
                 ": its directory entry was blanked, since the resource cannot be read");
        }
    }

    void Run() {
        MendWords();
        for (const AGIResType type : listedTypes) {
            for (const auto& member : ByNumber(type))
                MendResource(*member);
        }
        opened_.Game().SaveProperties();
    }

    const std::vector<std::string>& Steps() const { return steps_; }

  private:
    void Tell(const std::string& step) { steps_.push_back(step); }

    /// Keeps a file of the game as .OLD before its first change.
    void KeepOld(const std::string& name) {
        if (!kept_.insert(name).second) return;
        const std::string path = directory_ + name;
        if (Files().Kind(path) == FileKind::File) Files().Copy(path, path + ".OLD");
    }

    void KeepOldDirectory(AGIResType type) {
        KeepOld(DirectoryFileName(type, opened_.IsV3(), opened_.Game().GameID()));
    }

    static std::string NameOf(const GameResource& resource) {
        return TypeName(resource.ResType()) + " " + std::to_string(resource.Number());
    }

    /// The zero byte at the end is missing when the file reads well with it and ends in something else.
    void MendWords() {
        const std::string path = directory_ + "WORDS.TOK";
        if (Files().Kind(path) != FileKind::File) return;
        ByteArray bytes = Files().Read(path);
        if (bytes.empty() || !LacksFinalZero(bytes)) return;
        KeepOld("WORDS.TOK");
        bytes.push_back(0);
        Files().Write(path, bytes);
        Tell("WORDS.TOK: the zero byte at its end was added");
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

    void MendResource(GameResource& resource) {
        try {
            resource.Resource().Load();
        } catch (const Error& error) {
            return BlankEntry(resource, error);
        }
        ByteArray bytes = resource.Resource().AllData();
        resource.Resource().Unload();
        if (resource.ResType() == rtPicture) MendPicture(resource, bytes);
        if (resource.ResType() == rtView) MendView(resource, bytes);
    }

    void BlankEntry(GameResource& resource, const Error& error) {
        KeepOldDirectory(resource.ResType());
        const std::string name = NameOf(resource);
        CollectionOf(resource.ResType())->Remove(resource.Number());
        Tell(name + ": its directory entry was blanked, since the resource cannot be read (" +
             ShownText(error.Description()) + ")");
    }

    void MendPicture(GameResource& picture, ByteArray& bytes) {
        constexpr std::uint8_t endCode = 0xFF;
        if (std::find(bytes.begin(), bytes.end(), endCode) != bytes.end()) return;
        bytes.push_back(endCode);
        Store(picture, bytes);
        Tell(NameOf(picture) + ": the end code was added");
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
        Tell(NameOf(view) + ": the offset of its description pointed at the last byte and was cleared");
    }

    void Store(GameResource& resource, const ByteArray& bytes) {
        KeepOldDirectory(resource.ResType());
        for (std::int32_t n = 0; n <= HighestVolume(opened_.IsV3()); ++n) {
            KeepOld(VolumeName(n, opened_.IsV3(), opened_.Game().GameID()));
        }
        AGIResource& buffer = resource.Resource();
        buffer.SetAllData(bytes);
        buffer.Save();
        resource.WriteSize();
        buffer.Unload();
        resource.DataDirty(false);
    }

    OpenedGame& opened_;
    const std::string directory_;
    std::vector<std::string> steps_;
    std::set<std::string> kept_;
};

int Run(const RepairOptions& options) {
    const std::string path = options.Output.empty() ? options.Game : CopyGame(options.Game, options.Output);
    OpenedGame opened(path, Access::Change);
    Repair repair(opened);
    repair.Run();
    if (options.Json) {
        PrintJson(Json(repair.Steps()));
    } else {
        for (const std::string& step : repair.Steps())
            std::printf("%s\n", step.c_str());
        std::printf("%s\n", Counted(repair.Steps().size(), "repair").c_str());
    }
    return exitDone;
}

}  // namespace

void AddRepairCommand(CommandLine& line) {
    AddCommand<RepairOptions>(line,
                              {"repair",
                               "Mends what can be mended in a game without guessing, and tells each step. "
                               "Changed files are kept as .OLD.",
                               "  zorvex repair mygame            mends the game itself\n"
                               "  zorvex repair mygame -o fixed   mends a copy"},
                              Declare, Run);
}

}  // namespace zorvex::tool
