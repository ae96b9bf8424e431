#include "zorvex/platform/Notices.h"

#include <algorithm>
#include <thread>

namespace zorvex {

namespace {

constexpr std::chrono::milliseconds pollInterval(5);

}  // namespace

NoticeWindow::Procedure NoticeWindow::SetProcedure(Procedure procedure) {
    const std::scoped_lock lock(mutex_);
    return std::exchange(procedure_, std::move(procedure));
}

Subscription NoticeWindow::Hook(Procedure procedure) {
    auto hook = std::make_shared<Procedure>(std::move(procedure));
    const std::scoped_lock lock(hooks_->mutex);
    hooks_->hooks.insert(hooks_->hooks.begin(), hook);
    return Subscription([list = hooks_, hook] {
        const std::scoped_lock inner(list->mutex);
        std::erase(list->hooks, hook);
    });
}

void NoticeWindow::Post(const Notice& notice) {
    const std::scoped_lock lock(mutex_);
    queue_.push_back(notice);
}

std::int32_t NoticeWindow::AddWatch(Watch watch) {
    const std::scoped_lock lock(mutex_);
    watches_.emplace_back(++lastWatch_, std::move(watch));
    return lastWatch_;
}

void NoticeWindow::RemoveWatch(std::int32_t number) {
    const std::scoped_lock lock(mutex_);
    std::erase_if(watches_, [number](const auto& entry) { return entry.first == number; });
}

bool NoticeWindow::HasNotices() const {
    const std::scoped_lock lock(mutex_);
    return !queue_.empty();
}

// What is asked may take locks of its own, so nothing is held meanwhile.
void NoticeWindow::AskWatches() {
    std::vector<std::pair<std::int32_t, Watch>> present;
    {
        const std::scoped_lock lock(mutex_);
        present = watches_;
    }
    for (const auto& [number, watch] : present) {
        const std::optional<Notice> notice = watch();
        if (!notice) continue;
        RemoveWatch(number);
        Post(*notice);
    }
}

void NoticeWindow::Deliver(const Notice& notice) {
    const auto isThere = [this](const std::shared_ptr<Procedure>& hook) {
        const std::scoped_lock lock(hooks_->mutex);
        return std::ranges::find(hooks_->hooks, hook) != hooks_->hooks.end();
    };
    Hooks hooks;
    {
        const std::scoped_lock lock(hooks_->mutex);
        hooks = hooks_->hooks;
    }
    for (const auto& hook : hooks) {
        if (isThere(hook)) (*hook)(notice);
    }
    Procedure procedure;
    {
        const std::scoped_lock lock(mutex_);
        procedure = procedure_;
    }
    if (procedure) procedure(notice);
}

std::int32_t NoticeWindow::Pump(std::chrono::milliseconds wait) {
    const auto deadline = std::chrono::steady_clock::now() + wait;
    AskWatches();
    while (!HasNotices() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(pollInterval);
        AskWatches();
    }
    // What a procedure posts waits for the next pump, so that a pump always ends.
    std::deque<Notice> present;
    {
        const std::scoped_lock lock(mutex_);
        present = std::exchange(queue_, {});
    }
    for (const Notice& notice : present)
        Deliver(notice);
    return static_cast<std::int32_t>(present.size());
}

std::shared_ptr<NoticeWindow> MainNoticeWindow() {
    thread_local const auto window = std::make_shared<NoticeWindow>();
    return window;
}

std::int32_t PumpNotices(std::chrono::milliseconds wait) {
    return MainNoticeWindow()->Pump(wait);
}

}  // namespace zorvex
