// Cases kept as small text files: tests/cases/<kind>/<name>.case. A new case is a new file, nothing is
// rebuilt for it.
//
//     Anything before the first section is a remark.
//     === settings
//     version = 2.936
//     === input
//     return();
//     === expected
//     00
//
// A kind is one test that gives the runner a function from a case to the output it must have:
//
//     TEST(Cases, Decompiler) {
//         RunCases("decompiler", [](const CaseFile& file) -> CaseResult {
//             return Decompile(BytesOfText(file.Section("input")), file.Setting("version", "2.917"));
//         });
//     }
//
// A case whose name begins with "bad-" must fail, any other must not. With the environment variable
// ZORVEX_REBASE=1, or the argument --rebase to the test program, the expectations are rewritten with the
// present output, to be read as a diff.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zorvex/game/Types.h"

namespace zorvex::test {

class CaseFile {
  public:
    /// Reads a case from the text of its file.
    CaseFile(std::string name, std::string_view text);

    /// The file's name without its extension.
    const std::string& Name() const { return name_; }
    bool MustFail() const { return name_.starts_with("bad-"); }
    bool Has(std::string_view section) const;
    /// The lines of a section, each ended by a line feed; empty if there is no such section.
    std::string Section(std::string_view section) const;
    /// A value of the section "settings", whose lines are "key = value".
    std::string Setting(std::string_view key, std::string_view defaultValue = {}) const;
    int Number(std::string_view key, int defaultValue) const;

    /// The text of the file with another text in a section, which is added if need be.
    std::string With(std::string_view section, std::string_view text) const;

  private:
    std::string name_;
    std::string remark_;
    std::vector<std::pair<std::string, std::string>> sections_;
};

/// What a case gave.
struct CaseResult {
    CaseResult(std::string output, bool failed = false) : Output(std::move(output)), Failed(failed) {}
    std::string Output;
    bool Failed;
};

/// Runs all cases of a kind and compares each result with its section "expected". An Error that leaves the
/// function counts as a failure with the output "error <id or number>: <description>".
void RunCases(std::string_view kind, const std::function<CaseResult(const CaseFile&)>& run);

/// Bytes from readable text: pairs of hexadecimal digits with or without blanks between them, texts in double
/// quotes, "*N" to repeat the byte or text before it N times in all, and comments from "#" to the end of the
/// line. Throws std::invalid_argument for anything else.
ByteArray BytesOfText(std::string_view text);

/// Bytes as such text: sixteen a line, with their offset and characters as a comment.
std::string TextOfBytes(ByteView bytes);

}  // namespace zorvex::test
