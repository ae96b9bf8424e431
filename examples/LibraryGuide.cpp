// The examples of docs/library.md, as a program: each of its code blocks stands here word by word, and a test
// compares them. It works in a directory that is given to it.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>

#include "zorvex/Zorvex.h"

namespace {

void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "the guide is wrong: %s\n", what);
    std::exit(1);
}

void Open(const std::string& directory) {
    zorvex::AGIGame game;
    game.Open(directory, {.ReadOnly = true});
    for (const zorvex::LoadIssue& issue : game.LoadIssues())
        std::cerr << issue.Text << '\n';
    for (const auto& view : game.Views())
        std::cout << int{view->Number()} << ' ' << view->ID() << '\n';
    game.CloseGame();
    Require(!game.ReadOnly(), "a closed game is not read only");
}

void Keep(const std::string& directory) {
    zorvex::AGIGame game;
    game.Open(directory);
    const auto logic = game.Logics().Find(0);  // null if the game has no logic 0
    logic->Load();
    game.CloseGame();
    // The game is closed; the logic stands alone now and keeps its contents.
    std::cout << logic->Attached() << ' ' << logic->SourceText() << '\n';
    Require(!logic->Attached() && !logic->InGame(), "a kept logic is attached");
}

void TwoGames(const std::string& firstDirectory, const std::string& secondDirectory) {
    zorvex::AGIGame first;
    first.Open(firstDirectory, {.ReadOnly = true});
    zorvex::Workspace workspace;
    {
        const auto use = workspace.Enter();
        zorvex::AGIGame second;
        second.Open(secondDirectory, {.ReadOnly = true});
        std::cout << second.Logics().size() << '\n';
    }  // back in the workspace of `first`
    std::cout << first.Logics().size() << '\n';
    Require(first.GameLoaded(), "the first game is closed");
}

void Threads() {
    const auto draw = [](std::uint8_t colour) {
        zorvex::AGIPicture picture;
        picture.SetPictureData(zorvex::ByteArray{0xF0, colour, 0xF8, 10, 10, 0xFF});
        return picture.VisPixel(10, 10) == colour;
    };
    std::thread other([&] { draw(zorvex::agRed); });
    draw(zorvex::agGreen);
    other.join();
    Require(draw(zorvex::agBlue), "a picture is not filled");
}

void Errors(const std::string& directory) {
    zorvex::AGIGame game;
    try {
        game.Open(directory + "/nothing");
    } catch (const zorvex::Error& error) {
        if (error.Kind() == zorvex::ErrorKind::FileNotFound) std::cerr << error.what() << '\n';
    }
    Require(!game.GameLoaded(), "a failed open leaves a game");
}

void Check() {
    const zorvex::LogicCheck check = zorvex::CheckLogic("if (isset(f1) { return(); }\nretrun();\n");
    for (const zorvex::Diagnostic& diagnostic : check.Diagnostics)
        std::cerr << diagnostic.Line << ':' << diagnostic.Column << ": " << diagnostic.Text << '\n';
    Require(check.HasErrors(), "a bad source has no errors");
}

void Build(const std::string& directory) {
    zorvex::AGIGame game;
    game.Open(directory);
    const zorvex::BuildReport report = game.Build({.Failures = zorvex::BuildFailure::KeepFormer});
    for (const zorvex::BuildItem& item : report.Items) {
        if (item.Failed()) std::cerr << item.ID << ": " << item.Text << '\n';
    }
    game.CloseGame();
    Require(report.Done, "the game is not built");
}

void MakeGame(const std::filesystem::path& directory) {
    std::filesystem::create_directories(directory);
    zorvex::AGIGame game;
    std::string sources = "src";
    game.NewGame("GUIDE", "2.936", directory.string(), sources);
    game.CloseGame();
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: LibraryGuide DIRECTORY\n", stderr);
        return 2;
    }
    const std::filesystem::path root = arguments[1];
    std::filesystem::remove_all(root);
    try {
        MakeGame(root / "one");
        MakeGame(root / "two");
        Open((root / "one").string());
        Keep((root / "one").string());
        TwoGames((root / "one").string(), (root / "two").string());
        Threads();
        Errors(root.string());
        Check();
        Build((root / "two").string());
    } catch (const zorvex::Error& error) {
        std::fprintf(stderr, "error %d: %s\n", error.Number(), error.what());
        return 1;
    }
    return 0;
}
