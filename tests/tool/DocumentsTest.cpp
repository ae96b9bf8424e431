// The documents name only what is there, and the tool and the examples use only what is open to hosts.
#include <regex>
#include <sstream>

#include "zorvex/base/Text.h"

namespace zorvex::test {
namespace {

const std::filesystem::path root = SourceDirectory();

/// What the group of a pattern holds, wherever the pattern is found in a file.
std::vector<std::string> FoundIn(const std::filesystem::path& file, const std::string& pattern) {
    const std::regex form(pattern);
    const std::string text = TextOfFile(file);
    std::vector<std::string> found;
    for (std::sregex_iterator it(text.begin(), text.end(), form), end; it != end; ++it)
        found.push_back((*it)[1]);
    return found;
}

TEST(Documents, NameFilesThatExist) {
    for (const char* document : {"HACKING.md", "README.md", "CONTRIBUTING.md", "docs/library.md"}) {
        for (const char* pattern :
             {R"(`((?:zorvex|tools|tests|examples|bench|fuzz|docs)/[A-Za-z./]*)`)", R"(\]\(([^)#:]+)\))"}) {
            for (const std::string& name : FoundIn(root / document, pattern))
                EXPECT_TRUE(std::filesystem::exists(root / name)) << document << " names " << name;
        }
    }
}

/// A text without the indentation of its lines.
std::string Unindented(const std::string& text) {
    std::istringstream lines(text);
    std::string plain;
    for (std::string line; std::getline(lines, line);)
        plain += std::string(Trim(line)) + "\n";
    return plain;
}

TEST(Documents, TheGuideOfTheLibraryShowsWhatIsCompiledAndRun) {
    const std::string program = Unindented(TextOfFile(root / "examples/LibraryGuide.cpp"));
    const std::string guide = TextOfFile(root / "docs/library.md");
    const std::string begin = "```cpp\n";
    int blocks = 0;
    for (std::size_t at = guide.find(begin); at != std::string::npos; at = guide.find(begin, at + 1)) {
        const std::size_t code = at + begin.size();
        const std::string block = Unindented(guide.substr(code, guide.find("```", code) - code));
        EXPECT_TRUE(Has(program, block)) << block;
        ++blocks;
    }
    EXPECT_GE(blocks, 7);
}

TEST(Documents, ToolAndExamplesUseOnlyWhatHostsMayUse) {
    const std::string includes = "#include \"(zorvex/[^\"]+)\"";
    std::vector<std::string> open = FoundIn(root / "zorvex/Zorvex.h", includes);
    open.emplace_back("zorvex/Zorvex.h");
    for (const char* folder : {"tools/zorvex", "examples"}) {
        for (const auto& file : std::filesystem::recursive_directory_iterator(root / folder)) {
            if (!file.is_regular_file()) continue;
            for (const std::string& header : FoundIn(file, includes))
                EXPECT_NE(std::find(open.begin(), open.end(), header), open.end())
                    << file << " uses " << header;
        }
    }
}

}  // namespace
}  // namespace zorvex::test
