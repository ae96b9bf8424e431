#include "examples/ViewText.h"

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace sample {

namespace {

using zorvex::AGIColors;

struct CelText {
    int transparent = 0;
    std::vector<std::string> rows;
};

struct LoopText {
    int mirrorOf = -1;
    std::vector<CelText> cels;
};

struct ViewText {
    std::string description;
    std::vector<LoopText> loops;
};

void ReadRow(ViewText& view, const std::string& line) {
    if (view.loops.empty() || view.loops.back().cels.empty())
        throw std::runtime_error("a row outside of a cel");
    auto& rows = view.loops.back().cels.back().rows;
    if (!rows.empty() && rows.front().size() != line.size())
        throw std::runtime_error("a row of another length");
    if (line.find_first_not_of("0123456789abcdef.") != std::string::npos)
        throw std::runtime_error("no row: " + line);
    rows.push_back(line);
}

void ReadLine(ViewText& view, const std::string& line) {
    std::istringstream words(line);
    std::string command;
    if (!(words >> command) || command.starts_with("#")) return;
    if (command == "description") {
        std::getline(words >> std::ws, view.description);
    } else if (command == "loop") {
        view.loops.emplace_back();
    } else if (command == "mirror") {
        view.loops.emplace_back();
        words >> view.loops.back().mirrorOf;
    } else if (command == "cel") {
        if (view.loops.empty()) throw std::runtime_error("a cel outside of a loop");
        view.loops.back().cels.emplace_back();
        words >> view.loops.back().cels.back().transparent;
    } else {
        ReadRow(view, command);
    }
}

void FillCel(zorvex::AGICel& cel, const CelText& text) {
    cel.Width(static_cast<std::uint8_t>(text.rows.at(0).size()));
    cel.Height(static_cast<std::uint8_t>(text.rows.size()));
    const auto transparent = static_cast<AGIColors>(text.transparent);
    cel.TransColor(transparent);
    for (std::size_t y = 0; y < text.rows.size(); ++y) {
        for (std::size_t x = 0; x < text.rows[y].size(); ++x) {
            const char digit = text.rows[y][x];
            const auto color = digit == '.'
                                   ? transparent
                                   : static_cast<AGIColors>(std::stoi(std::string(1, digit), nullptr, 16));
            cel.CelData(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y), color);
        }
    }
}

}  // namespace

void ReadViewText(zorvex::AGIView& view, std::string_view text) {
    ViewText content;
    std::istringstream lines{std::string(text)};
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        try {
            ReadLine(content, line);
        } catch (const std::exception& error) {
            throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
        }
    }
    for (std::size_t i = 0; i < content.loops.size(); ++i) {
        // A new view has one loop with one cel; loops that are added have none.
        if (i > 0) view.Loops()->Add();
        const auto loop = view.Loops()->Item(static_cast<std::int32_t>(i));
        const LoopText& loopText = content.loops[i];
        for (std::size_t c = 0; c < loopText.cels.size(); ++c) {
            if (loop->Cels()->Count() <= static_cast<std::int32_t>(c)) loop->Cels()->Add();
            FillCel(*loop->Cels()->Item(static_cast<std::int32_t>(c)), loopText.cels[c]);
        }
    }
    for (std::size_t i = 0; i < content.loops.size(); ++i) {
        const int source = content.loops[i].mirrorOf;
        if (source >= 0) view.SetMirror(static_cast<std::int32_t>(i), source);
    }
    view.ViewDescription(content.description);
}

}  // namespace sample
