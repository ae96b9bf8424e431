// How large views, loops and cels may be, for their classes and their codec.
#pragma once

#include <cstddef>
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

/// The longest description inside a view, in bytes.
inline constexpr std::size_t MaxViewDescription = 255;

/// The source that errors of views carry, and of cels.
inline constexpr std::string_view ViewErrorSource = "Zorvex.agiView";
inline constexpr std::string_view CelErrorSource = "ZORVEX.AGICel";

}  // namespace zorvex
