// A picture interpreter that does everything pixel by pixel, for comparison with the one that does not.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "zorvex/picture/PictureTypes.h"

namespace zorvex::fuzz {

class PlainPicture {
  public:
    explicit PlainPicture(ByteView stream) : stream_(stream) {
        end_ = static_cast<int>(stream.size()) - 1;
        try {
            Next();
            while (c_ != dfEnd) {
                Command();
                if (p_ > end_) break;
            }
            if (p_ > end_ && stream_.back() != dfEnd) Level |= peDataEnds;
        } catch (int level) {
            Level |= level;
        }
    }

    ByteArray Vis = ByteArray(PictureSize, agWhite);
    ByteArray Pri = ByteArray(PictureSize, agRed);
    int Level = 0;

  private:
    int Next() {
        if (p_ > end_) throw filling_ ? int{peFailure} : int{peDataEnds};
        return c_ = stream_[static_cast<std::size_t>(p_++)];
    }
    bool More() const { return c_ < 0xF0 && p_ <= end_; }

    void Pixel(int x, int y) {
        const int index = x + 160 * y;
        if (index < 0 || index >= PictureSize) return;
        if (vis_ < 16) Vis[static_cast<std::size_t>(index)] = static_cast<std::uint8_t>(vis_);
        if (pri_ < 16) Pri[static_cast<std::size_t>(index)] = static_cast<std::uint8_t>(pri_);
    }

    void Line(int x1, int y1, int x2, int y2) {
        const int dx = std::abs(x2 - x1), dy = std::abs(y2 - y1), length = std::max(dx, dy);
        int errorX = dx < dy ? dy / 2 : 0, errorY = dx < dy ? 0 : dx / 2;
        Pixel(x1, y1);
        for (int i = 0; i < length; ++i) {
            if ((errorY += dy) >= length) errorY -= length, y1 += y2 < y1 ? -1 : 1;
            if ((errorX += dx) >= length) errorX -= length, x1 += x2 < x1 ? -1 : 1;
            Pixel(x1, y1);
        }
    }

    void Fill(int x, int y) {
        if (x + 160 * y > 32767) throw int{peFailure};
        if (vis_ >= 16 && pri_ >= 16) return;
        if (x + 160 * y >= PictureSize) throw int{peFailure};
        ByteArray& tested = vis_ < 16 ? Vis : Pri;
        const int empty = vis_ < 16 ? 15 : 4;
        if ((vis_ < 16 ? vis_ : pri_) == empty) return;
        std::vector<int> queue;
        const auto paint = [&](int i) {
            if (tested[static_cast<std::size_t>(i)] != empty) return;
            Pixel(i % 160, i / 160);
            queue.push_back(i);
        };
        for (paint(x + 160 * y); !queue.empty();) {
            const int i = queue.back();
            queue.pop_back();
            if (i >= 160) paint(i - 160);
            if (i % 160 > 0) paint(i - 1);
            if (i % 160 < 159) paint(i + 1);
            if (i < PictureSize - 160) paint(i + 160);
        }
    }

    void Plot(int penX, int penY, int pattern) {
        static constexpr int rows[8][15] = {
            {0x80},
            {0xC0, 0xC0, 0xC0},
            {0x40, 0xE0, 0xE0, 0xE0, 0x40},
            {0x60, 0x60, 0xF0, 0xF0, 0xF0, 0x60, 0x60},
            {0x20, 0x70, 0xF8, 0xF8, 0xF8, 0xF8, 0xF8, 0x70, 0x20},
            {0x30, 0x78, 0x78, 0x78, 0xFC, 0xFC, 0xFC, 0x78, 0x78, 0x78, 0x30},
            {0x38, 0x7C, 0x7C, 0x7C, 0xFE, 0xFE, 0xFE, 0xFE, 0xFE, 0x7C, 0x7C, 0x7C, 0x38},
            {0x18, 0x3C, 0x7E, 0x7E, 0x7E, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7E, 0x7E, 0x7E, 0x3C, 0x18}};
        const int size = pen_ & 7;
        const int left = std::max(0, std::min(penX - (size + 1) / 2, 160 - size));
        const int top = std::max(0, std::min(penY - size, 167 - size));
        for (int cell = 0; cell < (size + 1) * (2 * size + 1); ++cell) {
            const int column = cell % (size + 1), row = cell / (size + 1);
            if (!(pen_ & 0x10) && !(rows[size][row] >> (7 - column) & 1)) continue;
            if (pen_ & 0x20) {
                pattern = pattern & 1 ? pattern >> 1 ^ 0xB8 : pattern >> 1;
                if ((pattern & 3) != 2) continue;
            }
            Pixel(left + column, top + row);
        }
    }

    void Lines(int code) {
        int x = Next(), y = Next();
        Line(x, y, x, y);
        bool moveY = code == dfYCorner;
        for (Next(); More(); Next(), moveY = !moveY) {
            int x2 = c_, y2 = c_;
            if (code == dfAbsLine) y2 = Next();
            if (code == dfRelLine) {
                x2 = x + (c_ & 0x80 ? -(c_ >> 4 & 7) : c_ >> 4 & 7);
                y2 = y + (c_ & 8 ? -(c_ & 7) : c_ & 7);
            }
            if (code == dfXCorner || code == dfYCorner) (moveY ? x2 : y2) = moveY ? x : y;
            Line(x, y, x2, y2);
            if (x2 < 0 || x2 > 255 || y2 < 0 || y2 > 255) throw int{peFailure};
            x = x2, y = y2;
        }
    }

    void Plots() {
        for (Next(); More(); Next()) {
            const int pattern = c_ | 1;
            if (pen_ & 0x20 && Next() >= 0xF0) return;
            const int x = c_;
            if (Next() >= 0xF0) return;
            Plot(x, c_, pattern);
        }
    }

    void Command() {
        const int code = c_;
        switch (code) {
            case dfEnableVis:
                vis_ = Next() & 15;
                if (c_ > 15) pri_ |= c_ >> 4, Level |= peColor;
                break;
            case dfDisableVis: vis_ = 16; break;
            case dfEnablePri: pri_ = Next() & 15; break;
            case dfDisablePri: pri_ = 16; break;
            case dfChangePen: pen_ = Next(); break;
            case dfYCorner:
            case dfXCorner:
            case dfAbsLine:
            case dfRelLine: return Lines(code);
            case dfPlotPen: return Plots();
            case dfFill:
                filling_ = true;
                for (Next(); More(); Next()) {
                    const int x = c_;
                    Fill(x, Next());
                }
                filling_ = false;
                return;
            default:
                Next();
                Level |= peCommand;
                return;
        }
        Next();
    }

    ByteView stream_;
    int end_ = 0, p_ = 0, c_ = 0, vis_ = 16, pri_ = 16, pen_ = 0;
    bool filling_ = false;
};

}  // namespace zorvex::fuzz
