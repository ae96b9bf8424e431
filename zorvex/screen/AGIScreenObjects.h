// The state of an animated object on the screen.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Types.h"

namespace zorvex {

class AGIView;

/// A plain record for a host that shows or plays a game; nothing in the library reads it. A new one is all
/// zero. Setters store what they get; those of a byte raise 6 for what is none. The motions are names for a
/// host's own use: they do nothing here.
class AGIScreenObjects {
  public:
    void Wander() const {}
    void FollowEgo() const {}
    void MoveObject() const {}
    void ReverseCycle() const {}
    void NormalCycle() const {}
    void StopCycle() const {}
    void StartCycle() const {}
    void ReleasePriority() const {}
    void ReleaseLoop() const {}
    void FixLoop() const {}
    void ReverseLoop() const {}
    void EndOfLoop() const {}
    void NormalMotion() const {}
    void StartMotion() const {}
    void StopMotion() const {}

    std::uint8_t Restriction() const { return restriction_; }
    void Restriction(AnyInteger value) { restriction_ = Byte(value); }
    bool IgnoreBlocks() const { return ignoreBlocks_; }
    void IgnoreBlocks(bool value) { ignoreBlocks_ = value; }
    bool IgnoreHorizon() const { return ignoreHorizon_; }
    void IgnoreHorizon(bool value) { ignoreHorizon_ = value; }
    bool IgnoreObjects() const { return ignoreObjects_; }
    void IgnoreObjects(bool value) { ignoreObjects_ = value; }
    std::uint8_t StepTime() const { return stepTime_; }
    void StepTime(AnyInteger value) { stepTime_ = Byte(value); }
    std::uint8_t StepSize() const { return stepSize_; }
    void StepSize(AnyInteger value) { stepSize_ = Byte(value); }
    std::uint8_t CycleTime() const { return cycleTime_; }
    void CycleTime(AnyInteger value) { cycleTime_ = Byte(value); }
    std::uint8_t Y() const { return y_; }
    void Y(AnyInteger value) { y_ = Byte(value); }
    std::uint8_t X() const { return x_; }
    void X(AnyInteger value) { x_ = Byte(value); }
    /// One of ObjDirection.
    std::uint8_t Direction() const { return direction_; }
    void Direction(AnyInteger value) { direction_ = Byte(value); }
    std::uint8_t CurCel() const { return curCel_; }
    void CurCel(AnyInteger value) { curCel_ = Byte(value); }
    std::uint8_t CurLoop() const { return curLoop_; }
    void CurLoop(AnyInteger value) { curLoop_ = Byte(value); }
    /// The view of the object, or none. The record keeps it alive.
    const std::shared_ptr<AGIView>& View() const { return view_; }
    void View(std::shared_ptr<AGIView> value) { view_ = std::move(value); }
    AGIColors Priority() const { return priority_; }
    void Priority(AGIColors value) { priority_ = value; }

  private:
    static std::uint8_t Byte(AnyInteger value) {
        return Narrow<std::uint8_t>(value, "ZORVEX.AGIScreenObjects");
    }

    std::shared_ptr<AGIView> view_;
    std::uint8_t restriction_ = 0;
    bool ignoreBlocks_ = false;
    bool ignoreHorizon_ = false;
    bool ignoreObjects_ = false;
    std::uint8_t stepTime_ = 0;
    std::uint8_t stepSize_ = 0;
    std::uint8_t cycleTime_ = 0;
    std::uint8_t y_ = 0;
    std::uint8_t x_ = 0;
    std::uint8_t direction_ = 0;
    std::uint8_t curCel_ = 0;
    std::uint8_t curLoop_ = 0;
    AGIColors priority_ = agBlack;
};

}  // namespace zorvex
