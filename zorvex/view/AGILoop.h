// One loop of a view: a sequence of cels.
#pragma once

#include <cstdint>
#include <memory>

#include "zorvex/view/AGICels.h"

namespace zorvex {

class AGILoops;

/// A sequence of cels. Two loops of a view can be a mirror pair: one list of cels, which the second loop, the
/// mirror, shows flipped left to right. A host can make a loop by itself; it has no partner then. Errors
/// carry the source "ZORVEX.AGILoop".
class AGILoop {
  public:
    static constexpr std::string_view ErrorSource = "ZORVEX.AGILoop";

    AGILoop() = default;
    AGILoop(AGILoops* owner, ViewLinkPointer link);
    AGILoop(const AGILoop&) = delete;
    AGILoop& operator=(const AGILoop&) = delete;

    /// The cels; while this loop is the mirror of a pair, those fetched from the list show themselves
    /// flipped.
    std::shared_ptr<AGICels> Cels() const;
    /// The position of the loop in its view.
    std::uint8_t Index() const { return index_; }
    /// True for both loops of a mirror pair.
    bool Mirrored() const { return mirrorPair_ != 0; }
    /// The position of the partner. Raises 611 on a loop that is not mirrored.
    std::uint8_t MirrorLoop() const;

    /// Replaces the cels by copies of another loop's cels as that one shows them. A mirror pair is ended
    /// first; the partner goes on showing what it showed.
    void CopyLoop(const AGILoop& sourceLoop);
    /// Ends a mirror pair, from either side: the mirror gets cels of its own, and both loops go on showing
    /// what they showed. Does nothing on a loop that is not mirrored.
    void UnMirror();

    // --- For the library ---

    /// The cels, without a change of how they show themselves.
    const AGICels& Stored() const { return *cels_; }
    /// Leaves its list and the view, with the cels.
    void Leave();
    /// True for the loop of a mirror pair that shows its cels flipped.
    bool IsMirror() const { return mirrorPair_ < 0; }
    /// The pixels of a cel as this loop shows them, without a change of how the cel shows itself. Raises
    /// run-time error 9.
    CelPixels ShownPixels(AnyInteger cel) const;

    void Index(std::uint8_t value) { index_ = value; }
    /// 0: not mirrored; n: the source of pair n; -n: the mirror of pair n.
    std::int16_t MirrorPair() const { return mirrorPair_; }
    void MirrorPair(std::int16_t value) { mirrorPair_ = value; }
    /// Replaces the list of cels, of the partner as well.
    void SetCels(const std::shared_ptr<AGICels>& cels);
    /// Ends the pair without a look at who shows what.
    void ForgetPair();
    void Owner(AGILoops* owner) { owner_ = owner; }
    AGILoop* Partner() const;

  private:
    AGILoops* owner_ = nullptr;
    ViewLinkPointer link_;
    std::shared_ptr<AGICels> cels_ = std::make_shared<AGICels>();
    std::int16_t mirrorPair_ = 0;
    std::uint8_t index_ = 0;
};

}  // namespace zorvex
