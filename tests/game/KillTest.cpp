// Whatever breaks off an operation at any single change of a file: the game opens again, and every resource
// is there, as before or as after.
#include <functional>

#include "tests/support/StorageTest.h"
#include "zorvex/base/Faults.h"

namespace zorvex::test {
namespace {

struct Operation {
    std::string name;
    std::function<void(AGIGame&)> run;
};

template <class Resource>
void SaveAs(Resource& resource, const ByteArray& bytes) {
    resource.Load();
    resource.SetData(bytes);
    resource.DataDirty(true);
    resource.Save();
    resource.Unload();
}

const std::vector<Operation> operations{
    {"rebuild", [](AGIGame& game) { game.CompileGame(true, ""); }},
    {"compile",
     [](AGIGame& game) {
         game.VocabularyWords()->AddWord("sword", 7);
         game.InventoryObjects()->Add("sword", 3);
         game.CompileGame(false, "");
     }},
    {"convert",
     [](AGIGame& game) {
         game.InterpreterVersion(game.InterpreterVersion()[0] == '2' ? "3.002149" : "2.917");
     }},
    {"convert there and back",
     [](AGIGame& game) {
         const std::string version = game.InterpreterVersion();
         game.InterpreterVersion(version[0] == '2' ? "3.002149" : "2.917");
         game.InterpreterVersion(version);
     }},
    {"save longer", [](AGIGame& game) { SaveAs(*game.Views().Item(0), SampleResource(rtView, 90)); }},
    {"save shorter", [](AGIGame& game) { SaveAs(*game.Views().Item(4), SampleResource(rtView, 1)); }},
    {"save the same size", [](AGIGame& game) { SaveAs(*game.Pictures().Item(0), ByteArray(41, 7)); }},
    {"add in the middle", [](AGIGame& game) { game.Pictures().Add(1); }},
    {"add at the end", [](AGIGame& game) { game.Logics().Add(200, game.Logics().Item(3).get()); }},
    {"remove the last", [](AGIGame& game) { game.Views().Remove(4); }},
    {"remove and save",
     [](AGIGame& game) {
         game.Logics().Remove(1);
         SaveAs(*game.Sounds().Item(1), SampleResource(rtSound, 70));
     }},
    {"renumber up", [](AGIGame& game) { game.Logics().Renumber(1, 9); }},
    {"renumber down", [](AGIGame& game) { game.Views().Renumber(4, 2); }},
    {"new ID", [](AGIGame& game) { game.GameID("NEW"); }},
    {"properties", [](AGIGame& game) { game.WriteProperty("General", "Author", "me", "", true); }},
};

/// A game of each generation with gaps in its volumes and numbers.
void WriteGame(bool isV3) {
    GameBuilder builder(isV3 ? "TST" : "");
    builder.Add(rtLogic, 0, SampleResource(rtLogic, 1)).Fill(0, 20);
    builder.Add(rtPicture, 0, SampleResource(rtPicture, 40)).Add(rtLogic, 1, SampleResource(rtLogic, 50));
    builder.Add(rtView, 0, SampleResource(rtView, 30)).Add(rtSound, 1, SampleResource(rtSound, 20));
    builder.Add(rtView, 4, SampleResource(rtView, 12)).Add(rtLogic, 3, SampleResource(rtLogic, 60), 1);
    builder.Add(rtPicture, 2, SampleResource(rtPicture, 5), 1);
    builder.WriteInto(gameDir);
    Files().MakeDirectory(gameDir + "src");
    AGIGame game;
    game.OpenGameDIR(gameDir);
    game.CloseGame();
}

/// Opens a game by a property file or, where none serves, by its directory files.
bool OpenAnyhow(AGIGame& game, const std::string& directory) {
    for (const std::string& name : FilesMatching(directory, "*.zvg"))
        if (!game.GameLoaded()) Attempt([&] { game.OpenGameZVG(directory + name); });
    if (!game.GameLoaded()) Attempt([&] { game.OpenGameDIR(directory); });
    return game.GameLoaded();
}

/// The game as a new process finds it.
Model Reopened() {
    AGIGame game;
    EXPECT_TRUE(OpenAnyhow(game, gameDir));
    return game.GameLoaded() ? LoadedModel() : Model();
}

bool HasBytes(const Model& model, const ByteArray& bytes) {
    return std::any_of(model.begin(), model.end(), [&](const auto& entry) { return entry.second == bytes; });
}

/// What of `before` is lost in `found`; `after` is what the whole operation gives.
std::string Lost(const Model& before, const Model& after, const Model& found) {
    for (const auto& [key, bytes] : before) {
        const auto now = found.find(key);
        const auto wanted = after.find(key);
        const bool asBefore = now != found.end() && now->second == bytes;
        const bool asAfter = wanted != after.end() && now != found.end() && now->second == wanted->second;
        const bool moved = wanted == after.end() && (HasBytes(found, bytes) || !HasBytes(after, bytes));
        if (!asBefore && !asAfter && !moved)
            return std::to_string(key.first) + ":" + std::to_string(key.second);
    }
    return {};
}

class KillTest : public testing::TestWithParam<bool> {
  protected:
    /// Runs an operation with some disturbance of the files; true as long as that came to pass.
    bool Check(const Operation& operation, const std::string& how,
               const std::function<void(FailingFileSystem&, int)>& disturb, int n, bool goesOn) {
        const MemoryFiles files;
        Files().MakeDirectory(gameDir);
        Files().MakeDirectory(gameDir + "src");
        for (const auto& [path, bytes] : start_)
            Files().Write(path, bytes);
        {
            AGIGame game;
            OpenAnyhow(game, gameDir);
            disturb(*files, n);
            Attempt([&] { operation.run(game); });
            const bool reached = files->Changes() >= n;
            files->Heal();
            if (goesOn) {  // the host goes on working after the fault
                SaveAs(*game.Pictures().Item(2), lastSave_);
                game.CloseGame();
            }
            if (!reached) return false;
        }
        const Model found = Reopened();
        Model after = afterAll_;
        if (goesOn) after[{rtPicture, 2}] = lastSave_;
        EXPECT_EQ(Lost(before_, after, found), "") << operation.name << ", " << how << " " << n;
        return !HasFailure();
    }

