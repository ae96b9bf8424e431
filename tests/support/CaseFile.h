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
// A kind is one test that gives the runner a function from a case to the output it must have. With the
// environment variable ZORVEX_REBASE=1 the expectations are rewritten with the present output, to be read as
// a diff.
#pragma once

#include "zorvex/base/Types.h"

namespace zorvex::test {

class CaseFile {
  public:
    /// Reads a case from the text of its file.
    explicit CaseFile(std::string_view text);

    bool Has(std::string_view section) const;
    /// The lines of a section, each ended by a line feed; empty if there is no such section.
    std::string Section(std::string_view section) const;
    /// A value of the section "settings", whose lines are "key = value".
    std::string Setting(std::string_view key, std::string_view defaultValue = {}) const;

    /// The text of the file with another text in a section, which is added if need be.
    std::string With(std::string_view section, std::string_view text) const;

  private:
    std::string remark_;
    std::vector<std::pair<std::string, std::string>> sections_;
};

/// Runs all cases of a kind and compares each output with its section "expected".
void RunCases(std::string_view kind, const std::function<std::string(const CaseFile&)>& run);

/// Bytes from readable text: pairs of hexadecimal digits with or without blanks between them, texts in double
/// quotes, "*N" to repeat the byte or text before it N times in all, and comments from "#" to the end of the
/// line. Throws std::invalid_argument for anything else.
ByteArray BytesOfText(std::string_view text);
/// Bytes as pairs of hexadecimal digits with blanks between them.
std::string TextOfBytes(ByteView bytes);

/// A worked example of a page of docs/formats: its n-th block that is marked with a language. So what a page
/// shows is what the tests run.
std::string DocumentedBlock(const std::string& page, const std::string& language, int n = 0);
/// The bytes of a block marked "hex".
ByteArray DocumentedBytes(const std::string& page, int n = 0);

}  // namespace zorvex::test
