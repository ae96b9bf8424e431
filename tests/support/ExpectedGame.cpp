#include "tests/support/ExpectedGame.h"

#include "zorvex/game/Helpers.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/platform/FileSystem.h"

namespace zorvex::test {

ExpectedGame::ExpectedGame(std::string_view name)
    : expected_(nlohmann::json::parse(TextOfFile(RealGame(name) + "/expected.json"))) {
    LibraryState& library = Library();
    library.GameDir = CDir(InnerPath(RealGame(name)));
    library.GameID = expected_.at("gameId");
    library.IsV3 = expected_.at("isV3");
}

ExpectedGame::~ExpectedGame() {
    LibraryState& library = Library();
    library.GameDir.clear();
    library.GameID.clear();
    library.IsV3 = false;
}

std::vector<nlohmann::json> ExpectedGame::Resources(AGIResType type) const {
    std::vector<nlohmann::json> found;
    for (const auto& resource : expected_.at("resources")) {
        if (resource.at("type") == NameOfType(type)) found.push_back(resource);
    }
    return found;
}

std::string NameOfType(AGIResType type) {
    constexpr const char* names[] = {"logic", "picture", "sound", "view"};
    return names[type];
}

}  // namespace zorvex::test
