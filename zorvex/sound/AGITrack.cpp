#include "zorvex/sound/AGITrack.h"

#include "zorvex/base/Checked.h"
#include "zorvex/sound/AGISound.h"
#include "zorvex/sound/SoundCodec.h"
#include "zorvex/sound/SoundData.h"

namespace zorvex {

namespace {

constexpr std::uint8_t maxInstrument = 127;

}  // namespace

AGITrack::AGITrack() : notes_(std::make_shared<AGINotes>()), instrument_(DefaultInstrument) {
    notes_->track_ = this;
}

AGITrack::~AGITrack() {
    notes_->track_ = nullptr;
}

void AGITrack::Instrument(AnyInteger value) {
    const auto instrument = Narrow<std::uint8_t>(value, ErrorSource);
    if (instrument > maxInstrument) RaiseRuntime(reInvalidPropertyValue, ErrorSource);
    if (instrument == instrument_) return;
    instrument_ = instrument;
    if (sound_ != nullptr) sound_->TrackSettingChanged(true);
}

void AGITrack::Muted(bool value) {
    if (value == muted_) return;
    muted_ = value;
    if (sound_ != nullptr) sound_->TrackSettingChanged(true);
}

void AGITrack::Visible(bool value) {
    if (value == visible_) return;
    visible_ = value;
    if (sound_ != nullptr) sound_->TrackSettingChanged(false);
}

float AGITrack::Length() const {
    if (!lengthKnown_) {
        std::int64_t total = 0;
        for (const auto& note : *notes_)
            total += note->Duration();
        length_ = DurationSeconds(total);
        lengthKnown_ = true;
    }
    return length_;
}

void AGITrack::NotesChanged(bool lengthToo) {
    if (lengthToo) lengthKnown_ = false;
    if (sound_ != nullptr) sound_->NotesChanged();
}

TrackData AGITrack::Values() const {
    return {notes_->Values(), instrument_, muted_, visible_};
}

void AGITrack::Values(const TrackData& values) {
    notes_->Values(values.Notes);
    instrument_ = values.Instrument;
    muted_ = values.Muted;
    visible_ = values.Visible;
    lengthKnown_ = false;
}

}  // namespace zorvex
