#include "zorvex/state/LibraryState.h"

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/state/GameSession.h"

namespace zorvex {

namespace {

constexpr std::array<std::int32_t, 16> defaultColors{
    0x000000, 0xA00000, 0x00A000, 0xA0A000, 0x0000A0, 0xA00080, 0x0050A0, 0xA0A0A0,
    0x505050, 0xFF5050, 0x50FF00, 0xFFFF50, 0x5050FF, 0xFF50FF, 0x50FFFF, 0xFFFFFF};

void StorePaletteEntry(LibraryState& library, std::size_t index, std::int32_t color) {
    const auto bits = static_cast<std::uint32_t>(color);
    const std::uint32_t exchanged = (bits & 0xFF00FF00U) | ((bits & 0xFFU) << 16U) | ((bits >> 16U) & 0xFFU);
    library.EGAColor[index] = color;
    library.EGARevColor[index] = static_cast<std::int32_t>(exchanged);
}

void FillConstants(LibraryState& library) {
    library.MaxVolSize = 1047552;
    library.MaxVol0Size = 1047552;
    for (std::size_t i = 0; i < defaultColors.size(); ++i) {
        StorePaletteEntry(library, i, defaultColors[i]);
        library.ColorIndex[i] = static_cast<std::uint8_t>(i);
    }
}

void KeepError(const Error& error) {
    LibraryState& library = Library();
    library.LastErrorNumber = error.Number();
    library.LastErrorSource = error.Source();
    library.LastErrorText = error.Description();
}

}  // namespace

namespace {

[[maybe_unused]] const bool recorderRegistered = [] {
    UseErrorRecorder(KeepError);
    return true;
}();

}  // namespace

LibraryState::LibraryState() {
    FillConstants(*this);
}

void InitLibraryState() {
    LibraryState& library = Library();
    EndGameSession(library);
    library = LibraryState();
}

void ResetDefaultPalette() {
    for (std::size_t i = 0; i < defaultColors.size(); ++i)
        SetPaletteEntry(i, defaultColors[i]);
}

void SetPaletteEntry(std::size_t index, std::int32_t color) {
    StorePaletteEntry(Library(), index, color);
}

}  // namespace zorvex
