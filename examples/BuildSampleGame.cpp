// Builds the sample game from its texts.
// usage: BuildSampleGame SOURCES DIRECTORY
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "examples/PictureText.h"
#include "examples/ViewText.h"
#include "zorvex/Zorvex.h"

namespace {

namespace fs = std::filesystem;

struct NamedResource {
    std::uint8_t number;
    const char* id;
};

constexpr NamedResource pictures[]{
    {1, "TitlePic"}, {2, "GardenPic"}, {3, "CavePic"}, {4, "LampRoomPic"}, {5, "EndingPic"}};
constexpr NamedResource views[]{{0, "Ego"},  {1, "OilCan"}, {2, "BrassKey"}, {3, "OpenDoor"},
                                {4, "Gull"}, {5, "Mat"},    {6, "Ship"}};
constexpr NamedResource sounds[]{{1, "Tune"}, {2, "Chime"}, {3, "Fanfare"}};
constexpr NamedResource logics[]{{0, "Main"}, {1, "Title"},    {2, "Garden"},
                                 {3, "Cave"}, {4, "LampRoom"}, {5, "Ending"}};

std::string TextOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Makes the game in an empty directory.
class SampleGame {
  public:
    SampleGame(fs::path sources, fs::path directory)
        : sources_(std::move(sources)), directory_(std::move(directory)) {}

    void Build() {
        fs::create_directories(directory_);
        std::string resDir = "src";
        game_.NewGame("LAMP", "2.936", directory_.string(), resDir);
        game_.LogicSourceSettings()->UseReservedNames(true);
        game_.LogicSourceSettings()->ErrorLevel(zorvex::leMedium);
        game_.GameDescription("The Last Lamp");
        game_.GameVersion("1.0");
        game_.GameAbout("The sample game of Zorvex.");
        AddLists();
        AddPictures();
        AddViews();
        AddSounds();
        AddLogics();
        game_.CompileGame();
        game_.CloseGame();
    }

  private:
    /// Writes the lists as the game's own files and lets the game read them.
    void AddLists() {
        zorvex::AGIWordList words;
        words.Load((sources_ / "words.agw").string());
        words.Export((directory_ / "WORDS.TOK").string(), 0);
        game_.VocabularyWords()->Unload();
        game_.VocabularyWords()->Load();
        zorvex::AGIInventoryObjects items;
        items.Load((sources_ / "items.ago").string());
        items.Export((directory_ / "OBJECT").string(), 0);
        game_.InventoryObjects()->Unload();
        game_.InventoryObjects()->Load();
        fs::copy_file(sources_ / "globals.txt", directory_ / "globals.txt");
    }

    void AddPictures() {
        for (const NamedResource& named : pictures) {
            zorvex::AGIPicture picture;
            const fs::path file = sources_ / "pictures" / (std::string(named.id) + ".txt");
            picture.SetPictureData(sample::PictureFromText(TextOf(file)));
            if (picture.BMPErrLevel() != 0) throw std::runtime_error(file.string() + " draws with faults");
            picture.ID(named.id);
            game_.Pictures().Add(named.number, &picture)->Unload();
        }
    }

    void AddViews() {
        for (const NamedResource& named : views) {
            zorvex::AGIView view;
            sample::ReadViewText(view, TextOf(sources_ / "views" / (std::string(named.id) + ".txt")));
            view.ID(named.id);
            game_.Views().Add(named.number, &view)->Unload();
        }
    }

    void AddSounds() {
        for (const NamedResource& named : sounds) {
            zorvex::AGISound sound;
            sound.Import((sources_ / "sounds" / (std::string(named.id) + ".ass")).string());
            sound.ID(named.id);
            game_.Sounds().Add(named.number, &sound)->Unload();
        }
    }

    void AddLogics() {
        // All logics are there before the first is compiled, so that each can name the others.
        for (const NamedResource& named : logics) {
            if (named.number != 0) game_.Logics().Add(named.number);
            const auto logic = game_.Logics().Item(named.number);
            // A new name leaves the source file of the former one behind.
            fs::remove(zorvex::NativePath(logic->SourceFile()));
            logic->ID(named.id);
            if (named.number != 0) logic->IsRoom(true);
            fs::copy_file(sources_ / "logics" / (std::string(named.id) + ".lgc"),
                          directory_ / "src" / (std::string(named.id) + ".lgc"),
                          fs::copy_options::overwrite_existing);
        }
        for (const NamedResource& named : logics)
            CompileLogic(*game_.Logics().Item(named.number), named.id);
    }

    /// Warnings and errors name the file and the line, so that an editor finds the place.
    void CompileLogic(zorvex::AGILogic& logic, const std::string& id) {
        const auto subscription = game_.GameEvents().LogCompWarning.Subscribe(
            [&id](const std::string& warning, std::uint8_t) { ShowWarning(id, warning); });
        if (logic.Loaded()) logic.Unload();
        logic.Load();
        try {
            logic.Compile();
        } catch (const zorvex::Error& error) {
            throw std::runtime_error(Located(id, error.Description()));
        }
        logic.Unload();
    }

    /// A warning comes as "number|text|line|module".
    static void ShowWarning(const std::string& id, const std::string& warning) {
        const std::size_t text = warning.find('|') + 1;
        const std::size_t module = warning.rfind('|');
        const std::size_t line = warning.rfind('|', module - 1) + 1;
        std::fprintf(stderr, "%s.lgc:%s: warning: %s\n", id.c_str(),
                     warning.substr(line, module - line).c_str(),
                     warning.substr(text, line - 1 - text).c_str());
    }

    /// An error of the source comes as "line|module|text", any other as its text alone.
    static std::string Located(const std::string& id, const std::string& error) {
        const std::size_t module = error.find('|');
        const std::size_t text = module == std::string::npos ? module : error.find('|', module + 1);
        if (text == std::string::npos) return id + ".lgc: " + error;
        return id + ".lgc:" + error.substr(0, module) + ": " + error.substr(text + 1);
    }

    fs::path sources_;
    fs::path directory_;
    zorvex::AGIGame game_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: BuildSampleGame SOURCES DIRECTORY\n", stderr);
        return 2;
    }
    try {
        SampleGame(argv[1], fs::absolute(argv[2])).Build();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "BuildSampleGame: %s\n", error.what());
        return 1;
    }
    return 0;
}
