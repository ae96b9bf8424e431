#include "tools/zorvex/console/Command.h"

#include <CLI/CLI.hpp>

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

CommandLine::CommandLine() : app_(std::make_unique<CLI::App>("Opens, shows and edits AGI games.", "zorvex")) {
    app_->formatter(std::make_shared<HelpFormatter>());
    app_->get_formatter()->column_width(34);
    app_->require_subcommand(1);
    app_->set_version_flag("--version", "zorvex " ZORVEX_VERSION);
    app_->footer(
        "  zorvex info mygame            what the game is\n  zorvex COMMAND --help         how to use a "
        "command");
}

CommandLine::~CommandLine() = default;

Declaration CommandLine::Add(const CommandText& text, std::function<int()> body) {
    CLI::App* command = app_->add_subcommand(text.Name, text.Purpose);
    command->footer(text.Examples);
    command->callback([this, run = std::move(body)] { chosen_ = run; });
    return Declaration(*command);
}

int CommandLine::Run(int argc, char** argv) {
    try {
        app_->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app_->exit(error) == 0 ? exitDone : exitUsage;
    }
    return chosen_();
}

void DeclareGame(Declaration& command, std::string& game) {
    command.Option("game", game, "A game directory, or the property file (.zvg) of a game").Required();
}

void DeclareJson(Declaration& command, bool& json) {
    command.Flag("--json", json, "Print JSON");
}

}  // namespace zorvex::tool
