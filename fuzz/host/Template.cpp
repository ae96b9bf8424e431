#include "fuzz/host/Template.h"

#include "fuzz/Check.h"
#include "tests/support/GameBuilder.h"

namespace zorvex::fuzz {

namespace {

using test::GameBuilder;
using test::SampleResource;

/// A game with some resources of each kind, whose logics have sources.
void MakeGame(const std::string& directory, const std::string& v3ID) {
    GameBuilder builder(v3ID);
    for (const int number : {0, 1, 5})
        builder.Add(rtLogic, number, test::SmallestLogic());
    builder.Add(rtPicture, 1, {0xF0, 2, 0xF8, 20, 20, 0xFF})
        .Add(rtPicture, 2, SampleResource(rtPicture, 4), 1);
    builder.Add(rtSound, 1, SampleResource(rtSound, 3)).Add(rtView, 1, test::SmallestView());
    builder.Add(rtView, 2, SampleResource(rtView, 3), 1);
    builder.WriteInto(directory);
    Files().MakeDirectory(directory + "src");
    AGIGame game;
    game.OpenGameDIR(directory);
    for (const auto& logic : game.Logics()) {
        logic->Load();
        logic->SourceText("if (isset(f5)) { v3 = 4; print(\"a message\"); }\nreturn();");
        logic->SaveSource();
        logic->Compile();
        logic->Unload();
    }
    game.VocabularyWords()->AddWord("look", 20);
    game.VocabularyWords()->Save();
    game.InventoryObjects()->Add("lamp", 3);
    game.InventoryObjects()->Save();
    game.GameAuthor("nobody");
    game.CloseGame();
}

std::shared_ptr<MemoryFileSystem> MakeFiles() {
    auto files = std::make_shared<MemoryFileSystem>();
    Workspace workspace;
    const auto use = workspace.Enter();
    UseFileSystem(files);
    MakeGame(firstDir, "");
    MakeGame(secondDir, "TST");
    files->MakeDirectory(outDir);
    files->MakeDirectory(builtDir);
    files->MakeDirectory("\\other");
    for (const auto& [path, bytes] : ForeignFiles())
        files->Write(path, bytes);
    return files;
}

}  // namespace

const std::map<std::string, ByteArray>& ForeignFiles() {
    static const std::map<std::string, ByteArray> files{
        {"\\foreign.lgc", {1, 2, 3}},       {"\\other\\VOL.0", {0x12, 0x34, 0, 1, 0, 7}},
        {"\\other\\LOGDIR", {0, 0, 0}},     {firstDir + "notes.doc", {'n'}},
        {firstDir + "src\\keep.me", {'k'}}, {firstDir + "NEWS", {'w'}},
        {secondDir + "vol.txt", {'v'}},     {builtDir + "letter.txt", {'l'}}};
    return files;
}

std::shared_ptr<MemoryFileSystem> FreshFiles() {
    static const std::shared_ptr<MemoryFileSystem> files = MakeFiles();
    return std::make_shared<MemoryFileSystem>(*files);
}

}  // namespace zorvex::fuzz
