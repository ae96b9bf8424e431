// Dates and the clock they come from. Tests can put a clock of their own in its place.
#pragma once

#include <compare>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zorvex {

/// A calendar date and a time of day, to the second. All zero is the zero date, which stands for "none".
struct DateTime {
    int Year = 0;
    int Month = 0;
    int Day = 0;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;

    auto operator<=>(const DateTime&) const = default;
};

/// `YYYY-MM-DD hh:mm:ss`; the zero date gives an empty text.
std::string DateText(const DateTime& date);
/// Reads what DateText writes, and the forms of other programs, blanks around allowed: "5/12/2004 10:33:21
/// PM" (the month first), "2004-05-12T22:33:21Z" (a zone and parts of seconds count for nothing),
/// "12-May-2004", "May 12, 2004"; the time may be missing. Nothing for any other text or an impossible date.
std::optional<DateTime> ParseDate(std::string_view text);
/// The date alone as `DD-Mon-YYYY`, with English month names.
std::string MediumDateText(const DateTime& date);

/// Where the present time comes from.
class Clock {
  public:
    virtual ~Clock() = default;
    /// The present local time.
    virtual DateTime Now() const = 0;
};

/// The present local time by the clock in use.
DateTime Now();
/// Puts another clock in use in the present workspace and returns the one used before; an empty pointer
/// restores the system's clock.
std::shared_ptr<Clock> UseClock(std::shared_ptr<Clock> clock);

}  // namespace zorvex
