#include "zorvex/vocab/WordTable.h"

#include <algorithm>
#include <string>
#include <utility>

#include "zorvex/base/Faults.h"

namespace zorvex {

namespace {

bool TextBelow(const AGIWord* word, std::string_view text) {
    return word->WordText < text;
}

/// Room for one more element, so that the insertion that follows cannot fail.
template <class Element>
void MakeRoom(std::vector<Element>& list) {
    if (list.size() == list.capacity()) list.reserve(2 * list.size() + 16);
}

}  // namespace

WordTable::WordTable(const VocabularyData& data) {
    byText_.reserve(data.Words.size());
    words_.reserve(data.Words.size());
    groups_.reserve(data.Groups.size());
    for (const std::int32_t number : data.Groups)
        groups_.push_back(std::make_shared<AGIWordGroup>(number));
    for (const AGIWord& word : data.Words) {
        words_.push_back(&Store(word.WordText, word.Group));
        (*PlaceOfGroup(word.Group))->AddWord(word.WordText);
    }
}

AGIWord& WordTable::Store(std::string_view text, std::int32_t group) {
    auto word = std::make_unique<AGIWord>(AGIWord{std::string(text), group});
    const std::string_view key = word->WordText;
    return *byText_.emplace(key, std::move(word)).first->second;
}

const AGIWord* WordTable::FindWord(std::string_view text) const {
    const auto found = byText_.find(text);
    return found == byText_.end() ? nullptr : found->second.get();
}

WordTable::GroupPlace WordTable::PlaceOfGroup(AnyInteger number) const {
    return std::lower_bound(groups_.begin(), groups_.end(), number,
                            [](const auto& group, AnyInteger wanted) { return group->GroupNum() < wanted; });
}

std::shared_ptr<AGIWordGroup> WordTable::FindGroup(AnyInteger number) const {
    const GroupPlace place = PlaceOfGroup(number);
    return place != groups_.end() && (*place)->GroupNum() == number ? *place : nullptr;
}

VocabularyData WordTable::Contents() const {
    VocabularyData data;
    data.Words.reserve(words_.size());
    data.Groups.reserve(groups_.size());
    for (const AGIWord* word : words_)
        data.Words.push_back(*word);
    for (const auto& group : groups_)
        data.Groups.push_back(group->GroupNum());
    return data;
}

void WordTable::AddGroup(std::int32_t number) {
    groups_.insert(PlaceOfGroup(number), std::make_shared<AGIWordGroup>(number));
}

void WordTable::AddWord(std::string_view text, std::int32_t group) {
    MakeRoom(words_);
    const std::string kept(text);  // the text may be part of what moves
    const auto place = std::lower_bound(words_.begin(), words_.end(), std::string_view(kept), TextBelow);
    const AGIWord& word = Store(kept, group);
    Guarded([&] { (*PlaceOfGroup(group))->AddWord(kept); }, [&] { byText_.erase(std::string_view(kept)); });
    words_.insert(place, &word);
}

void WordTable::RemoveWord(std::string_view text) {
    const std::string kept(text);
    const auto place = std::lower_bound(words_.begin(), words_.end(), std::string_view(kept), TextBelow);
    (*PlaceOfGroup((*place)->Group))->DeleteWord(kept);
    words_.erase(place);
    byText_.erase(std::string_view(kept));
}

void WordTable::RemoveGroup(std::int32_t number) {
    const GroupPlace place = PlaceOfGroup(number);
    const std::shared_ptr<AGIWordGroup> group = *place;
    std::erase_if(words_, [number](const AGIWord* word) { return word->Group == number; });
    for (const std::string& text : group->Words())
        byText_.erase(text);
    groups_.erase(place);
}

void WordTable::RenumberGroup(std::int32_t oldNumber, std::int32_t newNumber) {
    const GroupPlace oldPlace = PlaceOfGroup(oldNumber);
    std::shared_ptr<AGIWordGroup> group = *oldPlace;
    for (const std::string& text : group->Words())
        byText_.find(text)->second->Group = newNumber;
    groups_.erase(oldPlace);
    group->GroupNum(newNumber);
    groups_.insert(PlaceOfGroup(newNumber), std::move(group));  // one was just taken out, so there is room
}

}  // namespace zorvex
