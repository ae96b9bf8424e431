// What can be mended in a game without guessing.
#pragma once

#include <string>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

class AGIGame;

struct RepairSettings {
    /// Takes resources that cannot be read out of their directory. Without it they stay, since what they
    /// point at may lie on a disk that is inserted later; AGIGame::LoadIssues tells which they are.
    bool DropUnreadable = false;
};

/// One thing that was mended: a sentence, and the resource that it is about (rtNone and -1 for a file).
struct RepairStep {
    AGIResType Type = rtNone;
    std::int32_t Number = -1;
    std::string Text;
};

/// Mends the open game: the missing zero byte at the end of WORDS.TOK, the missing end code of a picture, the
/// offset of a view's description that points at its last byte, with DropUnreadable also the directory
/// entries of resources that cannot be read. Each file is kept as .OLD before its first change; the property
/// list is saved. Returns the steps in the order in which they were done. Raises the fault of a file that
/// cannot be written; what was mended until then stays mended. Costs a read of each resource.
std::vector<RepairStep> RepairGame(AGIGame& game, const RepairSettings& settings = {});

}  // namespace zorvex
