#include "zorvex/vocab/AGIWordList.h"

#include <optional>
#include <utility>

#include "zorvex/game/Checked.h"
#include "zorvex/game/Faults.h"
#include "zorvex/game/GameProperties.h"
#include "zorvex/game/Helpers.h"
#include "zorvex/game/LibraryState.h"
#include "zorvex/game/Text.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"
#include "zorvex/vocab/TextForm.h"
#include "zorvex/vocab/WordsFile.h"
#include "zorvex/vocab/WordsText.h"

namespace zorvex {

namespace {

constexpr std::string_view gameFileName = "WORDS.TOK";
constexpr std::string_view propertySection = "WORDS.TOK";
constexpr std::string_view textExtension = ".agw";

std::optional<VocabularyData> TryFile(ByteView bytes) {
    std::optional<VocabularyData> data;
    Attempt([&] { data = DecodeWordsFile(bytes); });
    return data;
}

/// As TryFile, but a word that comes twice ends the load.
std::optional<VocabularyData> TryText(ByteView bytes) {
    std::optional<VocabularyData> data;
    const std::optional<Error> error = Attempt([&] { data = DecodeWordsText(bytes); });
    if (error && error->Is(579)) throw Error(*error);
    return data;
}

}  // namespace

void AGIWordList::RequireLoaded() const {
    if (!loaded_) RaiseCatalogue(563, ErrorSource);
}

void AGIWordList::CheckGroupNumber(std::int32_t groupNumber) {
    if (groupNumber < 0 || groupNumber > MaxGroupNumber) RaiseCatalogue(575, ErrorSource);
}

void AGIWordList::JoinGame(bool loaded) {
    inGame_ = true;
    loaded_ = loaded;
    resFile_ = Library().GameDir + std::string(gameFileName);
}

// --- Contents ---
void AGIWordList::Take(const VocabularyData& data) {
    table_ = WordTable(data);
    description_ = data.Description;
    loaded_ = true;
}

VocabularyData AGIWordList::Contents() const {
    VocabularyData data = table_.Contents();
    data.Description = description_;
    return data;
}

void AGIWordList::NewWords() {
    if (loaded_) RaiseCatalogue(642, ErrorSource);
    if (inGame_) RaiseCatalogue(510, ErrorSource);
    Take(DefaultVocabulary());
    resFile_.clear();
    isDirty_ = true;
}

void AGIWordList::SetWords(const AGIWordList& newWords) {
    newWords.RequireLoaded();
    Take(newWords.Contents());
    isDirty_ = newWords.isDirty_;
    // The list of a game stays with the game's own file, which a copy must not exchange for another.
    if (!inGame_) resFile_ = newWords.resFile_;
}

void AGIWordList::Clear() {
    RequireLoaded();
    table_ = WordTable();
    isDirty_ = true;
}

void AGIWordList::Unload() {
    Clear();
    loaded_ = false;
    isDirty_ = false;
}

void AGIWordList::ResFile(std::string_view value) {
    if (inGame_) RaiseCatalogue(680, ErrorSource);
    resFile_ = InnerPath(value);
}

std::string AGIWordList::Description() const {
    RequireLoaded();
    return description_;
}

void AGIWordList::Description(std::string_view value) {
    RequireLoaded();
    std::string cut = CutCharacters(value, MaxDescription);
    if (cut == description_) return;
    description_ = std::move(cut);
    if (inGame_) WriteGameProperty(propertySection, "Description", description_);
}

// --- Words ---
std::int32_t AGIWordList::WordCount() const {
    RequireLoaded();
    return Narrow<std::int32_t>(table_.Words().size());
}

const AGIWord& AGIWordList::Item(std::int32_t index) const {
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

void AGIWordList::AddWord(std::string_view wordText, std::int32_t group) {
    RequireLoaded();
    const std::string text = LowerCase(wordText);
    if (table_.FindWord(text) != nullptr) RaiseCatalogue(579, ErrorSource);
    if (group < 0 || group > MaxGroupNumber) RaiseCatalogue(581, ErrorSource);
    Wrapped(673, [&] {
        if (!GroupExists(group)) AddGroup(group);
        table_.AddWord(text, group);
        isDirty_ = true;
    });
}

void AGIWordList::RemoveWord(std::string_view text) {
    RequireLoaded();
    const std::string lowered = LowerCase(text);
    if (table_.FindWord(lowered) == nullptr) RaiseCatalogue(584, ErrorSource);
    table_.RemoveWord(lowered);
    isDirty_ = true;
}

// --- Groups ---
std::int32_t AGIWordList::GroupCount() const {
    RequireLoaded();
    return Narrow<std::int32_t>(table_.Groups().size());
}

std::shared_ptr<AGIWordGroup> AGIWordList::Group(std::int32_t index) const {
    RequireLoaded();
    if (index < 0 || index >= GroupCount()) RaiseCatalogue(588, ErrorSource);
    return table_.Groups()[static_cast<std::size_t>(index)];
}

std::shared_ptr<AGIWordGroup> AGIWordList::GroupN(std::int32_t groupNumber) const {
    RequireLoaded();
    std::shared_ptr<AGIWordGroup> group = table_.FindGroup(groupNumber);
    if (!group) RaiseCatalogue(575, ErrorSource);
    return group;
}

bool AGIWordList::GroupExists(std::int32_t groupNumber) const {
    return table_.FindGroup(groupNumber) != nullptr;
}

void AGIWordList::AddGroup(std::int32_t groupNumber) {
    RequireLoaded();
    CheckGroupNumber(groupNumber);
    if (GroupExists(groupNumber)) RaiseCatalogue(576, ErrorSource);
    Wrapped(578, [&] {
        table_.AddGroup(groupNumber);
        isDirty_ = true;
    });
}

void AGIWordList::RemoveGroup(std::int32_t groupNumber) {
    RequireLoaded();
    CheckGroupNumber(groupNumber);
    if (!GroupExists(groupNumber)) RaiseCatalogue(583, ErrorSource);
    const std::optional<Error> error = Attempt([&] { table_.RemoveGroup(groupNumber); });
    if (error) RaiseCatalogue(695, error->Source(), std::to_string(error->Number()));
    isDirty_ = true;
}

void AGIWordList::RenumberGroup(std::int32_t oldGroupNumber, std::int32_t newGroupNumber) {
    RequireLoaded();
    CheckGroupNumber(oldGroupNumber);
    CheckGroupNumber(newGroupNumber);
    if (!GroupExists(oldGroupNumber)) RaiseCatalogue(696, ErrorSource);
    if (GroupExists(newGroupNumber)) RaiseCatalogue(697, ErrorSource);
    Wrapped(577, [&] {
        table_.RenumberGroup(oldGroupNumber, newGroupNumber);
        isDirty_ = true;
    });
}

// --- Files ---
void AGIWordList::Load(std::string_view loadFile) {
    std::string file(loadFile);
    Load(file);
}

void AGIWordList::Load(std::string& loadFile) {
    if (loaded_) RaiseCatalogue(511, ErrorSource);
    if (inGame_) {
        loadFile = Library().GameDir + std::string(gameFileName);
        LoadFromGame();
    } else {
        LoadFromFile(loadFile);
    }
    isDirty_ = false;
}

void AGIWordList::LoadFromGame() {
    ByteArray bytes;
    Attempt([&] { bytes = Files().Read(Library().GameDir + std::string(gameFileName)); });
    std::optional<VocabularyData> data = TryFile(bytes);
    if (!data) RaiseCatalogue(529, ErrorSource);
    data->Description = CutCharacters(ReadGameString(propertySection, "Description", ""), MaxDescription);
    Take(*data);
}

void AGIWordList::LoadFromFile(std::string_view loadFile) {
    if (loadFile.empty()) RaiseCatalogue(599, ErrorSource);
    std::string file = InnerPath(loadFile);
    if (!FileExists(file)) RaiseCatalogue(524, ErrorSource, loadFile);
    ByteArray bytes;
    Attempt(
        [&] { bytes = Files().Read(file); });  // what cannot be read holds nothing, which is no form at all
    const bool textFirst = LowerCase(file).ends_with(textExtension);
    std::optional<VocabularyData> data = textFirst ? TryText(bytes) : TryFile(bytes);
    if (!data) data = textFirst ? TryFile(bytes) : TryText(bytes);
    if (!data) RaiseCatalogue(529, ErrorSource);
    Take(*data);
    resFile_ = std::move(file);
}

void AGIWordList::Save(std::string_view saveFile, std::int32_t fileType) {
    RequireLoaded();
    if (inGame_) {
        WriteTokFile(resFile_);
        Library().LastEdit = Now();
    } else {
        std::string file = saveFile.empty() ? resFile_ : InnerPath(saveFile);
        if (fileType == 0) WriteTokFile(file);
        if (fileType == 1) WriteTextFile(file);
        resFile_ = std::move(file);
    }
    isDirty_ = false;
}

void AGIWordList::Export(std::string_view exportFile, std::int32_t fileType, bool resetDirty) {
    RequireLoaded();
    std::string file = InnerPath(exportFile);
    Wrapped(671, [&] {
        if (fileType == 0) WriteTokFile(file);
        if (fileType == 1) WriteTextFile(file);
    });
    if (inGame_) return;
    resFile_ = std::move(file);
    if (resetDirty) isDirty_ = false;
}

void AGIWordList::WriteTokFile(const std::string& file) const {
    if (file.empty()) RaiseCatalogue(616, ErrorSource);
    if (!isDirty_ && EqualNoCase(file, resFile_)) return;
    if (table_.Groups().empty()) RaiseCatalogue(672, ErrorSource, "no word groups to add");
    if (table_.Words().empty()) RaiseCatalogue(672, ErrorSource, "no words to add");
    Wrapped(672, [&] { ReplaceWholeFile(file, EncodeWordsFile(table_.Contents())); });
}

void AGIWordList::WriteTextFile(const std::string& file) const {
    if (file.empty()) RaiseCatalogue(615, ErrorSource);
    ReplaceWholeFile(file, EncodeWordsText(Contents()));
}

}  // namespace zorvex
