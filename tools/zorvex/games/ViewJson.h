// Views as JSON: what `view --json` prints, what `view --cels` writes beside its images, and what
// `view-import` reads.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "tools/zorvex/console/Json.h"
#include "zorvex/Zorvex.h"

namespace zorvex::tool {

/// The file beside the images of a view's cels.
inline constexpr const char* celListName = "view.json";

/// The name of a cel's image, such as "loop.000.cel.002.png".
std::string CelFileName(std::int32_t loop, std::int32_t cel);

/// A view with its description and loops. A loop names the loop that it mirrors, or null, and holds its cels
/// as it shows them: width, height, transparent colour, and rows of one hexadecimal digit a pixel.
Json JsonOfView(AGIView& view);

/// The same with the names of the cels' images in place of their rows; `across` is how many columns a pixel
/// takes.
Json CelListOf(AGIView& view, std::size_t across);

/// Makes a view of such JSON, of either kind. Images are looked for in `directory`, and drawn in colours that
/// are turned into the nearest ones of the palette. A mirror takes its cels from its source; that its own
/// differ is said as a warning. Raises an error that tells the place of what is wrong.
std::unique_ptr<AGIView> ViewFromJson(const Json& json, const std::filesystem::path& directory);

/// A cel list for a directory of images that has none: loops and cels as far as their files go, without
/// mirrors and description. `across` as above.
Json GuessedCelList(const std::filesystem::path& directory, std::size_t across);

}  // namespace zorvex::tool
