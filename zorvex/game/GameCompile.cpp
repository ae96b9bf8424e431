#include "zorvex/game/GameCompile.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/game/GameDetection.h"
#include "zorvex/logic/AGILogic.h"
#include "zorvex/logic/LogCompile.h"
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
constexpr std::array buildOrder{rtLogic, rtPicture, rtView, rtSound};

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
    /// The resource stays as it is now.
    void Keep() { kept_ = true; }
    ~LoadedState() {
        if (resource_.Loaded() && !wasLoaded_ && !kept_) Attempt([this] { resource_.Unload(); });
    }

  private:
    GameResource& resource_;
    bool wasLoaded_;
    bool kept_ = false;
};

/// Raises 5 where resources could not be read when the game was opened: a build would lose them.
void RequireNothingLeft() {
    std::string names;
    for (const LoadIssue& issue : Library().LoadIssues) {
        if (issue.Kind != LoadIssueKind::Resource ||
            !Library().LeftEntries[issue.Type][static_cast<std::size_t>(issue.Number)])
            continue;
        names += (names.empty() ? "" : ", ") + std::string(ResTypeNames[issue.Type]) +
                 std::to_string(issue.Number);
    }
    if (names.empty()) return;
    RaiseText(reInvalidCall, AGIGame::ErrorSource,
              "A build would lose resources that cannot be read: " + names);
}

/// Raised inside a run to end it quietly after it was canceled.
struct Canceled {};

/// Raised inside a run to end it after a failure, with nothing changed.
struct Stopped {};

/// One run. The state that other modules share with it is in the library's record.
class GameCompile {
  public:
    GameCompile(const BuildOptions& options, std::string_view newVersion, BuildReport& report)
        : options_(options),
          targetDir_(options.Directory.empty() ? Library().GameDir : CDir(InnerPath(options.Directory))),
          newVersion_(newVersion),
          report_(report) {}

    void Run() {
        Library().CompileActive = true;
        Library().CompileCanceled = false;
        try {
            Check();
            if (!options_.RebuildOnly || options_.BringLists) CompileLists();
            StartVolumes();
            AddCollections();
            Report(csDoneAdding);
            // What is sound but could not be read or written just now would be lost by the swap.
            if (fileFault_) throw *fileFault_;
            if (stopped_) throw Stopped();
            SwapFiles();
        } catch (const Stopped&) {
            return CleanUp();
        } catch (const Canceled&) {
            CleanUp();
            report_.Canceled = true;
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
        if (!Library().CompileActive || options_.Stop.stop_requested()) throw Canceled();
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
            ListFailed("Error during compilation of " + name + " (" + error->Description() + ")");
        }
        if (sameDir_) return;
        if (const auto error = Attempt([&] { CopyToTarget(list.ResFile(), name, backup); })) {
            ListFailed("Error while creating " + name + " file (" + error->Description() + ")");
        }
    }

    void ListFailed(const std::string& text) {
        report_.ListFailures.push_back(text);
        stopped_ = stopped_ || options_.Failures == BuildFailure::Stop;
        Report(csResError, rtLogic, 0, text);
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
        for (const AGIResType type : buildOrder)
            progress_.Total += CollectionOf(type)->size();
        for (const AGIResType type : buildOrder)
            AddCollection(type);
        if (const auto error = Attempt([] { Wrapped(638, [] { Library().NewVolFile->Flush(); }); })) {
            NoteFault(*error);
            Report(csResError, rtLogic, 0, NotAdded(*error));
        }
        Library().NewVolFile.reset();
    }

    void AddCollection(AGIResType type) {
        // The members as they are now: a list in use must not move.
        const MemberTable::List members = CollectionOf(type)->Members();
        for (const auto& member : members) {
            progress_.Type = type;
            progress_.Number = member->Number();
            if (options_.Progress) options_.Progress(progress_);
            session_.Require(AGIGame::ErrorSource);
            Report(csAddResource, *member);
            LoadedState restored(*member);
            report_.Items.push_back({type, member->Number(), member->ID()});
            if (!AddResource(*member)) KeepLastBytes(*member, restored);
            ++progress_.Done;
        }
    }

