#include "zorvex/vocab/VocabularyData.h"

#include <algorithm>
#include <utility>

namespace zorvex {

VocabularyData DefaultVocabulary() {
    return {.Words = {{"a", 0}, {"anyword", 1}, {"rol", 9999}}, .Groups = {0, 1, 9999}, .Description = {}};
}

void ArrangeVocabulary(VocabularyData& data) {
    if (data.Words.empty()) data.Words = DefaultVocabulary().Words;
    for (const AGIWord& word : data.Words)
        data.Groups.push_back(word.Group);
    std::stable_sort(data.Words.begin(), data.Words.end(),
                     [](const AGIWord& a, const AGIWord& b) { return a.WordText < b.WordText; });
    std::size_t kept = 0;
    for (std::size_t i = 0; i < data.Words.size(); ++i) {
        if (kept > 0 && data.Words[kept - 1].WordText == data.Words[i].WordText) --kept;
        if (kept != i) data.Words[kept] = std::move(data.Words[i]);
        ++kept;
    }
    data.Words.resize(kept);
    std::sort(data.Groups.begin(), data.Groups.end());
    data.Groups.erase(std::unique(data.Groups.begin(), data.Groups.end()), data.Groups.end());
}

}  // namespace zorvex
