// One picture of a view's loop.
#pragma once

#include <cstdint>
#include <memory>

#include "zorvex/base/Types.h"
#include "zorvex/platform/Bitmaps.h"
#include "zorvex/view/CelPixels.h"
#include "zorvex/view/ViewLimits.h"
#include "zorvex/view/ViewLink.h"

namespace zorvex {

/// A small bitmap of sixteen colours, one of which stands for "transparent". A host can make one by itself;
/// then no view hears of its changes.
///
/// The two loops of a mirror pair share their cels, and a cel shows itself flipped left to right after it was
/// fetched through the mirror of the pair. Fetching it again through the other loop turns it back, for every
/// holder of the object: read what you need right after fetching a cel. Errors carry the source
/// "ZORVEX.AGICel".
class AGICel {
  public:
    static constexpr std::string_view ErrorSource = CelErrorSource;
    static constexpr std::int32_t MaxWidth = MaxCelWidth;
    static constexpr std::int32_t MaxHeight = MaxCelHeight;

    AGICel() = default;
    explicit AGICel(ViewLinkPointer link) : link_(std::move(link)) {}
    AGICel(ViewLinkPointer link, CelPixels pixels, AGIColors transColor)
        : pixels_(std::move(pixels)), transColor_(transColor), link_(std::move(link)) {}
    ~AGICel() { FreeBitmap(); }
    AGICel(const AGICel&) = delete;
    AGICel& operator=(const AGICel&) = delete;

    /// The position of the cel in its loop.
    std::uint8_t Index() const { return index_; }
    /// The width in pixels, 1 to 160; each is drawn two screen pixels wide. A new value keeps the pixels that
    /// remain and gives new columns the transparent colour. Raises 533.
    std::uint8_t Width() const { return static_cast<std::uint8_t>(pixels_.Width()); }
    void Width(AnyInteger value);
    /// The height in pixels, 1 to 168. Raises 532.
    std::uint8_t Height() const { return static_cast<std::uint8_t>(pixels_.Height()); }
    void Height(AnyInteger value);
    /// The colour that is not drawn, 0 to 15. Raises 556.
    AGIColors TransColor() const { return transColor_; }
    void TransColor(AGIColors value);

    /// One pixel, as the cel shows itself. Raises run-time error 9 outside the cel. Any colour value is
    /// stored, but one above 15 fails when the view's bytes are built.
    AGIColors CelData(AnyInteger xPos, AnyInteger yPos) const;
    void CelData(AnyInteger xPos, AnyInteger yPos, AGIColors color);
    /// A copy of all pixels, as the cel shows itself.
    CelPixels AllCelData() const;
    /// Replaces all pixels; they are stored as given, also while the cel shows itself flipped. Raises 614
    /// unless they have the size of the cel.
    void AllCelData(const CelPixels& pixels);

    /// The pixels in place, without a copy, as they are stored: for a cel of a mirror pair as the source loop
    /// shows them. The reference holds as long as the cel; rows and spans of it until the cel changes.
    const CelPixels& Stored() const { return pixels_; }

    /// Takes size, transparent colour and pixels of another cel, so that this one shows what the other shows.
    void CopyCel(const AGICel& sourceCel);
    /// Makes the cel one black pixel. The transparent colour stays.
    void Clear();

    /// The handle of a device context with the cel's picture in it: 32 bits a pixel, the colours of the
    /// game's palette, the transparent colour drawn like any other. Made again after a change of pixels or of
    /// the side that the cel shows, not after a change of TransColor or the palette. The cel owns it, and
    /// frees it on Clear and at its end. Raises 607 when the system fails.
    std::int32_t CelBMP();

    // --- For the library ---

    /// Leaves the view: it hears of no change any more.
    void Leave() { link_.reset(); }
    void Index(std::uint8_t value) { index_ = value; }
    bool ShowMirrored() const { return showMirrored_; }
    void ShowMirrored(bool value) { showMirrored_ = value; }
    /// Replaces what is stored, size and all. Raises 533 and 532 for a size that no cel has.
    void Store(CelPixels pixels);
    /// Reverses every row of what is stored.
    void FlipPixels();
    /// A new cel with what is stored here, or with its rows reversed.
    std::shared_ptr<AGICel> Copy(ViewLinkPointer link, bool flipped) const;

  private:
    void Changed();
    AnyInteger Column(AnyInteger shown) const;
    void FreeBitmap();
    void PaintBitmap();

    CelPixels pixels_;
    AGIColors transColor_ = agBlack;
    std::uint8_t index_ = 0;
    bool celChanged_ = false;
    bool showMirrored_ = false;
    bool bitmapMirrored_ = false;  // what showMirrored_ was when the bitmap was made
    BitmapSection bitmap_;
    ViewLinkPointer link_;
};

}  // namespace zorvex
