// The documents name only what is there.
#include <regex>

#include "tests/support/TestFiles.h"

namespace zorvex::test {
namespace {

void ExpectPaths(const std::string& document, const std::string& pattern) {
    const std::filesystem::path root = SourceDirectory();
    const std::string text = TextOfFile(root / document);
    const std::regex form(pattern);
    for (std::sregex_iterator it(text.begin(), text.end(), form), end; it != end; ++it)
        EXPECT_TRUE(std::filesystem::exists(root / (*it)[1].str())) << document << " names " << (*it)[1];
}

TEST(Documents, NameFilesThatExist) {
    const std::string quoted = R"(`((?:zorvex|tools|tests|examples|bench|fuzz|docs)/[A-Za-z./]*)`)";
    const std::string linked = R"(\]\(([^)#:]+)\))";
    ExpectPaths("HACKING.md", quoted);
    ExpectPaths("README.md", quoted);
    ExpectPaths("README.md", linked);
    ExpectPaths("CONTRIBUTING.md", linked);
}

}  // namespace
}  // namespace zorvex::test
