// The check sum that tells whether a source, its bytes or a file has changed.
#pragma once

#include <cstdint>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

/// The standard CRC-32 (IEEE 802.3, reflected polynomial EDB88320) of some bytes, in a signed field.
std::int32_t CRC32(ByteView bytes);
std::int32_t CRC32(std::string_view bytes);

}  // namespace zorvex
