// What the tests of the vocabulary and the inventory share.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/CaseFile.h"
#include "tests/support/TestFiles.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/PropertyFile.h"

namespace zorvex::test {

/// Makes a directory that of the open game, with an empty property list, until the end of the scope.
class OpenDirectory {
  public:
    explicit OpenDirectory(const TempDir& dir) {
        Library().GameDir = dir.Path();
        Library().PropertyList = OpenPropertyList(dir.File("TEST.zvg"), false);
        Library().LastEdit = {};
    }
    OpenDirectory(const OpenDirectory&) = delete;
    OpenDirectory& operator=(const OpenDirectory&) = delete;
    ~OpenDirectory() {
        Library().GameDir.clear();
        Library().PropertyList.reset();
        Library().LastEdit = {};
    }
};

/// The bytes of the worked example of a page of the format documentation: its block marked "hex".
inline ByteArray DocumentedBytes(const std::string& page) {
    const std::string text = [&] {
        std::ifstream file(SourceDirectory() + "/docs/formats/" + page);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }();
    constexpr std::string_view mark = "```hex\n";
    const std::size_t begin = text.find(mark);
    if (begin == std::string::npos) return {};
    return BytesOfText(
        text.substr(begin + mark.size(), text.find("```", begin + mark.size()) - begin - mark.size()));
}

}  // namespace zorvex::test
