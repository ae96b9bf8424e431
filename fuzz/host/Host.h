// A careless host: it keeps two games open in two workspaces, holds on to whatever it was given, and does
// what its input says, in whatever order.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "fuzz/host/Input.h"
#include "fuzz/host/Model.h"
#include "fuzz/host/Template.h"

namespace zorvex::fuzz {

/// What a handler of this host throws when it throws something of its own.
struct HostFault : std::exception {
    const char* what() const noexcept override { return "a fault of the host"; }
};

/// One workspace with its game.
struct Desk {
    std::string Dir;
    std::string GameFile;
    std::unique_ptr<Workspace> Place = std::make_unique<Workspace>();
    std::unique_ptr<AGIGame> Game;
    std::vector<Subscription> Watching;
    Model OnDisk;
    /// While the game is open to be looked at only: the model and the files as they were.
    std::optional<Model> Looked;
    std::map<std::string, ByteArray> LookedFiles;
    /// The game has files of both generations, so that its directory may mean either.
    bool Mixed = false;

    /// Of the build that runs.
    bool Building = false;
    bool Completed = false;
    bool WordsDirty = false;  // at its beginning
    bool ItemsDirty = false;
    std::set<Key> Failed;

    bool IsOpen() const { return Game && Game->GameLoaded(); }
};

/// A resource that the host keeps, and the desk whose game it came from; -1 for one that it made itself.
struct Held {
    std::shared_ptr<GameResource> Object;
    int Home = -1;
};

class Host {
  public:
    explicit Host(ByteView bytes);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    void Run();

  private:
    enum class HandlerAct : std::uint8_t { None, Cancel, Throw, ThrowOwn, Close, Ask, Any };

    /// Runs a step of which only an Error may come, or what a handler of the host has thrown.
    template <class Step>
    bool Try(Step step) {
        try {
            step();
            return true;
        } catch (const Error& error) {
            lastError_ = error.Number();
        } catch (const HostFault&) {
            lastError_ = 0;
        }
        return false;
    }

    void Operate();
    /// Puts the workspace of the present desk in use.
    void Enter();
    Desk& Present() { return desks_[present_]; }
    AGIGame& Game() { return *Present().Game; }

    // --- Games ---
    void MakeGame();
    void Watch();
    void HandleEvent();
    void Open();
    void Opened(bool fromDirectory);
    void Close(bool check = true);
    void CheckClosed(Desk& desk);
    /// The game has ended otherwise than by Close.
    void GiveUp();
    void Abandon();
    void SwitchDesk();
    void SetProperty();
    void SetGeneration();
    void Build();
    void BeforeBuild();
    /// A build saves the changed lists before anything else, and they stay saved however it ends.
    void NoteLists();
    void AfterBuild(bool inPlace, const std::map<Key, std::vector<ByteArray>>& mayBe);
    std::map<Key, std::vector<ByteArray>> BytesInHand();
    void Settings();

    // --- Resources ---
    Held& Keep(Held held);
    Held* Pick(std::optional<AGIResType> type = {});
    /// The key of a resource that belongs to the game of the present desk.
    std::optional<Key> KeyOf(const Held& held);
    Saved& SavedOf(const Key& key) { return Present().OnDisk.Resources[key]; }
    void NoteBytes(const Held& held);
    void TakeMember();
    void Walk();
    void AddResource();
    void RemoveResource();
    void RenumberResource();
    void NewObject();
    void EditResource();
    void EditBytes(GameResource& resource);
    void SaveResource(Held& held);
    void NameResource(Held& held);
    void CopyResource(Held& held);
    void ImportExport(Held& held);
    void EditLogic(Held& held);
    void EditPicture(AGIPicture& picture);
    void EditView(AGIView& view);
    void EditLoops(AGILoops& loops);
    void EditCel(AGICel& cel);
    void EditSound(AGISound& sound);
    void EditTrack(AGITrack& track);
    void EditKeptParts();

    // --- Lists ---
    void EditWords();
    void EditWordGroups(AGIWordList& words);
    void EditItems();
    template <class List>
    void ListCalls(List& list);

    std::string OutFile();
    void CheckFiles();

    Input input_;
    std::shared_ptr<MemoryFileSystem> files_ = FreshFiles();
    std::array<Desk, 2> desks_;
    std::size_t present_ = 0;
    std::unique_ptr<Workspace::Use> use_;
    std::vector<Held> held_;
    std::shared_ptr<AGILoops> loops_;
    std::shared_ptr<AGICel> cel_;
    std::shared_ptr<AGITrack> track_;
    std::shared_ptr<AGINote> note_;
    std::shared_ptr<AGIWordList> words_;
    std::shared_ptr<AGIInventoryObjects> items_;
    std::shared_ptr<AGIInventoryItem> item_;
    std::shared_ptr<AGIWordGroup> group_;
    std::int32_t lastError_ = 0;
    HandlerAct act_ = HandlerAct::None;
    std::size_t actAfter_ = 0;
    int depth_ = 0;
};

}  // namespace zorvex::fuzz
