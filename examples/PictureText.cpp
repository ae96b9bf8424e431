#include "examples/PictureText.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace sample {

namespace {

using zorvex::ByteArray;

enum Action : std::uint8_t {
    setColor = 0xF0,
    noColor = 0xF1,
    setPriority = 0xF2,
    noPriority = 0xF3,
    absoluteLine = 0xF6,
    fill = 0xF8,
    setPen = 0xF9,
    plot = 0xFA,
    endOfPicture = 0xFF
};

constexpr std::array<std::string_view, 16> colorNames{
    "black",     "blue",       "green",       "cyan",       "red",       "magenta",       "brown",  "gray",
    "dark-gray", "light-blue", "light-green", "light-cyan", "light-red", "light-magenta", "yellow", "white"};

/// A letter as five rows of three pixels, the top row in the highest bits.
const std::map<char, std::uint16_t> letters{
    {'A', 0b010101111101101}, {'B', 0b110101110101110}, {'C', 0b011100100100011}, {'D', 0b110101101101110},
    {'E', 0b111100110100111}, {'F', 0b111100110100100}, {'G', 0b011100101101011}, {'H', 0b101101111101101},
    {'I', 0b111010010010111}, {'J', 0b001001001101010}, {'K', 0b101101110101101}, {'L', 0b100100100100111},
    {'M', 0b101111111101101}, {'N', 0b110101101101101}, {'O', 0b010101101101010}, {'P', 0b110101110100100},
    {'Q', 0b010101101110011}, {'R', 0b110101110101101}, {'S', 0b011100010001110}, {'T', 0b111010010010010},
    {'U', 0b101101101101111}, {'V', 0b101101101101010}, {'W', 0b101101111111101}, {'X', 0b101101010101101},
    {'Y', 0b101101010010010}, {'Z', 0b111001010100111}};

struct Point {
    int x;
    int y;
};

class PictureReader {
  public:
    void Read(const std::string& line) {
        std::istringstream words(line);
        std::string command;
        if (!(words >> command) || command.starts_with("#")) return;
        const auto found = Commands().find(command);
        if (found == Commands().end()) throw std::runtime_error("unknown command " + command);
        found->second(*this, words);
    }

    ByteArray Finish() {
        bytes_.push_back(endOfPicture);
        return std::move(bytes_);
    }

  private:
    using Handler = std::function<void(PictureReader&, std::istringstream&)>;

    static const std::map<std::string, Handler>& Commands() {
        static const std::map<std::string, Handler> commands{
            {"color", [](PictureReader& reader, std::istringstream& words) { reader.Color(words); }},
            {"priority", [](PictureReader& reader, std::istringstream& words) { reader.Priority(words); }},
            {"line", [](PictureReader& reader, std::istringstream& words) { reader.Line(Points(words)); }},
            {"box", [](PictureReader& reader, std::istringstream& words) { reader.Box(Points(words)); }},
            {"block", [](PictureReader& reader, std::istringstream& words) { reader.Block(Points(words)); }},
            {"shape", [](PictureReader& reader, std::istringstream& words) { reader.Shape(Points(words)); }},
            {"fill",
             [](PictureReader& reader, std::istringstream& words) { reader.Put(fill, Points(words)); }},
            {"dots", [](PictureReader& reader, std::istringstream& words) { reader.Dots(words, false); }},
            {"spray", [](PictureReader& reader, std::istringstream& words) { reader.Dots(words, true); }},
            {"write", [](PictureReader& reader, std::istringstream& words) { reader.Write(words, 1); }},
            {"big", [](PictureReader& reader, std::istringstream& words) { reader.Write(words, 2); }}};
        return commands;
    }

    static Point ParsePoint(const std::string& word) {
        Point point{};
        char comma = 0;
        std::istringstream parts(word);
        if (!(parts >> point.x >> comma >> point.y) || comma != ',' || point.x < 0 || point.x > 159 ||
            point.y < 0 || point.y > 167) {
            throw std::runtime_error(word + " is no point of the screen");
        }
        return point;
    }

    static std::vector<Point> Points(std::istringstream& words) {
        std::vector<Point> points;
        for (std::string word; words >> word;)
            points.push_back(ParsePoint(word));
        if (points.empty()) throw std::runtime_error("points are missing");
        return points;
    }

