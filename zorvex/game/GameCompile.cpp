#include "zorvex/game/GameCompile.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"
#include "zorvex/compiler/LogCompile.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/game/GameDetection.h"
#include "zorvex/logic/AGILogic.h"
#include "zorvex/picture/AGIPicture.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/AGIGameEvents.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/GameSession.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/FileSwap.h"
#include "zorvex/storage/NewDirectories.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/storage/VolManager.h"
#include "zorvex/storage/VolumeFiles.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex {

namespace {

constexpr std::int32_t volumeNames = 16;
constexpr std::int32_t compileError = 635;
constexpr std::int32_t bitmapError = 610;

/// What a load error of a kind of resource is called in a report.
std::string LoadErrorText(GameResource& resource, const Error& error) {
    const std::string detail = " (" + error.Description() + ")";
    if (resource.ResType() == rtSound && error.Is(598)) return "Invalid sound data" + detail;
    if (resource.ResType() == rtView) {
        for (const std::int32_t id : {513, 537, 539, 540, 548, 550, 551, 552, 553, 563}) {
            if (error.Is(id)) return "Invalid view data" + detail;
        }
    }
    return "Unable to load " + resource.ID() + detail;
}

/// Brings a resource back to being loaded or not, as it was.
class LoadedState {
  public:
    explicit LoadedState(GameResource& resource) : resource_(resource), wasLoaded_(resource.Loaded()) {}
    LoadedState(const LoadedState&) = delete;
    LoadedState& operator=(const LoadedState&) = delete;
    ~LoadedState() {
        if (resource_.Loaded() && !wasLoaded_) Attempt([this] { resource_.Unload(); });
    }

  private:
    GameResource& resource_;
    bool wasLoaded_;
};

/// Raised inside a run to end it quietly after it was canceled.
struct Canceled {};

/// One run. The state that other modules share with it is in the library's record.
class GameCompile {
  public:
    GameCompile(bool rebuildOnly, std::string_view newGameDir, std::string_view newVersion)
        : rebuildOnly_(rebuildOnly),
          targetDir_(newGameDir.empty() ? Library().GameDir : CDir(InnerPath(newGameDir))),
          newVersion_(newVersion) {}

    void Run() {
        Library().CompileActive = true;
        Library().CompileCanceled = false;
        try {
            Check();
            if (!rebuildOnly_) CompileLists();
            StartVolumes();
            AddCollections();
            Report(csDoneAdding);
            // What is sound but could not be read or written just now would be lost by the swap.
            if (fileFault_) throw *fileFault_;
            SwapFiles();
        } catch (const Canceled&) {
            CleanUp();
            return RaiseStatus(csCanceled, rtLogic, 0, "");
        } catch (...) {
            CleanUp();
            throw;
        }
        Finish();
    }

  private:
    // --- Reports ---
    /// A handler that closes the game or starts the library afresh ends the run with 91.
    void RaiseStatus(ECStatus status, AGIResType type, std::uint8_t number, const std::string& text) const {
        Library().Events->CompileGameStatus.Raise(status, type, number, text);
        session_.Require(AGIGame::ErrorSource);
    }

    /// Tells the host, and ends the run if the host has canceled it.
    void Report(ECStatus status, AGIResType type = rtLogic, std::uint8_t number = 0,
                const std::string& text = {}) const {
        RaiseStatus(status, type, number, text);
        if (!Library().CompileActive) throw Canceled();
    }

    void Report(ECStatus status, const GameResource& resource, const std::string& text = {}) const {
        Report(status, resource.ResType(), resource.Number(), text);
    }

    // --- The steps ---
    void Check() {
        LibraryState& library = Library();
        if (!DirectoryExists(targetDir_)) RaiseCatalogue(561, AGIGame::ErrorSource, targetDir_);
        sameDir_ = EqualNoCase(targetDir_, library.GameDir) || IsGameDirUnderAnotherName();
        targetV3_ = library.VersionChanging ? !library.IsV3 : library.IsV3;
        if (targetV3_ && CharacterCount(library.GameID) >= 6) RaiseCatalogue(694, AGIGame::ErrorSource);
        FileSwap::Finish(targetDir_);
        library.TargetDir = targetDir_;
    }

    /// True when a file made in the target directory appears in the game's, as behind a link or "..".
    bool IsGameDirUnderAnotherName() const {
        bool appears = false;
        Attempt([&] {
            const std::string probe = Files().UniqueTempFile(targetDir_, "AGI");
            appears = FileExists(Library().GameDir + JustFileName(probe));
            Files().Remove(probe);
        });
        return appears;
    }

    void CompileLists() {
        CompileList(csCompWords, *Library().VocabularyWords, "WORDS.TOK", "WORDS.OLD");
        CompileList(csCompObjects, *Library().InventoryObjects, "OBJECT", "OBJECT.OLD");
    }

