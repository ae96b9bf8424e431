// The worked examples of the format documentation.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/CaseFile.h"
#include "tests/support/TestFiles.h"

namespace zorvex::test {

/// A worked example of a page of the format documentation: its n-th block with that mark.
inline std::string DocumentedBlock(const std::string& page, const std::string& mark, int n = 0) {
    std::ifstream file(SourceDirectory() + "/docs/formats/" + page);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    std::size_t begin = 0;
    for (int i = 0; i <= n; ++i)
        begin = text.find("```" + mark + "\n", begin) + mark.size() + 4;
    return text.substr(begin, text.find("```", begin) - begin);
}

/// The bytes of the block marked "hex".
inline ByteArray DocumentedBytes(const std::string& page, int n = 0) {
    return BytesOfText(DocumentedBlock(page, "hex", n));
}

}  // namespace zorvex::test