    /// False for a resource that the new game lacks.
    bool AddResource(GameResource& resource) {
        if (!(options_.RebuildOnly ? LoadBytes(resource) : LoadAndCompile(resource)) && !TakeFormer(resource))
            return false;
        AGIResource& buffer = resource.Resource();
        if (const std::size_t size = buffer.View().size(); size > 0xFFFF) {
            const Error tooLarge(ObjectErrorBase + 516, std::string(AGIResource::ErrorSource),
                                 CatalogueText(516));
            Fail(csResError, resource, NotAdded(tooLarge), tooLarge);
            return false;
        }
        FindRoom(static_cast<std::int32_t>(buffer.View().size()));
        LibraryState& library = Library();
        const DirectoryEntryBytes entry = MakeDirectoryEntry(library.CurrentVol, library.CurrentLoc);
        std::copy(entry.begin(), entry.end(),
                  library.NewDirData[resource.ResType()].begin() + 3 * resource.Number());
        if (const auto error = Attempt([&] { AddToVol(buffer, targetV3_, true); })) {
            NoteFault(*error);
            Fail(csResError, resource, NotAdded(*error), *error);
        }
        return true;
    }

    /// Of a resource of any kind.
    static std::string NotAdded(const Error& error) {
        return "Unable to add Logic resource to VOL file (" + error.Description() + ")";
    }

    // --- Failures ---
    /// Notes what is wrong with a resource, and tells the host.
    void Fail(ECStatus status, const GameResource& resource, const std::string& text, const Error& error) {
        BuildItem& item = report_.Items.back();
        item.Outcome = BuildOutcome::LeftOut;
        item.ErrorNumber = error.Number() > 0 ? error.Number() : error.Id();
        item.Text = status == csLogicError ? error.Description() : text;
        stopped_ = stopped_ || options_.Failures == BuildFailure::Stop;
        Report(status, resource, text);
    }

    /// Goes on with the bytes that the game has, where that is asked for. True when they are there.
    bool TakeFormer(GameResource& resource) {
        if (options_.Failures != BuildFailure::KeepFormer) return false;
        const auto failed = Attempt([&] {
            if (!resource.Loaded()) resource.Resource().Load();
        });
        if (failed) return false;
        report_.Items.back().Outcome = BuildOutcome::KeptFormer;
        return true;
    }

    /// The last good bytes of a resource that the new game lacks stay in its object, as something to be
    /// saved: after the swap they are in no file that the game uses.
    void KeepLastBytes(GameResource& resource, LoadedState& restored) {
        if (!sameDir_ || stopped_) return;
        Attempt([&] {
            if (!resource.Loaded()) resource.Resource().Load();
        });
        if (!resource.Loaded()) return;
        restored.Keep();
        lost_.push_back(report_.Items.size() - 1);
    }

    bool LoadBytes(GameResource& resource) {
        const auto error = Attempt([&] {
            if (!resource.Loaded()) resource.Resource().Load();
        });
        if (!error) return true;
        Fail(csResError, resource, "Unable to load " + resource.ID() + " (" + error->Description() + ")",
             *error);
        return false;
    }

