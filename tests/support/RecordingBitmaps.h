// Bitmap services that keep a list of what was asked of them and fail on demand.
//
//     RecordingBitmaps bitmaps;          // in use for the scope
//     bitmaps.FailAt(2);                 // the second step from here returns 0
//     EXPECT_EQ(bitmaps.LiveHandles(), 0);
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zorvex/platform/Bitmaps.h"

namespace zorvex::test {

class RecordingBitmaps {
  public:
    RecordingBitmaps() : inner_(std::make_shared<Services>()), before_(UseBitmaps(inner_)) {}
    ~RecordingBitmaps() { UseBitmaps(before_); }
    RecordingBitmaps(const RecordingBitmaps&) = delete;
    RecordingBitmaps& operator=(const RecordingBitmaps&) = delete;

    /// Lets the n-th step of making or selecting from here return 0; 0 lets none fail.
    void FailAt(int n) { inner_->failAt = n; }
    /// The operations since the last call, by their names.
    std::vector<std::string> TakeLog() { return std::exchange(inner_->log, {}); }
    std::size_t LiveHandles() const { return inner_->LiveHandles(); }

  private:
    struct Services final : DeviceBitmaps {
        std::shared_ptr<DeviceBitmaps> memory = MakeMemoryBitmaps();
        std::vector<std::string> log;
        int failAt = 0;

        bool Fails(const char* operation) {
            log.emplace_back(operation);
            return failAt > 0 && --failAt == 0;
        }
        std::int32_t CreateCompatibleDC(std::int32_t like) override {
            return Fails("CreateCompatibleDC") ? 0 : memory->CreateCompatibleDC(like);
        }
        std::int32_t CreateDIBSection(std::int32_t dc, const BitmapHeader& header,
                                      std::span<const BitmapColor> colors, std::uint8_t*& bits) override {
            return Fails("CreateDIBSection") ? 0 : memory->CreateDIBSection(dc, header, colors, bits);
        }
        std::int32_t SelectObject(std::int32_t dc, std::int32_t object) override {
            return Fails("SelectObject") ? 0 : memory->SelectObject(dc, object);
        }
        std::uint32_t SetBkColor(std::int32_t dc, std::uint32_t color) override {
            return Fails("SetBkColor") ? 0 : memory->SetBkColor(dc, color);
        }
        bool DeleteObject(std::int32_t object) override {
            log.emplace_back("DeleteObject");
            return memory->DeleteObject(object);
        }
        bool DeleteDC(std::int32_t dc) override {
            log.emplace_back("DeleteDC");
            return memory->DeleteDC(dc);
        }
        std::optional<BitmapView> Look(std::int32_t dc) const override { return memory->Look(dc); }
        std::optional<std::uint32_t> BkColor(std::int32_t dc) const override { return memory->BkColor(dc); }
        std::size_t LiveHandles() const override { return memory->LiveHandles(); }
    };

    std::shared_ptr<Services> inner_;
    std::shared_ptr<DeviceBitmaps> before_;
};

}  // namespace zorvex::test
