#include "tools/zorvex/Command.h"

namespace zorvex::tool {

namespace {

/// Help in one order for every command: usage, purpose, examples, options.
class HelpFormatter : public CLI::Formatter {
  public:
    std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override {
        if (mode == CLI::AppFormatMode::Sub) return make_expanded(app);
        std::string text = make_usage(app, std::move(name));
        text += app->get_description() + "\n";
        if (!app->get_footer().empty()) text += "\nExamples:\n" + app->get_footer() + "\n";
        text += make_positionals(app);
        text += make_groups(app, mode);
        text += make_subcommands(app, mode);
        return text;
    }
};

}  // namespace

CommandLine::CommandLine() : App("Opens, shows and edits AGI games.", "zorvex") {
    App.formatter(std::make_shared<HelpFormatter>());
    App.get_formatter()->column_width(34);
    App.require_subcommand(1);
    App.set_version_flag("--version", "zorvex " ZORVEX_VERSION);
    App.footer(
        "  zorvex info mygame            what the game is\n  zorvex COMMAND --help         how to use a "
        "command");
}

void DeclareGame(CLI::App& command, std::string& game) {
    command.add_option("game", game, "A game directory, or the property file (.zvg) of a game")->required();
}

void DeclareJson(CLI::App& command, bool& json) {
    command.add_flag("--json", json, "Print JSON");
}

}  // namespace zorvex::tool
