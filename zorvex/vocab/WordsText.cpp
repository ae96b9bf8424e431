#include "zorvex/vocab/WordsText.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>

#include "zorvex/base/Error.h"
#include "zorvex/base/Text.h"
#include "zorvex/vocab/TextForm.h"

namespace zorvex {

namespace {

/// Takes the text up to the next tab off the front of a line.
std::string_view TakeField(std::string_view& line) {
    const std::size_t tab = line.find('\t');
    const std::string_view field = line.substr(0, tab);
    line.remove_prefix(tab == std::string_view::npos ? line.size() : tab + 1);
    return field;
}

std::optional<std::int32_t> GroupNumber(std::string_view field) {
    const std::optional<double> number = ParseNumber(field);
    if (!number) return std::nullopt;
    const double rounded = RoundHalfEven(*number);
    if (!(rounded >= 0 && rounded <= MaxGroupNumber)) return std::nullopt;
    return static_cast<std::int32_t>(rounded);
}

}  // namespace

std::optional<VocabularyData> DecodeWordsText(ByteView bytes, std::int32_t* badLine) {
    TextFormReader reader(bytes);
    if (reader.AtEnd() || !reader.TakeVersion()) return std::nullopt;
    VocabularyData data;
    std::unordered_set<std::string> words;
    std::unordered_set<std::int32_t> groups;
    for (std::string_view line; reader.NextEntry(line);) {
        if (badLine != nullptr) *badLine = reader.LineNumber();
        const std::size_t tabs = static_cast<std::size_t>(std::count(line.begin(), line.end(), '\t'));
        if (tabs == 0) continue;
        const std::optional<std::int32_t> group = GroupNumber(TakeField(line));
        if (!group || !groups.insert(*group).second) return std::nullopt;
        for (std::size_t i = 0; i < tabs; ++i) {
            std::string word = LowerCase(TakeField(line));
            if (!words.insert(word).second) RaiseCatalogue(579, VocabularyErrorSource);
            data.Words.push_back({std::move(word), *group});
        }
    }
    if (badLine != nullptr) *badLine = 0;
    data.Description = reader.Description();
    ArrangeVocabulary(data);
    return data;
}

ByteArray EncodeWordsText(const VocabularyData& data) {
    std::vector<const AGIWord*> words;
    words.reserve(data.Words.size());
    for (const AGIWord& word : data.Words)
        words.push_back(&word);
    std::stable_sort(words.begin(), words.end(),
                     [](const AGIWord* a, const AGIWord* b) { return a->Group < b->Group; });

    TextFormWriter writer;
    for (auto word = words.begin(); word != words.end();) {
        const std::int32_t group = (*word)->Group;
        std::string line = std::to_string(group);
        for (; word != words.end() && (*word)->Group == group; ++word)
            line.append("\t").append((*word)->WordText);
        writer.Line(line);
    }
    return writer.Finish(data.Description);
}

}  // namespace zorvex
