// A picture of a game, or one that stands by itself.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/picture/PictureCommands.h"
#include "zorvex/picture/PictureTypes.h"
#include "zorvex/platform/Bitmaps.h"
#include "zorvex/storage/GameResource.h"

namespace zorvex {

/// A picture: a stream of drawing commands, the two screens that it draws, and the settings of a picture
/// editor.
///
/// The visual screen is what the player sees; the priority screen holds the bands behind which objects pass
/// and the control colours 0 to 3. Both are 160 columns by 168 rows. Drawing is lazy: a change of the bytes,
/// of DrawPos or of StepDraw only marks the screens as stale, and the next member that needs them draws anew.
/// A damaged stream draws as far as it goes and leaves its faults in BMPErrLevel.
///
/// A new picture is loaded, outside any game, and holds the single byte 0xFF, an empty picture. Members that
/// need the bytes raise 563 on a picture that is not loaded; those that take a point raise 621 when X is not
/// within 0 to 159 or Y not within 0 to 167. Errors carry the source "ZORVEX.agiPicture".
class AGIPicture final : public GameResource {
  public:
    AGIPicture();
    ~AGIPicture() override;

    // --- The screens ---
    /// Copies of the screens: 26,880 bytes, row by row from the top, each a colour 0 to 15. Raise 563.
    ByteArray VisData();
    ByteArray PriData();
    /// The same in place, without a copy. They hold until the picture is drawn anew: until its bytes, DrawPos
    /// or StepDraw change and a member needs the screens, or it is loaded, cleared, copied to or destroyed.
    /// Raise 563.
    ByteView VisView();
    ByteView PriView();
    /// The colour of one pixel of each screen. Raise 563 and 621.
    std::uint8_t VisPixel(AnyInteger x, AnyInteger y);
    std::uint8_t PriPixel(AnyInteger x, AnyInteger y);
    /// The priority of a point: the first value of 3 or more on the priority screen at the point or below it,
    /// and the bottom row's value if there is none. Raises 563 and 621.
    AGIColors PixelPriority(AnyInteger x, AnyInteger y);
    /// The lowest value of the priority screen on a run of pixels to the right, cut at the screen's edge. A
    /// length of 0 gives agWhite. Raises 563 and 621, and 6 for a length below 0.
    AGIColors PixelControl(AnyInteger x, AnyInteger y, AnyInteger length = 1);
    /// True when a run of pixels to the right, cut at the screen's edge, is all water (3) on the priority
    /// screen. A length of 0 is. Raises 563, 621 and 610, and 6 for a length below 0.
    bool ObjOnWater(AnyInteger x, AnyInteger y, AnyInteger length);
    /// What was wrong with the stream when it was last drawn: bits of PictureError, 0 for a sound picture.
    /// Needs no load and does not draw.
    std::int32_t BMPErrLevel() const { return errorLevel_; }

    /// Device contexts that hold the screens as 8-bit bitmaps with the palette of the game; see Bitmaps().
    /// They stay this picture's and last until its next drawing. Raise 563 and 610.
    std::int32_t VisualBMP();
    std::int32_t PriorityBMP();

    // --- Step by step ---
    /// The commands of the stream, with their positions, operands and faults. Raises 563.
    std::vector<PictureCommand> Commands() const;
    /// A position of the stream, -1 for its end: where drawing stops if StepDraw, and where CurrentToolStatus
    /// looks at the pen. The setter cuts to the last position. Both raise 563.
    std::int32_t DrawPos() const;
    void DrawPos(AnyInteger value);
    /// Whether drawing stops at DrawPos. Both raise 563.
    bool StepDraw() const;
    void StepDraw(bool value);
    /// The pen at DrawPos when the picture was last drawn; does not draw. Raises 563.
    PenStatus CurrentToolStatus() const;

