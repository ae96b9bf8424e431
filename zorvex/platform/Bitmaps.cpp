#include "zorvex/platform/Bitmaps.h"

#include <cstdlib>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace zorvex {
namespace {

constexpr std::int32_t StockBitmap = 1;
constexpr std::int32_t FirstHandle = 2;
constexpr std::uint32_t White = 0xFFFFFF;
constexpr std::int32_t LargestSide = 65536;
constexpr std::uint64_t LargestBitmap = 1U << 30;

std::size_t StrideOf(const BitmapHeader& header) {
    const std::size_t bits = static_cast<std::size_t>(header.Width) * header.BitCount;
    return (bits + 31) / 32 * 4;
}

bool IsMakeable(const BitmapHeader& header) {
    if (header.HeaderSize != 40 || header.Planes != 1 || header.Compression != 0) return false;
    if (header.BitCount != 8 && header.BitCount != 32) return false;
    if (header.Width < 1 || header.Width > LargestSide) return false;
    if (header.Height == 0 || header.Height < -LargestSide || header.Height > LargestSide) return false;
    return StrideOf(header) * static_cast<std::uint64_t>(std::abs(header.Height)) <= LargestBitmap;
}

class MemoryBitmaps final : public DeviceBitmaps {
  public:
    MemoryBitmaps() {
        stock_.header = {.Width = 1, .Height = 1, .BitCount = 8, .ImageSize = 4, .ColorsUsed = 1};
        stock_.colors.resize(1);
        stock_.pixels.resize(4);
    }

    std::int32_t CreateCompatibleDC(std::int32_t like) override {
        const std::scoped_lock lock(mutex_);
        if (like != 0 && !contexts_.contains(like)) return 0;
        contexts_[nextHandle_] = {};
        return nextHandle_++;
    }

    std::int32_t CreateDIBSection(std::int32_t dc, const BitmapHeader& header,
                                  std::span<const BitmapColor> colors, std::uint8_t*& bits) override {
        const std::scoped_lock lock(mutex_);
        if (dc != 0 && !contexts_.contains(dc)) return 0;
        if (!IsMakeable(header)) return 0;
        Bitmap bitmap{header, {colors.begin(), colors.end()}, {}};
        bitmap.pixels.resize(StrideOf(header) * static_cast<std::size_t>(std::abs(header.Height)));
        bits = bitmap.pixels.data();
        bitmaps_[nextHandle_] = std::move(bitmap);
        return nextHandle_++;
    }

    std::int32_t SelectObject(std::int32_t dc, std::int32_t object) override {
        const std::scoped_lock lock(mutex_);
        const auto context = contexts_.find(dc);
        if (context == contexts_.end()) return 0;
        if (object != StockBitmap && !bitmaps_.contains(object)) return 0;
        if (object != StockBitmap && object != context->second.bitmap && IsSelected(object)) return 0;
        return std::exchange(context->second.bitmap, object);
    }

    std::uint32_t SetBkColor(std::int32_t dc, std::uint32_t color) override {
        const std::scoped_lock lock(mutex_);
        const auto context = contexts_.find(dc);
        return context == contexts_.end() ? 0 : std::exchange(context->second.background, color);
    }

    bool DeleteObject(std::int32_t object) override {
        const std::scoped_lock lock(mutex_);
        return !IsSelected(object) && bitmaps_.erase(object) != 0;
    }

    bool DeleteDC(std::int32_t dc) override {
        const std::scoped_lock lock(mutex_);
        return contexts_.erase(dc) != 0;
    }

    std::optional<BitmapView> Look(std::int32_t dc) const override {
        const std::scoped_lock lock(mutex_);
        const auto context = contexts_.find(dc);
        if (context == contexts_.end()) return std::nullopt;
        const auto found = bitmaps_.find(context->second.bitmap);
        const Bitmap& bitmap = found == bitmaps_.end() ? stock_ : found->second;
        return BitmapView{bitmap.header, bitmap.colors, bitmap.pixels, StrideOf(bitmap.header)};
    }

    std::optional<std::uint32_t> BkColor(std::int32_t dc) const override {
        const std::scoped_lock lock(mutex_);
        const auto context = contexts_.find(dc);
        if (context == contexts_.end()) return std::nullopt;
        return context->second.background;
    }

    std::size_t LiveHandles() const override {
        const std::scoped_lock lock(mutex_);
        return contexts_.size() + bitmaps_.size();
    }

  private:
    struct Context {
        std::int32_t bitmap = StockBitmap;
        std::uint32_t background = White;
    };
    struct Bitmap {
        BitmapHeader header;
        std::vector<BitmapColor> colors;
        std::vector<std::uint8_t> pixels;
    };

    bool IsSelected(std::int32_t object) const {
        for (const auto& [handle, context] : contexts_) {
            if (context.bitmap == object) return true;
        }
        return false;
    }

    mutable std::mutex mutex_;
    std::unordered_map<std::int32_t, Context> contexts_;
    std::unordered_map<std::int32_t, Bitmap> bitmaps_;
    Bitmap stock_;
    std::int32_t nextHandle_ = FirstHandle;
};

/// The services in use, with the lock that guards the pointer. Never destroyed: a picture or cel with static
/// lifetime makes bitmaps until the program ends.
struct Slot {
    std::mutex mutex;
    std::shared_ptr<DeviceBitmaps> services = MakeMemoryBitmaps();
};

Slot& TheSlot() {
    static auto& slot = *new Slot;
    return slot;
}

}  // namespace

std::shared_ptr<DeviceBitmaps> BitmapsInUse() {
    Slot& slot = TheSlot();
    const std::scoped_lock lock(slot.mutex);
    return slot.services;
}

DeviceBitmaps& Bitmaps() {
    return *BitmapsInUse();
}

std::shared_ptr<DeviceBitmaps> UseBitmaps(std::shared_ptr<DeviceBitmaps> bitmaps) {
    if (!bitmaps) bitmaps = MakeMemoryBitmaps();
    Slot& slot = TheSlot();
    const std::scoped_lock lock(slot.mutex);
    return std::exchange(slot.services, std::move(bitmaps));
}

std::shared_ptr<DeviceBitmaps> MakeMemoryBitmaps() {
    return std::make_shared<MemoryBitmaps>();
}

bool BitmapSection::Make(const BitmapHeader& header, std::span<const BitmapColor> colors) {
    Release();
    services_ = BitmapsInUse();
    context_ = services_->CreateCompatibleDC(0);
    if (context_ == 0) return false;
    bitmap_ = services_->CreateDIBSection(context_, header, colors, bits_);
    if (bitmap_ == 0) return false;
    displaced_ = services_->SelectObject(context_, bitmap_);
    return displaced_ != 0;
}

void BitmapSection::Restore() {
    if (displaced_ != 0) services_->SelectObject(context_, displaced_);
    displaced_ = 0;
}

void BitmapSection::DeleteBitmap() {
    if (bitmap_ != 0) services_->DeleteObject(bitmap_);
    bitmap_ = 0;
    bits_ = nullptr;
}

void BitmapSection::DeleteContext() {
    if (context_ != 0) services_->DeleteDC(context_);
    context_ = 0;
}

void BitmapSection::Release() {
    Restore();
    DeleteBitmap();
    DeleteContext();
}

}  // namespace zorvex
