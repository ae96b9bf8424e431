#include "zorvex/vocab/AGIInventoryObjects.h"

#include <optional>
#include <utility>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/vocab/ObjectFile.h"
#include "zorvex/vocab/ObjectText.h"

namespace zorvex {

namespace {

constexpr std::string_view amigaBackupName = "OBJECT.amg";
constexpr std::int32_t textForm = 1;

constexpr GameListFamily family{.ErrorSource = AGIInventoryObjects::ErrorSource,
                                .FileName = "OBJECT",
                                .TextExtension = ".ago",
                                .UnreadableError = 692,
                                .ToldError = 0,
                                .WriteError = 674};

}  // namespace

AGIInventoryObjects::AGIInventoryObjects() : GameList(family) {
    AGIInventoryObjects::Reset();
}

AGIInventoryObjects::~AGIInventoryObjects() {
    for (const auto& item : items_)
        item->Detach();
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
        } else {
            items_.front()->ItemName(item.Name);
            items_.front()->Room(item.Room);
        }
    }
    maxScreenObjects_ = data.MaxScreenObjects;
    encrypted_ = data.Encrypted;
    amigaOBJ_ = data.AmigaOBJ;
    BecomeLoaded(data.Description);
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
    BeginNew();
}

void AGIInventoryObjects::SetObjects(const AGIInventoryObjects& newObjects) {
    newObjects.RequireLoaded();
    if (&newObjects == this) return;
    RequirePresent();
    Take(newObjects.Contents());
    TakeStateOf(newObjects);
}

// --- Settings ---
std::uint8_t AGIInventoryObjects::MaxScreenObjects() const {
    RequireLoaded();
    return maxScreenObjects_;
}

void AGIInventoryObjects::MaxScreenObjects(AnyInteger value) {
    RequireLoaded();
    const auto most = Narrow<std::uint8_t>(value, ErrorSource);
    if (most != maxScreenObjects_) IsDirty(true);
    maxScreenObjects_ = most;
}

bool AGIInventoryObjects::Encrypted() const {
    RequireLoaded();
    return encrypted_;
}

void AGIInventoryObjects::Encrypted(bool value) {
    RequireLoaded();
    if (value != encrypted_) IsDirty(true);
    encrypted_ = value;
}

void AGIInventoryObjects::AmigaOBJ(bool value) {
    if (value || !amigaOBJ_) return;
    if (InGame()) Files().Copy(GameFile(family.FileName), GameFile(amigaBackupName));
    amigaOBJ_ = false;
    IsDirty(true);
    if (InGame()) Save();
}

// --- Items ---
std::int16_t AGIInventoryObjects::Count() const {
    RequireLoaded();
    return Narrow<std::int16_t>(items_.size());
}

std::shared_ptr<AGIInventoryItem> AGIInventoryObjects::Item(AnyInteger index) const {
    RequireLoaded();
    return At(items_, index, ErrorSource);
}

std::shared_ptr<AGIInventoryItem> AGIInventoryObjects::Add(std::string_view newItem, AnyInteger room) {
    RequireLoaded();
    if (items_.size() >= MaxItems) RaiseCatalogue(569, ErrorSource);
    const auto number = Narrow<std::uint8_t>(room, ErrorSource);
    std::shared_ptr<AGIInventoryItem> item;
    const std::optional<Error> error = Attempt([&] { item = Append(newItem, number); });
    if (error) RaiseCatalogue(571, error->Source(), std::to_string(error->Number()));
    IsDirty(true);
    return item;
}

void AGIInventoryObjects::Remove(AnyInteger index) {
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
    IsDirty(true);
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
bool AGIInventoryObjects::TakeDecoded(const std::optional<InventoryData>& data) {
    if (data) Take(*data);
    return data.has_value();
}

bool AGIInventoryObjects::TakeFile(ByteView bytes) {
    return TakeDecoded(DecodeObjectFile(bytes));
}

bool AGIInventoryObjects::TakeText(ByteView bytes, std::int32_t& badLine) {
    return TakeDecoded(DecodeObjectText(bytes, &badLine));
}

ByteArray AGIInventoryObjects::FileBytes() const {
    return EncodeObjectFile(Contents());
}

ByteArray AGIInventoryObjects::TextBytes() const {
    return EncodeObjectText(Contents());
}

void AGIInventoryObjects::Save(std::string_view saveFile, std::int32_t fileType) {
    RequireLoaded();
    if (saveFile.empty() && ResFile().empty()) RaiseCatalogue(615, ErrorSource);
    GameList::Save(saveFile, fileType);
}

void AGIInventoryObjects::Export(std::string_view exportFile, std::int32_t fileType, bool resetDirty) {
    GameList::Export(exportFile, fileType, resetDirty || fileType == textForm);
}

}  // namespace zorvex
