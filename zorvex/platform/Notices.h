// The hidden window through which the platform tells the library that something has ended. Notices are
// delivered on the thread that owns the library, when the host pumps them, and never in between.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace zorvex {

/// The number of the message with which media tell of the end of play; its first parameter then is one of the
/// two values below.
inline constexpr std::uint32_t MediaNotice = 0x3B9;
inline constexpr std::int32_t NoticeSuccessful = 1;
inline constexpr std::int32_t NoticeFailure = 8;

/// A message with its two parameters.
struct Notice {
    std::uint32_t Message = 0;
    std::int32_t First = 0;
    std::int32_t Second = 0;
};

/// A queue of notices with the procedure that takes them. All of it belongs to one thread.
class NoticeWindow {
  public:
    /// Takes a notice; what it returns goes to a procedure put in front of it.
    using Procedure = std::function<std::int32_t(const Notice&)>;
    /// Asked at each pump; gives a notice once what it watches has happened, and is then dropped.
    using Watch = std::function<std::optional<Notice>()>;

    /// Puts another procedure in place and returns the one before.
    Procedure SetProcedure(Procedure procedure) { return std::exchange(procedure_, std::move(procedure)); }
    /// Adds a notice at the end of the queue.
    void Post(const Notice& notice) { queue_.push_back(notice); }
    /// Adds a watch and returns its number, with which it can be dropped before it has given its notice.
    std::int32_t AddWatch(Watch watch);
    void RemoveWatch(std::int32_t number);
    /// Delivers what is there. With nothing there it waits for the first notice, at most as long as told.
    /// Returns the number of notices delivered.
    std::int32_t Pump(std::chrono::milliseconds wait = std::chrono::milliseconds(0));

  private:
    void AskWatches();

    Procedure procedure_;
    std::deque<Notice> queue_;
    std::vector<std::pair<std::int32_t, Watch>> watches_;
    std::int32_t lastWatch_ = 0;
};

/// The library's one notice window.
std::shared_ptr<NoticeWindow> MainNoticeWindow();

/// Delivers the notices that have come, among them the end of a playing sound. A host calls it from its event
/// loop, or with a time to wait from a loop of its own. Returns the number delivered.
std::int32_t PumpNotices(std::chrono::milliseconds wait = std::chrono::milliseconds(0));

}  // namespace zorvex
