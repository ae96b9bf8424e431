#include "zorvex/view/ViewCodec.h"

#include <algorithm>
#include <array>
#include <optional>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/storage/ResourceLimits.h"

namespace zorvex {

namespace {

constexpr std::size_t loopCountAt = 2;
constexpr std::size_t descriptionAt = 3;
constexpr std::size_t loopTableAt = 5;
constexpr std::uint8_t mirrorBit = 0x80;
constexpr std::size_t longestRun = 15;
constexpr std::ptrdiff_t widestFill = 16;

/// The byte at a position, 0 past the end.
std::size_t ByteAt(ByteView bytes, std::size_t pos) {
    return pos < bytes.size() ? bytes[pos] : 0;
}

/// The word at a position, if all of it is there.
std::optional<std::size_t> WordAt(ByteView bytes, std::size_t pos) {
    if (pos + 1 >= bytes.size()) return std::nullopt;
    return static_cast<std::size_t>(bytes[pos] + 256 * bytes[pos + 1]);
}

/// Fills the pixels from rows of chunks; false leaves them half done.
bool ExpandRows(ByteView bytes, std::size_t pos, CelPixels& pixels, AGIColors transColor) {
    const std::uint8_t* next = bytes.data() + std::min(pos, bytes.size());
    const std::uint8_t* const end = bytes.data() + bytes.size();
    for (std::int32_t y = 0; y < pixels.Height(); ++y) {
        const std::span<AGIColors> row = pixels.Row(y);
        AGIColors* out = row.data();
        AGIColors* const rowEnd = out + row.size();
        for (;;) {
            if (next == end) return false;
            const std::uint8_t chunk = *next++;
            if (chunk == 0) break;
            const std::ptrdiff_t length = chunk & 15;
            if (length > rowEnd - out) return false;
            // A fill of one fixed size is a single store; what it writes too much is written again.
            if (rowEnd - out >= widestFill) {
                std::fill_n(out, widestFill, static_cast<AGIColors>(chunk >> 4));
            } else {
                std::fill_n(out, length, static_cast<AGIColors>(chunk >> 4));
            }
            out += length;
        }
        std::fill(out, rowEnd, transColor);
    }
    return true;
}

/// One reading of a view's bytes.
class ViewReader {
  public:
    explicit ViewReader(ByteView bytes) : bytes_(bytes) {}

    ViewContent Read() {
        if (bytes_.size() == 1) return {};  // a valid view without loops
        const std::size_t loopCount = ByteAt(bytes_, loopCountAt);
        if (loopCount == 0) RaiseCatalogue(595, ViewErrorSource);
        ReadLoopTable(loopCount);
        view_.loops.resize(loopCount);
        for (std::size_t i = 0; i < loopCount; ++i) {
            if (!BecomesMirror(i)) ReadLoop(i);
        }
        ReadDescription();
        return std::move(view_);
    }

  private:
    void ReadLoopTable(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            loopLocs_.push_back(WordAt(bytes_, loopTableAt + 2 * i).value_or(0));
            if (loopLocs_.back() > bytes_.size()) RaiseCatalogue(548, ViewErrorSource);
        }
    }

    /// Makes a loop the mirror of the first one at its place, unless that one has a mirror already.
    bool BecomesMirror(std::size_t loop) {
        const auto here = loopLocs_.begin() + static_cast<std::ptrdiff_t>(loop);
        const auto same = std::find(loopLocs_.begin(), here, *here);
        if (same == here) return false;
        if (std::cmp_greater_equal(loop, MirrorableLoops)) RaiseCatalogue(539, ViewErrorSource);
        const auto source = static_cast<std::size_t>(same - loopLocs_.begin());
        if (view_.loops[source].mirrorLoop != LoopContent::None) return false;
        view_.loops[source].mirrorLoop = static_cast<std::int32_t>(loop);
        view_.loops[loop].mirrorLoop = static_cast<std::int32_t>(source);
        return true;
    }

