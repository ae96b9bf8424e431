// Views as text, for the sample game.
//
//     # a remark
//     description A can of oil.
//     loop
//     cel 0                    a cel with the transparent colour 0; its rows follow
//     ..44..
//     mirror 0                 a loop that shows loop 0 the other way round
#pragma once

#include <string_view>

#include "zorvex/Zorvex.h"

namespace sample {

/// Gives a view the loops and cels of a text. Throws std::runtime_error with the line at fault.
void ReadViewText(zorvex::AGIView& view, std::string_view text);

}  // namespace sample
