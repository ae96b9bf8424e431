// The test list of an `if`.
#pragma once

#include <string>
#include <string_view>

#include "zorvex/base/Text.h"
#include "zorvex/compiler/CompileRun.h"
#include "zorvex/compiler/arguments/ArgumentReader.h"

namespace zorvex {

/// Compiles a test list from its opening to its closing bracket. Tests are joined by `&&`; one level of
/// brackets joins tests by `||`.
void CompileIf(CompileRun& run, ArgumentReader& arguments);

/// Of an argument that was not understood: its text in single quotes with a blank behind it, as some messages
/// have it; "" for any other failure. Host text.
std::string QuotedValue(const CompileFailure& failure);

/// Runs a step that reads an argument; a missing argument is reported with the command's name.
template <class Step>
auto NamingCommand(std::string_view name, Step&& step) {
    try {
        return step();
    } catch (CompileFailure& failure) {
        if (failure.number == 4054) failure.text = ReplaceAll(failure.text, "%2", name);
        throw;
    }
}

}  // namespace zorvex
