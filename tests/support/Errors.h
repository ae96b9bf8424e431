// What a step raises, as a value that a test can compare.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "zorvex/game/Error.h"

namespace zorvex::test {

/// The error that a step raises, if it raises one.
template <class Step>
std::optional<Error> Raised(Step&& step) {
    try {
        std::forward<Step>(step)();
        return std::nullopt;
    } catch (const Error& error) {
        return error;
    }
}

/// The catalogue id of what a step raises, its plain number where it has no id, 0 when it raises nothing.
template <class Step>
std::int32_t RaisedId(Step&& step) {
    const auto error = Raised(std::forward<Step>(step));
    if (!error) return 0;
    return error->Number() < 0 ? error->Id() : error->Number();
}

/// The description of what a step raises, "" when it raises nothing.
template <class Step>
std::string RaisedText(Step&& step) {
    const auto error = Raised(std::forward<Step>(step));
    return error ? error->Description() : std::string();
}

}  // namespace zorvex::test
