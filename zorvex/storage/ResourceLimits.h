// What the buffer of a resource and the codecs of its bytes share.
#pragma once

#include <cstdint>
#include <string_view>

namespace zorvex {

/// The largest position that a write may name, less one: explicit positions stay below this.
inline constexpr std::int32_t MaxResourceSize = 65530;

/// The source of errors that tell of a place in a resource's bytes.
inline constexpr std::string_view ResourceErrorSource = "ZORVEX.agiResource";

}  // namespace zorvex
