// The notes of a track, in order.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "zorvex/sound/AGINote.h"

namespace zorvex {

class AGITrack;
struct NoteData;

/// An ordered collection of notes, indexed from 0. Each change of it, and of a note in it, reaches the track
/// and the sound that own it. A removed note lives on by itself as long as somebody holds it.
class AGINotes {
  public:
    static constexpr std::string_view ErrorSource = "AGINotes";

    AGINotes() = default;
    ~AGINotes();
    AGINotes(const AGINotes&) = delete;
    AGINotes& operator=(const AGINotes&) = delete;

    /// Puts a new note before the one at `insertPos`, or at the end when that is no position of a note, and
    /// returns it. A value that the note refuses is passed over: the field stays 0 and the note is added all
    /// the same.
    std::shared_ptr<AGINote> Add(AnyInteger freqDivisor, AnyInteger duration, AnyInteger attenuation,
                                 AnyInteger insertPos = -1);
    /// Removes all notes.
    void Clear();
    std::int32_t Count() const { return static_cast<std::int32_t>(notes_.size()); }
    /// The note at an index. Raises 9, "Subscript out of range".
    std::shared_ptr<AGINote> Item(AnyInteger index) const;
    /// Removes the note at an index. Raises 9, "Subscript out of range".
    void Remove(AnyInteger index);

    std::size_t size() const { return notes_.size(); }
    bool empty() const { return notes_.empty(); }
    /// Walks the notes in order. The notes must not change on the way.
    auto begin() const { return notes_.begin(); }
    auto end() const { return notes_.end(); }

    // --- For the library ---
    /// The notes as plain values.
    std::vector<NoteData> Values() const;
    /// Replaces all notes and tells nobody.
    void Values(const std::vector<NoteData>& values);

  private:
    friend class AGINote;
    friend class AGITrack;

    void NoteChanged(bool lengthToo);
    void Forget(AGINote& note) { note.owner_ = nullptr; }

    AGITrack* track_ = nullptr;
    std::vector<std::shared_ptr<AGINote>> notes_;
};

}  // namespace zorvex
