// The cels of a loop.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "zorvex/view/AGICel.h"

namespace zorvex {

/// The list of a loop's cels, by position from 0, at most 255. The two loops of a mirror pair share one list.
/// Errors carry the source "ZORVEX.agiCels".
class AGICels {
  public:
    static constexpr std::string_view ErrorSource = "ZORVEX.agiCels";
    static constexpr std::int32_t MaxCels = MaxLoopCels;

    explicit AGICels(ViewLinkPointer link = {}) : link_(std::move(link)) {}
    AGICels(const AGICels&) = delete;
    AGICels& operator=(const AGICels&) = delete;

    /// The cel at a position. From now on it shows itself as the loop does through which this list was
    /// fetched. Raises run-time error 9.
    std::shared_ptr<AGICel> Item(AnyInteger index) const;
    std::int32_t Count() const { return static_cast<std::int32_t>(cels_.size()); }
    /// Adds a black cel before a position; a position that the list does not have, such as the default, means
    /// the end. A size or colour that a cel cannot have is ignored: the cel then is 1 wide, 1 high, or
    /// transparent in black. Raises 552.
    std::shared_ptr<AGICel> Add(AnyInteger pos = 255, AnyInteger celWidth = 1, AnyInteger celHeight = 1,
                                AGIColors transColor = agBlack);
    /// Removes a cel, which then stands alone; those behind it move down. Raises 612 for the last one left,
    /// run-time error 9 for a position that is not there.
    void Remove(AnyInteger index);

    /// Takes a cel to another position; those between move by one. Raises run-time error 9 for a position
    /// that is not there.
    void Move(AnyInteger from, AnyInteger to);

    std::size_t size() const { return cels_.size(); }
    bool empty() const { return cels_.empty(); }
    /// Walks the cels in order, which from now on show themselves as after Item. The list must not change on
    /// the way.
    auto begin() const { return ShowAll().begin(); }
    auto end() const { return cels_.end(); }

    // --- For the library ---

    /// A cel, without a change of how it shows itself. Raises run-time error 9.
    const std::shared_ptr<AGICel>& Stored(AnyInteger index) const;

    /// The cels leave the view.
    void Leave();
    bool ShowMirrored() const { return showMirrored_; }
    void ShowMirrored(bool value) { showMirrored_ = value; }
    /// A list with copies of all cels, as they show themselves when fetched through this list. Nothing is
    /// fetched: the cels of this list go on showing themselves as they did.
    std::shared_ptr<AGICels> Copy(ViewLinkPointer link) const;
    /// Adds a cel with these pixels at the end.
    void Append(CelPixels pixels, AGIColors transColor);
    /// Reverses the rows of every cel.
    void FlipPixels();
    /// Lets every cel show itself as it is stored, for a list that is no longer shared.
    void EndMirroring();

  private:
    const std::vector<std::shared_ptr<AGICel>>& ShowAll() const;
    void RenewIndexes();

    std::vector<std::shared_ptr<AGICel>> cels_;
    bool showMirrored_ = false;
    ViewLinkPointer link_;
};

}  // namespace zorvex
