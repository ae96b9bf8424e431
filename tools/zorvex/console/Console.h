// What the tool says to a person: diagnostics and progress, on standard error.
#pragma once

#include <string>
#include <string_view>

#include "zorvex/base/Error.h"

namespace zorvex::tool {

/// Prints "zorvex: error <id>: <description>". The id of a catalogue error, or the number of a plain one.
void SayError(const Error& error);
/// As SayError, for one of several things: "zorvex: <what>: error <id>: <description>".
void SayError(std::string_view what, const Error& error);
/// Prints "zorvex: error: <text>".
void SayError(std::string_view text);
/// Prints "zorvex: warning: <text>".
void SayWarning(std::string_view text);
/// Prints "zorvex: <text>".
void SayNote(std::string_view text);

/// A number with its noun in the singular or plural: "1 error", "2 errors".
std::string Counted(std::size_t count, std::string_view noun);
/// "error" or "warning" in its colour where standard error is a terminal that wants colours, else as it is.
std::string Colored(std::string_view kind);

/// Notes that a file of the user's is about to be written; one that is there already will be told of.
void NoteWriting(const std::string& path);
/// Tells which files were replaced since the start.
void SayReplaced();

/// The id of a catalogue error, or the number of a plain one.
std::int32_t ShownNumber(const Error& error);
/// A text of the library as a person should see it: paths of a scratch copy as the paths of the game it
/// stands for, with the system's own separators.
std::string ShownText(std::string_view text);
/// From now on ShownText gives paths in `scratch` as paths in `original`.
void ShowScratchAs(std::string_view scratch, std::string_view original);

/// Clears the line of progress, if one stands there, so that other text does not follow it. Everything that
/// is said does this first.
void ClearProgressLine();

/// A line of progress on a terminal; nothing where standard error is none.
class Progress {
  public:
    /// `total` 0 means that the end is not known.
    Progress(std::string title, std::size_t total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Shows that `done` steps are done, and what is at hand.
    void Show(std::size_t done, std::string_view at = {});

  private:
    std::string title_;
    std::size_t total_;
    bool onTerminal_;
};

}  // namespace zorvex::tool