    template <class List>
    void CompileList(ECStatus status, List& list, const std::string& name, const std::string& backup) {
        Report(status);
        if (const auto error = Attempt([&] {
                if (list.IsDirty()) list.Save();
            })) {
            Report(csResError, rtLogic, 0,
                   "Error during compilation of " + name + " (" + error->Description() + ")");
        }
        if (sameDir_) return;
        if (const auto error = Attempt([&] { CopyToTarget(list.ResFile(), name, backup); })) {
            Report(csResError, rtLogic, 0,
                   "Error while creating " + name + " file (" + error->Description() + ")");
        }
    }

    /// Copies a file of the game into the target directory; a file that is there is set aside.
    void CopyToTarget(const std::string& from, const std::string& name, const std::string& backup) const {
        const std::string target = targetDir_ + name;
        if (FileExists(target)) Files().Copy(target, targetDir_ + backup);
        const std::string fresh = targetDir_ + "NEW_" + name;
        Guarded(
            [&] {
                Files().Copy(from, fresh);
                Files().Replace(fresh, target);
            },
            [&] { Files().Remove(fresh); });
    }

    void StartVolumes() {
        LibraryState& library = Library();
        started_ = true;
        library.CurrentVol = 0;
        library.CurrentLoc = 0;
        for (auto& directory : library.NewDirData)
            directory.fill(255);
        const std::string path = targetDir_ + "NEW_VOL.0";
        library.NewVolFile = std::make_shared<NewVolume>(path, 0);
        const auto error = Attempt([&] {
            for (const std::string& name : FilesMatching(targetDir_, "NEW_VOL.*"))
                Files().Remove(targetDir_ + name);
            Files().Write(path, {});
        });
        if (error) RaiseCatalogue(503, AGIGame::ErrorSource, error->NumberAndText());
    }

    void AddCollections() {
        const HoldingVolumes holding;
        for (const AGIResType type : {rtLogic, rtPicture, rtView, rtSound})
            AddCollection(type);
        if (const auto error = Attempt([] { Wrapped(638, [] { Library().NewVolFile->Flush(); }); })) {
            NoteFault(*error);
            Report(csResError, rtLogic, 0, NotAdded(*error));
        }
        Library().NewVolFile.reset();
    }

    void AddCollection(AGIResType type) {
        // The members as they are now: a handler could not change them anyway, but a list in use must not
        // move.
        const MemberTable::List members = CollectionOf(type)->Members();
        for (const auto& member : members) {
            Report(csAddResource, *member);
            const LoadedState restored(*member);
            AddResource(*member);
        }
    }

    void AddResource(GameResource& resource) {
        if (!(rebuildOnly_ ? LoadBytes(resource) : LoadAndCompile(resource))) return;
        AGIResource& buffer = resource.Resource();
        FindRoom(static_cast<std::int32_t>(buffer.View().size()));
        LibraryState& library = Library();
        const DirectoryEntryBytes entry = MakeDirectoryEntry(library.CurrentVol, library.CurrentLoc);
        std::copy(entry.begin(), entry.end(),
                  library.NewDirData[resource.ResType()].begin() + 3 * resource.Number());
        if (const auto error = Attempt([&] { AddToVol(buffer, targetV3_, true); })) {
            NoteFault(*error);
            Report(csResError, resource, NotAdded(*error));
        }
    }

    /// Of a resource of any kind.
    static std::string NotAdded(const Error& error) {
        return "Unable to add Logic resource to VOL file (" + error.Description() + ")";
    }

    bool LoadBytes(GameResource& resource) const {
        const auto error = Attempt([&] {
            if (!resource.Loaded()) resource.Resource().Load();
        });
        if (!error) return true;
        Report(csResError, resource, "Unable to load " + resource.ID() + " (" + error->Description() + ")");
        return false;
    }

    bool LoadAndCompile(GameResource& resource) {
        const auto error = Attempt([&] {
            if (!resource.Loaded()) resource.Load();
        });
        const std::string warning = PictureWarning(resource);
        if (error && !error->Is(bitmapError) && warning.empty()) {
            if (IsFileFault(*error)) NoteFault(*error);
            Report(csResError, resource, LoadErrorText(resource, *error));
            return false;
        }
        if (!warning.empty()) Report(csWarning, resource, "--|" + warning + "|--|--");
        if (!resource.Loaded()) return false;
        return resource.ResType() != rtLogic || Compile(static_cast<AGILogic&>(resource));
    }

    /// True for a fault of the disk, such as a full one, in contrast to one of the resource's own data.
    static bool IsFileFault(const Error& error) {
        if (error.Number() > 0) return error.Number() >= reFileNotFound && error.Number() <= rePathNotFound;
        return error.Is(547) || error.Is(582) || error.Is(663);
    }

    void NoteFault(const Error& error) {
        if (!fileFault_) fileFault_ = error;
    }

    static std::string PictureWarning(const GameResource& resource) {
        if (resource.ResType() != rtPicture) return {};
        const std::int32_t level = static_cast<const AGIPicture&>(resource).BMPErrLevel();
        if (level == 0) return {};
        return level >= 8 ? "Unhandled error in picture data- picture may not display correctly"
                          : "Data anomalies in picture data but picture should display";
    }

