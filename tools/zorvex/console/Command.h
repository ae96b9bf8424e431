// The skeleton that every command of the tool shares.
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "tools/zorvex/console/Declaration.h"

namespace zorvex::tool {

/// Exit statuses of the tool.
enum ExitStatus : int { exitDone = 0, exitFailed = 1, exitUsage = 2 };

/// The command line cannot be carried out as given: exit status 2.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// What the help of a command says besides its options.
struct CommandText {
    std::string Name;
    std::string Purpose;
    /// One example a line, each the command line and what it does.
    std::string Examples;
};

/// The whole command line with all its commands.
class CommandLine {
  public:
    CommandLine();
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// Adds a command; `body` runs when it is named and gives the exit status.
    Declaration Add(const CommandText& text, std::function<int()> body);
    /// Reads the arguments and runs the command they name. Help and complaints about the arguments are
    /// printed here. Raises what the command raises.
    int Run(int argc, char** argv);

  private:
    std::unique_ptr<CLI::App> app_;
    std::function<int()> chosen_;
};

/// Adds a command whose body runs when it is named. `options` is a default-constructible struct that the
/// options are bound to by `declare(command, options)`; `body(options)` gives the exit status and may raise.
template <class Options>
void AddCommand(CommandLine& line, const CommandText& text, void (*declare)(Declaration&, Options&),
                int (*body)(const Options&)) {
    auto options = std::make_shared<Options>();
    Declaration command = line.Add(text, [options, body] { return body(*options); });
    declare(command, *options);
}

/// Declares the argument that names a game.
void DeclareGame(Declaration& command, std::string& game);
/// Declares --json.
void DeclareJson(Declaration& command, bool& json);

}  // namespace zorvex::tool
