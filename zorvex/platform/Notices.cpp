#include "zorvex/platform/Notices.h"

#include <thread>

namespace zorvex {

namespace {

constexpr std::chrono::milliseconds pollInterval(5);

}  // namespace

std::int32_t NoticeWindow::AddWatch(Watch watch) {
    watches_.emplace_back(++lastWatch_, std::move(watch));
    return lastWatch_;
}

void NoticeWindow::RemoveWatch(std::int32_t number) {
    std::erase_if(watches_, [number](const auto& entry) { return entry.first == number; });
}

void NoticeWindow::AskWatches() {
    std::erase_if(watches_, [this](const auto& entry) {
        const std::optional<Notice> notice = entry.second();
        if (notice) Post(*notice);
        return notice.has_value();
    });
}

std::int32_t NoticeWindow::Pump(std::chrono::milliseconds wait) {
    const auto deadline = std::chrono::steady_clock::now() + wait;
    AskWatches();
    while (queue_.empty() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(pollInterval);
        AskWatches();
    }
    // What a procedure posts waits for the next pump, so that a pump always ends.
    const std::deque<Notice> present = std::exchange(queue_, {});
    for (const Notice& notice : present) {
        const Procedure procedure = procedure_;
        if (procedure) procedure(notice);
    }
    return static_cast<std::int32_t>(present.size());
}

std::shared_ptr<NoticeWindow> MainNoticeWindow() {
    static const auto window = std::make_shared<NoticeWindow>();
    return window;
}

std::int32_t PumpNotices(std::chrono::milliseconds wait) {
    return MainNoticeWindow()->Pump(wait);
}

}  // namespace zorvex