    bool Compile(AGILogic& logic) {
        const auto error = Attempt([&] { CompileLogic(logic); });
        if (!error) return true;
        if (error->Is(compileError)) {
            Report(csLogicError, logic, error->Description());
        } else {
            if (IsFileFault(*error)) NoteFault(*error);
            Report(csResError, logic, "Unable to compile Logic (" + error->Description() + ")");
        }
        return false;
    }

    void FindRoom(std::int32_t size) const {
        if (const auto error = Attempt([&] { ValidateVolAndLoc(size, targetV3_); })) {
            if (error->Is(593)) RaiseText(error->Number(), "CompResCol", error->Description());
            RaiseText(ObjectErrorBase + 638, error->Source(), CatalogueText(638, {error->NumberAndText()}));
        }
    }

    // --- The new files in their places ---
    void SwapFiles() {
        const std::string id = targetV3_ ? Library().GameID : std::string();
        FileSwap swap(targetDir_);
        std::string failedAt;
        const auto error = Attempt([&] {
            for (const NewDirectory& directory : NewDirectoryFiles(targetV3_, Library().GameID)) {
                failedAt = directory.Name;
                const std::string fresh = "NEW_DIR." + std::to_string(directory.Number);
                Files().Write(targetDir_ + fresh, directory.Bytes);
                swap.Add(fresh, directory.Name);
            }
            for (std::int32_t n = 0; n < volumeNames; ++n)
                AddVolumeStep(swap, n, id);
            RemoveBackups(id);
            failedAt.clear();
            swap.Run();
        });
        if (!error) return;
        if (failedAt.empty()) failedAt = swap.FailedAt();
        std::string text = error->Description();
        if (error->Number() == reFileExists) {
            text = "Unable to delete existing " + failedAt + ". New " + failedAt + " file was not created.";
        }
        RaiseText(error->Number(), AGIGame::ErrorSource, text);
    }

    void AddVolumeStep(FileSwap& swap, std::int32_t number, const std::string& id) const {
        const std::string fresh = "NEW_VOL." + std::to_string(number);
        const std::string name = id + "VOL." + std::to_string(number);
        if (FileExists(targetDir_ + fresh)) {
            swap.Add(fresh, name);
        } else {
            swap.Retire(name);
        }
    }

    /// Deletes what an earlier run has set aside, as far as it can be deleted.
    void RemoveBackups(const std::string& id) const {
        std::vector<std::string> names;
        for (const NewDirectory& directory : NewDirectoryFiles(targetV3_, Library().GameID)) {
            names.push_back(directory.Name);
        }
        for (std::int32_t n = 0; n < volumeNames; ++n)
            names.push_back(id + "VOL." + std::to_string(n));
        for (const std::string& name : names) {
            if (FileExists(targetDir_ + name + ".OLD"))
                Attempt([&] { Files().Remove(targetDir_ + name + ".OLD"); });
        }
    }

    /// The files are in their places, and nothing can stop the run any more: what the record says follows
    /// them, and then the host is told.
    void Finish() {
        LibraryState& library = Library();
        library.CompileActive = false;
        for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
            for (const auto& member : CollectionOf(type)->Members())
                StorePlace(member->Resource(), type);
        }
        if (!newVersion_.empty()) StoreVersion(newVersion_);
        SaveGameProperties();
        RaiseStatus(csCompileComplete, rtLogic, 0, "");
    }

    void StorePlace(AGIResource& buffer, AGIResType type) const {
        const Internal key;
        const std::uint8_t* entry = Library().NewDirData[type].data() + 3 * buffer.Number();
        // In the open game's own volumes nothing has changed when the new ones went elsewhere.
        if (!sameDir_ || entry[0] == 255) buffer.SizeInVol(key, -1);
        if (!sameDir_) return;
        buffer.Volume(key, entry[0] >> 4);
        buffer.Loc(key, (entry[0] & 15) * 65536 + entry[1] * 256 + entry[2]);
    }

    /// The game is as it was, so the sizes noted for the new volumes do not hold, and what was made for them
    /// goes.
    void CleanUp() const {
        if (session_.Lasts()) {
            Library().CompileActive = false;
            Library().NewVolFile.reset();
            for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
                for (const auto& member : CollectionOf(type)->Members())
                    member->Resource().SizeInVol(Internal(), -1);
            }
        }
        if (started_) RemoveNewFiles();
    }

    void RemoveNewFiles() const {
        for (const std::string_view pattern : {"NEW_VOL.*", "NEW_DIR.*"}) {
            for (const std::string& name : FilesMatching(targetDir_, pattern))
                Attempt([&] { Files().Remove(targetDir_ + name); });
        }
    }

    RunSession session_;
    bool rebuildOnly_;
    std::string targetDir_;
    std::string newVersion_;
    bool sameDir_ = true;
    bool targetV3_ = false;
    bool started_ = false;  // new files may lie in the target directory
    std::optional<Error> fileFault_;
};

}  // namespace

void CompileGameFiles(bool rebuildOnly, std::string_view newGameDir, std::string_view newVersion) {
    if (!Library().GameLoaded) return;
    if (Library().CompileActive) RaiseRuntime(reInvalidCall, AGIGame::ErrorSource);
    GameCompile(rebuildOnly, newGameDir, newVersion).Run();
}

}  // namespace zorvex
