#include "fuzz/host/Host.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "fuzz/Check.h"

namespace zorvex::fuzz {

namespace {

/// A time that never changes, so that a run can be repeated.
class StillClock : public Clock {
  public:
    DateTime Now() const override { return {2001, 2, 3, 4, 5, 6}; }
};

/// The model of a game as its files have it now.
Model ReadGame(const std::shared_ptr<FileSystem>& files, const std::string& path) {
    Model model;
    Workspace workspace;
    const auto use = workspace.Enter();
    UseFileSystem(files);
    AGIGame game;
    game.Open(path, {.ReadOnly = true});
    for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
        for (const auto& member : CollectionIn(game, type).Members()) {
            Saved& saved = model.Resources[{type, member->Number()}];
            saved.IDs = {member->ID()};
            try {
                member->Resource().Load();
                saved.Bytes = {member->AllData()};
            } catch (const Error&) {
                saved.MayBeAbsent = true;
            }
        }
    }
    model.Words = WordsOf(*game.VocabularyWords());
    model.Items = ItemsOf(*game.InventoryObjects());
    model.Properties = PropertiesOf(game);
    game.CloseGame();
    return model;
}

/// The model of a game of the template, read once.
const Model& FirstModel(std::size_t desk) {
    static const std::array<Model, 2> models{ReadGame(FreshFiles(), firstDir + "AGI.zvg"),
                                             ReadGame(FreshFiles(), secondDir + "TST.zvg")};
    return models[desk];
}

}  // namespace

Host::Host(ByteView bytes) : input_(bytes) {
    desks_[0].Dir = firstDir;
    desks_[0].GameFile = firstDir + "AGI.zvg";
    desks_[1].Dir = secondDir;
    desks_[1].GameFile = secondDir + "TST.zvg";
    for (std::size_t i = 0; i < desks_.size(); ++i)
        desks_[i].OnDisk = FirstModel(i);
    for (present_ = desks_.size(); present_-- > 0;) {
        Enter();
        MakeGame();
    }
    present_ = 0;
    Enter();
}

void Host::Enter() {
    use_.reset();
    use_.reset(new Workspace::Use(Present().Place->Enter()));
}

Host::~Host() {
    // The workspaces end while none of them is current.
    use_.reset();
}

void Host::MakeGame() {
    UseFileSystem(files_);
    static const auto clock = std::make_shared<StillClock>();
    UseClock(clock);
    Present().Game = std::make_unique<AGIGame>();
    Watch();
}

void Host::Watch() {
    Desk& desk = Present();
    desk.Watching.clear();
    AGIGameEvents& events = desk.Game->GameEvents();
    desk.Watching.push_back(events.CompileGameStatus.Subscribe(
        [this, &desk](ECStatus status, AGIResType type, std::uint8_t number, const std::string&) {
            desk.Completed |= status == csCompileComplete;
            if (status == csResError || status == csLogicError) desk.Failed.insert({type, number});
            HandleEvent();
        }));
    desk.Watching.push_back(events.LoadStatus.Subscribe(
        [this](ELStatus, AGIResType, std::uint8_t, const std::string&) { HandleEvent(); }));
    desk.Watching.push_back(
        events.LogCompWarning.Subscribe([this](const std::string&, std::uint8_t) { HandleEvent(); }));
}

void Host::HandleEvent() {
    if (act_ == HandlerAct::None || actAfter_-- > 0) return;
    const HandlerAct act = std::exchange(act_, HandlerAct::None);
    switch (act) {
        case HandlerAct::Cancel: Game().CancelCompile(); break;
        case HandlerAct::Throw: throw Error(5, "host", "thrown by a handler");
        case HandlerAct::ThrowOwn: throw HostFault();
        case HandlerAct::Close:
            // During a load there is nothing to close yet.
            if (!Present().IsOpen()) break;
            if (Present().Building) NoteLists();
            if (Try([&] { Game().CloseGame(); })) GiveUp();
            break;
        case HandlerAct::Ask: Walk(); break;
        case HandlerAct::Any: {
            // More than a handler may do; it must not crash.
            Desk& desk = Present();
            desk.OnDisk.Loose = true;
            const std::size_t before = present_;
            Operate();
            if (present_ != before) SwitchDesk();
            desk.OnDisk.Loose = true;
            break;
        }
        case HandlerAct::None: break;
    }
}

