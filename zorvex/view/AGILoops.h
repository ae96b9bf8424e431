// The loops of a view.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "zorvex/view/AGILoop.h"

namespace zorvex {

/// The list of a view's loops, by position from 0, at most 255. Only loops 0 to 7 take part in mirroring. A
/// host can make one by itself; then no view hears of its changes. Errors carry the source "Zorvex.agiView".
class AGILoops {
  public:
    static constexpr std::string_view ErrorSource = ViewErrorSource;
    static constexpr std::int32_t MaxLoops = MaxViewLoops;
    /// The number of loops that can be mirrored.
    static constexpr std::int32_t MirrorLimit = MirrorableLoops;

    explicit AGILoops(ViewLinkPointer link = {}) : link_(std::move(link)) {}
    ~AGILoops();
    AGILoops(const AGILoops&) = delete;
    AGILoops& operator=(const AGILoops&) = delete;

    /// Adds a loop without cels before a position; a position that the list does not have, such as the
    /// default, means the end. A mirrored loop 7 that would move to 8 is unmirrored. Raises 537.
    std::shared_ptr<AGILoop> Add(AnyInteger pos = 255);
    /// The loop at a position; raises run-time error 9.
    std::shared_ptr<AGILoop> Item(AnyInteger index) const;
    std::int32_t Count() const { return static_cast<std::int32_t>(loops_.size()); }
    /// Removes a loop; those behind it move down. The partner of a mirrored loop goes on showing what it
    /// showed, no longer mirrored; so does the removed loop for a host that still holds it, and of whose
    /// changes the view hears no more. Raises 613 for
    /// the last loop left, run-time error 9 for a position that is not there.
    void Remove(AnyInteger index);

    /// Takes a loop to another position; those between move by one. Mirror pairs stay pairs, but a mirrored
    /// loop that comes to stand behind loop 7 is unmirrored. Raises run-time error 9 for a position that is
    /// not there.
    void Move(AnyInteger from, AnyInteger to);

    std::size_t size() const { return loops_.size(); }
    bool empty() const { return loops_.empty(); }
    /// Walks the loops in order. The list must not change on the way.
    auto begin() const { return loops_.begin(); }
    auto end() const { return loops_.end(); }

    // --- For the library ---

    /// Ends the way up to the view, for a tree that the view drops.
    void Cut();
    /// Makes one loop the mirror of another, see AGIView::SetMirror.
    void SetMirror(AnyInteger targetLoop, AnyInteger sourceLoop);

  private:
    void RenewIndexes();
    std::int16_t FreePairNumber() const;
    void Take(AnyInteger index);

    std::vector<std::shared_ptr<AGILoop>> loops_;
    ViewLinkPointer link_;
};

}  // namespace zorvex
