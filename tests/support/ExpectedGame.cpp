#include "tests/support/ExpectedGame.h"

#include <filesystem>
#include <fstream>

#include "tests/support/TestFiles.h"
#include "zorvex/game/Helpers.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/platform/FileSystem.h"

namespace zorvex::test {

std::vector<std::string> ExpectedGame::Names() {
    std::vector<std::string> names;
    for (const std::string& name : RealGames()) {
        if (std::filesystem::exists(*RealGame(name) + "/expected.json")) names.push_back(name);
    }
    return names;
}

ExpectedGame::ExpectedGame(std::string_view name) {
    const std::string directory = RealGame(name).value();
    std::ifstream file(directory + "/expected.json");
    expected_ = nlohmann::json::parse(file);
    LibraryState& library = Library();
    library.GameDir = CDir(InnerPath(directory));
    library.GameID = expected_.at("gameId").get<std::string>();
    library.IsV3 = expected_.at("isV3").get<bool>();
}

ExpectedGame::~ExpectedGame() {
    LibraryState& library = Library();
    library.GameDir.clear();
    library.GameID.clear();
    library.IsV3 = false;
}

std::vector<nlohmann::json> ExpectedGame::Resources(std::string_view type) const {
    std::vector<nlohmann::json> found;
    for (const auto& resource : expected_.at("resources")) {
        if (resource.at("type") == type) found.push_back(resource);
    }
    return found;
}

void ExpectedGame::Place(GameResource& resource, const nlohmann::json& expected) {
    resource.Resource().Unload();
    resource.Resource().Init(expected.at("number").get<std::uint8_t>(),
                             expected.at("volume").get<std::int32_t>(),
                             expected.at("location").get<std::int32_t>());
}

}  // namespace zorvex::test
