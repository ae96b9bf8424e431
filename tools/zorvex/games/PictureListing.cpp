#include "tools/zorvex/games/PictureListing.h"

#include <algorithm>
#include <array>

namespace zorvex::tool {

namespace {

/// How the operands of a command run: some bytes that are taken whatever they are, then passes that go on up
/// to the next command code. Of a pass only the first byte is looked at.
struct CommandShape {
    std::uint8_t Code;
    std::string_view Name;
    std::size_t Fixed = 0;
    std::size_t Pass = 0;
};

constexpr std::array shapes{
    CommandShape{dfEnableVis, "EnableVis", 1}, CommandShape{dfDisableVis, "DisableVis"},
    CommandShape{dfEnablePri, "EnablePri", 1}, CommandShape{dfDisablePri, "DisablePri"},
    CommandShape{dfYCorner, "YCorner", 2, 1},  CommandShape{dfXCorner, "XCorner", 2, 1},
    CommandShape{dfAbsLine, "AbsLine", 2, 2},  CommandShape{dfRelLine, "RelLine", 2, 1},
    CommandShape{dfFill, "Fill", 0, 2},        CommandShape{dfChangePen, "ChangePen", 1},
    CommandShape{dfPlotPen, "PlotPen", 0, 1},  CommandShape{dfEnd, "End"}};

CommandShape ShapeOf(std::uint8_t code) {
    const auto found = std::find_if(shapes.begin(), shapes.end(),
                                    [code](const CommandShape& shape) { return shape.Code == code; });
    return found == shapes.end() ? CommandShape{code, "Unknown"} : *found;
}

/// The number of operand bytes that the shape calls for at the head of `rest`, which may be more than there
/// are.
std::size_t OperandCount(const CommandShape& shape, ByteView rest) {
    std::size_t count = shape.Fixed;
    if (shape.Pass == 0) return count;
    while (count < rest.size() && rest[count] < dfEnableVis)
        count += shape.Pass;
    return count;
}

}  // namespace

std::vector<PictureCommandBytes> ListPictureCommands(ByteView stream) {
    std::vector<PictureCommandBytes> commands;
    std::size_t position = 0;
    while (position < stream.size()) {
        const CommandShape shape = ShapeOf(stream[position]);
        const ByteView rest = stream.subspan(position + 1);
        const std::size_t count = OperandCount(shape, rest);
        const std::size_t present = std::min(count, rest.size());
        commands.push_back(
            {static_cast<std::int32_t>(position), shape.Code, rest.first(present), count > present});
        if (shape.Code == dfEnd) break;
        position += 1 + present;
    }
    return commands;
}

std::string_view PictureCommandName(std::uint8_t code) {
    return ShapeOf(code).Name;
}

}  // namespace zorvex::tool
