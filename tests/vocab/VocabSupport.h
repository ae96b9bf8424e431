// What the tests of the vocabulary and the inventory share.
#pragma once

#include <string>

#include "tests/support/CaseFile.h"
#include "tests/support/TestFiles.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/PropertyFile.h"

namespace zorvex::test {

/// Makes a directory that of the open game, with an empty property list, until the end of the scope.
class OpenDirectory {
  public:
    explicit OpenDirectory(const TempDir& dir) {
        Library().GameDir = dir.Path();
        Library().PropertyList = OpenPropertyList(dir.File("TEST.zvg"), false);
        Library().LastEdit = {};
    }
    OpenDirectory(const OpenDirectory&) = delete;
    OpenDirectory& operator=(const OpenDirectory&) = delete;
    ~OpenDirectory() {
        Library().GameDir.clear();
        Library().PropertyList.reset();
        Library().LastEdit = {};
    }
};

}  // namespace zorvex::test
