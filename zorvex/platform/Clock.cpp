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

}  // namespace

std::string DateText(const DateTime& date) {
    if (date == DateTime{}) return {};
    return Padded(date.Year, 4) + "-" + Padded(date.Month, 2) + "-" + Padded(date.Day, 2) + " " +
           Padded(date.Hour, 2) + ":" + Padded(date.Minute, 2) + ":" + Padded(date.Second, 2);
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
