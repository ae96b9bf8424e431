// LZW data for tests, as the interpreter's own V3 files hold it.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "zorvex/game/Types.h"

namespace zorvex::test {

/// The bytes of a sequence of codes of 9 bits each.
ByteArray LzwCodes(std::initializer_list<int> codes);
/// Data compressed with a growing code width and a reset whenever the table is full.
ByteArray LzwCompressed(ByteView plain);

}  // namespace zorvex::test
