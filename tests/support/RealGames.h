// The resources of the real games together with what a correct reader finds in them.
#pragma once

#include <nlohmann/json.hpp>

#include "tests/support/TestFiles.h"
#include "zorvex/base/Internal.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/GameResource.h"

namespace zorvex::test {

/// The name of a type in an expectation.
inline std::string NameOfType(AGIResType type) {
    constexpr const char* names[] = {"logic", "picture", "sound", "view"};
    return names[type];
}

/// What is expected of a real game: see README.md beside the games.
inline nlohmann::json ExpectedOf(const std::string& game) {
    return nlohmann::json::parse(TextOfFile(RealGame(game) + "/expected.json"));
}

/// Calls a step with every resource of a class of every real game, ready to load in place and without a
/// property file, and its expectation; skips the test where there are none.
template <class Resource, class Step>
void ForEachReal(Step step) {
    SKIP_WITHOUT_GAMES();
    const LibraryReset reset;
    BeginGameSession();
    for (const std::string& name : RealGames()) {
        const nlohmann::json game = ExpectedOf(name);
        Library().GameDir = CDir(InnerPath(RealGame(name)));
        Library().GameID = game.at("gameId");
        Library().IsV3 = game.at("isV3");
        for (const nlohmann::json& expected : game.at("resources")) {
            Resource resource;
            const std::string type = NameOfType(resource.ResType());
            if (expected.at("type") != type) continue;
            SCOPED_TRACE(name + " " + type + " " + expected.at("number").dump());
            resource.Resource().Unload();
            resource.Resource().Init(Internal(), expected.at("number"), expected.at("volume"),
                                     expected.at("location"));
            step(resource, expected);
        }
    }
}

}  // namespace zorvex::test
