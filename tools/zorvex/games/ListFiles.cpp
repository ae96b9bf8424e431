#include "tools/zorvex/games/ListFiles.h"

#include <algorithm>
#include <optional>

#include "tools/zorvex/console/Command.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/console/GameText.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace {

constexpr std::string_view wordsExtension = ".agw";
constexpr std::string_view itemsExtension = ".ago";

bool HasExtension(const std::string& path, std::string_view extension) {
    return LowerCase(path).ends_with(extension);
}

std::string Place(const std::string& path, std::size_t line) {
    return line == 0 ? path : path + ":" + std::to_string(line);
}

void Load(GameList& list, const std::string& path) {
    try {
        list.Load(path);
    } catch (const Error& error) {
        if (error.Is(524)) throw;  // names the file by itself
        const auto line = static_cast<std::size_t>(list.LoadErrorLine());
        throw Error(error.Number(), error.Source(), Place(path, line) + ": " + error.Description());
    }
}

/// The number of the first line of a text form's list that has something but no tab. `heading` lines come
/// before the list.
std::optional<std::size_t> LineWithoutTab(const std::string& path, std::size_t heading) {
    const ByteArray bytes = ReadBytes(path);
    std::string text = ReplaceAll(std::string(bytes.begin(), bytes.end()), "\r\n", "\n");
    std::replace(text.begin(), text.end(), '\r', '\n');
    const std::vector<std::string> lines = Split(text, "\n");
    for (std::size_t i = heading; i < lines.size() && lines[i] != "\xFF\xFF"; ++i) {
        if (!lines[i].empty() && lines[i].find('\t') == std::string::npos) return i + 1;
    }
    return std::nullopt;
}

}  // namespace

void LoadListFile(AGIWordList& words, const std::string& path) {
    if (HasExtension(path, itemsExtension)) throw UsageError(path + " holds items, not words");
    Load(words, path);
    if (!HasExtension(path, wordsExtension)) return;
    if (const auto line = LineWithoutTab(path, 1)) {
        throw Error(ObjectErrorBase + 529, "zorvex",
                    Place(path, *line) + ": there is no tab between the group's number and its words");
    }
}

void LoadListFile(AGIInventoryObjects& items, const std::string& path) {
    if (HasExtension(path, wordsExtension)) throw UsageError(path + " holds words, not items");
    Load(items, path);
    if (!HasExtension(path, itemsExtension)) return;
    if (const auto line = LineWithoutTab(path, 2)) {
        SayWarning(Place(path, *line) + ": there is no tab, so all of the line is the item's name");
    }
}

Error WithUnwritableWord(const Error& error, const AGIWordList& words) {
    for (const AGIWord& word : words) {
        if (word.WordText.empty()) {
            return {error.Number(), error.Source(),
                    error.Description() + ": group " + std::to_string(word.Group) + " has an empty word"};
        }
        const auto fits = [](char character) { return static_cast<unsigned char>(character) < 0x80; };
        if (std::all_of(word.WordText.begin(), word.WordText.end(), fits)) continue;
        return {error.Number(), error.Source(),
                error.Description() + ": \"" + PrintableGameText(word.WordText) +
                    "\" has a character that WORDS.TOK cannot hold"};
    }
    return error;
}

}  // namespace zorvex::tool
