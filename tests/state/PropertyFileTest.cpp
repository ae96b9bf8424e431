#include "zorvex/state/PropertyFile.h"

#include "tests/support/CaseFile.h"
#include "zorvex/base/StringList.h"

namespace zorvex::test {

namespace {

std::string Unescaped(std::string text) {
    for (const auto& [escape, character] : {std::pair{"\\r", "\r"}, {"\\n", "\n"}, {"\\t", "\t"}}) {
        text = ReplaceAll(text, escape, character);
    }
    return text;
}

/// Runs one line of a case's script, such as "write|Logic1|ID|main|Logics", and returns what it prints.
std::string RunOperation(StringList& list, const std::string& line) {
    std::vector<std::string> words = Split(line, "|");
    words.resize(6);
    for (std::string& word : words)
        word = Unescaped(word);
    const auto& [operation, section, key, value, group] =
        std::tie(words[0], words[1], words[2], words[3], words[4]);
    const auto result = [&](const std::string& text) {
        return section + " " + key + " <" + ReplaceAll(ReplaceAll(text, "\r", "\\r"), "\n", "\\n") + ">\n";
    };
    if (operation == "string") return result(ReadPropertyString(&list, section, key, value));
    if (operation == "long")
        return result(std::to_string(ReadPropertyLong(&list, section, key, std::stoi(value))));
    if (operation == "byte") {
        const auto defaultValue = static_cast<std::uint8_t>(std::stoi(value));
        return result(std::to_string(ReadPropertyByte(&list, section, key, defaultValue)));
    }
    if (operation == "bool") {
        return result(std::string(BoolText(ReadPropertyBool(&list, section, key, value == "True"))));
    }
    if (operation == "write") {
        WritePropertyLine(list, section, key, value, group);
    } else if (operation == "delete-key") {
        DeletePropertyKey(list, section, key);
    } else if (operation == "delete-section") {
        DeletePropertySection(list, section);
    } else {
        ADD_FAILURE() << "unknown operation " << operation;
    }
    return {};
}

}  // namespace

// The script of a case runs line by line against its input; the lines of the list follow what was read, with
// the setting "show = added" those that are new.
TEST(Cases, PropertyFile) {
    RunCases("property-file", [](const CaseFile& file) {
        std::string input = file.Section("input");
        if (!input.empty()) input.pop_back();
        StringList list;
        if (!input.empty()) list.Assign(input);
        list.Add("\\game\\TEST.zvg", 0);
        std::string output;
        std::string script = file.Section("script");
        script.pop_back();
        for (const std::string& line : Split(script, "\n"))
            output += RunOperation(list, line);
        const bool showsAll = file.Setting("show") != "added";
        const std::vector<std::string> before = Split(input, "\n");
        for (std::int32_t i = 1; i < list.Count(); ++i) {
            const std::string& line = list.Lines()[static_cast<std::size_t>(i)];
            if (showsAll || std::find(before.begin(), before.end(), line) == before.end())
                output += line + "\n";
        }
        return output;
    });
}

}  // namespace zorvex::test
