// The key with which logic messages and OBJECT files are scrambled: byte n of a text is combined, by
// exclusive or, with byte n of the key, which runs on in a circle.
#pragma once

#include <array>
#include <cstdint>

namespace zorvex {

inline constexpr std::array<std::uint8_t, 11> ScrambleKey{0x41, 0x76, 0x69, 0x73, 0x20, 0x44,
                                                          0x75, 0x72, 0x67, 0x61, 0x6E};

}  // namespace zorvex
