#include "tools/zorvex/games/CompilerSettings.h"

#include "tools/zorvex/console/Command.h"
#include "tools/zorvex/console/Console.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileQueries.h"

namespace zorvex::tool {

namespace {

constexpr std::int32_t firstWarning = 5001;
constexpr std::int32_t lastWarning = 5107;

LogicErrorLevel LevelOf(const std::string& name) {
    return name == "high" ? leHigh : name == "low" ? leLow : leMedium;
}

}  // namespace

void DeclareCompiler(Declaration& command, CompilerSettings& settings) {
    command.Option("--level", settings.Level, "How strict to be: high makes doubtful source an error")
        .OneOf({"high", "medium", "low"})
        .ShowDefault();
    command.Option("--ignore", settings.Ignore, "Warnings not to give, such as 5017,5025");
    command.Flag("--names", settings.Names, "Reserved names such as currentRoom count in any case");
}

void ApplyCompiler(AGIGame& game, const CompilerSettings& settings) {
    const auto source = game.LogicSourceSettings();
    source->ErrorLevel(LevelOf(settings.Level));
    for (const std::string& text : Split(settings.Ignore, ",")) {
        if (Trim(text).empty()) continue;
        const auto number = ParseLong(text);
        if (!number || *number < firstWarning || *number > lastWarning) {
            throw UsageError("'" + text + "' is no warning; warnings are " + std::to_string(firstWarning) +
                             " to " + std::to_string(lastWarning));
        }
        source->IgnoreWarning(*number, true);
    }
}

void SayMissingLists(AGIGame& game) {
    if (!game.VocabularyWords()->Loaded()) {
        SayWarning("the vocabulary (WORDS.TOK) cannot be read: logics that use 'said' will not compile");
    }
    if (!game.InventoryObjects()->Loaded()) {
        SayWarning(
            "the inventory (OBJECT) cannot be read: logics that name items, screen objects or "
            "numberOfItems will not compile");
    }
}

NamesSwitch::NamesSwitch(AGIGame& game, bool on)
    : settings_(game.LogicSourceSettings()), before_(settings_->UseReservedNames()) {
    if (on && !before_) settings_->UseReservedNames(true);
}

NamesSwitch::~NamesSwitch() {
    if (settings_->UseReservedNames() != before_) settings_->UseReservedNames(before_);
}

bool HasNoSource(const AGILogic& logic) {
    return !FileExists(logic.SourceFile());
}

}  // namespace zorvex::tool
