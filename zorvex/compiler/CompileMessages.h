// The messages of the source being compiled.
#pragma once

#include <cstdint>
#include <string_view>

namespace zorvex {

class CompileRun;

/// The highest message number.
inline constexpr std::int32_t MaxMessage = 255;

/// Looks for characters that a message should not hold: at leHigh they end the compile, at leMedium they give
/// a warning each kind and are noted for the number.
void CheckMessageText(CompileRun& run, std::string_view text, std::int32_t number);

/// The number of the message with this text, new or old; 0 when no number is free. Each text is stored once,
/// and a number that has it but is not in use yet is taken into use.
std::int32_t MessageNum(CompileRun& run, std::string_view text);

/// Stores a text under a number, which comes into use.
void StoreMessage(CompileRun& run, std::int32_t number, std::string_view text);

}  // namespace zorvex
