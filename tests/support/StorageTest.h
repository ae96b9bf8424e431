// What the tests of storage share: a game in a file system in memory.
#pragma once

#include "tests/support/FailingFiles.h"
#include "tests/support/GameBuilder.h"
#include "tests/support/GameModel.h"
#include "zorvex/Zorvex.h"

namespace zorvex::test {

inline const std::string gameDir = "\\game\\";

class StorageTest : public testing::Test {
  protected:
    /// Writes the files of a game into its directory, beside its source directory.
    void Write(const GameBuilder& builder) {
        builder.WriteInto(gameDir);
        if (Files().Kind(gameDir + "src") == FileKind::None) files_->MakeDirectory(gameDir + "src");
    }
    void Reopen() {
        game_.CloseGame();
        game_.OpenGameDIR(gameDir);
    }
    static bool Exists(const std::string& path) { return Files().Kind(path) == FileKind::File; }

    MemoryFiles files_;
    AGIGame game_;
};

}  // namespace zorvex::test