    // --- Settings ---
    /// A tracing image for editors: its file, whether it is shown, how, and where. The library only keeps
    /// them, in a game in the property list. The setters raise 563.
    const std::string& BkgdImgFile() const { return bkgdImgFile_; }
    void BkgdImgFile(std::string_view value);
    bool BkgdShow() const { return bkgdShow_; }
    void BkgdShow(bool value);
    std::int32_t BkgdTrans() const { return bkgdTrans_; }
    void BkgdTrans(std::int32_t value);
    const std::string& BkgdPosition() const { return bkgdPosition_; }
    void BkgdPosition(std::string_view value);
    const std::string& BkgdSize() const { return bkgdSize_; }
    void BkgdSize(std::string_view value);
    /// The first row of the priority bands, at most 158. Always 48 outside a game and for interpreters
    /// before 2.936, which know no other. The setter raises 563, and 6 for a value below 0. A load does not
    /// restore it from the property list.
    std::uint8_t PriBase();
    void PriBase(AnyInteger value);

    // --- The resource ---
    using GameResource::ID;
    bool IsDirty() const override { return DataDirty() || (WritePropState() && InGame()); }
    /// Reads the bytes unless loaded, in a game also the background settings, and draws; edits that are not
    /// saved stay. Raises what the
    /// buffer's load raises, and 610.
    void Load() override;
    /// Drops bytes and bitmaps. The last screens' error level stays.
    void Unload() override;
    /// Makes this an empty picture, one byte 0xFF. Raises 563.
    void Clear() override;
    /// Writes changed settings to the property list and changed bytes to a volume; outside a game the bytes
    /// go to `saveFile`, changed or not where that is another than ResFile. Raises 563 and what the buffer's
    /// save raises.
    void Save(std::string_view saveFile = {}) override;
    /// Writes the bytes to a file. Outside a game the picture takes the file's name as its ID and, with
    /// `resetDirty`, counts as saved. Raises 563 and what the buffer's export raises.
    void Export(std::string_view exportFile, bool resetDirty = true);
    /// Takes a file as the bytes; the file's name becomes the ID. In a game they wait to be saved, and a name
    /// that the setter of ID refuses leaves the old one; elsewhere the picture counts as saved. Raises 604
    /// and 524, which leave the picture as it was, and 605, which unloads it.
    void Import(std::string_view importFile);
    /// Replaces the bytes, loads the picture if need be, and draws.
    void SetPictureData(ByteView picData);
    /// Makes this a copy of another picture: its settings and number, and its bytes if it is loaded. Whether
    /// this one is in a game stays. Faults on the way are passed over.
    void SetPicture(AGIPicture& copyPicture);

    // --- For the library ---
    void CopyFrom(GameResource& source) override { SetPicture(static_cast<AGIPicture&>(source)); }
    void WriteNumberedProperties() const override;

  private:
    void BuildBMPs();
    void MakeBitmaps();
    void ReleaseBitmaps();
    /// Draws if the screens are stale; raises a failure again.
    void EnsureBuilt();
    /// As above, and leaves the bitmaps in the services in use.
    void EnsureBitmaps();
    /// Draws if the screens are stale; a failure is passed over.
    void EnsureDrawn();
    void RequirePoint(AnyInteger x, AnyInteger y) const;
    static AnyInteger EndOfRun(AnyInteger x, AnyInteger length);
    std::uint8_t PixelAt(const ByteArray& screen, AnyInteger x, AnyInteger y) const;
    void ReadBackground();
    void WriteSettings();
    template <class Field, class Value>
    void SetField(Field& field, const Value& value);

    std::string bkgdImgFile_;
    bool bkgdShow_ = false;
    std::int32_t bkgdTrans_ = 0;
    std::string bkgdPosition_;
    std::string bkgdSize_;
    std::uint8_t priBase_ = 48;

    bool built_ = false;
    std::int32_t drawPos_ = -1;
    bool stepDraw_ = false;
    PenStatus toolStatus_;
    ByteArray visData_;
    ByteArray priData_;
    std::int32_t errorLevel_ = 0;
    BitmapSection visual_;
    BitmapSection priority_;
    std::array<BitmapColor, 16> colors_{};
    Subscription changes_;
};

}  // namespace zorvex
