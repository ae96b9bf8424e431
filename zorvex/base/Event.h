// Events: handlers that run inside the call that raises them, in the order in which they subscribed.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace zorvex {

/// Keeps one handler connected; the connection ends when the subscription goes. Movable, not copyable. It may
/// outlive the event.
class Subscription {
  public:
    Subscription() = default;
    explicit Subscription(std::function<void()> disconnect) : disconnect_(std::move(disconnect)) {}
    Subscription(Subscription&& other) noexcept : disconnect_(std::exchange(other.disconnect_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            Reset();
            disconnect_ = std::exchange(other.disconnect_, nullptr);
        }
        return *this;
    }
    ~Subscription() { Reset(); }

    /// Ends the connection now. A second call does nothing.
    void Reset() {
        if (auto disconnect = std::exchange(disconnect_, nullptr)) disconnect();
    }

  private:
    std::function<void()> disconnect_;
};

/// An event with the given argument types. A handler may subscribe and drop subscriptions, its own included,
/// while it runs; a handler that subscribes during a raise is first called at the next. A fault of a handler
/// leaves the raise and reaches the caller. Handlers belong to the event that they subscribed to: a copy of
/// it has none of them, and it keeps its own when another is assigned to it.
template <class... Args>
class Event {
  public:
    using Handler = std::function<void(Args...)>;

    Event() = default;
    Event(const Event&) {}
    Event& operator=(const Event&) { return *this; }
    ~Event() = default;

    [[nodiscard]] Subscription Subscribe(Handler handler) {
        auto slot = std::make_shared<Handler>(std::move(handler));
        slots_->push_back(slot);
        return Subscription([slots = std::weak_ptr(slots_), slot] {
            if (const auto list = slots.lock()) std::erase(*list, slot);
        });
    }

    void Raise(Args... args) const {
        if (slots_->empty()) return;
        const std::vector<std::shared_ptr<Handler>> present = *slots_;
        const std::shared_ptr<Slots> list = slots_;
        for (const auto& slot : present) {
            for (const auto& still : *list) {
                if (still == slot) {
                    (*slot)(args...);
                    break;
                }
            }
        }
    }

  private:
    using Slots = std::vector<std::shared_ptr<Handler>>;
    std::shared_ptr<Slots> slots_ = std::make_shared<Slots>();
};

}  // namespace zorvex
