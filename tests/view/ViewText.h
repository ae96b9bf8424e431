// Cels in the text of a test: one string a row, one hexadecimal digit a pixel.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zorvex/view/AGIView.h"
#include "zorvex/view/ViewCodec.h"

namespace zorvex::test {

using Rows = std::vector<std::string>;

inline CelPixels Pixels(const Rows& rows) {
    CelPixels pixels(static_cast<std::int32_t>(rows[0].size()), static_cast<std::int32_t>(rows.size()));
    for (std::int32_t y = 0; y < pixels.Height(); ++y) {
        for (std::int32_t x = 0; x < pixels.Width(); ++x) {
            const std::string digit(1, rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
            pixels.Pixel(x, y, static_cast<AGIColors>(std::stoi(digit, nullptr, 16)));
        }
    }
    return pixels;
}

inline Rows RowsOf(const CelPixels& pixels) {
    Rows rows;
    for (std::int32_t y = 0; y < pixels.Height(); ++y) {
        std::string& row = rows.emplace_back();
        for (const AGIColors color : pixels.Row(y)) {
            row += color <= agWhite ? "0123456789ABCDEF"[color] : '?';
        }
    }
    return rows;
}

/// The rows of a cel as a loop of a view shows it.
inline Rows Shown(AGIView& view, std::int32_t loop, std::int32_t cel = 0) {
    return RowsOf(view.Loops()->Item(loop)->Cels()->Item(cel)->AllCelData());
}

/// Adds a cel with these rows to a loop of a view, which is made when it is the next one.
inline std::shared_ptr<AGICel> AddCel(AGIView& view, std::int32_t loop, const Rows& rows,
                                      AGIColors transColor = agBlack) {
    if (loop == view.Loops()->Count()) view.Loops()->Add();
    const CelPixels pixels = Pixels(rows);
    const auto cel = view.Loops()->Item(loop)->Cels()->Add(255, pixels.Width(), pixels.Height(), transColor);
    cel->AllCelData(pixels);
    return cel;
}

/// A stand-alone view whose loops have one cel each.
inline std::shared_ptr<AGIView> MakeView(const std::vector<Rows>& loops) {
    auto view = std::make_shared<AGIView>();
    for (std::size_t i = 0; i < loops.size(); ++i) {
        AddCel(*view, static_cast<std::int32_t>(i), loops[i]);
        if (i == 0) view->Loops()->Item(0)->Cels()->Remove(0);
    }
    return view;
}

}  // namespace zorvex::test
