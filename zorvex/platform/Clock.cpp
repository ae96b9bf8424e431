#include "zorvex/platform/Clock.h"

#include <array>
#include <ctime>
#include <utility>

#include "zorvex/platform/Services.h"

namespace zorvex {

namespace {

class SystemClock : public Clock {
  public:
    DateTime Now() const override {
        const std::time_t seconds = std::time(nullptr);
        std::tm local{};
#ifdef _WIN32
        localtime_s(&local, &seconds);
#else
        localtime_r(&seconds, &local);
#endif
        return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                local.tm_hour,        local.tm_min,     local.tm_sec};
    }
};

std::string Padded(int value, std::size_t width) {
    std::string digits = std::to_string(value);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

int DaysOfMonth(int year, int month) {
    constexpr std::array days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : days[static_cast<std::size_t>(month - 1)];
}

bool IsPossible(const DateTime& date) {
    return date.Month >= 1 && date.Month <= 12 && date.Day >= 1 &&
           date.Day <= DaysOfMonth(date.Year, date.Month) && date.Hour <= 23 && date.Minute <= 59 &&
           date.Second <= 60;
}

}  // namespace

std::string DateText(const DateTime& date) {
    if (date == DateTime{}) return {};
    return Padded(date.Year, 4) + "-" + Padded(date.Month, 2) + "-" + Padded(date.Day, 2) + " " +
           Padded(date.Hour, 2) + ":" + Padded(date.Minute, 2) + ":" + Padded(date.Second, 2);
}

std::optional<DateTime> ParseDate(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    constexpr std::string_view form = "0000-00-00 00:00:00";
    if (text.size() != form.size()) return std::nullopt;
    std::array<int, 6> fields{};
    std::size_t field = 0;
    for (std::size_t i = 0; i < form.size(); ++i) {
        if (form[i] != '0') {
            if (text[i] != form[i]) return std::nullopt;
            ++field;
        } else if (text[i] >= '0' && text[i] <= '9') {
            fields[field] = fields[field] * 10 + (text[i] - '0');
        } else {
            return std::nullopt;
        }
    }
    const DateTime date{fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]};
    if (!IsPossible(date)) return std::nullopt;
    return date;
}

std::string MediumDateText(const DateTime& date) {
    constexpr std::array<std::string_view, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const bool known = date.Month >= 1 && date.Month <= 12;
    const std::string_view month = known ? months[static_cast<std::size_t>(date.Month - 1)] : "???";
    return Padded(date.Day, 2) + "-" + std::string(month) + "-" + Padded(date.Year, 4);
}

DateTime Now() {
    const auto& clock = PresentServices().TheClock;
    return clock ? clock->Now() : SystemClock().Now();
}

std::shared_ptr<Clock> UseClock(std::shared_ptr<Clock> clock) {
    auto before = std::exchange(PresentServices().TheClock, std::move(clock));
    return before ? before : std::make_shared<SystemClock>();
}

}  // namespace zorvex
