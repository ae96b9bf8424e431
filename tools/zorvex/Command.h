// The skeleton that every command of the tool shares.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <stdexcept>
#include <string>

namespace zorvex::tool {

/// Exit statuses of the tool.
enum ExitStatus : int { exitDone = 0, exitFailed = 1, exitUsage = 2 };

/// The command line cannot be carried out as given: exit status 2.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The whole command line; after parsing, `Chosen` is what the named command does.
struct CommandLine {
    CommandLine();

    CLI::App App;
    std::function<int()> Chosen;
};

/// What the help of a command says besides its options.
struct CommandText {
    std::string Name;
    std::string Purpose;
    /// One example a line, each the command line and what it does.
    std::string Examples;
};

/// Adds a command whose body runs when it is named. `options` is a default-constructible struct that the
/// options are bound to by `declare(app, options)`; `body(options)` gives the exit status and may raise.
template <class Options>
void AddCommand(CommandLine& line, const CommandText& text, void (*declare)(CLI::App&, Options&),
                int (*body)(const Options&)) {
    CLI::App* command = line.App.add_subcommand(text.Name, text.Purpose);
    command->footer(text.Examples);
    auto options = std::make_shared<Options>();
    declare(*command, *options);
    command->callback([&line, options, body] { line.Chosen = [options, body] { return body(*options); }; });
}

/// Declares the argument that names a game.
void DeclareGame(CLI::App& command, std::string& game);
/// Declares --json.
void DeclareJson(CLI::App& command, bool& json);

}  // namespace zorvex::tool
