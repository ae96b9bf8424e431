// Makes a game, draws a picture and closes the game, with nothing but the installed headers.
#include <cstdio>
#include <filesystem>
#include <string>

#include "zorvex/Zorvex.h"

int main() {
    const std::filesystem::path directory = std::filesystem::temp_directory_path() / "zorvex-consumer";
    std::filesystem::remove_all(directory);
    std::filesystem::create_directories(directory);
    zorvex::AGIGame game;
    std::string resDir = "src";
    game.NewGame("TEST", "2.936", directory.string(), resDir);
    const bool made = game.Logics().Exists(0);
    game.CloseGame();
    std::filesystem::remove_all(directory);

    zorvex::AGIPicture picture;
    picture.SetPictureData(zorvex::ByteArray{0xF0, 4, 0xF8, 10, 10, 0xFF});
    const bool drawn = picture.VisPixel(10, 10) == zorvex::agRed;
    std::puts(made && drawn ? "the installed library works" : "the installed library does not work");
    return made && drawn ? 0 : 1;
}
