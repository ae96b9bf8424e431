#include "zorvex/vocab/AGIWordList.h"

#include <optional>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/Text.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/vocab/WordsFile.h"
#include "zorvex/vocab/WordsText.h"

namespace zorvex {

namespace {

constexpr std::int32_t wordTwice = 579;
constexpr std::int32_t compileError = 672;

constexpr GameListFamily family{.ErrorSource = AGIWordList::ErrorSource,
                                .FileName = "WORDS.TOK",
                                .TextExtension = ".agw",
                                .UnreadableError = 529,
                                .ToldError = wordTwice,
                                .WriteError = compileError};

}  // namespace

AGIWordList::AGIWordList() : GameList(family) {}

std::int32_t AGIWordList::GroupNumber(AnyInteger number, std::int32_t id) {
    if (number < 0 || number > MaxGroupNumber) RaiseCatalogue(id, ErrorSource);
    return static_cast<std::int32_t>(number);
}

// --- Contents ---
void AGIWordList::Take(const VocabularyData& data) {
    table_ = WordTable(data);
    BecomeLoaded(data.Description);
}

void AGIWordList::Reset() {
    table_ = WordTable();
}

void AGIWordList::NewWords() {
    BeginNew();
    table_ = WordTable(DefaultVocabulary());
}

void AGIWordList::SetWords(const AGIWordList& newWords) {
    newWords.RequireLoaded();
    RequirePresent();
    VocabularyData data = newWords.table_.Contents();
    data.Description = newWords.description_;
    Take(data);
    TakeStateOf(newWords);
}

// --- Words ---
std::int32_t AGIWordList::WordCount() const {
    RequireLoaded();
    return Narrow<std::int32_t>(table_.Words().size());
}

const AGIWord& AGIWordList::Item(AnyInteger index) const {
    RequireLoaded();
    return *At(table_.Words(), index, ErrorSource);
}

const AGIWord& AGIWordList::Item(std::string_view text) const {
    RequireLoaded();
    const AGIWord* word = table_.FindWord(LowerCase(text));
    if (word == nullptr) RaiseCatalogue(586, ErrorSource);
    return *word;
}

bool AGIWordList::WordExists(std::string_view text) const {
    return table_.FindWord(LowerCase(text)) != nullptr;
}

AGIWordList::Iterator AGIWordList::begin() const {
    RequireLoaded();
    return Iterator(table_.Words().begin());
}

AGIWordList::Iterator AGIWordList::end() const {
    RequireLoaded();
    return Iterator(table_.Words().end());
}

void AGIWordList::AddWord(std::string_view wordText, AnyInteger group) {
    RequireLoaded();
    const std::string text = LowerCase(wordText);
    if (table_.FindWord(text) != nullptr) RaiseCatalogue(wordTwice, ErrorSource);
    const std::int32_t number = GroupNumber(group, 581);
    Wrapped(673, [&] {
        if (!GroupExists(number)) AddGroup(number);
        table_.AddWord(text, number);
        IsDirty(true);
    });
}

void AGIWordList::RemoveWord(std::string_view text) {
    RequireLoaded();
    const std::string lowered = LowerCase(text);
    if (table_.FindWord(lowered) == nullptr) RaiseCatalogue(584, ErrorSource);
    table_.RemoveWord(lowered);
    IsDirty(true);
}

// --- Groups ---
const std::vector<std::shared_ptr<AGIWordGroup>>& AGIWordList::Groups() const {
    RequireLoaded();
    return table_.Groups();
}

std::int32_t AGIWordList::GroupCount() const {
    RequireLoaded();
    return Narrow<std::int32_t>(table_.Groups().size());
}

std::shared_ptr<AGIWordGroup> AGIWordList::Group(AnyInteger index) const {
    RequireLoaded();
    if (index < 0 || index >= GroupCount()) RaiseCatalogue(588, ErrorSource);
    return table_.Groups()[static_cast<std::size_t>(index)];
}

std::shared_ptr<AGIWordGroup> AGIWordList::GroupN(AnyInteger groupNumber) const {
    RequireLoaded();
    std::shared_ptr<AGIWordGroup> group = table_.FindGroup(groupNumber);
    if (!group) RaiseCatalogue(575, ErrorSource);
    return group;
}

bool AGIWordList::GroupExists(AnyInteger groupNumber) const {
    return table_.FindGroup(groupNumber) != nullptr;
}

void AGIWordList::AddGroup(AnyInteger groupNumber) {
    RequireLoaded();
    const std::int32_t number = GroupNumber(groupNumber);
    if (GroupExists(number)) RaiseCatalogue(576, ErrorSource);
    Wrapped(578, [&] {
        table_.AddGroup(number);
        IsDirty(true);
    });
}

void AGIWordList::RemoveGroup(AnyInteger groupNumber) {
    RequireLoaded();
    const std::int32_t number = GroupNumber(groupNumber);
    if (!GroupExists(number)) RaiseCatalogue(583, ErrorSource);
    const std::optional<Error> error = Attempt([&] { table_.RemoveGroup(number); });
    if (error) RaiseCatalogue(695, error->Source(), std::to_string(error->Number()));
    IsDirty(true);
}

void AGIWordList::RenumberGroup(AnyInteger oldGroupNumber, AnyInteger newGroupNumber) {
    RequireLoaded();
    const std::int32_t oldNumber = GroupNumber(oldGroupNumber);
    const std::int32_t newNumber = GroupNumber(newGroupNumber);
    if (!GroupExists(oldNumber)) RaiseCatalogue(696, ErrorSource);
    if (GroupExists(newNumber)) RaiseCatalogue(697, ErrorSource);
    Wrapped(577, [&] {
        table_.RenumberGroup(oldNumber, newNumber);
        IsDirty(true);
    });
}

// --- Files ---
bool AGIWordList::TakeDecoded(const std::optional<VocabularyData>& data) {
    if (data) Take(*data);
    return data.has_value();
}

bool AGIWordList::TakeFile(ByteView bytes) {
    return TakeDecoded(DecodeWordsFile(bytes));
}

bool AGIWordList::TakeText(ByteView bytes, std::int32_t& badLine) {
    return TakeDecoded(DecodeWordsText(bytes, &badLine));
}

ByteArray AGIWordList::FileBytes() const {
    if (table_.Groups().empty()) RaiseCatalogue(compileError, ErrorSource, "no word groups to add");
    if (table_.Words().empty()) RaiseCatalogue(compileError, ErrorSource, "no words to add");
    return EncodeWordsFile(table_.Contents());
}

ByteArray AGIWordList::TextBytes() const {
    VocabularyData data = table_.Contents();
    data.Description = description_;
    return EncodeWordsText(data);
}

void AGIWordList::Save(std::string_view saveFile, std::int32_t fileType) {
    GameList::Save(saveFile, fileType);
    if (InGame()) Library().LastEdit = Now();
}

void AGIWordList::Export(std::string_view exportFile, std::int32_t fileType, bool resetDirty) {
    RequireLoaded();
    Wrapped(671, [&] { GameList::Export(exportFile, fileType, resetDirty); });
}

}  // namespace zorvex
