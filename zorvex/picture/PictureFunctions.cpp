#include "zorvex/picture/PictureFunctions.h"

#include <algorithm>
#include <array>
#include <bit>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/picture/PenRules.h"
#include "zorvex/picture/PixelWriter.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {
namespace {

/// The rows of the round pens: row r of size s stands at s * s + r, its leftmost column in bit 7.
constexpr std::array<std::uint8_t, 64> CirclePens{
    0x80,                                                                                       // size 0
    0xC0, 0xC0, 0xC0,                                                                           // 1
    0x40, 0xE0, 0xE0, 0xE0, 0x40,                                                               // 2
    0x60, 0x60, 0xF0, 0xF0, 0xF0, 0x60, 0x60,                                                   // 3
    0x20, 0x70, 0xF8, 0xF8, 0xF8, 0xF8, 0xF8, 0x70, 0x20,                                       // 4
    0x30, 0x78, 0x78, 0x78, 0xFC, 0xFC, 0xFC, 0x78, 0x78, 0x78, 0x30,                           // 5
    0x38, 0x7C, 0x7C, 0x7C, 0xFE, 0xFE, 0xFE, 0xFE, 0xFE, 0x7C, 0x7C, 0x7C, 0x38,               // 6
    0x18, 0x3C, 0x7E, 0x7E, 0x7E, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7E, 0x7E, 0x7E, 0x3C, 0x18};  // 7

constexpr std::int32_t SnapshotTaken = 0x7FFFFFFF;
constexpr std::int32_t UnhandledInFill = 662;

/// One replay of a stream. It draws straight into the screens it is given.
class PictureRun {
  public:
    PictureRun(ByteView stream, std::uint8_t* visual, std::uint8_t* priority, PenStatus& savedPen)
        : stream_(stream), visual_(visual), priority_(priority), savedPen_(savedPen) {
        pen_.VisColor = agNone;
        pen_.PriColor = agNone;
    }

    std::int32_t Draw(std::int32_t endPos, std::int32_t statusPos) {
        endPos_ = endPos == -1 ? Size() - 1 : endPos;
        statusPos_ = statusPos == -1 ? endPos_ : statusPos;
        try {
            Replay();
        } catch (...) {
            const Error error = CurrentError();
            RememberError(error);
            level_ |= error.Number() == reSubscript && pos_ > endPos_ ? peDataEnds : peFailure;
        }
        return level_;
    }

  private:
    std::int32_t Size() const { return static_cast<std::int32_t>(stream_.size()); }

    /// Reads the byte at the position into the current byte.
    void Next() {
        if (pos_ >= Size()) RaiseRuntime(reSubscript, "PictureFunctions");
        current_ = stream_[static_cast<std::size_t>(pos_++)];
    }
    std::int32_t Read() {
        Next();
        return current_;
    }
    bool AtCommand() const { return current_ >= FirstPictureCommand; }
    /// True when the current byte begins another pass of a command's operands.
    bool HasOperands() const { return !AtCommand() && pos_ <= endPos_; }

    void Replay() {
        Next();
        do {
            if (current_ == dfEnd) {
                if (statusPos_ == endPos_) savedPen_ = pen_;
                break;
            }
            Dispatch();
            if (pos_ > statusPos_) {
                savedPen_ = pen_;
                statusPos_ = SnapshotTaken;
            }
        } while (pos_ <= endPos_);
        if (pos_ >= Size() && stream_.back() != dfEnd) level_ |= peDataEnds;
    }

    void Dispatch() {
        switch (current_) {
            case dfEnableVis:
                Next();
                level_ |= TakeVisualColor(pen_, current_);
                Next();
                break;
            case dfDisableVis:
                pen_.VisColor = agNone;
                Next();
                break;
            case dfEnablePri:
                Next();
                TakePriorityColor(pen_, current_);
                Next();
                break;
            case dfDisablePri:
                pen_.PriColor = agNone;
                Next();
                break;
            case dfYCorner: WithWriter([this](const auto& writer) { DrawCorner(writer, true); }); break;
            case dfXCorner: WithWriter([this](const auto& writer) { DrawCorner(writer, false); }); break;
            case dfAbsLine: WithWriter([this](const auto& writer) { DrawAbsLine(writer); }); break;
            case dfRelLine: WithWriter([this](const auto& writer) { DrawRelLine(writer); }); break;
            case dfFill:
                Wrapped(UnhandledInFill,
                        [this] { WithWriter([this](const auto& writer) { DrawFill(writer); }); });
                break;
            case dfChangePen:
                Next();
                TakePlotPen(pen_, current_);
                Next();
                break;
            case dfPlotPen: WithWriter([this](const auto& writer) { PlotPen(writer); }); break;
            default: Next(); level_ |= peCommand;
        }
    }

    /// Runs a command with the pixel writer that the pen's colours call for.
    template <class Command>
    void WithWriter(const Command& command) {
        const bool visual = pen_.VisColor < agNone;
        const bool priority = pen_.PriColor < agNone;
        if (visual && priority) {
            command(PixelWriter<true, true>(visual_, priority_, pen_));
        } else if (visual) {
            command(PixelWriter<true, false>(visual_, priority_, pen_));
        } else if (priority) {
            command(PixelWriter<false, true>(visual_, priority_, pen_));
        } else {
            command(PixelWriter<false, false>(visual_, priority_, pen_));
        }
    }

