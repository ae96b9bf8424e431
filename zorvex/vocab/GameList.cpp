#include "zorvex/vocab/GameList.h"

#include <optional>
#include <utility>

#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/GameSession.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/vocab/TextForm.h"

namespace zorvex {

namespace {

constexpr std::string_view descriptionKey = "Description";
constexpr std::int32_t interpretersForm = 0;
constexpr std::int32_t textForm = 1;

/// What cannot be read holds nothing, which is no form at all.
ByteArray BytesOrNone(std::string_view path) {
    ByteArray bytes;
    Attempt([&] { bytes = Files().Read(path); });
    return bytes;
}

}  // namespace

void GameList::RequireLoaded() const {
    if (!loaded_) RaiseCatalogue(563, family_.ErrorSource);
}

std::string GameList::GameFile(std::string_view name) {
    return Library().GameDir + std::string(name);
}

bool GameList::Attached() const noexcept {
    return session_ && session_->IsOpen();
}

void GameList::RequirePresent() const {
    if (Attached()) session_->RequirePresent(family_.ErrorSource);
}

void GameList::JoinGame(const Internal& /*key*/, bool loaded) {
    session_ = Library().Session;
    loaded_ = loaded;
    resFile_ = GameFile(family_.FileName);
}

void GameList::LeaveGame(const Internal& /*key*/) noexcept {
    session_.reset();
}

// --- State ---
void GameList::BeginNew() {
    if (loaded_) RaiseCatalogue(642, family_.ErrorSource);
    if (Attached() && !unreadable_) RaiseCatalogue(510, family_.ErrorSource);
    if (!Attached()) resFile_.clear();
    if (!unreadable_) BecomeLoaded({});
    Clear();
}

void GameList::BecomeLoaded(std::string_view description) {
    description_ = description;
    loaded_ = true;
    unreadable_ = false;
}

void GameList::TakeStateOf(const GameList& other) {
    isDirty_ = other.isDirty_ || Attached();
    if (Attached()) {
        WriteGameProperty(family_.FileName, descriptionKey, description_);
    } else {
        resFile_ = other.resFile_;
    }
}

void GameList::Clear() {
    const bool wasUnreadable = unreadable_;
    if (wasUnreadable) BecomeLoaded({});  // what nobody can read is nothing to keep
    RequireLoaded();
    Reset();
    if (wasUnreadable && Attached()) ReadDescription();
    isDirty_ = true;
}

void GameList::Unload() {
    RequireLoaded();
    Reset();
    loaded_ = false;
    isDirty_ = false;
}

void GameList::ResFile(std::string_view value) {
    if (Attached()) RaiseCatalogue(680, family_.ErrorSource);
    resFile_ = InnerPath(value);
}

std::string GameList::Description() const {
    RequireLoaded();
    return description_;
}

void GameList::Description(std::string_view value) {
    RequireLoaded();
    std::string cut = CutCharacters(value, MaxDescription);
    if (cut == description_) return;
    RequirePresent();
    description_ = std::move(cut);
    if (Attached()) WriteGameProperty(family_.FileName, descriptionKey, description_);
}

// --- Reading ---
void GameList::Load(std::string_view loadFile) {
    std::string file(loadFile);
    Load(file);
}

void GameList::Load(std::string& loadFile) {
    if (loaded_) RaiseCatalogue(511, family_.ErrorSource);
    RequirePresent();
    loadErrorLine_ = 0;
    unreadable_ = false;
    if (Attached()) {
        loadFile = GameFile(family_.FileName);
        LoadFromGame();
    } else {
        LoadFromFile(loadFile);
    }
    isDirty_ = false;
}

bool GameList::TryTake(ByteView bytes, bool asText) {
    bool taken = false;
    const std::optional<Error> error =
        Attempt([&] { taken = asText ? TakeText(bytes, loadErrorLine_) : TakeFile(bytes); });
    if (error && family_.ToldError != 0 && error->Is(family_.ToldError)) throw Error(*error);
    return taken;
}

void GameList::LoadFromGame() {
    if (!TryTake(BytesOrNone(GameFile(family_.FileName)), false)) {
        Reset();
        unreadable_ = true;
        RaiseCatalogue(family_.UnreadableError, family_.ErrorSource);
    }
    ReadDescription();
}

void GameList::ReadDescription() {
    description_ = CutCharacters(ReadGameString(family_.FileName, descriptionKey, ""), MaxDescription);
}

void GameList::LoadFromFile(std::string_view loadFile) {
    if (loadFile.empty()) RaiseCatalogue(599, family_.ErrorSource);
    std::string file = InnerPath(loadFile);
    if (!FileExists(file)) RaiseCatalogue(524, family_.ErrorSource, loadFile);
    const ByteArray bytes = BytesOrNone(file);
    const bool textFirst = LowerCase(file).ends_with(family_.TextExtension);
    if (!TryTake(bytes, textFirst) && !TryTake(bytes, !textFirst)) {
        unreadable_ = true;
        RaiseCatalogue(family_.UnreadableError, family_.ErrorSource);
    }
    loadErrorLine_ = 0;  // the second form may have been the right one
    resFile_ = std::move(file);
}

// --- Writing ---
void GameList::Write(const std::string& file, std::int32_t fileType) const {
    if (fileType == textForm) {
        if (file.empty()) RaiseCatalogue(615, family_.ErrorSource);
        Sourced(family_.ErrorSource, [&] { ReplaceWholeFile(file, TextBytes()); });
    }
    if (fileType == interpretersForm) {
        if (file.empty()) RaiseCatalogue(616, family_.ErrorSource);
        if (!isDirty_ && EqualNoCase(file, resFile_)) return;
        const std::int32_t id = family_.WriteError;
        Wrapped(id, [&] { Sourced(family_.ErrorSource, [&] { ReplaceWholeFile(file, FileBytes()); }); },
                {id});
    }
}

void GameList::Save(std::string_view saveFile, std::int32_t fileType) {
    RequireLoaded();
    RequirePresent();
    if (Attached()) {
        Write(resFile_, interpretersForm);
    } else {
        std::string file = saveFile.empty() ? resFile_ : InnerPath(saveFile);
        Write(file, fileType);
        resFile_ = std::move(file);
    }
    isDirty_ = false;
}

void GameList::Export(std::string_view exportFile, std::int32_t fileType, bool resetDirty) {
    RequireLoaded();
    std::string file = InnerPath(exportFile);
    Write(file, fileType);
    if (Attached()) return;
    resFile_ = std::move(file);
    if (resetDirty) isDirty_ = false;
}

}  // namespace zorvex
