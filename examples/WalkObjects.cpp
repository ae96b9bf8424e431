// A small host: walks the parts of a view, of a picture's stream, of a sound and of a word list, and edits a
// view without a thought for which of its loops are mirrored. It needs no game.
#include <iostream>
#include <string>

#include "zorvex/Zorvex.h"

namespace {

/// A cel in characters; a dot for what is not drawn.
void PrintCel(const zorvex::CelPixels& pixels, zorvex::AGIColors transColor) {
    for (std::int32_t y = 0; y < pixels.Height(); ++y) {
        std::string line = "  ";
        for (const zorvex::AGIColors color : pixels.Row(y))
            line += color == transColor ? '.' : "0123456789ABCDEF"[color];
        std::cout << line << '\n';
    }
}

void WalkView() {
    zorvex::AGIView view;
    zorvex::CelPixels arrow(4, 3, zorvex::agBlack);
    for (const auto& [x, y] : {std::pair{0, 1}, {1, 1}, {2, 1}, {3, 1}, {2, 0}, {2, 2}})
        arrow.Pixel(x, y, zorvex::agRed);
    view.WriteCel(0, 0, arrow, zorvex::agBlack);
    view.Loops()->Add();
    view.SetMirror(1, 0);
    // What is written through the mirror shows there as given; its partner shows it flipped.
    zorvex::CelPixels marked = view.ReadCel(1, 0);
    marked.Pixel(0, 0, zorvex::agYellow);
    view.WriteCel(1, 0, marked);
    view.MoveLoop(1, 0);
    for (const auto& loop : *view.Loops()) {
        std::cout << "loop " << int{loop->Index()} << '\n';
        for (std::size_t cel = 0; cel < loop->Cels()->size(); ++cel)
            PrintCel(view.ReadCel(loop->Index(), static_cast<zorvex::AnyInteger>(cel)), zorvex::agBlack);
    }
}

void WalkPicture() {
    zorvex::AGIPicture picture;
    picture.SetPictureData(zorvex::ByteArray{0xF0, 1, 0xF6, 10, 10, 60, 40, 0xF8, 0, 0, 0xFF});
    for (const zorvex::PictureCommand& command : picture.Commands()) {
        std::cout << command.Position << ": command " << int{command.Code} << " with "
                  << command.Arguments.size() << " bytes" << (command.Faults != 0 ? ", damaged" : "") << '\n';
    }
    std::size_t blue = 0;
    for (const std::uint8_t pixel : picture.VisView())  // in place: nothing is copied
        blue += pixel == zorvex::agBlue ? 1 : 0;
    std::cout << blue << " blue pixels\n";
}

void WalkLists() {
    zorvex::AGISound sound;
    sound.Track(0)->Notes()->Add(190, 30, 0);
    for (const auto& note : *sound.Track(0)->Notes())
        std::cout << "note " << note->FreqDivisor() << " for " << note->Duration() << " ticks\n";
    zorvex::AGIWordList words;
    words.NewWords();
    words.AddWord("lamp", 20);
    words.AddWord("lantern", 20);
    for (const auto& group : words.Groups()) {
        std::cout << "group " << group->GroupNum() << ':';
        for (const std::string& word : *group)
            std::cout << ' ' << word;
        std::cout << '\n';
    }
}

}  // namespace

int main() {
    try {
        WalkView();
        WalkPicture();
        WalkLists();
        return 0;
    } catch (const zorvex::Error& error) {
        std::cerr << error.Number() << ": " << error.Description() << '\n';
        return 1;
    }
}
