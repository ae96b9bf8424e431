// Source text as characters, tokens and joined strings, read from the run's present place on.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/compiler/CompileRun.h"

namespace zorvex {

/// The next character that is not white space, or -1. With `noNewLine` only the present line is looked at.
std::int32_t NextChar(CompileRun& run, bool noNewLine);

/// The next token, or "". With `noNewLine` only the present line is looked at. The view lasts as long as the
/// run's lines.
std::string_view NextCommand(CompileRun& run, bool noNewLine);

/// True when the next character is this one; it is taken either way.
bool TakeChar(CompileRun& run, char wanted, bool noNewLine = false);

/// True when the character directly behind the last token is one that ends it: a blank, a tab, or none at
/// all.
bool AtBlank(const CompileRun& run);

/// A string token joined with the strings that follow it on later lines; only a string at the end of its line
/// goes on. `buffer` holds the text when something was joined. The string itself, or one that follows,
/// without its closing quote is an error at leHigh; below it gets one, and its line is noted for blame.
std::string_view ConcatArg(CompileRun& run, std::string_view text, std::string& buffer);

}  // namespace zorvex
