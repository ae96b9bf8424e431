// What the host does with whole games.
#include <algorithm>

#include "fuzz/Check.h"
#include "fuzz/host/Host.h"

namespace zorvex::fuzz {

void Host::SwitchDesk() {
    present_ = 1 - present_;
    Enter();
}

// --- Opening and closing ---
void Host::Open() {
    Desk& desk = Present();
    if (desk.IsOpen()) {
        FUZZ_CHECK(!Try([&] { Game().Open(desk.Dir); }) && lastError_ != 0);
        return;
    }
    OpenOptions options;
    const std::uint8_t bits = input_.Byte();
    options.PreferPropertyFile = (bits & 1U) == 0;
    options.ReadOnly = (bits & 14U) == 14;
    options.EmptyDirectories = static_cast<EmptyDirectory>((bits >> 4U) % 3);
    options.BadEntries = (bits & 64U) != 0 ? BadEntry::Blank : BadEntry::Leave;
    const std::size_t way = input_.Below(8);
    if (options.ReadOnly && way < 3) {
        desk.Looked = desk.OnDisk;
        desk.LookedFiles = files_->All();
    }
    const bool fromDirectory = way == 3;
    if (way < 3) Try([&] { Game().Open(desk.GameFile, options); });
    if (way == 3) Try([&] { Game().OpenGameDIR(desk.Dir); });
    if (way == 4)
        Try([&] { Game().Open(input_.Of(std::array{"\\other", "\\nowhere", "\\foreign.lgc", ""})); });
    if (way > 4) Try([&] { Game().OpenGameZVG(desk.GameFile); });
    if (desk.IsOpen()) {
        Opened(fromDirectory);
    } else {
        // A handler may have ended it after the property file was set aside.
        desk.Looked.reset();
        if (fromDirectory) desk.OnDisk.ForgetNames();
    }
}

void Host::Opened(bool fromDirectory) {
    Desk& desk = Present();
    Model& model = desk.OnDisk;
    if (!desk.Looked) desk.GameFile = Game().GameFile();
    if (fromDirectory) {
        model.ForgetNames();
        if (desk.Mixed) model.Loose = true;
    }
    for (auto& [key, saved] : model.Resources) {
        const auto member = CollectionIn(Game(), key.first).Find(key.second);
        if (member && saved.IDs.empty()) saved.IDs = {member->ID()};
    }
}

void Host::Close(bool check) {
    Desk& desk = Present();
    if (!desk.IsOpen()) {
        Game().CloseGame();
        return;
    }
    desk.OnDisk.Properties = PropertiesOf(Game());
    if (!desk.Looked) desk.GameFile = Game().GameFile();
    FUZZ_CHECK(Try([&] { Game().CloseGame(); }));
    FUZZ_CHECK(!Game().GameLoaded() && Game().Logics().Count() == 0 && Game().Views().Count() == 0);
    if (desk.Looked) {
        desk.OnDisk = *std::exchange(desk.Looked, std::nullopt);
        const auto all = files_->All();
        for (const auto& [path, bytes] : desk.LookedFiles)
            FUZZ_CHECK(!path.starts_with(desk.Dir) || (all.contains(path) && all.at(path) == bytes));
    }
    if (check) CheckClosed(desk);
}

void Host::GiveUp() {
    Desk& desk = Present();
    if (desk.Looked) {
        desk.OnDisk = *std::exchange(desk.Looked, std::nullopt);
    } else {
        desk.OnDisk.ForgetNames();
    }
}

void Host::Abandon() {
    Desk& desk = Present();
    if (desk.Building || depth_ > 1) return;  // the objects of a running call stay
    if (desk.Looked || desk.IsOpen()) GiveUp();
    desk.Watching.clear();
    switch (input_.Below(3)) {
        case 0: desk.Game.reset(); break;
        case 1: {
            const auto former = std::move(desk.Game);
            MakeGame();
            FUZZ_CHECK(!Try([&] { former->GameLoaded(); }));
            return;
        }
        default:
            use_.reset();
            desk.Place = std::make_unique<Workspace>();
            FUZZ_CHECK(!Try([&] { desk.Game->CloseGame(); }));
            Enter();
            break;
    }
    MakeGame();
}

// --- Properties ---
void Host::SetProperty() {
    AGIGame& game = Game();
    const std::string text = input_.Text();
    const std::int32_t number = input_.Number();
    switch (input_.Below(20)) {
        case 0:
            if (Try([&] { game.GameID(text); })) FUZZ_CHECK(game.GameID().size() <= 24);
            break;
        case 1: Try([&] { game.GameAuthor(text); }); break;
        case 2: Try([&] { game.GameAbout(text); }); break;
        case 3: Try([&] { game.GameDescription(text); }); break;
        case 4: Try([&] { game.GameVersion(text); }); break;
        case 5: Try([&] { game.PlatformType(number); }); break;
        case 6: Try([&] { game.Platform(text); }); break;
        case 7: Try([&] { game.PlatformOpts(text); }); break;
        case 8: Try([&] { game.DOSExec(text); }); break;
        case 9: Try([&] { game.UseLE(number % 2 == 0); }); break;
        case 10: Try([&] { game.EGAColor(static_cast<std::int16_t>(number), number); }); break;
        case 11: Try([&] { game.MaxVol0Size(number); }); break;
        case 12: Try([&] { game.DefResDir(text); }); break;
        case 13: Try([&] { game.ResDirName(input_.Flag() ? "lib" : "src"); }); break;
        case 14: Try([&] { game.TemplateDir(input_.Flag() ? firstDir : text); }); break;
        case 15: Try([&] { game.GameDir(input_.Flag() ? Present().Dir : "\\nowhere"); }); break;
        case 16:
            Try([&] { game.GameFile(Present().Dir + (input_.Flag() ? "other.zvg" : "again.zvg")); });
            break;
        case 17:
            Try([&] { game.WriteProperty("Host", text, input_.Text(), input_.Text(), number == 0); });
            break;
        case 18: Try([&] { game.SaveProperties(); }); break;
        default: Try([&] { game.ResTypeName(static_cast<AGIResType>(number & 7)); }); break;
    }
}

void Host::Settings() {
    const auto settings = Game().LogicSourceSettings();
    const std::int32_t number = input_.Number();
    const bool flag = input_.Flag();
    Try([&] {
        switch (input_.Below(10)) {
            case 0:
                settings->ErrorLevel(static_cast<LogicErrorLevel>(number % 3 < 0 ? 0 : number % 3));
                break;
            case 1: settings->IgnoreWarning(5000 + number, flag); break;
            case 2: settings->UseReservedNames(flag); break;
            case 3: settings->ReservedAsText(flag); break;
            case 4: settings->SpecialSyntax(flag); break;
            case 5: settings->ElseAsGoto(flag); break;
            case 6: settings->ShowAllMessages(flag); break;
            case 7: settings->ResDef(static_cast<std::int16_t>(number), 1, input_.Text()); break;
            case 8: settings->ValidateResDefs(); break;
            default: Game().LogicSourceSettings(std::make_shared<AGILogicSourceSettings>()); break;
        }
    });
}

void Host::SetGeneration() {
    constexpr std::array versions{"2.917", "2.936", "3.002149", "3.002086", "2.089", "4.0", ""};
    Desk& desk = Present();
    const std::string version = input_.Of(versions);
    const std::string before = Game().InterpreterVersion();
    const bool other = desk.IsOpen() && !version.empty() && version[0] != before[0];
    const auto mayBe = BytesInHand();
    BeforeBuild();
    const bool done = Try([&] { Game().InterpreterVersion(version); });
    desk.Building = false;
    if (!other) return;
    if (done || desk.Completed) desk.Mixed = true;
    AfterBuild(true, mayBe);
}

// --- Builds ---
/// What each loaded resource holds now, which is what a build would take.
std::map<Key, std::vector<ByteArray>> Host::BytesInHand() {
    std::map<Key, std::vector<ByteArray>> bytes;
    for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
        for (const auto& member : CollectionIn(Game(), type).Members()) {
            if (member->Loaded()) bytes[{type, member->Number()}] = {BytesOf(*member)};
        }
    }
    return bytes;
}

