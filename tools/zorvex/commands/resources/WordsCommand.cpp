// zorvex words: the vocabulary of a game or of a file.
#include <cstdio>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/GameText.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/ListFiles.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace {

struct WordsOptions {
    std::string Source;
    std::string Output;
    bool Json = false;
};

void Declare(Declaration& command, WordsOptions& options) {
    command.Option("source", options.Source, "A game, or a word list: WORDS.TOK or a text form (.agw)")
        .Required();
    command.Option("-o,--output", options.Output,
                   "Write the words to this file instead: FILE.agw or FILE.tok");
    DeclareJson(command, options.Json);
}

std::int32_t FileTypeOf(const std::string& path) {
    const std::string lowered = LowerCase(path);
    if (lowered.ends_with(".tok")) return 0;
    if (lowered.ends_with(".agw")) return 1;
    throw UsageError(path + " must end in .agw for the text form or in .tok");
}

Json JsonOf(const AGIWordList& list) {
    Json words = Json::array();
    for (const AGIWord& word : list)
        words.push_back({{"text", GameTextAsUtf8(word.WordText)}, {"group", word.Group}});
    return {{"words", std::move(words)}, {"description", list.Description()}};
}

/// One line a group: its number and its words, with tabs between.
void PrintGroups(const AGIWordList& list) {
    for (std::int32_t i = 0; i < list.GroupCount(); ++i) {
        const auto group = list.Group(i);
        std::string line = std::to_string(group->GroupNum());
        for (const std::string& word : group->Words())
            line += "\t" + PrintableGameText(word);
        std::puts(line.c_str());
    }
}

int Show(AGIWordList& list, const WordsOptions& options) {
    if (!options.Output.empty()) {
        NoteWriting(options.Output);
        try {
            list.Export(options.Output, FileTypeOf(options.Output));
        } catch (const Error& error) {
            throw WithUnwritableWord(error, list);
        }
    }
    if (options.Json) {
        PrintJson(JsonOf(list));
    } else if (options.Output.empty()) {
        PrintGroups(list);
    }
    return exitDone;
}

int Run(const WordsOptions& options) {
    if (!options.Output.empty()) FileTypeOf(options.Output);  // a wrong name is told before anything is read
    if (!NamesGame(options.Source)) {
        AGIWordList list;
        LoadListFile(list, options.Source);
        list.IsDirty(true);  // written even onto the file that it came from
        return Show(list, options);
    }
    OpenedGame game(options.Source, Access::Look);
    const auto list = game.Game().VocabularyWords();
    if (!list->Loaded()) throw Error(ObjectErrorBase + 529, "zorvex", CatalogueText(529));
    return Show(*list, options);
}

}  // namespace

void AddWordsCommand(CommandLine& line) {
    AddCommand<WordsOptions>(line,
                             {"words", "Lists the words of a game or of a word list, one line a group.",
                              "  zorvex words mygame                  number and words of each group\n"
                              "  zorvex words mygame --json           the same for a program\n"
                              "  zorvex words mygame -o words.agw     as a text to edit\n"
                              "  zorvex words words.agw -o words.tok  from text to WORDS.TOK"},
                             Declare, Run);
}

}  // namespace zorvex::tool