    void ReadLoop(std::size_t loop) {
        const std::size_t loopLoc = loopLocs_[loop];
        const std::size_t celCount = ByteAt(bytes_, loopLoc);
        for (std::size_t j = 0; j < celCount; ++j) {
            CelContent& cel = view_.loops[loop].cels.emplace_back();
            const auto offset = WordAt(bytes_, loopLoc + 1 + 2 * j);
            if (!offset) continue;
            if (loopLoc + *offset > bytes_.size()) RaiseCatalogue(553, ViewErrorSource);
            ReadCel(loopLoc + *offset, cel);
        }
    }

    void ReadCel(std::size_t celLoc, CelContent& cel) {
        const auto size = [&](std::size_t pos, std::int32_t limit) {
            const auto value = static_cast<std::int32_t>(ByteAt(bytes_, pos));
            return value >= 1 && value <= limit ? value : 1;
        };
        const std::int32_t width = size(celLoc, MaxCelWidth);
        const std::int32_t height = size(celLoc + 1, MaxCelHeight);
        cel.transColor = static_cast<AGIColors>(ByteAt(bytes_, celLoc + 2) & 15);
        pixelCount_ += static_cast<std::size_t>(width * height);
        if (pixelCount_ > MaxViewPixels) RaiseRuntime(reOutOfMemory, ViewErrorSource);
        cel.pixels = CelPixels(width, height);
        if (!ExpandRows(bytes_, celLoc + 3, cel.pixels, cel.transColor))
            cel.pixels = CelPixels(width, height);
    }

    void ReadDescription() {
        const std::size_t place = WordAt(bytes_, descriptionAt).value_or(0);
        if (place == 0) return;
        if (place + 1 >= bytes_.size()) RaiseCatalogue(513, ViewErrorSource);
        const ByteView rest = bytes_.subspan(place);
        const ByteView text = rest.first(std::min(rest.size(), MaxViewDescription));
        view_.description.assign(text.begin(), std::ranges::find(text, 0));
    }

    ByteView bytes_;
    ViewContent view_;
    std::vector<std::size_t> loopLocs_;
    std::size_t pixelCount_ = 0;
};

// --- Writing ---

/// Fills in an offset. The limits are those of a resource's buffer: where it may be written to, and sixteen
/// bits.
void PutWord(ByteArray& out, std::size_t pos, std::size_t value) {
    if (std::cmp_greater_equal(pos, MaxResourceSize - 1)) RaiseCatalogue(516, ResourceErrorSource);
    if (value > 0xFFFF) RaiseCatalogue(557, ResourceErrorSource);
    out[pos] = static_cast<std::uint8_t>(value & 255);
    out[pos + 1] = static_cast<std::uint8_t>(value >> 8);
}

/// Compresses the rows of one cel, and counts what the same cel takes with its rows flipped.
class RowWriter {
  public:
    RowWriter(const CelPixels& pixels, AGIColors transColor)
        : pixels_(pixels),
          transColor_(transColor),
          bytes_(pixels.Flat().size() + static_cast<std::size_t>(pixels.Height())) {}

    ByteArray Write(bool mirrored) {
        for (std::int32_t y = 0; y < pixels_.Height(); ++y) {
            WriteRow(pixels_.Row(y));
        }
        std::size_t size = static_cast<std::size_t>(next_ - bytes_.data());
        if (mirrored) size = std::max(size, mirrorCount_);  // the bytes behind the last row are still zero
        bytes_.resize(size);
        return std::move(bytes_);
    }

  private:
    void Emit(AGIColors color, std::size_t run) {
        *next_++ = Narrow<std::uint8_t>(16 * std::size_t{color} + run, ViewErrorSource);
    }

    void WriteRow(std::span<const AGIColors> row) {
        if (row.empty()) return;
        AGIColors color = row[0];
        std::size_t run = 1;
        bool first = true;
        for (const AGIColors pixel : row.subspan(1)) {
            if (pixel == color && run < longestRun) {
                ++run;
                continue;
            }
            Emit(color, run);
            if (color != transColor_ || !first) ++mirrorCount_;
            first = false;
            color = pixel;
            run = 1;
        }
        if (color != transColor_) Emit(color, run);
        *next_++ = 0;
        mirrorCount_ += 2;  // the final chunk, stored or not, and the end of the row
    }

