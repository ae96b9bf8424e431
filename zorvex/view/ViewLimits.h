// How large views, loops and cels may be, for their classes and their codec.
#pragma once

#include <cstdint>
#include <string_view>

namespace zorvex {

inline constexpr std::int32_t MaxCelWidth = 160;
inline constexpr std::int32_t MaxCelHeight = 168;
/// The most cels of a loop, and the most loops of a view.
inline constexpr std::int32_t MaxLoopCels = 255;
inline constexpr std::int32_t MaxViewLoops = 255;
/// The number of loops that can be mirrored, from the first.
inline constexpr std::int32_t MirrorableLoops = 8;

/// The source that errors of views carry.
inline constexpr std::string_view ViewErrorSource = "Zorvex.agiView";

}  // namespace zorvex
