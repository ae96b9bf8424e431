// Logic resources for tests, put together from their parts.
#pragma once

#include <string>

#include "zorvex/game/Types.h"
#include "zorvex/logic/LogDecode.h"
#include "zorvex/logic/MessageSection.h"

namespace zorvex::test {

/// A logic of some code and messages, as the compiler would write it.
ByteArray LogicOf(ByteView code, const MessageTable& messages = {});

/// The lines of a decompiled logic, each ended by a line feed.
std::string TextOfLines(const DecodedLogic& logic);

}  // namespace zorvex::test