    const CelPixels& pixels_;
    AGIColors transColor_;
    ByteArray bytes_;  // at most a byte a pixel and one a row
    std::uint8_t* next_ = bytes_.data();
    std::size_t mirrorCount_ = 0;
};

void WriteLoop(ByteArray& out, const LoopContent& loop, std::size_t index) {
    const std::size_t loopLoc = out.size();
    if (loop.cels.empty()) RaiseCatalogue(534, ViewErrorSource);
    out.push_back(Narrow<std::uint8_t>(loop.cels.size(), ViewErrorSource));
    out.resize(out.size() + 2 * loop.cels.size());
    const bool mirrored = loop.mirrorLoop != LoopContent::None;
    const std::size_t flags = mirrored ? mirrorBit + 16 * index : 0;
    std::vector<std::size_t> celLocs;
    for (const CelContent& cel : loop.cels) {
        celLocs.push_back(out.size() - loopLoc);
        out.push_back(Narrow<std::uint8_t>(cel.pixels.Width(), ViewErrorSource));
        out.push_back(Narrow<std::uint8_t>(cel.pixels.Height(), ViewErrorSource));
        out.push_back(Narrow<std::uint8_t>(flags + cel.transColor, ViewErrorSource));
        const ByteArray rows = CompressCelData(cel.pixels, cel.transColor, mirrored);
        out.insert(out.end(), rows.begin(), rows.end());
    }
    for (std::size_t j = 0; j < celLocs.size(); ++j) {
        PutWord(out, loopLoc + 1 + 2 * j, celLocs[j]);
    }
}

}  // namespace

ViewContent DecodeView(ByteView bytes) {
    return ViewReader(bytes).Read();
}

ByteArray EncodeView(const ViewContent& view) {
    if (view.loops.empty()) RaiseCatalogue(595, ViewErrorSource);
    ByteArray out{1, 1, Narrow<std::uint8_t>(view.loops.size(), ViewErrorSource), 0, 0};
    out.resize(loopTableAt + 2 * view.loops.size());
    std::vector<std::size_t> loopLocs;
    for (std::size_t i = 0; i < view.loops.size(); ++i) {
        const LoopContent& loop = view.loops[i];
        if (loop.mirrorLoop != LoopContent::None && std::cmp_less(loop.mirrorLoop, i)) {
            loopLocs.push_back(At(loopLocs, loop.mirrorLoop, ViewErrorSource));
            continue;
        }
        loopLocs.push_back(out.size());
        WriteLoop(out, loop, i);
    }
    for (std::size_t i = 0; i < loopLocs.size(); ++i) {
        PutWord(out, loopTableAt + 2 * i, loopLocs[i]);
    }
    if (!view.description.empty()) {
        PutWord(out, descriptionAt, out.size());
        out.insert(out.end(), view.description.begin(), view.description.end());
        out.push_back(0);
    }
    if (std::cmp_greater(out.size(), MaxResourceSize)) RaiseCatalogue(516, ResourceErrorSource);
    return out;
}

CelPixels ExpandCelData(ByteView bytes, std::size_t pos, std::int32_t width, std::int32_t height,
                        AGIColors transColor) {
    CelPixels pixels(width, height);
    if (!ExpandRows(bytes, pos, pixels, transColor)) RaiseCatalogue(555, ViewErrorSource);
    return pixels;
}

ByteArray CompressCelData(const CelPixels& pixels, AGIColors transColor, bool mirrored) {
    return Wrapped(654, [&] { return RowWriter(pixels, transColor).Write(mirrored); });
}

ByteView DefaultViewBytes() {
    static constexpr std::array<std::uint8_t, 14> bytes{1, 1, 1, 0, 0, 7, 0, 1, 3, 0, 1, 1, 0, 0};
    return bytes;
}

}  // namespace zorvex
