// The order of the rooms: every include of the library against the table of HACKING.md.
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

namespace zorvex::test {
namespace {

const std::filesystem::path root = SourceDirectory();

/// The floor of each room, as the table tells.
std::map<std::string, int> Floors() {
    std::map<std::string, int> floors;
    std::istringstream lines(TextOfFile(root / "HACKING.md"));
    const std::regex row(R"(\| (\d+) \|([^|]*)\|.*)");
    const std::regex room(R"(`zorvex/([A-Za-z.]+)/?`)");
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
        if (!std::regex_match(line, match, row)) continue;
        const std::string rooms = match[2];
        for (std::sregex_iterator it(rooms.begin(), rooms.end(), room), end; it != end; ++it)
            floors[(*it)[1]] = std::stoi(match[1]);
    }
    return floors;
}

std::vector<std::filesystem::path> Sources() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / "zorvex")) {
        const auto extension = entry.path().extension();
        if (extension == ".h" || extension == ".cpp") files.push_back(entry.path());
    }
    return files;
}

/// The room of a path below the folder of the library.
std::string RoomOf(const std::filesystem::path& inner) {
    return inner.begin()->string();
}

TEST(Floors, IncludesPointDown) {
    const std::map<std::string, int> floors = Floors();
    ASSERT_GE(floors.size(), 15U) << "the table of HACKING.md is not read";
    const std::regex include("#include \"zorvex/([^\"]+)\"");
    for (const std::filesystem::path& file : Sources()) {
        const std::string room = RoomOf(std::filesystem::relative(file, root / "zorvex"));
        ASSERT_TRUE(floors.contains(room)) << file << " lies in a room that the table does not know";
        const std::string text = TextOfFile(file);
        for (std::sregex_iterator it(text.begin(), text.end(), include), end; it != end; ++it) {
            const std::string to = RoomOf((*it)[1].str());
            if (to == room) continue;
            ASSERT_TRUE(floors.contains(to)) << file << " includes " << (*it)[1];
            EXPECT_LT(floors.at(to), floors.at(room)) << file << " includes " << (*it)[1];
        }
    }
}

TEST(Floors, NoHeaderButItselfAndTheKeeperOfWorkspacesReachesForTheRecord) {
    for (const std::filesystem::path& file : Sources()) {
        if (file.extension() != ".h") continue;
        EXPECT_EQ(TextOfFile(file).find("#include \"zorvex/state/LibraryState.h\""), std::string::npos)
            << file;
    }
}

/// The names of the library's files that a file includes, itself or through others.
void Collect(const std::string& inner, std::set<std::string>& found) {
    if (!found.insert(inner).second) return;
    const std::string text = TextOfFile(root / "zorvex" / inner);
    const std::regex include("#include \"zorvex/([^\"]+)\"");
    for (std::sregex_iterator it(text.begin(), text.end(), include), end; it != end; ++it)
        Collect((*it)[1].str(), found);
}

TEST(Floors, CodecsKnowNoClassOfAResource) {
    const std::regex codec(
        "(picture|view|sound|vocab)/"
        "[A-Za-z]*(Codec|Text|TextForm|File|Script|Conversion|Functions|Data)\\.(h|cpp)");
    const std::regex object("[a-z]+/(AGI[A-Za-z]+|Game(Resource|List)|ResourceCollection)\\.h");
    int codecs = 0;
    for (const std::filesystem::path& file : Sources()) {
        const std::string inner = std::filesystem::relative(file, root / "zorvex").generic_string();
        if (!std::regex_match(inner, codec)) continue;
        ++codecs;
        std::set<std::string> included;
        Collect(inner, included);
        for (const std::string& other : included)
            EXPECT_FALSE(std::regex_match(other, object)) << inner << " reaches " << other;
    }
    EXPECT_GE(codecs, 20);
}

TEST(Floors, NoFolderHoldsMoreThanAPersonCanOversee) {
    constexpr int most = 30;
    for (const char* top : {"zorvex", "tools/zorvex"}) {
        std::map<std::string, int> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root / top)) {
            const auto extension = entry.path().extension();
            if (extension == ".h" || extension == ".cpp") ++files[entry.path().parent_path().string()];
        }
        for (const auto& [folder, count] : files)
            EXPECT_LE(count, most) << folder;
    }
}

}  // namespace
}  // namespace zorvex::test
