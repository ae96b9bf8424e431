// Expectations about raised errors.
#pragma once

#include "zorvex/base/Error.h"

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
    const auto error = RaisedBy(step);
    if (!error) return 0;
    return error->Number() < 0 ? error->Id() : error->Number();
}

/// The description of what a step raises, "" when it raises nothing.
template <class Step>
std::string RaisedText(Step&& step) {
    const auto error = RaisedBy(step);
    return error ? error->Description() : "";
}

inline std::string Shown(const std::optional<Error>& error) {
    if (!error) return "no error";
    return "error " + std::to_string(error->Number()) + " (" + std::to_string(error->Id()) +
           "): " + error->Description();
}

/// The verdict on what was raised, with the error where it is another one.
inline testing::AssertionResult Verdict(bool asWanted, const std::optional<Error>& raised) {
    return (asWanted ? testing::AssertionSuccess() : testing::AssertionFailure()) << Shown(raised);
}

}  // namespace zorvex::test

/// The statement raises an error of which a condition holds, which calls it `raised`.
#define EXPECT_RAISED(condition, statement)                                                \
    do {                                                                                   \
        const auto raised = zorvex::test::RaisedBy([&] { static_cast<void>(statement); }); \
        EXPECT_TRUE(zorvex::test::Verdict(raised && (condition), raised)) << #statement;   \
    } while (false)

/// The statement raises the catalogue error of that id, with that description, or that plain run-time error.
#define EXPECT_ERROR(id, statement) EXPECT_RAISED(raised->Is(id), statement)
#define EXPECT_ERROR_TEXT(id, text, statement) \
    EXPECT_RAISED(raised->Is(id) && raised->Description() == (text), statement)
#define EXPECT_RUNTIME(number, statement) EXPECT_RAISED(raised->Number() == (number), statement)
