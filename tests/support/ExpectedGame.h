// A real game together with what a correct reader finds in it.
#pragma once

#include <nlohmann/json.hpp>

#include "tests/support/TestFiles.h"
#include "zorvex/storage/GameResource.h"

namespace zorvex::test {

/// A real game, read in place and without a property file, for the resources' own loads. While this lives,
/// the library's record names the game's directory and generation.
class ExpectedGame {
  public:
    explicit ExpectedGame(std::string_view name);
    ~ExpectedGame();
    ExpectedGame(const ExpectedGame&) = delete;
    ExpectedGame& operator=(const ExpectedGame&) = delete;

    /// The expected resources of a type: see README.md beside the games.
    std::vector<nlohmann::json> Resources(AGIResType type) const;

  private:
    nlohmann::json expected_;
};

/// The name of a type in an expectation.
std::string NameOfType(AGIResType type);

/// Calls a step with every resource of a class of every real game, ready to load, and its expectation; skips
/// the test where there are none.
template <class Resource, class Step>
void ForEachReal(Step step) {
    SKIP_WITHOUT_GAMES();
    for (const std::string& name : RealGames()) {
        const ExpectedGame game(name);
        const AGIResType type = Resource().ResType();
        for (const nlohmann::json& expected : game.Resources(type)) {
            SCOPED_TRACE(name + " " + NameOfType(type) + " " + expected.at("number").dump());
            Resource resource;
            resource.Resource().Unload();
            resource.Resource().Init(expected.at("number"), expected.at("volume"), expected.at("location"));
            step(resource, expected);
        }
    }
}

}  // namespace zorvex::test