void Host::BeforeBuild() {
    Desk& desk = Present();
    desk.Building = true;
    desk.Completed = false;
    desk.Failed.clear();
    desk.WordsDirty = Game().VocabularyWords()->IsDirty();
    desk.ItemsDirty = Game().InventoryObjects()->IsDirty();
}

void Host::Build() {
    Desk& desk = Present();
    if (desk.Building) {
        Try([&] { Game().CompileGame(); });
        return;
    }
    BuildOptions options;
    const std::uint8_t bits = input_.Byte();
    options.RebuildOnly = (bits & 1U) != 0;
    options.BringLists = (bits & 2U) != 0;
    options.DropUnreadable = (bits & 4U) != 0;
    options.Failures = static_cast<BuildFailure>((bits >> 3U) % 3);
    const std::size_t place = input_.Below(8);
    if (place == 0) options.Directory = builtDir;
    if (place == 1) options.Directory = "\\nowhere";
    if (place == 2) options.Directory = desk.Dir;
    const bool inPlace = place > 1;
    std::stop_source stop;
    options.Stop = stop.get_token();
    int stopAfter = input_.Below(6) == 0 ? static_cast<int>(input_.Below(6)) : -1;
    options.Progress = [&](const BuildProgress& progress) {
        // A handler that adds resources, which it may not, makes more of them than were counted.
        FUZZ_CHECK(desk.OnDisk.Loose || progress.Done < progress.Total);
        if (stopAfter-- == 0) stop.request_stop();
    };
    const auto mayBe = BytesInHand();
    BeforeBuild();
    BuildReport report;
    const bool whole = input_.Flag();
    const bool returned = Try([&] {
        if (whole) {
            Game().CompileGame(options.RebuildOnly, options.Directory);
        } else {
            report = Game().Build(options);
        }
    });
    desk.Building = false;
    if (!whole && returned) FUZZ_CHECK(report.Done == desk.Completed && !(report.Done && report.Canceled));
    AfterBuild(inPlace, mayBe);
}

