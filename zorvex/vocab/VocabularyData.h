// What a word list holds, as a plain value: the form in which the two file formats are read and written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

/// Words ascending by text, each text once, and the numbers of all their groups, ascending; there may be more
/// groups than the words need.
struct VocabularyData {
    std::vector<AGIWord> Words;
    std::vector<std::int32_t> Groups;
    std::string Description;  // host text; only the text form holds it

    bool operator==(const VocabularyData&) const = default;
};

/// What a new list holds: "a" in group 0, "anyword" in group 1, "rol" in group 9999.
VocabularyData DefaultVocabulary();

/// Brings words that were gathered in any order into the order of the value and adds their groups. Of several
/// words with the same text the last one counts, but the groups of all of them stay. The default words take
/// the place of none at all.
void ArrangeVocabulary(VocabularyData& data);

/// The source that errors of word lists carry.
inline constexpr std::string_view VocabularyErrorSource = "ZORVEX.AGIWordList";

/// The highest group number.
inline constexpr std::int32_t MaxGroupNumber = 65535;

}  // namespace zorvex