    bool LoadAndCompile(GameResource& resource) {
        const auto error = Attempt([&] {
            if (!resource.Loaded()) resource.Load();
        });
        const std::string warning = PictureWarning(resource);
        if (error && !error->Is(bitmapError) && warning.empty()) {
            if (IsFileFault(*error)) NoteFault(*error);
            Fail(csResError, resource, LoadErrorText(resource, *error), *error);
            return false;
        }
        if (!warning.empty()) {
            report_.Warnings.push_back({.Type = resource.ResType(),
                                        .Number = resource.Number(),
                                        .ID = resource.ID(),
                                        .Text = warning});
            Report(csWarning, resource, "--|" + warning + "|--|--");
        }
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

    /// Of the present bytes: a picture that an edit has changed is drawn again.
    static std::string PictureWarning(GameResource& resource) {
        if (resource.ResType() != rtPicture) return {};
        auto& picture = static_cast<AGIPicture&>(resource);
        if (picture.Loaded()) Attempt([&] { picture.VisData(); });
        const std::int32_t level = picture.BMPErrLevel();
        if (level == 0) return {};
        return level >= 8 ? "Unhandled error in picture data- picture may not display correctly"
                          : "Data anomalies in picture data but picture should display";
    }

    bool Compile(AGILogic& logic) {
        const auto error = Attempt([&] { CompileLogic(logic); });
        session_.Require(AGIGame::ErrorSource);
        if (!error) {
            report_.Items.back().Outcome = BuildOutcome::Compiled;
            return true;
        }
        if (error->Is(compileError)) {
            Fail(csLogicError, logic, error->Description(), *error);
        } else {
            if (IsFileFault(*error)) NoteFault(*error);
            Fail(csResError, logic, "Unable to compile Logic (" + error->Description() + ")", *error);
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
        report_.Done = true;
        report_.Volumes = library.CurrentVol + 1;
        for (const AGIResType type : buildOrder) {
            for (const auto& member : CollectionOf(type)->Members())
                StorePlace(member->Resource(), type);
        }
        for (const std::size_t at : lost_) {
            const BuildItem& item = report_.Items[at];
            if (const auto member = CollectionOf(item.Type)->Find(item.Number)) member->DataDirty(true);
        }
        if (sameDir_) {
            for (auto& entries : library.LeftEntries)
                entries.reset();
        }
        if (!newVersion_.empty()) StoreVersion(newVersion_);
        SaveGameProperties();
        RaiseStatus(csCompileComplete, rtLogic, 0, "");
    }

    void StorePlace(AGIResource& buffer, AGIResType type) const {
        const Internal key;
        const std::uint8_t* entry = Library().NewDirData[type].data() + 3 * buffer.Number();
        const bool absent = entry[0] == 255;
        // In the open game's own volumes nothing has changed when the new ones went elsewhere.
        if (!sameDir_ || absent) buffer.SizeInVol(key, -1);
        if (!sameDir_) return;
        buffer.Volume(key, absent ? -1 : entry[0] >> 4);
        buffer.Loc(key, absent ? -1 : (entry[0] & 15) * 65536 + entry[1] * 256 + entry[2]);
    }

    /// The game is as it was, so the sizes noted for the new volumes do not hold, and what was made for them
    /// goes.
    void CleanUp() const {
        if (session_.Lasts()) {
            Library().CompileActive = false;
            Library().NewVolFile.reset();
            for (const AGIResType type : buildOrder) {
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
    const BuildOptions& options_;
    std::string targetDir_;
    std::string newVersion_;
    bool sameDir_ = true;
    bool targetV3_ = false;
    bool started_ = false;  // new files may lie in the target directory
    BuildReport& report_;
    BuildProgress progress_;
    bool stopped_ = false;
    std::optional<Error> fileFault_;
    std::vector<std::size_t> lost_;  // items of resources whose last bytes are only in their objects
};

}  // namespace

void CompileGameFiles(bool rebuildOnly, std::string_view newGameDir, std::string_view newVersion) {
    const BuildOptions options{.Directory = std::string(newGameDir),
                               .RebuildOnly = rebuildOnly,
                               .BringLists = false,
                               .Failures = BuildFailure::Skip};
    BuildReport report;
    BuildGameFiles(options, newVersion, report);
}

void BuildGameFiles(const BuildOptions& options, std::string_view newVersion, BuildReport& report) {
    if (!Library().GameLoaded) return;
    if (Library().CompileActive) RaiseRuntime(reInvalidCall, AGIGame::ErrorSource);
    if (!options.DropUnreadable) RequireNothingLeft();
    GameCompile(options, newVersion, report).Run();
}

}  // namespace zorvex
