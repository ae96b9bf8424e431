#include "zorvex/sound/AGINotes.h"

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/sound/AGITrack.h"
#include "zorvex/sound/SoundData.h"

namespace zorvex {

AGINotes::~AGINotes() {
    for (const auto& note : notes_)
        Forget(*note);
}

std::shared_ptr<AGINote> AGINotes::Add(AnyInteger freqDivisor, AnyInteger duration, AnyInteger attenuation,
                                       AnyInteger insertPos) {
    auto note = std::make_shared<AGINote>();
    Attempt([&] { note->FreqDivisor(freqDivisor); });
    Attempt([&] { note->Duration(duration); });
    Attempt([&] { note->Attenuation(attenuation); });
    notes_.insert(notes_.begin() + PlaceOrEnd(insertPos, Count()), note);
    note->owner_ = this;
    NoteChanged(true);
    return note;
}

void AGINotes::Clear() {
    for (const auto& note : notes_)
        Forget(*note);
    notes_.clear();
    NoteChanged(true);
}

std::shared_ptr<AGINote> AGINotes::Item(AnyInteger index) const {
    return At(notes_, index, ErrorSource);
}

void AGINotes::Remove(AnyInteger index) {
    Forget(*At(notes_, index, ErrorSource));
    notes_.erase(notes_.begin() + index);
    NoteChanged(true);
}

void AGINotes::NoteChanged(bool lengthToo) {
    if (track_ != nullptr) track_->NotesChanged(lengthToo);
}

std::vector<NoteData> AGINotes::Values() const {
    std::vector<NoteData> values;
    values.reserve(notes_.size());
    for (const auto& note : notes_)
        values.push_back({note->FreqDivisor(), note->Duration(), note->Attenuation()});
    return values;
}

void AGINotes::Values(const std::vector<NoteData>& values) {
    for (const auto& note : notes_)
        Forget(*note);
    notes_.clear();
    notes_.reserve(values.size());
    for (const NoteData& value : values) {
        auto note = std::make_shared<AGINote>();
        note->freqDivisor_ = value.FreqDivisor;
        note->duration_ = value.Duration;
        note->attenuation_ = value.Attenuation;
        note->owner_ = this;
        notes_.push_back(std::move(note));
    }
}

}  // namespace zorvex
