#include "zorvex/sound/AGINote.h"

#include "zorvex/base/Error.h"
#include "zorvex/sound/AGINotes.h"

namespace zorvex {

namespace {

constexpr std::int32_t maxAttenuation = 15;
constexpr std::int32_t maxDuration = 65535;
constexpr std::int32_t maxFreqDivisor = 1023;

void RequireRange(AnyInteger value, AnyInteger max) {
    if (value < 0 || value > max) RaiseRuntime(reOverflow, AGINote::ErrorSource);
}

}  // namespace

void AGINote::Attenuation(AnyInteger value) {
    RequireRange(value, maxAttenuation);
    attenuation_ = static_cast<std::int16_t>(value);
    if (owner_ != nullptr) owner_->NoteChanged(false);
}

void AGINote::Duration(AnyInteger value) {
    RequireRange(value, maxDuration);
    duration_ = static_cast<std::int32_t>(value);
    if (owner_ != nullptr) owner_->NoteChanged(true);
}

void AGINote::FreqDivisor(AnyInteger value) {
    RequireRange(value, maxFreqDivisor);
    freqDivisor_ = static_cast<std::int16_t>(value);
    if (owner_ != nullptr) owner_->NoteChanged(false);
}

}  // namespace zorvex
