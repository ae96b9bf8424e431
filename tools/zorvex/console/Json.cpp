#include "tools/zorvex/console/Json.h"

#include <cstdio>

#include "tools/zorvex/console/Console.h"

namespace zorvex::tool {

std::string JsonText(const Json& value) {
    return value.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

void PrintJson(const Json& value) {
    const std::string text = JsonText(value);
    ClearProgressLine();
    std::fwrite(text.data(), 1, text.size(), stdout);
}

Json JsonOf(const Error& error) {
    return {{"number", ShownNumber(error)},
            {"source", error.Source()},
            {"description", ShownText(error.Description())}};
}

}  // namespace zorvex::tool