void Host::NoteLists() {
    Desk& desk = Present();
    const auto words = Game().VocabularyWords();
    const auto items = Game().InventoryObjects();
    if (words->Loaded() && !words->IsDirty() && desk.WordsDirty) desk.OnDisk.Words = WordsOf(*words);
    if (items->Loaded() && !items->IsDirty() && desk.ItemsDirty) desk.OnDisk.Items = ItemsOf(*items);
}

void Host::AfterBuild(bool inPlace, const std::map<Key, std::vector<ByteArray>>& mayBe) {
    Desk& desk = Present();
    if (!desk.IsOpen()) return;
    Model& model = desk.OnDisk;
    NoteLists();
    if (!desk.Completed || !inPlace) return;
    for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
        for (const auto& member : CollectionIn(Game(), type).Members()) {
            const Key key{type, member->Number()};
            Saved& saved = model.Resources[key];
            if (saved.IDs.empty()) saved.IDs = {member->ID()};
            if (desk.Failed.contains(key)) saved.MayBeAbsent = true;
            if (type == rtLogic) {
                saved.Bytes.clear();
                continue;
            }
            if (const auto held = mayBe.find(key); held != mayBe.end()) {
                saved.Bytes.insert(saved.Bytes.end(), held->second.begin(), held->second.end());
                if (member->Loaded()) saved.Bytes.push_back(BytesOf(*member));
            }
        }
    }
}

}  // namespace zorvex::fuzz
