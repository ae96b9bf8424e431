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

/// The library's headers that a file includes.
std::vector<std::string> LibraryHeadersOf(const std::filesystem::path& file) {
    static const std::regex form("#include \"(zorvex/[^\"]+)\"");
    const std::string text = TextOfFile(file);
    std::vector<std::string> headers;
    for (std::sregex_iterator it(text.begin(), text.end(), form), end; it != end; ++it)
        headers.push_back((*it)[1]);
    return headers;
}

TEST(Documents, ToolAndExamplesUseOnlyWhatHostsMayUse) {
    const std::filesystem::path root = SourceDirectory();
    std::vector<std::string> open = LibraryHeadersOf(root / "zorvex/Zorvex.h");
    open.emplace_back("zorvex/Zorvex.h");
    for (const char* folder : {"tools/zorvex", "examples"}) {
        for (const auto& file : std::filesystem::directory_iterator(root / folder)) {
            if (!file.is_regular_file()) continue;
            for (const std::string& header : LibraryHeadersOf(file))
                EXPECT_NE(std::find(open.begin(), open.end(), header), open.end())
                    << file << " uses " << header;
        }
    }
}

}  // namespace
}  // namespace zorvex::test
