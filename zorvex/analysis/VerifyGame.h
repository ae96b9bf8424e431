// Every fault of a game in one list.
#pragma once

#include <functional>
#include <stop_token>
#include <vector>

#include "zorvex/analysis/GameFault.h"

namespace zorvex {

class AGIGame;

struct VerifySettings {
    /// Called before each resource.
    std::function<void(const BuildProgress&)> Progress = {};
    /// Ends the run before the next resource; the faults found so far are returned.
    std::stop_token Stop = {};
};

/// Loads, draws, decodes and compiles all of the open game, and returns its faults: what the load warned of,
/// then by kind and number. Errors are what a player would meet; warnings are sources that do not compile,
/// pictures with anomalies, and those messages of the compiler that tell of commands at which an interpreter
/// may stop. Loading a logic that has no source file decompiles it into one, as everywhere; open the game
/// with OpenOptions::ReadOnly to look without a trace. What a resource holds unsaved is looked at as it is,
/// and resources are unloaded again that were not loaded before.
///
/// Raises 91 when the game is not of the present workspace, and nothing for what is wrong with the game.
/// Costs about a full compile and a drawing of each picture.
std::vector<GameFault> VerifyGame(AGIGame& game, const VerifySettings& settings = {});

}  // namespace zorvex
