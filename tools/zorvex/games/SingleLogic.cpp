#include "tools/zorvex/games/SingleLogic.h"

#include <sstream>

#include "tools/zorvex/console/Command.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/base/CodePage.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view gameID = "ONE";
constexpr std::string_view sourceDirectory = "src";
constexpr std::int32_t unknownVersion = 691;

ByteArray BytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

/// A directory with one entry, for a resource at the start of volume 0.
ByteArray OneEntry(std::uint8_t number) {
    ByteArray bytes(std::size_t{number} * 3, 0xFF);
    bytes.insert(bytes.end(), {0, 0, 0});
    return bytes;
}

/// The file name of an include line without a directory; empty for any other line.
std::string IncludedName(std::string_view line) {
    constexpr std::string_view mark = "#include ";
    if (!StartsWithNoCase(line, mark)) return {};
    std::string name(Trim(line.substr(mark.size())));
    std::erase(name, '"');
    return name.find_first_of("/\\") == std::string::npos ? name : std::string();
}

}  // namespace

SingleLogic::SingleLogic(const SingleLogicSettings& settings) {
    const ByteArray bytes = ReadBytes(settings.File);
    const std::string source(bytes.begin(), bytes.end());
    WriteGameFiles(settings);
    CopyIncludes(settings, source);
    try {
        game_ = std::make_unique<OpenedGame>((scratch_.Path() / "one.zvg").string(), Access::Change);
    } catch (const Error& error) {
        if (!error.Is(unknownVersion)) throw;
        throw UsageError("'" + settings.Version + "' is no interpreter version that is known, such as 2.917");
    }
    logic_ = game_->Game().Logics().Item(settings.Number);
    logic_->Load();
}

void SingleLogic::WriteGameFiles(const SingleLogicSettings& settings) const {
    const fs::path& directory = scratch_.Path();
    fs::create_directory(directory / sourceDirectory);
    const std::string given = fs::path(settings.File).parent_path().string();
    const fs::path source =
        directory / sourceDirectory / ("Logic" + std::to_string(settings.Number) + ".lgc");
    WriteBytes(source, ReadBytes(settings.File));
    ShowScratchAs(source.string(), settings.File);
    ShowScratchAs((directory / sourceDirectory).string(), given.empty() ? "." : given);
    WriteBytes(directory / "one.zvg",
               BytesOf("[General]\r\n   ZorvexVersion = 2.1.1\r\n   GameID = " + std::string(gameID) +
                       "\r\n   Interpreter = " + settings.Version +
                       "\r\n   ResDir = " + std::string(sourceDirectory) + "\r\n"));
    WriteDirectories(settings);
    if (settings.Words.empty()) {
        AGIWordList words;
        words.NewWords();
        words.Save((directory / "WORDS.TOK").string());
    } else {
        WriteBytes(directory / "WORDS.TOK", ReadBytes(settings.Words));
    }
    if (settings.Objects.empty()) {
        AGIInventoryObjects objects;
        objects.NewObjects();
        objects.Save((directory / "OBJECT").string());
    } else {
        WriteBytes(directory / "OBJECT", ReadBytes(settings.Objects));
    }
}

void SingleLogic::WriteDirectories(const SingleLogicSettings& settings) const {
    const fs::path& directory = scratch_.Path();
    const ByteArray logics = OneEntry(settings.Number);
    const ByteArray none{0xFF, 0xFF, 0xFF};
    if (!settings.Version.starts_with('3')) {
        WriteBytes(directory / "LOGDIR", logics);
        for (const std::string_view name : {"PICDIR", "SNDDIR", "VIEWDIR"})
            WriteBytes(directory / name, none);
        WriteBytes(directory / "VOL.0", ByteArray{0x12, 0x34, 0, 6, 0, 1, 0, 0, 0, 2, 0});
        return;
    }
    // Pictures, views and sounds begin, and end, behind the logics.
    const std::size_t end = 8 + logics.size();
    const auto low = static_cast<std::uint8_t>(end % 256);
    const auto high = static_cast<std::uint8_t>(end / 256);
    ByteArray bytes{8, 0, low, high, low, high, low, high};
    bytes.insert(bytes.end(), logics.begin(), logics.end());
    WriteBytes(directory / (std::string(gameID) + "DIR"), bytes);
    WriteBytes(directory / (std::string(gameID) + "VOL.0"),
               ByteArray{0x12, 0x34, 0, 6, 0, 6, 0, 1, 0, 0, 0, 2, 0});
}

void SingleLogic::CopyIncludes(const SingleLogicSettings& settings, const std::string& source) const {
    std::istringstream lines(ReplaceAll(source, "\r", "\n"));
    for (std::string line; std::getline(lines, line);) {
        const std::string name = ConvertToCodePage(IncludedName(line));
        const fs::path file = fs::path(settings.File).parent_path() / name;
        if (name.empty() || !fs::is_regular_file(file)) continue;
        fs::copy_file(file, scratch_.Path() / sourceDirectory / name, fs::copy_options::overwrite_existing);
    }
}

}  // namespace zorvex::tool
