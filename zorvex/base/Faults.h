// The three idioms with which the library handles a failing step; every class uses these and no other.
#pragma once

#include <initializer_list>
#include <optional>
#include <utility>

#include "zorvex/base/Error.h"

namespace zorvex {

/// Hands a caught error to the recorder, if there is one.
void RememberError(const Error& error);
/// Registers who keeps the last caught error; the record of the library does so when the program starts.
using ErrorRecorder = void (*)(const Error&);
void UseErrorRecorder(ErrorRecorder recorder);

/// Raises the wrapping error `id`, whose %1 is the caught error's number, ":" and text, with its source.
[[noreturn]] void RaiseWrapped(std::int32_t id, const Error& error);

/// Runs a step, swallows its fault and returns it, so that the next step can run.
template <class Step>
std::optional<Error> Attempt(Step&& step) {
    try {
        std::forward<Step>(step)();
        return std::nullopt;
    } catch (...) {
        Error error = CurrentError();
        RememberError(error);
        return error;
    }
}

/// Runs a step and returns its result. A fault is raised as the numbered error `id`, filled with the fault's
/// number and text, unless its catalogue id is among `passThrough`: then it is raised again as it was.
template <class Step>
decltype(auto) Wrapped(std::int32_t id, Step&& step, std::initializer_list<std::int32_t> passThrough = {}) {
    try {
        return std::forward<Step>(step)();
    } catch (...) {
        const Error error = CurrentError();
        RememberError(error);
        for (const std::int32_t passed : passThrough) {
            if (error.Is(passed)) throw error;
        }
        RaiseWrapped(id, error);
    }
}

/// Runs a step and returns its result. A fault that names no source is raised again with this one, so that a
/// caller always learns where it comes from.
template <class Step>
decltype(auto) Sourced(std::string_view source, Step&& step) {
    try {
        return std::forward<Step>(step)();
    } catch (...) {
        const Error error = CurrentError();
        RememberError(error);
        if (error.Source().empty()) RaiseText(error.Number(), source, error.Description());
        throw error;
    }
}

/// Runs a step and returns its result. After a fault the clean-up runs, its own faults ignored, and the same
/// fault is raised again.
template <class Step, class Cleanup>
decltype(auto) Guarded(Step&& step, Cleanup&& cleanup) {
    try {
        return std::forward<Step>(step)();
    } catch (...) {
        const Error error = CurrentError();
        RememberError(error);
        try {
            std::forward<Cleanup>(cleanup)();
        } catch (...) {  // the first fault is the one that tells what went wrong
        }
        RememberError(error);
        throw error;
    }
}

}  // namespace zorvex
