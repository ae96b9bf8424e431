#include "zorvex/storage/ExtractResources.h"

#include <algorithm>
#include <array>
#include <optional>

#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/PathText.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"
#include "zorvex/state/AGIGameEvents.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/GameSession.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/storage/V3Directory.h"
#include "zorvex/storage/VolManager.h"
#include "zorvex/storage/VolumeFiles.h"

namespace zorvex {

namespace {

constexpr std::string_view errorSource = "ResourceFunctions.ExtractResources";
constexpr std::size_t entryLength = 3;
constexpr std::size_t maxEntries = 256;
constexpr std::size_t minV3Directory = 11;
constexpr std::int32_t plainDirectoryError = 511;

/// What a warning for a resource that could not be registered says after the resource's name: the parts
/// around one varying text, which is the error's description, the location or the volume's name.
enum class Detail : std::uint8_t { None, Description, Location, Volume };
struct SkipReason {
    std::int32_t id;
    std::string_view before;
    Detail detail;
    std::string_view after;
};

constexpr std::array skipReasons{
    SkipReason{502, " was skipped due to file access error (", Detail::Description, ")"},
    SkipReason{505, " was skipped because it's location (", Detail::Location, ") is invalid."},
    SkipReason{506, " was skipped because it does not have a valid resource header", Detail::None, ""},
    SkipReason{507, " was skipped due to resource data error (", Detail::Description, ")"},
    SkipReason{511, " was skipped because it has already been loaded", Detail::None, ""},
    SkipReason{606, " was skipped because it's VOL file (", Detail::Volume, ") is missing."},
    SkipReason{646, " was skipped due to an error while loading (", Detail::Description, ")"},
    SkipReason{648, " was skipped due to an error while loading (", Detail::Description, ")"},
    SkipReason{650, " was skipped due to an error while loading (", Detail::Description, ")"},
    SkipReason{652, " was skipped due to an error while loading (", Detail::Description, ")"},
};

struct Entry {
    std::string name;
    std::int32_t volume;
    std::int32_t location;
};

std::string SkipText(const SkipReason& reason, const Entry& entry, const Error& error) {
    const std::string volume = JustFileName(VolumePath(entry.volume));
    std::string detail;
    switch (reason.detail) {
        case Detail::None: break;
        case Detail::Description: detail = error.Description(); break;
        case Detail::Location: detail = std::to_string(entry.location) + ") in the VOL file(" + volume; break;
        case Detail::Volume: detail = volume; break;
    }
    return entry.name + std::string(reason.before) + detail + std::string(reason.after);
}

/// One pass over the directory files of a game.
class Extraction {
  public:
    bool Run() {
        RaiseLoadStatus(rtNone, 0);
        const bool isV3 = Library().IsV3;
        std::string path;
        ByteArray file;
        if (isV3) {
            path = Library().GameDir + DirectoryFileName(rtLogic, true, Library().GameID);
            file = ReadDirectoryFile(path);
            if (file.size() < minV3Directory) RaiseCatalogue(542, errorSource, path);
        }
        for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
            if (!isV3) {
                path = Library().GameDir + DirectoryFileName(type, false, "");
                file = ReadDirectoryFile(path);
                if (file.empty()) MendEmpty(file, type, path);
            }
            ReadDirectory(file, type, path);
            if (!isV3) SaveIfDirty(path, file);
        }
        SaveIfDirty(path, file);
        return warnings_;
    }

  private:
    static ByteArray ReadDirectoryFile(const std::string& path) {
        if (!FileExists(path)) RaiseCatalogue(524, errorSource, path);
        ByteArray bytes;
        if (const auto error = Attempt([&] { bytes = Files().Read(path); })) {
            RaiseText(plainDirectoryError, errorSource,
                      CatalogueText(502, {std::to_string(error->Number()), path}));
        }
        return bytes;
    }

    /// Gives a directory file without bytes one empty entry, or refuses it.
    void MendEmpty(ByteArray& file, AGIResType type, const std::string& path) {
        const EmptyDirectory wanted = Library().Opened.EmptyDirectories;
        const std::string name = JustFileName(path);
        if (wanted == EmptyDirectory::Refuse)
            RaiseText(plainDirectoryError, errorSource, name + " file is invalid");
        file.assign(entryLength, 255);
        dirty_ = wanted == EmptyDirectory::MendOnDisk;
        Library().LoadIssues.push_back(
            {.Kind = LoadIssueKind::EmptyDirectory,
             .Text = name + " has no bytes; it is taken as a directory with one empty entry",
             .Type = type});
    }

