// Reading dates in the forms that programs write them in.
#include <array>

#include "zorvex/base/Text.h"
#include "zorvex/platform/Clock.h"

namespace zorvex {

namespace {

constexpr std::array<std::string_view, 12> monthNames{"january",   "february", "march",    "april",
                                                      "may",       "june",     "july",     "august",
                                                      "september", "october",  "november", "december"};

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

/// Takes a date off the front of a text, part by part.
class DateReader {
  public:
    explicit DateReader(std::string_view text) : rest_(text) {}

    std::optional<DateTime> Read() {
        if (!ReadDay() || !ReadTime() || !rest_.empty() || !IsPossible(date_)) return std::nullopt;
        return date_;
    }

  private:
    bool Take(char character) {
        if (!rest_.starts_with(character)) return false;
        rest_.remove_prefix(1);
        return true;
    }
    void SkipBlanks() {
        while (rest_.starts_with(' '))
            rest_.remove_prefix(1);
    }
    bool Number(int& value, std::size_t most, std::size_t least = 1) {
        std::size_t digits = 0;
        value = 0;
        for (; digits < most && digits < rest_.size() && rest_[digits] >= '0' && rest_[digits] <= '9';
             ++digits)
            value = value * 10 + (rest_[digits] - '0');
        rest_.remove_prefix(digits);
        return digits >= least;
    }
    /// The name of a month or its first three letters, in English.
    bool Month() {
        const std::string lower = LowerCase(rest_);
        for (std::size_t i = 0; i < monthNames.size(); ++i) {
            if (!lower.starts_with(monthNames[i].substr(0, 3))) continue;
            rest_.remove_prefix(lower.starts_with(monthNames[i]) ? monthNames[i].size() : 3);
            date_.Month = static_cast<int>(i) + 1;
            return true;
        }
        return false;
    }
    void Separator() {
        static_cast<void>(Take('-') || Take(','));
        SkipBlanks();
    }

    /// 2004-12-05, 5/12/2004 (the month first), 05-Dec-2004, 5 December 2004, December 5, 2004.
    bool ReadDay() {
        if (Month()) {
            Separator();
            if (!Number(date_.Day, 2)) return false;
            Separator();
            return Number(date_.Year, 4, 4);
        }
        int first = 0;
        const std::size_t before = rest_.size();
        if (!Number(first, 4)) return false;
        if (before - rest_.size() == 4) {
            date_.Year = first;
            return Take('-') && Number(date_.Month, 2, 2) && Take('-') && Number(date_.Day, 2, 2);
        }
        if (Take('/')) {
            date_.Month = first;
            return Number(date_.Day, 2) && Take('/') && Number(date_.Year, 4, 4);
        }
        date_.Day = first;
        Separator();
        if (!Month()) return false;
        Separator();
        return Number(date_.Year, 4, 4);
    }

    /// Nothing, or hours and minutes with what may follow them. A zone is passed over: all dates are local.
    bool ReadTime() {
        if (rest_.empty()) return true;
        if (!Take('T') && !Take('t')) {
            if (!Take(' ')) return false;
            SkipBlanks();
        }
        if (!Number(date_.Hour, 2) || !Take(':') || !Number(date_.Minute, 2, 2)) return false;
        if (Take(':')) {
            int fraction = 0;
            if (!Number(date_.Second, 2, 2)) return false;
            if (Take('.') && !Number(fraction, 9)) return false;
        }
        return ReadHalf() && ReadZone();
    }

    /// AM or PM.
    bool ReadHalf() {
        const std::string half = LowerCase(Trim(rest_));
        if (half != "am" && half != "pm") return true;
        rest_ = {};
        if (date_.Hour < 1 || date_.Hour > 12) return false;
        date_.Hour = date_.Hour % 12 + (half == "pm" ? 12 : 0);
        return true;
    }

    bool ReadZone() {
        if (Take('Z') || Take('z') || rest_.empty()) return true;
        int hours = 0;
        int minutes = 0;
        if (!Take('+') && !Take('-')) return false;
        if (!Number(hours, 2, 2)) return false;
        Take(':');
        return rest_.empty() || Number(minutes, 2, 2);
    }

    std::string_view rest_;
    DateTime date_;
};

}  // namespace

std::optional<DateTime> ParseDate(std::string_view text) {
    const std::string trimmed(Trim(text));
    return DateReader(trimmed).Read();
}

}  // namespace zorvex
