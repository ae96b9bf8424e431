// JSON as the tool prints it.
#pragma once

#include <nlohmann/json.hpp>

#include "zorvex/base/Error.h"

namespace zorvex::tool {

using Json = nlohmann::ordered_json;

/// Prints a value on standard output.
void PrintJson(const Json& value);
/// The text of a value, as PrintJson prints it.
std::string JsonText(const Json& value);
/// An error as an object with number, source and description.
Json JsonOf(const Error& error);

}  // namespace zorvex::tool
