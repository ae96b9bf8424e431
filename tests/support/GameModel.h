// What a game holds, read from its files by a reader of its own, to compare with what the library says.
//
//     Model model = ReadModel("\\game\\");        // V2, or V3 with the ID as second argument
//     EXPECT_EQ(Difference(ReadModel("\\game\\"), model), "");
#pragma once

#include <map>

#include "zorvex/base/Types.h"

namespace zorvex::test {

/// The plain bytes of each resource by type and number.
using Model = std::map<std::pair<AGIResType, int>, ByteArray>;

/// The resources that the directory files of a game name, stored plain; one that cannot be read has no bytes.
/// No two of them may share bytes.
Model ReadModel(const std::string& directory, const std::string& v3ID = {});

/// Type and number of the first difference, as a text; "" when there is none.
std::string Difference(const Model& left, const Model& right);

/// The resources of the open game, as its own objects load them.
Model LoadedModel();

}  // namespace zorvex::test
