#include "zorvex/vocab/AGIInventoryObjects.h"

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
#include "zorvex/vocab/ObjectFile.h"
#include "zorvex/vocab/ObjectText.h"
#include "zorvex/vocab/TextForm.h"

namespace zorvex {

namespace {

constexpr std::string_view gameFileName = "OBJECT";
constexpr std::string_view amigaBackupName = "OBJECT.amg";
constexpr std::string_view propertySection = "OBJECT";
constexpr std::string_view textExtension = ".ago";

std::string InGameDir(std::string_view name) {
    return Library().GameDir + std::string(name);
}

/// Runs a reader; a fault counts as bytes that it does not understand.
template <class Reader>
std::optional<InventoryData> Try(Reader&& reader) {
    std::optional<InventoryData> data;
    Attempt([&] { data = reader(); });
    return data;
}

}  // namespace

AGIInventoryObjects::AGIInventoryObjects() {
    Reset();
}

AGIInventoryObjects::~AGIInventoryObjects() {
    for (const auto& item : items_)
        item->Detach();
}

void AGIInventoryObjects::RequireLoaded() const {
    if (!loaded_) RaiseCatalogue(563, ErrorSource);
}

void AGIInventoryObjects::JoinGame(bool loaded) {
    inGame_ = true;
    loaded_ = loaded;
    resFile_ = InGameDir(gameFileName);
}

// --- Contents ---
void AGIInventoryObjects::Reset() {
    std::vector<std::shared_ptr<AGIInventoryItem>> fresh{std::make_shared<AGIInventoryItem>(this)};
    for (const auto& item : items_)
        item->Detach();
    items_ = std::move(fresh);
    encrypted_ = false;
    amigaOBJ_ = false;
    maxScreenObjects_ = 16;
    description_.clear();
}

std::shared_ptr<AGIInventoryItem> AGIInventoryObjects::Append(std::string_view name, std::uint8_t room) {
    auto item = std::make_shared<AGIInventoryItem>(this);
    items_.push_back(item);
    item->ItemName(name);
    item->Room(room);
    return item;
}

void AGIInventoryObjects::Take(const InventoryData& data) {
    Reset();
    for (std::size_t i = 0; i < data.Items.size(); ++i) {
        const InventoryData::Item& item = data.Items[i];
        if (i > 0) {
            Append(item.Name, item.Room);
        } else if (item.Name != UnusedItemName) {
            items_.front()->ItemName(item.Name);
            items_.front()->Room(item.Room);
        }
    }
    maxScreenObjects_ = data.MaxScreenObjects;
    encrypted_ = data.Encrypted;
    amigaOBJ_ = data.AmigaOBJ;
    description_ = data.Description;
    loaded_ = true;
}

InventoryData AGIInventoryObjects::Contents() const {
    InventoryData data{.Items = {},
                       .MaxScreenObjects = maxScreenObjects_,
                       .Encrypted = encrypted_,
                       .AmigaOBJ = amigaOBJ_,
                       .Description = description_};
    data.Items.reserve(items_.size());
    for (const auto& item : items_)
        data.Items.push_back({item->ItemName(), item->Room()});
    return data;
}

void AGIInventoryObjects::NewObjects() {
    if (loaded_) RaiseCatalogue(642, ErrorSource);
    if (inGame_) RaiseCatalogue(510, ErrorSource);
    loaded_ = true;
    resFile_.clear();
    Clear();
}

void AGIInventoryObjects::SetObjects(const AGIInventoryObjects& newObjects) {
    newObjects.RequireLoaded();
    const std::uint8_t firstRoom = newObjects.items_.front()->Room();
    const bool dirty = newObjects.isDirty_;
    Take(newObjects.Contents());
    items_.front()->Room(
        firstRoom);  // unlike a file, another list also gives the room of an item 0 not in use
    isDirty_ = dirty;
    // The list of a game stays with the game's own file, which a copy must not exchange for another.
    if (!inGame_) resFile_ = newObjects.resFile_;
}

void AGIInventoryObjects::Clear() {
    RequireLoaded();
    Reset();
    isDirty_ = true;
}

void AGIInventoryObjects::Unload() {
    Clear();
    loaded_ = false;
    isDirty_ = false;
}

void AGIInventoryObjects::ResFile(std::string_view value) {
    if (inGame_) RaiseCatalogue(680, ErrorSource);
    resFile_ = InnerPath(value);
}

std::string AGIInventoryObjects::Description() const {
    RequireLoaded();
    return description_;
}

void AGIInventoryObjects::Description(std::string_view value) {
    RequireLoaded();
    std::string cut = CutCharacters(value, MaxDescription);
    if (cut == description_) return;
    description_ = std::move(cut);
    if (inGame_) WriteGameProperty(propertySection, "Description", description_);
}

// --- Settings ---
std::uint8_t AGIInventoryObjects::MaxScreenObjects() const {
    RequireLoaded();
    return maxScreenObjects_;
}

void AGIInventoryObjects::MaxScreenObjects(std::uint8_t value) {
    RequireLoaded();
    if (value != maxScreenObjects_) isDirty_ = true;
    maxScreenObjects_ = value;
}

bool AGIInventoryObjects::Encrypted() const {
    RequireLoaded();
    return encrypted_;
}

void AGIInventoryObjects::Encrypted(bool value) {
    RequireLoaded();
    if (value != encrypted_) isDirty_ = true;
    encrypted_ = value;
}

void AGIInventoryObjects::AmigaOBJ(bool value) {
    if (value || !amigaOBJ_) return;
    if (inGame_) Files().Copy(InGameDir(gameFileName), InGameDir(amigaBackupName));
    amigaOBJ_ = false;
    isDirty_ = true;
    if (inGame_) Save();
}

// --- Items ---
std::int16_t AGIInventoryObjects::Count() const {
    RequireLoaded();
    return Narrow<std::int16_t>(items_.size());
}

std::shared_ptr<AGIInventoryItem> AGIInventoryObjects::Item(std::int32_t index) const {
    RequireLoaded();
    return At(items_, index, ErrorSource);
}

std::shared_ptr<AGIInventoryItem> AGIInventoryObjects::Add(std::string_view newItem, std::uint8_t room) {
    RequireLoaded();
    if (items_.size() >= MaxItems) RaiseCatalogue(569, ErrorSource);
    std::shared_ptr<AGIInventoryItem> item;
    const std::optional<Error> error = Attempt([&] { item = Append(newItem, room); });
    if (error) RaiseCatalogue(571, error->Source(), std::to_string(error->Number()));
    isDirty_ = true;
    return item;
}

void AGIInventoryObjects::Remove(std::int32_t index) {
    RequireLoaded();
    const std::shared_ptr<AGIInventoryItem> item = At(items_, index, ErrorSource);
    if (items_.size() >= 2 && item == items_.back()) {
        item->ReleaseName();
        item->Detach();
        items_.pop_back();
    } else {
        item->ItemName(UnusedItemName);
        item->Room(0);
    }
    isDirty_ = true;
}

AGIInventoryObjects::Iterator AGIInventoryObjects::begin() const {
    RequireLoaded();
    return items_.begin();
}

AGIInventoryObjects::Iterator AGIInventoryObjects::end() const {
    RequireLoaded();
    return items_.end();
}

// --- Files ---
void AGIInventoryObjects::Load(std::string_view loadFile) {
    std::string file(loadFile);
    Load(file);
}

void AGIInventoryObjects::Load(std::string& loadFile) {
    if (loaded_) RaiseCatalogue(511, ErrorSource);
    if (inGame_) {
        loadFile = InGameDir(gameFileName);
        LoadFromGame();
    } else {
        LoadFromFile(loadFile);
    }
    isDirty_ = false;
}

void AGIInventoryObjects::LoadFromGame() {
    std::optional<InventoryData> data =
        Try([] { return DecodeObjectFile(Files().Read(InGameDir(gameFileName))); });
    if (!data) {
        Reset();
        RaiseCatalogue(692, ErrorSource);
    }
    data->Description = CutCharacters(ReadGameString(propertySection, "Description", ""), MaxDescription);
    Take(*data);
}

void AGIInventoryObjects::LoadFromFile(std::string_view loadFile) {
    if (loadFile.empty()) RaiseCatalogue(599, ErrorSource);
    std::string file = InnerPath(loadFile);
    if (!FileExists(file)) RaiseCatalogue(524, ErrorSource, loadFile);
    ByteArray bytes;
    Attempt(
        [&] { bytes = Files().Read(file); });  // what cannot be read holds nothing, which is no form at all
    const auto tryText = [&] { return Try([&] { return DecodeObjectText(bytes); }); };
    const auto tryFile = [&] { return Try([&] { return DecodeObjectFile(bytes); }); };
    const bool textFirst = LowerCase(file).ends_with(textExtension);
    std::optional<InventoryData> data = textFirst ? tryText() : tryFile();
    if (!data) data = textFirst ? tryFile() : tryText();
    if (!data) RaiseCatalogue(692, ErrorSource);
    Take(*data);
    resFile_ = std::move(file);
}

void AGIInventoryObjects::Save(std::string_view saveFile, std::int32_t fileType) {
    RequireLoaded();
    if (inGame_) {
        WriteObjectFile(resFile_);
    } else {
        std::string file = saveFile.empty() ? resFile_ : InnerPath(saveFile);
        if (file.empty()) RaiseCatalogue(615, ErrorSource);
        if (fileType == 0) WriteObjectFile(file);
        if (fileType == 1) WriteObjectText(file);
        resFile_ = std::move(file);
    }
    isDirty_ = false;
}

void AGIInventoryObjects::Export(std::string_view exportFile, std::int32_t fileType, bool resetDirty) {
    RequireLoaded();
    std::string file = InnerPath(exportFile);
    if (fileType == 0) WriteObjectFile(file);
    if (fileType == 1) WriteObjectText(file);
    if (inGame_) return;
    resFile_ = std::move(file);
    if (resetDirty) isDirty_ = false;
}

void AGIInventoryObjects::WriteObjectFile(const std::string& file) const {
    if (file.empty()) RaiseCatalogue(616, ErrorSource);
    if (!isDirty_ && EqualNoCase(file, resFile_)) return;
    Wrapped(674, [&] { ReplaceWholeFile(file, EncodeObjectFile(Contents())); });
}

void AGIInventoryObjects::WriteObjectText(const std::string& file) const {
    if (file.empty()) RaiseCatalogue(615, ErrorSource);
    ReplaceWholeFile(file, EncodeObjectText(Contents()));
}

}  // namespace zorvex