    static DirectoryRange RangeOf(const ByteArray& file, AGIResType type, const std::string& path) {
        const auto length = static_cast<std::int32_t>(file.size());
        const DirectoryRange range =
            Library().IsV3 ? V3DirectoryRange(file, type) : DirectoryRange{0, length};
        const std::int32_t size = range.end - range.start;
        if (size < 0 || (size >= static_cast<std::int32_t>(entryLength) && range.end > length)) {
            RaiseCatalogue(542, errorSource, path);
        }
        return range;
    }

    void ReadDirectory(ByteArray& file, AGIResType type, const std::string& path) {
        const DirectoryRange range = RangeOf(file, type, path);
        std::size_t count = static_cast<std::size_t>(range.end - range.start) / entryLength;
        if (range.end - range.start > static_cast<std::int32_t>(maxEntries * entryLength)) {
            count = maxEntries;
            const std::string_view text =
                Library().IsV3 ? " portion of DIR file is larger than expected; it may be corrupted"
                               : "DIR file is larger than expected; it may be corrupted";
            Warn({.Kind = LoadIssueKind::Directory,
                  .Text = std::string(ResTypeAbbrev[type]) + std::string(text),
                  .Type = type});
        }
        for (std::size_t number = 0; number < count; ++number) {
            RaiseLoadStatus(type, number);
            const std::size_t at = static_cast<std::size_t>(range.start) + number * entryLength;
            if (RegisterEntry(std::span(file).subspan(at).first<entryLength>(), type, number)) continue;
            // In a damaged V3 file the entry can lie in the header, which stays as it is.
            if (Library().IsV3 && at < V3HeaderLength) continue;
            std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(at), entryLength, 255);
            dirty_ = true;
        }
    }

    /// False for an entry that is to be blanked. One that is left is noted, so that nothing is put over it.
    bool RegisterEntry(std::span<const std::uint8_t, entryLength> bytes, AGIResType type,
                       std::size_t number) {
        if (bytes[0] == 255) return true;
        const Entry entry{std::string(ResTypeNames[type]) + std::to_string(number), bytes[0] >> 4,
                          (bytes[0] & 15) * 65536 + bytes[1] * 256 + bytes[2]};
        ResourceCollectionBase& collection = *CollectionOf(type);
        const auto index = static_cast<std::uint8_t>(number);
        if (const auto error =
                Attempt([&] { collection.LoadEntry(Internal(), index, entry.volume, entry.location); })) {
            WarnOfSkipped(entry, *error, type, index);
        }
        const auto member = collection.Find(index);
        if (!member && Library().Opened.BadEntries == BadEntry::Leave) {
            Library().LeftEntries[type].set(number);
            return true;
        }
        if (!member) return false;
        member->DataDirty(false);
        member->WritePropState(false);
        return true;
    }

    void WarnOfSkipped(const Entry& entry, const Error& error, AGIResType type, std::uint8_t number) {
        for (const SkipReason& reason : skipReasons) {
            if (!error.Is(reason.id)) continue;
            Warn({.Kind = LoadIssueKind::Resource,
                  .IsError = true,
                  .Text = SkipText(reason, entry, error),
                  .ErrorNumber = reason.id,
                  .Type = type,
                  .Number = number,
                  .Volume = entry.volume,
                  .Loc = entry.location,
                  .EntryKept = Library().Opened.BadEntries == BadEntry::Leave});
            return;
        }
        RaiseText(ObjectErrorBase + 545, error.Source(), CatalogueText(545, {error.NumberAndText()}));
    }

    void Warn(LoadIssue issue) {
        warnings_ = true;
        NoteLoadIssue(std::move(issue));
    }

    void SaveIfDirty(const std::string& path, const ByteArray& file) {
        if (!dirty_) return;
        dirty_ = false;
        // A copy is set aside instead of the file itself, so that there is a directory file at every moment.
        // Where nothing can be written the game opens all the same, and warns again the next time.
        const std::string backup = path + ".OLD";
        Attempt([&] { Files().Remove(backup); });
        Attempt([&] {
            Files().Copy(path, backup);
            ReplaceWholeFile(path, file);
        });
    }

    void RaiseLoadStatus(AGIResType type, std::size_t number) const {
        Library().Events->LoadStatus.Raise(lsResources, type, static_cast<std::uint8_t>(number), "");
        session_.Require(errorSource);
    }

    RunSession session_;
    bool warnings_ = false;
    bool dirty_ = false;
};

}  // namespace

bool ExtractResources() {
    const HoldingVolumes holding;
    return Extraction().Run();
}

}  // namespace zorvex