    Model After(const Operation& operation) {
        const MemoryFiles files;
        WriteGame(GetParam());
        before_ = Reopened();
        start_ = files->All();
        AGIGame game;
        OpenAnyhow(game, gameDir);
        operation.run(game);
        game.CloseGame();
        return Reopened();
    }

    std::map<std::string, ByteArray> start_;
    Model before_;
    Model afterAll_;
    const ByteArray lastSave_ = SampleResource(rtPicture, 77);
};

TEST_P(KillTest, LeavesAGameThatOpensWithEveryResource) {
    for (const Operation& operation : operations) {
        afterAll_ = After(operation);
        const auto kill = [](FailingFileSystem& files, int n) { files.KillAt(n, n % 2 == 0 ? 6 : 0); };
        const auto fill = [](FailingFileSystem& files, int n) { files.FailAt(n, reDiskFull, 3); };
        for (int n = 1; Check(operation, "killed at", kill, n, false);)
            ++n;
        for (int n = 1; Check(operation, "full disk at", fill, n, true);)
            ++n;
    }
}

/// Every file of the template game.
std::map<std::string, ByteArray> FilesOf(const std::map<std::string, ByteArray>& all,
                                         const std::string& dir) {
    std::map<std::string, ByteArray> files = all;
    std::erase_if(files, [&](const auto& file) { return !file.first.starts_with(dir); });
    return files;
}

TEST_P(KillTest, ANewGameOpensOrCanBeMadeAgainAndLeavesItsTemplateAlone) {
    const auto make = [isV3 = GetParam()](const std::string& templateDir) {
        AGIGame game;
        std::string resDir = "src";
        game.NewGame("NEW", isV3 ? "3.002149" : "2.917", "\\new", resDir, templateDir);
        game.CloseGame();
    };
    const auto opens = [] {
        AGIGame game;
        return OpenAnyhow(game, "\\new\\");
    };
    for (const std::string templateDir : {"", "\\game"}) {
        bool reached = true;
        for (int n = 1; reached; ++n) {
            for (const bool killed : {true, false}) {
                const MemoryFiles files;
                WriteGame(GetParam());
                files->MakeDirectory("\\new");
                const auto before = FilesOf(files->All(), gameDir);
                killed ? files->KillAt(n, n % 2 == 0 ? 6 : 0) : files->FailAt(n, reDiskFull, 3);
                Attempt([&] { make(templateDir); });
                reached = files->Changes() >= n;
                files->Heal();
                EXPECT_EQ(FilesOf(files->All(), gameDir), before);
                EXPECT_TRUE(opens() || !Attempt([&] { make(templateDir); }))
                    << (killed ? "killed at " : "full disk at ") << n << " " << templateDir;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Generations, KillTest, testing::Bool(),
                         [](const auto& generation) { return generation.param ? "V3" : "V2"; });

}  // namespace
}  // namespace zorvex::test
