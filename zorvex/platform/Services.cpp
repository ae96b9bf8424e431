#include "zorvex/platform/Services.h"

#include <utility>

namespace zorvex {

namespace {

Services& OwnServices() noexcept {
    thread_local Services own;
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
