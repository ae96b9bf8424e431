// Cases of the decompiler: the bytes of a logic in, its exact text out.
//
// The logic is the section "code", framed by a header and the messages of the section "messages" (number and
// source text a line). Or the section "each" holds whole logics, a line each with its title behind "#". The
// setting "runs" holds words such as "medium special names", and several such runs between semicolons. The
// sections "resources" ("view 3 = name"), "words" ("20 look") and "items" (one name a line) are what the
// decompiler can look up; without the section there is no vocabulary or inventory.
#include <map>

#include "tests/support/CaseFile.h"
#include "tests/support/LogicBytes.h"
#include "zorvex/language/AGICommandFunctions.h"

namespace zorvex::test {

namespace {

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines = Split(text, "\n");
    lines.pop_back();
    return lines;
}

/// "key rest" at the first of a separator.
std::pair<std::string, std::string> Pair(const std::string& line, std::string_view separator) {
    const std::size_t at = line.find(separator);
    return {line.substr(0, at), line.substr(at + separator.size())};
}

class CaseNames : public DecodeNames {
  public:
    explicit CaseNames(const CaseFile& file)
        : items_(LinesOf(file.Section("items"))), hasWords_(file.Has("words")), hasItems_(file.Has("items")) {
        for (const std::string& line : LinesOf(file.Section("resources")))
            resources_.insert(Pair(line, " = "));
        for (const std::string& line : LinesOf(file.Section("words")))
            words_.insert(Pair(line, " "));
    }

    std::optional<std::string> ResourceID(AGIResType type, std::uint8_t number) const override {
        const std::string word = type == rtLogic ? "logic" : type == rtView ? "view" : "sound";
        return Find(resources_, word + " " + std::to_string(number));
    }
    bool HasVocabulary() const override { return hasWords_; }
    std::optional<std::string> GroupName(std::int32_t group) const override {
        return Find(words_, std::to_string(group));
    }
    bool HasItems() const override { return hasItems_; }
    std::optional<ItemName> Item(std::uint8_t number) const override {
        if (number >= items_.size()) return std::nullopt;
        const std::string& name = items_[number];
        return ItemName{name, name == "?" || std::count(items_.begin(), items_.end(), name) == 1};
    }

  private:
    using Table = std::map<std::string, std::string>;

    static std::optional<std::string> Find(const Table& table, const std::string& key) {
        const auto found = table.find(key);
        return found == table.end() ? std::nullopt : std::optional(found->second);
    }

    Table resources_;
    Table words_;
    std::vector<std::string> items_;
    bool hasWords_;
    bool hasItems_;
};

ByteArray FramedLogic(const CaseFile& file) {
    std::map<std::size_t, std::string> messages;
    for (const std::string& line : LinesOf(file.Section("messages"))) {
        const auto [number, text] = Pair(line, " ");
        messages[std::stoul(number)] = text;
    }
    return LogicOf(BytesOfText(file.Section("code")), messages);
}

DecodeSettings SettingsOfRun(const std::string& run, const std::string& version) {
    DecodeSettings settings;
    settings.InterpreterVersion = version;
    const auto has = [&](std::string_view word) { return run.find(word) != std::string::npos; };
    settings.ErrorLevel = has("medium") ? leMedium : has("low") ? leLow : leHigh;
    settings.SpecialSyntax = has("special");
    settings.ElseAsGoto = has("else-as-goto");
    settings.ShowAllMessages = has("all-messages");
    settings.NamesAsText = has("names");
    return settings;
}

/// The end of a text without a message list, which the cases leave out.
constexpr std::string_view noMessages = "\n[ Messages\n";

std::string TextOrError(ByteView logic, const DecodeSettings& settings, const DecodeNames& names) {
    std::string text;
    const auto error =
        RaisedBy([&] { text = ConvertToCodePage(TextOfLines(DecodeLogic(logic, settings, names))); });
    if (error) return "error " + std::to_string(error->Id()) + ": " + error->Description() + "\n";
    return text.ends_with(noMessages) ? text.substr(0, text.size() - noMessages.size()) : text;
}

std::string RunCase(const CaseFile& file) {
    const std::string version = file.Setting("version", "2.917");
    InitCommandTables();
    SetCommandsForVersion(version);
    const std::vector<std::string> runs = Split(file.Setting("runs", "high"), ";");
    std::string output;
    for (const std::string& run : runs) {
        const DecodeSettings settings = SettingsOfRun(run, version);
        if (!file.Has("each")) {
            if (runs.size() > 1) output += "--- " + std::string(Trim(run)) + "\n";
            output += TextOrError(FramedLogic(file), settings, CaseNames(file));
        }
        for (const std::string& line : LinesOf(file.Section("each"))) {
            const std::string text = TextOrError(BytesOfText(line), settings, CaseNames(file));
            const bool isShort = text.find('\n') == text.size() - 1;
            output += line.substr(line.find('#') + 2) + (isShort ? ": " : ":\n") + text;
        }
    }
    return output;
}

}  // namespace

TEST(Decompiler, Cases) {
    RunCases("decompile", RunCase);
    InitCommandTables();
}

}  // namespace zorvex::test
