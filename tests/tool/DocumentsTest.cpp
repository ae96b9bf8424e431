// The documents name only what is there.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

#include "tests/support/TestFiles.h"

namespace zorvex {
namespace {

std::string TextOfFile(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void ExpectPaths(const std::string& document, const std::regex& pattern) {
    const std::filesystem::path root = test::SourceDirectory();
    const std::string text = TextOfFile(root / document);
    ASSERT_FALSE(text.empty()) << document;
    for (std::sregex_iterator it(text.begin(), text.end(), pattern), end; it != end; ++it) {
        EXPECT_TRUE(std::filesystem::exists(root / (*it)[1].str())) << document << " names " << (*it)[1];
    }
}

TEST(Documents, NameFilesThatExist) {
    const std::regex quoted(R"(`((?:zorvex|tools|tests|examples|bench|fuzz|docs)/[A-Za-z./]*)`)");
    ExpectPaths("HACKING.md", quoted);
    ExpectPaths("README.md", quoted);
    const std::regex linked(R"(\]\(([^)#:]+)\))");
    ExpectPaths("README.md", linked);
    ExpectPaths("CONTRIBUTING.md", linked);
}

}  // namespace
}  // namespace zorvex