void Host::Run() {
    constexpr int mostOperations = 80;
    for (int n = 0; n < mostOperations && !input_.AtEnd(); ++n)
        Operate();
    act_ = HandlerAct::None;
    for (std::size_t i = 0; i < desks_.size(); ++i) {
        Close(false);
        SwitchDesk();
    }
    for (Desk& desk : desks_)
        CheckClosed(desk);
    CheckFiles();
}

void Host::Operate() {
    if (depth_ > 1) return;
    ++depth_;
    switch (input_.Below(32)) {
        case 0: Open(); break;
        case 1: input_.Below(3) == 0 ? Close() : Open(); break;
        case 2: input_.Below(8) == 0 ? Abandon() : SwitchDesk(); break;
        case 3: SetProperty(); break;
        case 4: input_.Below(4) == 0 ? SetGeneration() : Settings(); break;
        case 5:
        case 6: Build(); break;
        case 7:
            act_ = static_cast<HandlerAct>(1 + input_.Below(6));
            actAfter_ = input_.Below(12);
            break;
        case 8:
        case 9:
        case 10: TakeMember(); break;
        case 11: Walk(); break;
        case 12:
        case 13: AddResource(); break;
        case 14: RemoveResource(); break;
        case 15: RenumberResource(); break;
        case 16: NewObject(); break;
        case 17: EditKeptParts(); break;
        case 18:
        case 19: EditWords(); break;
        case 20: EditItems(); break;
        default: EditResource(); break;
    }
    // The file is where the game says, even when the game is never closed.
    if (Present().IsOpen() && !Present().Looked) Present().GameFile = Game().GameFile();
    --depth_;
}

// --- What must hold at the end ---
void Host::CheckClosed(Desk& desk) {
    // Nothing else has the game open now.
    if (desk.OnDisk.Loose) {
        if (Try([&] { desk.OnDisk = ReadGame(files_, desk.GameFile); })) return;
        desk.OnDisk.Loose = true;
        return;
    }
    CheckFreshOpen(files_, desk.GameFile, desk.OnDisk);
}

namespace {

/// True for what a library may leave in the directory of a game.
bool IsOfGame(std::string_view name) {
    constexpr std::string_view endings[] = {"DIR", ".OLD", ".zvg", ".amg"};
    constexpr std::string_view names[] = {"WORDS.TOK", "OBJECT", "errlog.txt"};
    const auto endsWith = [&](std::string_view ending) { return name.ends_with(ending); };
    const std::size_t volume = name.find("VOL.");
    const bool isTemporary = name.starts_with("NEW_") || name.starts_with("~");
    return !isTemporary &&
           (std::ranges::any_of(endings, endsWith) || std::ranges::find(names, name) != std::end(names) ||
            (volume != std::string_view::npos && name.size() <= volume + 6));
}

[[noreturn]] void Strange(const std::string& path, const char* what) {
    std::fprintf(stderr, "%s %s\n", path.c_str(), what);
    std::abort();
}

}  // namespace

void Host::CheckFiles() {
    const auto all = files_->All();
    for (const auto& [path, bytes] : ForeignFiles()) {
        const auto file = all.find(path);
        if (file == all.end() || file->second != bytes) Strange(path, "is not the library's and has changed");
    }
    for (const auto& [path, bytes] : all) {
        if (ForeignFiles().contains(path) || path.starts_with(outDir)) continue;
        const auto in = [&file = path](const std::string& directory) { return file.starts_with(directory); };
        const std::size_t nameAt = path.rfind('\\') + 1;
        const std::string name = path.substr(nameAt);
        // The directory of the sources has the name that the host gives it.
        const auto isSource = [&, at = nameAt](const std::string& directory) {
            return in(directory) && at > directory.size();
        };
        if (isSource(firstDir) || isSource(secondDir)) continue;
        if ((in(firstDir) || in(secondDir) || in(builtDir)) && IsOfGame(name)) continue;
        Strange(path, "was left");
    }
}

}  // namespace zorvex::fuzz
