// One note of a sound.
#pragma once

#include <cstdint>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

class AGINotes;

/// A note of a tone track or of the noise track. A note that a collection holds tells its sound of each value
/// that a setter takes; one made by itself, or removed from its collection, tells nobody.
///
/// Each setter raises run-time error 6, "Overflow", for a value out of range and leaves the note as it was.
class AGINote {
  public:
    static constexpr std::string_view ErrorSource = "AGINote";

    AGINote() = default;
    AGINote(const AGINote&) = delete;
    AGINote& operator=(const AGINote&) = delete;

    /// 0 (loudest) to 15 (silent); each step is two decibels on the sound chip.
    std::int16_t Attenuation() const { return attenuation_; }
    void Attenuation(AnyInteger value);
    /// Sixtieths of a second, 0 to 65535.
    std::int32_t Duration() const { return duration_; }
    void Duration(AnyInteger value);
    /// 0 to 1023. A tone sounds at 111860 / FreqDivisor hertz, and 0 is a rest. For noise, bit 2 tells white
    /// (set) from periodic noise and bits 0 and 1 select the rate; rate 3 follows the tone of track 2.
    std::int16_t FreqDivisor() const { return freqDivisor_; }
    void FreqDivisor(AnyInteger value);

  private:
    friend class AGINotes;

    AGINotes* owner_ = nullptr;
    std::int32_t duration_ = 0;
    std::int16_t freqDivisor_ = 0;
    std::int16_t attenuation_ = 0;
};

}  // namespace zorvex