    void Put(std::uint8_t byte) { bytes_.push_back(byte); }
    void Put(Action action, const std::vector<Point>& points) {
        Put(action);
        for (const Point& point : points) {
            Put(static_cast<std::uint8_t>(point.x));
            Put(static_cast<std::uint8_t>(point.y));
        }
    }

    void Color(std::istringstream& words) {
        std::string name;
        words >> name;
        if (name == "off") return Put(noColor);
        const auto found = std::find(colorNames.begin(), colorNames.end(), name);
        if (found == colorNames.end()) throw std::runtime_error("unknown colour " + name);
        Put(setColor);
        Put(static_cast<std::uint8_t>(found - colorNames.begin()));
    }

    void Priority(std::istringstream& words) {
        std::string word;
        words >> word;
        if (word == "off") return Put(noPriority);
        Put(setPriority);
        Put(static_cast<std::uint8_t>(std::stoi(word)));
    }

    void Line(const std::vector<Point>& points) { Put(absoluteLine, points); }

    static void RequireCorners(const std::vector<Point>& points) {
        if (points.size() != 2) throw std::runtime_error("a rectangle has two corners");
    }

    void Box(const std::vector<Point>& points) {
        RequireCorners(points);
        const auto [a, b] = std::pair(points[0], points[1]);
        Line({a, {b.x, a.y}, b, {a.x, b.y}, a});
    }

    // Line by line, so that it covers what is there.
    void Block(const std::vector<Point>& points) {
        RequireCorners(points);
        for (int y = points[0].y; y <= points[1].y; ++y)
            Line({{points[0].x, y}, {points[1].x, y}});
    }

    // Row by row as well, between the edges that the row crosses.
    void Shape(const std::vector<Point>& corners) {
        int top = 167;
        int bottom = 0;
        for (const Point& corner : corners) {
            top = std::min(top, corner.y);
            bottom = std::max(bottom, corner.y);
        }
        for (int y = top; y <= bottom; ++y) {
            const std::vector<int> crossings = Crossings(corners, y);
            for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
                Line({{crossings[i], y}, {crossings[i + 1], y}});
        }
        std::vector<Point> outline = corners;
        outline.push_back(corners.front());
        Line(outline);
    }

    static std::vector<int> Crossings(const std::vector<Point>& corners, int y) {
        std::vector<int> crossings;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const Point a = corners[i];
            const Point b = corners[(i + 1) % corners.size()];
            if ((a.y <= y) == (b.y <= y)) continue;
            crossings.push_back(a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y));
        }
        std::sort(crossings.begin(), crossings.end());
        return crossings;
    }

    void Dots(std::istringstream& words, bool loose) {
        int size = 0;
        words >> size;
        constexpr std::uint8_t looseBit = 0x20;
        Put(setPen);
        Put(static_cast<std::uint8_t>((size & 7) | (loose ? looseBit : 0)));
        Put(plot);
        std::uint8_t texture = 7;
        for (const Point& point : Points(words)) {
            if (loose) Put(static_cast<std::uint8_t>(texture += 38));
            Put(static_cast<std::uint8_t>(point.x));
            Put(static_cast<std::uint8_t>(point.y));
        }
    }

    void Write(std::istringstream& words, int scale) {
        std::string place;
        std::string text;
        words >> place;
        std::getline(words >> std::ws, text);
        Point at = ParsePoint(place);
        for (const char letter : text) {
            const auto found = letters.find(letter);
            if (found != letters.end()) WriteLetter(found->second, at, scale);
            at.x += 4 * scale;
        }
    }

    void WriteLetter(std::uint16_t rows, Point at, int scale) {
        for (int i = 0; i < 15; ++i) {
            if ((rows >> (14 - i) & 1) == 0) continue;
            const Point corner{at.x + i % 3 * scale, at.y + i / 3 * 2 * scale};
            Block({corner, {corner.x + scale - 1, corner.y + 2 * scale - 1}});
        }
    }

    ByteArray bytes_;
};

}  // namespace

ByteArray PictureFromText(std::string_view text) {
    PictureReader reader;
    std::istringstream lines{std::string(text)};
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        try {
            reader.Read(line);
        } catch (const std::exception& error) {
            throw std::runtime_error("line " + std::to_string(number) + ": " + error.what());
        }
    }
    return reader.Finish();
}

}  // namespace sample
