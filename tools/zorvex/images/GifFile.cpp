#include "tools/zorvex/images/GifFile.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <bit>
#include <memory>
#include <string>
#include <utility>

#include "zorvex/base/Error.h"

namespace zorvex::tool {

namespace {

constexpr std::int32_t invalidCall = 5;
constexpr std::size_t largestSide = 0xFFFF;

[[noreturn]] void RaiseBadAnimation(int code) {
    const char* reason = GifErrorString(code);
    RaiseText(invalidCall, "zorvex",
              std::string("Cannot make a GIF animation: ") + (reason == nullptr ? "unknown fault" : reason));
}

int AppendBytes(GifFileType* gif, const GifByteType* data, int size) {
    try {
        auto& bytes = *static_cast<ByteArray*>(gif->UserData);
        bytes.insert(bytes.end(), data, data + size);
        return size;
    } catch (...) {  // no fault may cross the library in between; it reports what was written too little
        return 0;
    }
}

struct FreeColors {
    void operator()(ColorMapObject* colors) const { GifFreeMapObject(colors); }
};
using ColorMap = std::unique_ptr<ColorMapObject, FreeColors>;

ColorMap ColorsOf(const std::vector<PngColor>& palette) {
    std::vector<GifColorType> colors;
    for (const PngColor& color : palette)
        colors.push_back({color.Red, color.Green, color.Blue});
    ColorMap map(GifMakeMapObject(static_cast<int>(colors.size()), colors.data()));
    if (!map) RaiseBadAnimation(E_GIF_ERR_NOT_ENOUGH_MEM);
    return map;
}

/// One file on its way into memory.
class Writer {
  public:
    Writer() {
        int code = 0;
        gif_ = EGifOpen(&bytes_, AppendBytes, &code);
        if (gif_ == nullptr) RaiseBadAnimation(code);
        EGifSetGifVersion(gif_, true);
    }
    ~Writer() {
        int ignored = 0;
        if (gif_ != nullptr) EGifCloseFile(gif_, &ignored);
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void Begin(const GifAnimation& animation) {
        const ColorMap colors = ColorsOf(animation.Palette);
        const auto bits = static_cast<int>(std::bit_width(animation.Palette.size())) - 1;
        Check(EGifPutScreenDesc(gif_, static_cast<int>(animation.Width), static_cast<int>(animation.Height),
                                bits, 0, colors.get()));
        PlayForever();
    }

    void Add(const GifFrame& frame, int delay) {
        GraphicsControlBlock control{};
        control.DisposalMode = DISPOSE_BACKGROUND;
        control.DelayTime = delay;
        control.TransparentColor = frame.Transparent;
        std::array<GifByteType, 4> block{};
        EGifGCBToExtension(&control, block.data());
        Check(EGifPutExtension(gif_, GRAPHICS_EXT_FUNC_CODE, static_cast<int>(block.size()), block.data()));
        Check(EGifPutImageDesc(gif_, static_cast<int>(frame.Left), static_cast<int>(frame.Top),
                               static_cast<int>(frame.Width), static_cast<int>(frame.Height), false,
                               nullptr));
        ByteArray pixels = frame.Pixels;  // the library masks them in place
        Check(EGifPutLine(gif_, pixels.data(), static_cast<int>(pixels.size())));
    }

    ByteArray End() {
        int code = 0;
        GifFileType* gif = std::exchange(gif_, nullptr);
        if (EGifCloseFile(gif, &code) != GIF_OK) RaiseBadAnimation(code);
        return std::move(bytes_);
    }

  private:
    void Check(int result) const {
        if (result != GIF_OK) RaiseBadAnimation(gif_->Error);
    }

    void PlayForever() {
        constexpr std::array<GifByteType, 3> forever{1, 0, 0};
        Check(EGifPutExtensionLeader(gif_, APPLICATION_EXT_FUNC_CODE));
        Check(EGifPutExtensionBlock(gif_, 11, "NETSCAPE2.0"));
        Check(EGifPutExtensionBlock(gif_, static_cast<int>(forever.size()), forever.data()));
        Check(EGifPutExtensionTrailer(gif_));
    }

    ByteArray bytes_;
    GifFileType* gif_ = nullptr;
};

bool Fits(const GifAnimation& animation, const GifFrame& frame) {
    return frame.Width > 0 && frame.Height > 0 && frame.Left + frame.Width <= animation.Width &&
           frame.Top + frame.Height <= animation.Height &&
           frame.Pixels.size() == frame.Width * frame.Height &&
           std::ranges::all_of(frame.Pixels,
                               [&](std::uint8_t pixel) { return pixel < animation.Palette.size(); });
}

bool IsSound(const GifAnimation& animation) {
    const std::size_t colors = animation.Palette.size();
    return animation.Width <= largestSide && animation.Height <= largestSide && colors >= 2 &&
           colors <= 256 && std::has_single_bit(colors) && !animation.Frames.empty() &&
           std::ranges::all_of(animation.Frames,
                               [&](const GifFrame& frame) { return Fits(animation, frame); });
}

}  // namespace

ByteArray EncodeGif(const GifAnimation& animation) {
    if (!IsSound(animation)) RaiseText(invalidCall, "zorvex", "Not an animation that a GIF file can hold");
    Writer writer;
    writer.Begin(animation);
    for (const GifFrame& frame : animation.Frames)
        writer.Add(frame, animation.Delay);
    return writer.End();
}

}  // namespace zorvex::tool
