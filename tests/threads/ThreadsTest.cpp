// What two threads may do at once, done by many: each works on its own game in its own workspace, or with
// objects of its own. Built with the thread sanitizer, which ends the program at the first race.
#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/GameBuilder.h"
#include "zorvex/Zorvex.h"
#include "zorvex/base/StringList.h"

namespace zorvex::test {
namespace {

std::atomic<int> failures{0};

void Expect(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    ++failures;
}

const ByteArray aDrawing{0xF0, 2,    0xF2, 4,  0xF6, 10,   10,   150, 100, 20,
                         160,  0xF8, 80,   80, 0xF9, 0x12, 0xFA, 40,  40,  0xFF};

// --- Objects by themselves ---
void DrawPicture() {
    AGIPicture picture;
    picture.SetPictureData(aDrawing);
    Expect(picture.VisPixel(10, 10) == 2, "a picture by itself is drawn");
    Expect(picture.VisualBMP() != 0 && picture.PriorityBMP() != 0, "a picture has bitmaps");
    picture.DrawPos(5);
    picture.StepDraw(true);
    picture.PriData();
}

void EditView() {
    AGIView view;
    const auto loops = view.Loops();
    const auto loop = loops->Add();
    const auto cel = loop->Cels()->Add(255, 8, 8, agCyan);
    cel->CelData(3, 3, agRed);
    Expect(cel->CelBMP() != 0, "a cel has a bitmap");
    view.SetMirror(loops->Add()->Index(), loop->Index());
    AGIView copy;
    copy.SetView(view);
    Expect(copy.Loops()->Item(2)->Cels()->Item(0)->CelData(4, 3) == agRed, "a mirror shows the cel flipped");
}

void EditSound() {
    const auto sound = std::make_shared<AGISound>();
    for (std::int32_t note = 0; note < 20; ++note)
        sound->Track(note % 4)->Notes()->Add(100 + note, 5, 3);
    Expect(!sound->MIDIData().empty() && sound->Length() > 0, "notes are converted");
}

void EditLists() {
    AGIWordList words;
    words.NewWords();
    for (char letter = 'a'; letter <= 'z'; ++letter)
        words.AddWord(std::string("word") + letter, letter);
    Expect(words.WordCount() == 29, "words are added");
    AGIInventoryObjects items;
    items.NewObjects();
    items.Add("lamp", 3);
    Expect(items.Count() == 2, "items are added");
}

void WorkWithLooseObjects(int rounds) {
    for (int n = 0; n < rounds; ++n) {
        DrawPicture();
        EditView();
        EditSound();
        EditLists();
        try {
            AGIPicture().Load();
        } catch (const Error& error) {
            Expect(!error.Description().empty() && !CatalogueText(502).empty(), "errors have texts");
        }
    }
}

// --- Games ---
void MakeFiles(int thread) {
    GameBuilder builder(thread % 2 == 0 ? "" : "TST");
    for (const int number : {0, 1, 2})
        builder.Add(rtLogic, number, SmallestLogic());
    builder.Add(rtPicture, 1, aDrawing).Add(rtSound, 1, SilentSound()).Add(rtView, 1, SmallestView());
    builder.WriteInto("\\game\\");
}

void CompileLogics(const AGIGame& game, int round) {
    for (const auto& logic : game.Logics()) {
        logic->Load();
        logic->SourceText("#define x " + std::to_string(round % 200) +
                          "\nif (said(\"look\")) {\n v200 = x;\n print(\"a text\");\n}\n"
                          "draw.pic(v1);\nload.view(View1);\nreturn();\n");
        logic->SaveSource();
        logic->Compile();
        Expect(logic->Compiled(), "a logic compiles");
        Expect(DecodeLogic(logic->AllData())->Count() > 3, "a logic decompiles");
        logic->Unload();
    }
}

void EditGame(AGIGame& game, int round) {
    game.Pictures().Item(1)->Load();
    Expect(!game.Pictures().Item(1)->VisData().empty(), "a picture of the game is drawn");
    const auto view = game.Views().Add(10 + round % 20);
    view->Loops()->Item(0)->Cels()->Add(255, 5, 5);
    view->Save();
    const auto sound = game.Sounds().Item(1);
    sound->Load();
    sound->Track(0)->Notes()->Add(200, 10, 2);
    sound->Save();
    game.GameAuthor("somebody " + std::to_string(round));
    game.EGAColor(3, round);
    game.Views().Renumber(10 + round % 20, 200);
    game.Views().Remove(200);
}

void WorkOnGame(int thread, int rounds) {
    Workspace workspace;
    const auto use = workspace.Enter();
    UseFileSystem(std::make_shared<MemoryFileSystem>());
    MakeFiles(thread);
    AGIGame game;
    game.LogicSourceSettings()->ErrorLevel(leMedium);
    game.OpenGameDIR("\\game");
    game.VocabularyWords()->AddWord("look", 20);
    game.VocabularyWords()->Save();
    for (int round = 0; round < rounds; ++round) {
        CompileLogics(game, round);
        EditGame(game, round);
        const BuildReport report = game.Build();
        Expect(report.Done && report.Items.size() == 6, "a game is built");
        const std::string file = game.GameFile();
        game.CloseGame();
        game.Open(file);
        Expect(game.GameAuthor() == "somebody " + std::to_string(round), "a game opens again");
        WorkWithLooseObjects(1);
    }
}

}  // namespace

int Run() {
    constexpr int games = 8;
    constexpr int rounds = 4;
    std::vector<std::thread> threads;
    for (int n = 0; n < games; ++n) {
        threads.emplace_back([n] {
            try {
                WorkOnGame(n, rounds);
            } catch (const Error& error) {
                Expect(false, error.what());
            }
        });
    }
    for (int n = 0; n < 4; ++n)
        threads.emplace_back([] { WorkWithLooseObjects(3 * rounds); });
    for (std::thread& thread : threads)
        thread.join();
    return failures == 0 ? 0 : 1;
}

}  // namespace zorvex::test

int main() {
    return zorvex::test::Run();
}
