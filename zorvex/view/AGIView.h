// A view resource: loops of small pictures, from which actors and things on the screen are made.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "zorvex/base/Event.h"
#include "zorvex/storage/GameResource.h"
#include "zorvex/view/AGILoops.h"

namespace zorvex {

struct ViewContent;

/// A view: loops, each a sequence of cels, each a small bitmap of sixteen colours with one transparent
/// colour, and a description that is kept with them.
///
/// A new view stands alone, is loaded, and has one loop with one cel of one black pixel. The bytes of the
/// buffer become loops and cels when those are first asked for, and an edit of loops and cels becomes bytes
/// when the view is saved or exported. A change of the bytes themselves drops the loops: fetch them again
/// after it. Errors carry the source "Zorvex.agiView".
class AGIView : public GameResource {
  public:
    AGIView();
    ~AGIView() override;

    /// The loops; reads them from the bytes when needed, and an error of that unloads the view. Raises 563,
    /// and 595, 548, 553, 539, 513 for damage that leaves no view.
    std::shared_ptr<AGILoops> Loops();
    /// The text stored in the view itself; game text, at most 255 characters without a zero byte: the setter
    /// cuts the value. Raises as Loops, but leaves the bytes that gave an error; the setter needs no load,
    /// and the next load replaces what it stored then.
    std::string ViewDescription();
    void ViewDescription(std::string_view value);
    /// Makes one loop the mirror of another: from now on both have the source's cels, and the target shows
    /// them flipped. The target's own cels are dropped. Raises 563; 539 for a number that is not there or
    /// above 7, 540 for equal numbers, 550 and 551 for a loop that is mirrored already.
    void SetMirror(AnyInteger targetLoop, AnyInteger sourceLoop);

    /// Take a loop, and a cel of a loop, to another position; those between move by one. A mirrored loop that
    /// comes to stand behind loop 7 is unmirrored. Raise as Loops, and run-time error 9 for a position that
    /// is not there.
    void MoveLoop(AnyInteger from, AnyInteger to);
    void MoveCel(AnyInteger loop, AnyInteger from, AnyInteger to);
    /// The pixels of a cel as its loop shows them: those of a mirror are flipped. Unlike the objects of loops
    /// and cels, ReadCel and WriteCel leave alone how cels that somebody holds show themselves. Raise as
    /// Loops, and run-time error 9.
    CelPixels ReadCel(AnyInteger loop, AnyInteger cel);
    /// Gives a cel pixels of any size that a cel can have, so that ReadCel gives them back; the partner of a
    /// mirrored loop then shows them flipped. A transparent colour that is not given stays. Raises 533 and
    /// 532 for the size, 556 for the transparent colour and for a pixel above 15.
    void WriteCel(AnyInteger loop, AnyInteger cel, CelPixels pixels,
                  std::optional<AGIColors> transColor = std::nullopt);

    using GameResource::ID;
    /// As told at GameResource; names that differ only in case count as the same. Raises 686 for any other
    /// fault.
    void ID(std::string_view value) override { SetIDOrRaise686(value); }
    bool IsDirty() const override;
    /// Reads the bytes unless they are loaded, and the loops from them; edits that are not saved stay. Any
    /// error unloads the view.
    void Load() override;
    /// Drops bytes and loops, with whatever was not saved.
    void Unload() override;
    /// Makes this the smallest view. Raises 563.
    void Clear() override;
    /// In a game: ID and description to the property list if they wait for it, and the bytes, rebuilt, to a
    /// volume if there are changes. A stand-alone view goes to the file, changed or not where that is another
    /// than ResFile. Raises 563, 632 for a view that could not be read again (more than 65,530 bytes, no
    /// loops, a loop without cels), which changes nothing, and what the buffer's save raises.
    void Save(std::string_view saveFile = {}) override;
    /// Writes the bytes, rebuilt if there are changes, to a file. Outside a game the ID becomes the file's
    /// name, and with `resetDirty` the changes count as saved. Raises as Save.
    void Export(std::string_view exportFile, bool resetDirty = true);
    /// Reads a file as the bytes of the view, whose ID becomes the file's name. In a game they wait to be
    /// saved, and a name that the setter of ID refuses leaves the old one. Raises 604 and 524, which leave
    /// the view as it was, and 605, which unloads it.
    void Import(std::string_view importFile);
    /// Makes this view a copy of another, loops and mirror pairs included. Raises 643.
    void SetView(AGIView& copyView);

    // --- For the library ---

    void CopyFrom(GameResource& source) override { SetView(static_cast<AGIView&>(source)); }
    void WriteNumberedProperties() const override;
    /// Writes loops and description into the buffer. Raises 632.
    void BuildViewData();

  protected:
    bool IDsIgnoreCase() const override { return true; }

  private:
    /// Reads the loops from the bytes when needed; RequireSet also unloads the view when that fails.
    void RequireRead();
    void RequireSet();
    void LoadViewData();
    void DropLoops();
    void TakeContent(ViewContent content);
    ViewContent Content();
    void WriteDefaultView();
    void CopyFrom(AGIView& source);

    std::shared_ptr<AGILoops> loops_;
    std::string viewDescription_;
    bool viewSet_ = false;
    Subscription change_;
};

}  // namespace zorvex
