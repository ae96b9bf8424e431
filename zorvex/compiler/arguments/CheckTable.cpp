#include "zorvex/compiler/arguments/CheckTable.h"

namespace zorvex {

namespace {

using Args = const CheckedArgs&;

// The screen: a picture of 160 x 168 pixels, text in 25 rows of 40 columns, priorities 0 to 15.
constexpr int maxX = 159;
constexpr int maxY = 167;
constexpr int maxRow = 24;
constexpr int maxColumn = 39;
constexpr int maxColor = 15;
constexpr int maxPriority = 15;
constexpr int lastReservedVar = 26;
constexpr int lastReservedFlag = 15;
constexpr int pictureRows = 20;

bool Missing(Args c, AGIResType type, std::size_t index) {
    return !c.run.World.HasResource(type, c.a[index]);
}

template <std::size_t Index>
bool NoLogic(Args c) {
    return Missing(c, rtLogic, Index);
}
template <std::size_t Index>
bool NoView(Args c) {
    return Missing(c, rtView, Index);
}
template <std::size_t Index>
bool NoSound(Args c) {
    return Missing(c, rtSound, Index);
}
template <std::size_t Index>
bool IsReservedVar(Args c) {
    return c.a[Index] <= lastReservedVar;
}
template <std::size_t Index>
bool IsReservedFlag(Args c) {
    return c.a[Index] <= lastReservedFlag;
}
template <std::size_t Index>
bool IsZero(Args c) {
    return c.a[Index] == 0;
}
/// Any colour but black counts as white where text is cleared.
template <std::size_t Index>
bool IsOddColor(Args c) {
    return c.a[Index] != 0 && c.a[Index] != maxColor;
}
bool Always(Args) {
    return true;
}
bool OutsideLogic0(Args c) {
    return c.run.LogicNumber != 0;
}
/// print.at of old interpreters has no width.
bool HasWidth(Args c) {
    return c.argCount > 3;
}
bool IsOffScreen(Args c) {
    return c.a[1] > maxX || c.a[2] > maxY;
}
bool IsKeyOfOwnUse(Args c) {
    const auto key = c.a[1];
    const bool function = (key >= 71 && key <= 73) || (key >= 75 && key <= 77) || (key >= 79 && key <= 83);
    return c.a[0] == 0 && function;
}
/// A sum past 255 counts as inside.
bool IsInPicture(int row, int top) {
    return top + pictureRows > 255 || (row >= top && row <= top + pictureRows);
}

constexpr auto report = CheckStep::Report;
constexpr auto name = CheckFiller::Name;
constexpr auto arg0 = CheckFiller::Arg0;
constexpr auto arg1 = CheckFiller::Arg1;
constexpr auto none = CheckFiller::None;

const ArgCheck actionChecks[] = {
    {{1, 2, 4, 5, 6, 7, 8, 10}, CheckStep::ReservedVar},
    {{165, 166, 167, 168}, CheckStep::ReservedVar},
    {{3}, CheckStep::ReservedValue},
    {{167}, report, IsZero<1>, 4149, 5030},
    {{12, 13, 14}, CheckStep::ReservedFlag, nullptr, 0, 0, none, 0},
    {{18}, report, NoLogic<0>, 4120, 5053},
    {{18, 19}, CheckStep::NewRoom},
    {{20}, report, NoLogic<0>, 4121, 5013, arg0},
    {{22}, report, IsZero<0>, 4118, 5010},
    {{22}, report, [](Args c) { return c.a[0] == c.run.LogicNumber; }, 4117, 5089},
    {{22}, report, NoLogic<0>, 4156, 5076, arg0},
    {{30}, report, NoView<0>, 4122, 5015, arg0},
    {{32}, report, NoView<0>, 4123, 5024, arg0},
    {{37, 147}, report, IsOffScreen, 4128, 5023},
    {{39},
     report,
     [](Args c) { return c.a[1] <= lastReservedVar || c.a[2] <= lastReservedVar; },
     5077,
     5077,
     name},
    {{41}, report, NoView<1>, 4124, 5037, arg1},
    {{49, 50, 51, 52, 53, 57, 87, 97, 118}, report, IsReservedVar<1>, 5077, 5077, name},
    {{54}, report, [](Args c) { return c.a[1] > maxPriority; }, 4125, 5050},
    {{63}, report, [](Args c) { return c.a[0] >= maxY; }, 4126, 5043},
    {{63}, report, [](Args c) { return c.a[0] > 120 && c.a[0] < maxY; }, 5042, 5042},
    {{63}, report, [](Args c) { return c.a[0] < 16; }, 5041, 5041},
    {{64, 65, 66}, report, IsZero<0>, 5082, 5082},
    {{69}, report, IsReservedVar<2>, 5077, 5077, name},
    {{73, 75, 99}, report, IsReservedFlag<1>, 5078, 5078, name},
    {{73, 75, 99}, CheckStep::ReservedFlag, nullptr, 0, 0, none, 1},
    {{99}, report, NoSound<0>, 4137, 5084, arg0},
    {{81}, report, IsOffScreen, 4127, 5062},
    {{81}, report, IsZero<0>, 5045, 5045},
    {{81, 82}, report, IsReservedFlag<4>, 5078, 5078, name},
    {{81, 82}, CheckStep::ReservedFlag, nullptr, 0, 0, none, 4},
    {{83}, report, [](Args c) { return c.a[1] <= 1; }, 5102, 5102},
    {{83}, report, IsZero<0>, 5027, 5027},
    {{83}, report, IsReservedFlag<2>, 5078, 5078, name},
    {{83}, CheckStep::ReservedFlag, nullptr, 0, 0, none, 2},
    {{86}, report, IsZero<0>, 5026, 5026},
    {{90},
     report,
     [](Args c) { return c.a[0] > maxX || c.a[1] > maxY || c.a[2] > maxX || c.a[3] > maxY; },
     4129,
     5020},
    {{90}, report, [](Args c) { return c.a[2] < c.a[0] + 2 || c.a[3] < c.a[1] + 2; }, 4129, 5051},
    {{98}, report, NoSound<0>, 4130, 5014, arg0},
    {{103}, report, [](Args c) { return c.a[0] > maxRow || c.a[1] > maxColumn; }, 4131, 5059},
    {{105}, report, [](Args c) { return c.a[0] > maxRow || c.a[1] > maxRow || c.a[1] < c.a[0]; }, 4132, 5011},
    {{105}, report, IsOddColor<2>, 5100, 5100},
    {{109}, report, [](Args c) { return c.a[0] > maxColor || c.a[1] > maxColor; }, 4133, 5029},
    {{110}, report, IsZero<0>, 4134, 4134},
    {{110}, report, [](Args c) { return c.a[0] >= 100 && c.a[0] <= 109; }, 5058, 5058},
    {{110}, report, [](Args c) { return c.a[0] > 15 && (c.a[0] < 100 || c.a[0] > 109); }, 5057, 5057},
    {{111}, report, [](Args c) { return c.a[0] > 3; }, 4135, 5044},
    {{111}, report, [](Args c) { return c.a[1] > maxRow || c.a[2] > maxRow; }, 5099, 5099},
    {{111}, report, [](Args c) { return c.a[1] == c.a[2]; }, 5048, 5048},
    {{111},
     report,
     [](Args c) { return IsInPicture(c.a[1], c.a[0]) || IsInPicture(c.a[2], c.a[0]); },
     5049,
     5049},
    {{114},
     report,
     [](Args c) { return c.a[0] == 0 && c.run.Messages.MsgText[c.a[1]].size() > 10; },
     5096,
     5096},
    {{115}, report, [](Args c) { return c.a[2] > maxRow; }, 5052, 5052},
    {{115}, report, [](Args c) { return c.a[3] > maxColumn; }, 4004, 5080},
    {{115}, report, [](Args c) { return c.a[4] > 40; }, 5056, 5056},
    {{121}, report, [](Args c) { return c.a[0] > 1 && c.a[1] > 0; }, 4154, 5065},
    {{121},
     report,
     [](Args c) { return c.a[1] == 0 && (c.a[0] == 8 || c.a[0] == 13 || c.a[0] == 32); },
     4155,
     5066},
    {{121}, report, IsKeyOfOwnUse, 4155, 5066},
    {{122}, CheckStep::AddToPic},
    {{122}, report, [](Args c) { return c.a[3] > maxX || c.a[4] > maxY; }, 4141, 5038},
    {{122}, report, [](Args c) { return c.a[5] > maxPriority; }, 4142, 5079},
    {{122}, report, [](Args c) { return c.a[5] >= 1 && c.a[5] <= 3; }, 5079, 5079},
    {{122}, report, [](Args c) { return c.a[6] > 15; }, 5101, 5101},
    {{127, 176, 178}, report, Always, 5087, 5087, name},
    {{175, 179, 180}, report, Always, 4152, 5088, name},
    {{129}, report, NoView<0>, 4144, 5061, arg0},
    {{130}, report, [](Args c) { return c.a[0] > c.a[1]; }, 4145, 5054},
    {{130}, report, [](Args c) { return c.a[0] == c.a[1]; }, 5106, 5106},
    {{130}, report, [](Args c) { return c.a[0] == c.a[1] + 1; }, 0, 5107},
    {{130}, report, IsReservedVar<2>, 5077, 5077, name},
    {{142}, report, OutsideLogic0, 5039, 5039},
    {{142}, report, [](Args c) { return c.a[0] < 10; }, 5009, 5009},
    {{150}, report, NoLogic<0>, 4153, 5040, arg0},
    {{150}, report, [](Args c) { return c.a[2] < 2; }, 5046, 5046},
    {{150}, report, [](Args c) { return c.a[1] + c.a[2] > 23; }, 4146, 5063},
    {{151, 152}, report, [](Args c) { return c.a[1] > 22; }, 4147, 5067},
    {{151, 152}, report, [](Args c) { return HasWidth(c) && c.a[3] == 0; }, 5105, 5105},
    {{151, 152}, report, [](Args c) { return HasWidth(c) && c.a[3] == 1; }, 4043, 5103},
    {{151, 152}, report, [](Args c) { return HasWidth(c) && c.a[3] > 36; }, 4043, 5104},
    {{151, 152}, report, [](Args c) { return c.a[2] < 2 || c.a[2] + c.a[3] > maxColumn; }, 4148, 5068},
    {{154}, CheckStep::TextRect},
    {{154}, report, IsOddColor<4>, 5100, 5100},
    {{158}, report, OutsideLogic0, 5047, 5047},
    {{174}, report, [](Args c) { return c.a[0] > maxY; }, 5071, 5071},
};

/// posn, obj.in.box, center.posn, right.posn: object, X1, Y1, X2, Y2.
const ArgCheck testChecks[] = {
    {{11, 16, 17, 18},
     report,
     [](Args c) { return c.a[1] > maxX || c.a[2] > maxY || c.a[3] > maxX || c.a[4] > maxY; },
     4151,
     5072},
    {{11, 16, 17, 18}, report, [](Args c) { return c.a[3] < c.a[1] || c.a[4] < c.a[2]; }, 4151, 5073},
};

}  // namespace

std::span<const ArgCheck> ActionChecks() {
    return actionChecks;
}

std::span<const ArgCheck> TestChecks() {
    return testChecks;
}

}  // namespace zorvex
