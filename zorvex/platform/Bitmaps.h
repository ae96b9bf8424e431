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

/// The bitmap services of the system. Threads that work with objects of their own share the services in use,
/// so an implementation must take calls from several threads at once. Handles are 32-bit values, 0 is none.
/// An operation that fails returns 0 (false) and changes nothing.
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

/// The bitmap services in use, for the whole program. The first holds until others are put in use.
DeviceBitmaps& Bitmaps();
std::shared_ptr<DeviceBitmaps> BitmapsInUse();
/// Puts other services in use and returns those used before; an empty pointer restores the usual ones.
/// Handles belong to the services that made them: what has bitmaps keeps those services, and releases there
/// what it has of them.
std::shared_ptr<DeviceBitmaps> UseBitmaps(std::shared_ptr<DeviceBitmaps> bitmaps);
/// New services that keep everything in memory. Two threads may use them at once.
std::shared_ptr<DeviceBitmaps> MakeMemoryBitmaps();

/// A context with a bitmap of our own in it, as pictures and cels keep them. It owns both, and releases them
/// in the services that made them.
class BitmapSection {
  public:
    BitmapSection() = default;
    ~BitmapSection() { Release(); }
    BitmapSection(const BitmapSection&) = delete;
    BitmapSection& operator=(const BitmapSection&) = delete;

    std::int32_t Context() const { return context_; }
    std::uint8_t* Bits() const { return bits_; }
    /// The services that made it; none before the first Make.
    const std::shared_ptr<DeviceBitmaps>& Services() const { return services_; }
    /// True for one that exists, made by the services in use.
    bool IsCurrent() const { return context_ != 0 && services_ == BitmapsInUse(); }

    /// Makes the context and the bitmap and puts one into the other, in the services in use, after a release
    /// of what was there. False at the first step that fails; what was made until then stays for the release.
    bool Make(const BitmapHeader& header, std::span<const BitmapColor> colors);
    /// Puts back what the bitmap displaced: the first step of a release. Each step does nothing where there
    /// is nothing to do.
    void Restore();
    void DeleteBitmap();
    void DeleteContext();
    void Release();

  private:
    std::shared_ptr<DeviceBitmaps> services_;
    std::int32_t context_ = 0;
    std::int32_t bitmap_ = 0;
    std::int32_t displaced_ = 0;  // what the bitmap displaced, to be put back before the release
    std::uint8_t* bits_ = nullptr;
};

}  // namespace zorvex
