// zorvex words-import: another vocabulary for a game.
#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/games/ListFiles.h"
#include "tools/zorvex/games/OpenedGame.h"

namespace zorvex::tool {

namespace {

struct WordsImportOptions {
    std::string Game;
    std::string File;
};

void Declare(Declaration& command, WordsImportOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("file", options.File, "A word list: a text form (.agw) or WORDS.TOK").Required();
}

/// Makes a stand-alone list that of the game. A list without a description leaves the game its own.
void Replace(AGIWordList& words, AGIWordList& source) {
    if (!words.Loaded()) words.Clear();  // its file cannot be read, but the game has its description
    const std::string former = words.Description();
    const std::string wanted = source.Description().empty() ? former : source.Description();
    source.Description(former);
    source.IsDirty(true);
    words.SetWords(source);
    words.Description(wanted);
    try {
        words.Save();
    } catch (const Error& error) {
        throw WithUnwritableWord(error, words);
    }
}

int Run(const WordsImportOptions& options) {
    AGIWordList source;
    LoadListFile(source, options.File);
    OpenedGame game(options.Game, Access::Change);
    Replace(*game.Game().VocabularyWords(), source);
    game.Game().SaveProperties();
    return exitDone;
}

}  // namespace

void AddWordsImportCommand(CommandLine& line) {
    AddCommand<WordsImportOptions>(
        line,
        {"words-import", "Replaces the words of a game. The game is changed.",
         "  zorvex words mygame -o words.agw         the words as a text to edit\n"
         "  zorvex words-import mygame words.agw     the edited words become the game's"},
        Declare, Run);
}

}  // namespace zorvex::tool
