// The worked examples of the format documentation.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/CaseFile.h"
#include "tests/support/TestFiles.h"

namespace zorvex::test {

/// The bytes of the worked example of a page of the format documentation: its block marked "hex".
inline ByteArray DocumentedBytes(const std::string& page) {
    std::ifstream file(SourceDirectory() + "/docs/formats/" + page);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    constexpr std::string_view mark = "```hex\n";
    const std::size_t begin = text.find(mark);
    if (begin == std::string::npos) return {};
    return BytesOfText(
        text.substr(begin + mark.size(), text.find("```", begin + mark.size()) - begin - mark.size()));
}

}  // namespace zorvex::test
