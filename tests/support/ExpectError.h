// Expectations about raised errors.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>

#include "zorvex/game/Error.h"

namespace zorvex::test {

/// The error that a step raises, if any.
template <class Step>
std::optional<Error> RaisedBy(Step&& step) {
    try {
        step();
    } catch (const Error& error) {
        return error;
    }
    return std::nullopt;
}

/// The catalogue id of what a step raises, its plain number where it has no id, 0 when it raises nothing.
template <class Step>
std::int32_t RaisedId(Step&& step) {
    const auto error = RaisedBy(std::forward<Step>(step));
    if (!error) return 0;
    return error->Number() < 0 ? error->Id() : error->Number();
}

/// The description of what a step raises, "" when it raises nothing.
template <class Step>
std::string RaisedText(Step&& step) {
    const auto error = RaisedBy(std::forward<Step>(step));
    return error ? error->Description() : std::string();
}

inline std::string Shown(const std::optional<Error>& error) {
    if (!error) return "no error";
    return "error " + std::to_string(error->Number()) + " (" + std::to_string(error->Id()) +
           "): " + error->Description();
}

}  // namespace zorvex::test

/// The statement raises the catalogue error of that id.
#define EXPECT_ERROR(id, statement)                                                         \
    do {                                                                                    \
        const auto raised_ = zorvex::test::RaisedBy([&] { static_cast<void>(statement); }); \
        EXPECT_TRUE(raised_ && raised_->Is(id))                                             \
            << #statement " gives " << zorvex::test::Shown(raised_) << ", not " << (id);    \
    } while (false)

/// The statement raises the catalogue error of that id with that description.
#define EXPECT_ERROR_TEXT(id, text, statement)                                              \
    do {                                                                                    \
        const auto raised_ = zorvex::test::RaisedBy([&] { static_cast<void>(statement); }); \
        EXPECT_TRUE(raised_ && raised_->Is(id) && raised_->Description() == (text))         \
            << #statement " gives " << zorvex::test::Shown(raised_);                        \
    } while (false)

/// The statement raises that plain run-time error.
#define EXPECT_RUNTIME(number, statement)                                                             \
    do {                                                                                              \
        const auto raised_ = zorvex::test::RaisedBy([&] { static_cast<void>(statement); });           \
        EXPECT_TRUE(raised_ && raised_->Number() == (number))                                         \
            << #statement " gives " << zorvex::test::Shown(raised_) << ", not run-time " << (number); \
    } while (false)
