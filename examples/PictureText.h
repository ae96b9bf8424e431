// Pictures as text, for the sample game: one command a line, "#" begins a remark.
//
//     color NAME|off           the colour of what follows on the screen, or none
//     priority N|control|off   the priority of what follows, or none; 0 is a wall, 2 a trigger, 3 water
//     line X,Y X,Y ...         a line through points
//     box X,Y X,Y              the outline of a rectangle
//     block X,Y X,Y            a filled rectangle
//     shape X,Y X,Y X,Y ...    a filled polygon
//     fill X,Y ...             floods from each point, over white or over unset priority
//     dots SIZE X,Y ...        round dots; size 0 to 7
//     spray SIZE X,Y ...       the same with a loose texture
//     write X,Y TEXT           capital letters of 4 by 6 pixels
//     big X,Y TEXT             the same twice as large
//
// The screen is 160 by 168; a name is a colour of the palette, such as black, light-blue or yellow.
#pragma once

#include <string_view>

#include "zorvex/Zorvex.h"

namespace sample {

/// The bytes of a picture. Throws std::runtime_error with the line at fault.
zorvex::ByteArray PictureFromText(std::string_view text);

}  // namespace sample
