// The hidden window through which the platform tells the library that something has ended. Each thread has
// one; its notices are delivered on that thread, when the host pumps them, and never in between.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "zorvex/base/Event.h"

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

/// A queue of notices with the procedures that take them. Posting to it, and adding and dropping watches and
/// hooks, is free to all threads; procedures and watches run on the thread that pumps.
class NoticeWindow {
  public:
    /// Takes a notice; what it returns means nothing to the window.
    using Procedure = std::function<std::int32_t(const Notice&)>;
    /// Asked at each pump; gives a notice once what it watches has happened, and is then dropped.
    using Watch = std::function<std::optional<Notice>()>;

    /// Puts another procedure in place and returns the one before.
    Procedure SetProcedure(Procedure procedure);
    /// Adds a procedure that takes each notice before the one in place does; the last one added comes first.
    /// It stays as long as the subscription, which may outlive the window.
    [[nodiscard]] Subscription Hook(Procedure procedure);
    /// Adds a notice at the end of the queue.
    void Post(const Notice& notice);
    /// Adds a watch and returns its number, with which it can be dropped before it has given its notice.
    std::int32_t AddWatch(Watch watch);
    void RemoveWatch(std::int32_t number);
    /// Delivers what is there. With nothing there it waits for the first notice, at most as long as told.
    /// Returns the number of notices delivered.
    std::int32_t Pump(std::chrono::milliseconds wait = std::chrono::milliseconds(0));

  private:
    using Hooks = std::vector<std::shared_ptr<Procedure>>;

    void AskWatches();
    bool HasNotices() const;
    void Deliver(const Notice& notice);

    // Shared with the subscriptions, which may come from other threads and stay when the window is gone.
    struct HookList {
        std::mutex mutex;
        Hooks hooks;
    };

    mutable std::mutex mutex_;
    Procedure procedure_;
    std::shared_ptr<HookList> hooks_ = std::make_shared<HookList>();
    std::deque<Notice> queue_;
    std::vector<std::pair<std::int32_t, Watch>> watches_;
    std::int32_t lastWatch_ = 0;
};

/// The notice window of this thread.
std::shared_ptr<NoticeWindow> MainNoticeWindow();

/// Delivers the notices that have come to this thread, among them the end of a sound that it plays. A host
/// calls it from its event loop, or with a time to wait from a loop of its own. Returns the number delivered.
std::int32_t PumpNotices(std::chrono::milliseconds wait = std::chrono::milliseconds(0));

}  // namespace zorvex
