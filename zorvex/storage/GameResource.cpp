#include "zorvex/storage/GameResource.h"

#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/state/LoadIssue.h"
#include "zorvex/state/PropertyText.h"
#include "zorvex/storage/ResourceCollection.h"

namespace zorvex {

namespace {

constexpr std::size_t maxDescriptionLength = 1024;

}  // namespace

GameResource::GameResource(AGIResType type, std::string_view errorSource) : errorSource_(errorSource) {
    resource_.ResType(Internal(), type);
    id_ = "New" + std::string(TypeWord());
}

std::string_view GameResource::TypeWord() const {
    return ResTypeNames[resource_.ResType()];
}

std::string GameResource::Section() const {
    return std::string(TypeWord()) + std::to_string(Number());
}

std::string GameResource::Group() const {
    return std::string(TypeWord()) + "s";
}

void GameResource::RequireLoaded() const {
    if (!Loaded()) RaiseCatalogue(563, errorSource_);
}

void GameResource::WriteKey(std::string_view key, std::string_view value, bool inGroup) const {
    if (!InGame()) return;
    resource_.RequirePresent(Internal());
    WriteGameProperty(Section(), key, value, inGroup ? Group() : std::string());
}

void GameResource::StoreID(std::string_view value) {
    id_ = value;
    if (InGame()) Library().ResourceIDsValid = false;
}

void GameResource::ID(std::string_view value) {
    if (InGame()) resource_.RequirePresent(Internal());
    const std::string cut = CutCharacters(value, MaxIDLength);
    if (cut.empty()) RaiseCatalogue(667, errorSource_);
    if (cut == id_) return;
    if (InGame()) {
        if (!IsKeepableName(cut)) {
            RaiseText(ObjectErrorBase + 686, errorSource_,
                      CatalogueText(686, {TypeWord(), "'" + cut + "' cannot be the name of a file"}));
        }
        const ResourceCollectionBase* collection = CollectionOf(ResType());
        for (const auto& other : collection->Members()) {
            const bool taken = IDsIgnoreCase() ? EqualNoCase(other->ID(), cut) : other->ID() == cut;
            if (taken && other->Number() != Number()) RaiseCatalogue(623, errorSource_);
        }
    }
    StoreID(cut);
    WriteKey("ID", id_);
    IDChanged();
}

void GameResource::TakeFileName(std::string_view path) {
    const std::string id = CutCharacters(JustFileName(InnerPath(path)), MaxIDLength);
    if (InGame()) {
        Attempt([&] { ID(id); });
    } else {
        StoreID(id);
    }
}

void GameResource::ImportBytes(std::string_view path) {
    const bool wasLoaded = Loaded();
    Guarded([&] { resource_.Import(path); },
            [&] {
                if (wasLoaded && !Loaded()) Unload();
            });
}

void GameResource::Imported(std::string_view path) {
    TakeFileName(path);
    DataDirty(InGame());
    if (!InGame()) WritePropState(false);
}

bool GameResource::HasToWrite(std::string_view saveFile) const {
    if (DataDirty()) return true;
    return !InGame() && !saveFile.empty() && InnerPath(saveFile) != ResFile();
}

void GameResource::SetIDOrRaise686(std::string_view value) {
    try {
        GameResource::ID(value);
    } catch (...) {
        const Error error = CurrentError();
        RememberError(error);
        if (error.Is(623) || error.Is(667) || error.Is(686)) throw error;
        RaiseText(ObjectErrorBase + 686, error.Source(),
                  CatalogueText(686, {TypeWord(), error.Description()}));
    }
}

void GameResource::Description(std::string_view value) {
    const std::string cut = CutCharacters(value, maxDescriptionLength);
    if (!IsOtherDescription(cut)) return;
    if (InGame()) resource_.RequirePresent(Internal());
    description_ = cut;
    WriteKey("Description", description_);
}

void GameResource::InitInGame(const Internal& key, std::uint8_t number, std::int32_t volume,
                              std::int32_t loc) {
    resource_.Init(key, number, volume, loc);
    id_ = ReadGameString(Section(), "ID", "");
    if (!id_.empty() && (!IsKeepableName(id_) || CutCharacters(id_, MaxIDLength) != id_)) {
        NoteLoadIssue({.Kind = LoadIssueKind::Properties,
                       .Text = "The ID of " + Section() +
                               " in the property file is no usable name; it is now " + Section(),
                       .Type = ResType(),
                       .Number = number});
        id_ = Section();
        WriteKey("ID", id_);
    }
    if (!id_.empty()) {
        description_ = ReadGameString(Section(), "Description", "");
        resource_.Size(key, ReadGameLong(Section(), "Size", -1));
        ReadOwnProperties();
        return;
    }
    id_ = Section();
    resource_.Load();
    WriteKey("ID", id_);
    WriteSize();
    resource_.Unload();
    WriteFirstProperties();
}

}  // namespace zorvex
