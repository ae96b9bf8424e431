#include "tools/zorvex/games/Resources.h"

#include <algorithm>

#include "tools/zorvex/console/Command.h"
#include "tools/zorvex/console/Console.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace fs = std::filesystem;

std::string TypeName(AGIResType type) {
    switch (type) {
        case rtLogic: return "logic";
        case rtPicture: return "picture";
        case rtSound: return "sound";
        case rtView: return "view";
        default: return "other";
    }
}

AGIResType ParseType(const std::string& text) {
    for (const AGIResType type : listedTypes) {
        if (EqualNoCase(text, TypeName(type))) return type;
    }
    throw UsageError("'" + text + "' is no resource type; the types are logic, picture, sound and view");
}

std::uint8_t ParseNumber255(const std::string& text) {
    const bool digits =
        !text.empty() && text.size() <= 3 && text.find_first_not_of("0123456789") == std::string::npos;
    const int number = digits ? std::stoi(text) : 256;
    if (number > 255) throw UsageError("'" + text + "' is no resource number; numbers are 0 to 255");
    return static_cast<std::uint8_t>(number);
}

Selection ParseSelection(const std::string& text) {
    const std::size_t colon = text.find(':');
    Selection selection{ParseType(text.substr(0, colon)), std::nullopt};
    if (colon != std::string::npos) selection.Number = ParseNumber255(text.substr(colon + 1));
    return selection;
}

std::string ResourceFileName(AGIResType type, std::uint8_t number, const std::string& extension) {
    std::string digits = std::to_string(number);
    digits.insert(0, 3 - digits.size(), '0');
    return TypeName(type) + "." + digits + extension;
}

std::vector<std::shared_ptr<GameResource>> ByNumber(AGIResType type) {
    std::vector<std::shared_ptr<GameResource>> members = CollectionOf(type)->Members();
    std::sort(members.begin(), members.end(),
              [](const auto& left, const auto& right) { return left->Number() < right->Number(); });
    return members;
}

ByteArray ReadBytes(const std::string& path) {
    try {
        return Files().Read(InnerPath(path));
    } catch (const Error& error) {
        throw Error(error.Number(), error.Source(), path + ": " + error.Description());
    }
}

void WriteBytes(const fs::path& path, ByteView bytes) {
    NoteWriting(path.string());
    try {
        Files().Write(InnerPath(path.string()), bytes);
    } catch (const Error& error) {
        throw Error(error.Number(), error.Source(), path.string() + ": " + error.Description());
    }
}

void MakeOutputDirectory(const fs::path& path) {
    std::error_code code;
    fs::create_directories(path, code);
    if (!fs::is_directory(path)) {
        throw Error(rePathFileAccess, "zorvex", "cannot make the directory " + path.string());
    }
}

void MakeDirectoryOfAll(const fs::path& path, std::string_view extension) {
    if (EqualNoCase(path.extension().string(), extension) && !fs::is_directory(path)) {
        throw UsageError("all of them go into a directory, and " + path.string() + " looks like a file");
    }
    MakeOutputDirectory(path);
}

}  // namespace zorvex::tool
