// Device contexts and bitmaps by handle, behind a plain interface that a test can replace.
//
// A host gets the handle of a device context from AGIPicture::VisualBMP, AGIPicture::PriorityBMP or
// AGICel::CelBMP and looks at the bitmap in it with Bitmaps().Look(handle). The portable implementation keeps
// everything in memory; one on a system with contexts of its own hands out that system's handles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace zorvex {

/// One entry of a bitmap's palette, in the byte order of bitmap files.
struct BitmapColor {
    std::uint8_t Blue = 0;
    std::uint8_t Green = 0;
    std::uint8_t Red = 0;
    std::uint8_t Reserved = 0;

    bool operator==(const BitmapColor&) const = default;
};

/// The header of a bitmap, laid out as in bitmap files.
struct BitmapHeader {
    std::uint32_t HeaderSize = 40;
    std::int32_t Width = 0;
    std::int32_t Height = 0;  // negative: the first row of pixels is the top one
    std::uint16_t Planes = 1;
    std::uint16_t BitCount = 8;  // 8 (palette indexes) or 32 (blue, green, red, unused)
    std::uint32_t Compression = 0;
    std::uint32_t ImageSize = 0;
    std::int32_t XPelsPerMeter = 0;
    std::int32_t YPelsPerMeter = 0;
    std::uint32_t ColorsUsed = 0;
    std::uint32_t ColorsImportant = 0;

    bool operator==(const BitmapHeader&) const = default;
};

/// What a host sees of the bitmap in a device context. Valid until the bitmap is deleted.
struct BitmapView {
    BitmapHeader Header;
    std::span<const BitmapColor> Colors;
    std::span<const std::uint8_t> Pixels;  // rows of Stride bytes
    std::size_t Stride = 0;
};

/// The bitmap services of the system. Handles are 32-bit values, 0 is none. An operation that fails returns 0
/// (false) and changes nothing.
class DeviceBitmaps {
  public:
    virtual ~DeviceBitmaps() = default;

    /// A new device context in memory, with a one-pixel stock bitmap in it. `like` is another context, or 0.
    virtual std::int32_t CreateCompatibleDC(std::int32_t like) = 0;
    /// A new bitmap of zero bytes; `bits` becomes the address of its pixels, valid until it is deleted. Fails
    /// for a header that asks for other than 8 or 32 plain bits a pixel, and for more than 65,536 columns or
    /// rows.
    virtual std::int32_t CreateDIBSection(std::int32_t dc, const BitmapHeader& header,
                                          std::span<const BitmapColor> colors, std::uint8_t*& bits) = 0;
    /// Puts a bitmap into a context and returns the one that it displaces. Fails for one in another context.
    virtual std::int32_t SelectObject(std::int32_t dc, std::int32_t object) = 0;
    /// Sets a context's background colour (red in the low byte) and returns the former one, at first
    /// 0xFFFFFF.
    virtual std::uint32_t SetBkColor(std::int32_t dc, std::uint32_t color) = 0;
    /// Deletes a bitmap. Fails for one that is in a context.
    virtual bool DeleteObject(std::int32_t object) = 0;
    /// Deletes a context. A bitmap in it is freed from it, and lives on.
    virtual bool DeleteDC(std::int32_t dc) = 0;

    /// The bitmap in a context; nothing for a handle that is no context's.
    virtual std::optional<BitmapView> Look(std::int32_t dc) const = 0;
    /// The background colour of a context; nothing for a handle that is no context's.
    virtual std::optional<std::uint32_t> BkColor(std::int32_t dc) const = 0;
    /// How many contexts and bitmaps have been made and not deleted.
    virtual std::size_t LiveHandles() const = 0;
};

/// The bitmap services in use.
DeviceBitmaps& Bitmaps();
/// Puts other services in use and returns those used before; an empty pointer restores the usual ones.
/// Handles belong to the services that made them.
std::shared_ptr<DeviceBitmaps> UseBitmaps(std::shared_ptr<DeviceBitmaps> bitmaps);
/// New services that keep everything in memory.
std::shared_ptr<DeviceBitmaps> MakeMemoryBitmaps();

/// A context with a bitmap of our own in it, as pictures and cels keep them. A plain record: it frees nothing
/// by itself.
struct BitmapSection {
    std::int32_t Context = 0;
    std::int32_t Bitmap = 0;
    std::int32_t Displaced = 0;  // what the bitmap displaced, to be put back before the release
    std::uint8_t* Bits = nullptr;

    bool Exists() const { return Context != 0; }
    /// Makes the context and the bitmap and puts one into the other. False at the first step that fails; what
    /// was made until then stays in the record for the release.
    bool Make(const BitmapHeader& header, std::span<const BitmapColor> colors);
    /// Puts the displaced object back.
    void Restore();
    void DeleteBitmap();
    void DeleteContext();
};

}  // namespace zorvex
