#include "zorvex/platform/Services.h"

#include <utility>

namespace zorvex {

namespace {

constinit thread_local bool hasEnded = false;

struct ThreadServices : Services {
    ~ThreadServices() { hasEnded = true; }
};

Services& OwnServices() noexcept {
    if (hasEnded) {  // an object that outlives the thread's variables, such as a global one, asks for files
        static Services& late = *new Services;
        return late;
    }
    thread_local ThreadServices own;
    return own;
}

constinit thread_local Services* present = nullptr;

}  // namespace

Services& PresentServices() noexcept {
    return present != nullptr ? *present : OwnServices();
}

Services* UseServices(Services* services) noexcept {
    return std::exchange(present, services);
}

}  // namespace zorvex
