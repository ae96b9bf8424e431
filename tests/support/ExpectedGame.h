// A real game together with what a correct reader finds in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "zorvex/storage/GameResource.h"

namespace zorvex::test {

/// A real game, read in place and without a property file, for the resources' own loads. While this lives,
/// the library's record names the game's directory and generation.
class ExpectedGame {
  public:
    /// The games that are there with their expectations; none on a machine without them: skip the test then,
    /// with a message.
    static std::vector<std::string> Names();

    explicit ExpectedGame(std::string_view name);
    ~ExpectedGame();
    ExpectedGame(const ExpectedGame&) = delete;
    ExpectedGame& operator=(const ExpectedGame&) = delete;

    /// The expected resources of a type, "view" for example: see README.md beside the games.
    std::vector<nlohmann::json> Resources(std::string_view type) const;
    /// Puts a resource object at the place of an expected resource, ready to load.
    static void Place(GameResource& resource, const nlohmann::json& expected);

  private:
    nlohmann::json expected_;
};

}  // namespace zorvex::test