    // --- Lines ---
    template <class Writer>
    void DrawCorner(const Writer& writer, bool moveY) {
        std::int32_t x = Read();
        std::int32_t y = Read();
        writer.Line(x, y, x, y);
        for (Next(); HasOperands(); Next()) {
            if (moveY) {
                writer.Line(x, y, x, current_);
                y = current_;
            } else {
                writer.Line(x, y, current_, y);
                x = current_;
            }
            moveY = !moveY;
        }
    }

    template <class Writer>
    void DrawAbsLine(const Writer& writer) {
        std::int32_t x = Read();
        std::int32_t y = Read();
        writer.Line(x, y, x, y);
        for (Next(); HasOperands(); Next()) {
            const std::int32_t x2 = current_;
            const std::int32_t y2 = Read();
            writer.Line(x, y, x2, y2);
            x = x2;
            y = y2;
        }
    }

    template <class Writer>
    void DrawRelLine(const Writer& writer) {
        std::int32_t x = Read();
        std::int32_t y = Read();
        writer.Line(x, y, x, y);
        for (Next(); HasOperands(); Next()) {
            const PicturePoint way = Displacement(current_);
            const std::int32_t x2 = x + way.x;
            const std::int32_t y2 = y + way.y;
            writer.Line(x, y, x2, y2);
            x = Narrow<std::uint8_t>(x2, "PictureFunctions");
            y = Narrow<std::uint8_t>(y2, "PictureFunctions");
        }
    }

    // --- Fills and plots ---
    template <class Writer>
    void DrawFill(const Writer& writer) {
        for (Next(); HasOperands(); Next()) {
            const std::int32_t x = current_;
            const std::int32_t y = Read();
            writer.Fill(Narrow<std::int16_t>(x + PictureWidth * y, "PictureFunctions"), fillStack_);
        }
    }

    /// Bits of the columns of a pen's row, the leftmost in bit 7.
    std::uint8_t PenRow(std::int32_t row) const {
        if (pen_.PlotShape == psRectangle) return static_cast<std::uint8_t>(0xFF << (7 - pen_.PlotSize));
        return At(CirclePens, pen_.PlotSize * pen_.PlotSize + row);
    }

    template <class Writer>
    void PlotPen(const Writer& writer) {
        const std::int32_t size = pen_.PlotSize;
        std::uint8_t pattern = 0;
        for (Next(); HasOperands(); Next()) {
            if (pen_.PlotStyle == psSplatter) {
                pattern = current_ | 1;
                Next();
                if (AtCommand()) return;
            }
            const std::int32_t penX = current_;
            Next();
            if (AtCommand()) return;
            // The right edge lets the last column of a pen reach column 160, the first of the next row.
            const std::int32_t left = std::clamp(penX - (size + 1) / 2, 0, PictureWidth - size);
            const std::int32_t top = std::clamp(current_ - size, 0, PictureHeight - 1 - size);
            const std::int32_t index = left + PictureWidth * top;
            if (pen_.PlotStyle == psSplatter) {
                PlotSplatter(writer, index, pattern);
            } else {
                PlotSolid(writer, index);
            }
        }
    }

    template <class Writer>
    void PlotSolid(const Writer& writer, std::int32_t index) const {
        for (std::int32_t row = 0; row <= 2 * pen_.PlotSize; ++row, index += PictureWidth) {
            const std::uint8_t columns = PenRow(row);
            const std::int32_t first = index + std::countl_zero(columns);
            writer.Row(first, first + std::popcount(columns) - 1);
        }
    }

    /// Sprays the pen's cells that a shift register picks; it moves on for each cell of the pen's shape.
    template <class Writer>
    void PlotSplatter(const Writer& writer, std::int32_t index, std::uint8_t pattern) const {
        for (std::int32_t row = 0; row <= 2 * pen_.PlotSize; ++row, index += PictureWidth) {
            const std::uint8_t columns = PenRow(row);
            for (std::int32_t column = 0; column <= pen_.PlotSize; ++column) {
                if ((columns & 0x80 >> column) == 0) continue;
                const bool odd = (pattern & 1) != 0;
                pattern = static_cast<std::uint8_t>(pattern >> 1 ^ (odd ? 0xB8 : 0));
                if ((pattern & 3) == 2) writer.Pixel(index + column);
            }
        }
    }

    ByteView stream_;
    std::uint8_t* visual_;
    std::uint8_t* priority_;
    PenStatus& savedPen_;
    PenStatus pen_;
    std::int32_t pos_ = 0;
    std::int32_t endPos_ = 0;
    std::int32_t statusPos_ = 0;
    std::int32_t level_ = 0;
    std::uint8_t current_ = 0;
    FillStack fillStack_;
};

PenStatus& SavedPen() {
    auto& pen = Library().SavedPen;
    if (!pen) pen = std::make_shared<PenStatus>();
    return *pen;
}

}  // namespace

std::int32_t DrawPicture(ByteArray& visData, ByteArray& priData, ByteView picData, std::int32_t endPos,
                         std::int32_t statusPos) {
    visData.assign(PictureSize, BlankVisual);
    priData.assign(PictureSize, BlankPriority);
    PictureRun run(picData, visData.data(), priData.data(), SavedPen());
    return run.Draw(endPos, statusPos);
}

PenStatus GetToolStatus() {
    return SavedPen();
}

}  // namespace zorvex
