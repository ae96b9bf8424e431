// Errors and warnings of the logic compiler, as the tool shows them.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/zorvex/console/Json.h"
#include "zorvex/Zorvex.h"

namespace zorvex::tool {

/// One message about a place in a source.
struct Diagnostic {
    bool IsError = false;
    std::uint8_t Logic = 0;  ///< the number of the logic that was being compiled
    std::string Path;        ///< the source file as a person should see it
    int Line = 0;            ///< from 1; 0 when the place is not known
    int Column = 0;          ///< a character from 1; 0 when it is not known
    int Number = 0;          ///< the message's own number
    std::string Text;
    std::string SourceLine;  ///< the line itself, where it could be read
    std::string Hint;        ///< what would help, where that is known
};

/// Listens to the warnings of the open game's compiler as long as it lives.
class DiagnosticList {
  public:
    explicit DiagnosticList(AGIGame& game);

    /// Adds the error that ended the compile of a logic; `description` is that of error 635 or another text.
    void AddError(std::uint8_t logic, std::string_view description);

    const std::vector<Diagnostic>& All() const { return all_; }
    std::size_t Errors() const;
    std::size_t Warnings() const { return all_.size() - Errors(); }
    /// Prints those from a place in the list on, on standard error. What an included file says again for
    /// another logic is only counted.
    void Say(std::size_t first = 0);
    /// Tells how many were not printed because another logic had them already.
    void SayRepeated() const;

  private:
    void AddWarning(std::string_view warning, std::uint8_t logic);
    void Place(Diagnostic& diagnostic, std::string_view line, const std::string& module) const;

    AGIGame& game_;
    std::vector<Diagnostic> all_;
    std::map<std::string, std::uint8_t> said_;  // what was printed, with the logic that it was printed for
    std::size_t repeated_ = 0;
    Subscription subscription_;
};

Json JsonOf(const Diagnostic& diagnostic);

}  // namespace zorvex::tool
