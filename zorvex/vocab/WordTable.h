// The words and groups of a word list in memory: two sorted lists and a hash of the texts.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/vocab/AGIWordGroup.h"
#include "zorvex/vocab/VocabularyData.h"

namespace zorvex {

/// Keeps each word in exactly the group that it names. The operations check nothing: what they are told to
/// add must not be there, what they are told to change must be. Finding costs a hash or a binary search;
/// adding and removing one word also move the pointers behind it.
class WordTable {
  public:
    WordTable() = default;
    explicit WordTable(const VocabularyData& data);

    /// The words, ascending by character code.
    const std::vector<const AGIWord*>& Words() const { return words_; }
    /// The groups, ascending by number.
    const std::vector<std::shared_ptr<AGIWordGroup>>& Groups() const { return groups_; }
    /// The word of a text, or null.
    const AGIWord* FindWord(std::string_view text) const;
    /// The group of a number, or null.
    std::shared_ptr<AGIWordGroup> FindGroup(AnyInteger number) const;
    /// A copy of the contents without a description.
    VocabularyData Contents() const;

    void AddGroup(std::int32_t number);
    void AddWord(std::string_view text, std::int32_t group);
    void RemoveWord(std::string_view text);
    /// Removes a group with all its words.
    void RemoveGroup(std::int32_t number);
    void RenumberGroup(std::int32_t oldNumber, std::int32_t newNumber);

  private:
    using GroupPlace = std::vector<std::shared_ptr<AGIWordGroup>>::const_iterator;

    GroupPlace PlaceOfGroup(AnyInteger number) const;
    AGIWord& Store(std::string_view text, std::int32_t group);

    std::unordered_map<std::string_view, std::unique_ptr<AGIWord>>
        byText_;  // the keys view the words' own texts
    std::vector<const AGIWord*> words_;
    std::vector<std::shared_ptr<AGIWordGroup>> groups_;
};

}  // namespace zorvex
