// The part of the collections that changes a game: adding, removing and renumbering resources.
#include <optional>

#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/Text.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/storage/VolManager.h"

namespace zorvex {

namespace {

constexpr int maxTries = 255;  // as far as an ID is made unique by a number behind it

/// An ID with a number behind it, shortened before that where it would be too long.
std::string NumberedID(std::string_view id, int number) {
    const std::string end = "_" + std::to_string(number);
    return CutCharacters(id, GameResource::MaxIDLength - end.size()) + end;
}

/// Sets an ID, or the first with a number behind it for which `taken` does not hold the error that it gives.
template <class Taken>
void SetUniqueID(GameResource& resource, std::string_view id, Taken&& taken) {
    auto error = Attempt([&] { resource.ID(id); });
    for (int k = 1; k <= maxTries && error && taken(*error); ++k) {
        error = Attempt([&] { resource.ID(NumberedID(id, k)); });
    }
}

}  // namespace

void ResourceCollectionBase::RequireEditable() const {
    RequirePresent();
    // While a game is being opened, its directories and its version are not all known yet: what a handler
    // would add then could reach the files of no game at all.
    const LibraryState& library = Library();
    if (library.Session && !library.GameLoaded) RaiseRuntime(reObjectNotSet, family_.errorSource);
}

std::shared_ptr<GameResource> ResourceCollectionBase::AddMember(std::uint8_t number, GameResource* source) {
    RequireEditable();
    if (Exists(number) || IsLeft(number)) RaiseCatalogue(602, family_.errorSource);
    std::shared_ptr<GameResource> member;
    std::string newID;
    // What fails leaves nothing of the resource behind.
    const auto takeBack = [&] {
        if (!member || !table_->Has(member)) return;
        Take(number);
        DeleteGameSection(member->Section());
        member->Detach(Internal());
    };
    Wrapped(family_.addFailure, [&] {
        Guarded(
            [&] {
                member = MakeMember();
                newID = std::string(member->TypeWord()) + std::to_string(number);
                if (source != nullptr) {
                    member->CopyFrom(*source);
                    newID = source->ID();
                }
                member->Resource().Init(Internal(), number, -1, -1);
                Insert(number, member);
                member->SetIDField("");
                const auto isTaken = [](const Error& error) { return error.Is(623); };
                SetUniqueID(*member, newID, isTaken);
                // A stand-alone object may have a name that none of a game can have.
                if (member->ID().empty()) SetUniqueID(*member, member->Section(), isTaken);
                member->DataDirty(true);
                member->WritePropState(true);
                member->Save();
                if (member->DataDirty()) RaiseRuntime(rePathFileAccess, family_.errorSource);  // no entry
            },
            takeBack);
    });
    return member;
}

void ResourceCollectionBase::RemoveMember(std::uint8_t number) {
    RequireEditable();
    const std::shared_ptr<GameResource> member = Require(number);
    if (Attempt([&] {
            Take(number);
            UpdateDirFile(family_.type, number, std::nullopt);
        })) {
        RaiseCatalogue(617, family_.errorSource);
    }
    const std::string section = member->Section();
    member->Detach(Internal());
    DeleteGameSection(section);
}

void ResourceCollectionBase::RenumberMember(std::uint8_t oldNumber, std::uint8_t newNumber) {
    RequireEditable();
    if (Exists(newNumber) || IsLeft(newNumber)) RaiseCatalogue(669, family_.errorSource);
    Wrapped(670, [&] {
        const std::shared_ptr<GameResource> member = Require(oldNumber);
        AGIResource& buffer = member->Resource();
        const bool unloadAtEnd = family_.renumberLoads && !member->Loaded();
        if (unloadAtEnd) member->Load();
        DeleteGameSection(member->Section());
        Take(oldNumber);
        const std::string oldDefault = member->Section();
        const std::string newDefault = std::string(member->TypeWord()) + std::to_string(newNumber);
        if (member->ID() == oldDefault) {
            SetUniqueID(*member, newDefault, [](const Error&) { return true; });
            member->DefaultIDFollowed(oldDefault);
        }
        buffer.Number(Internal(), newNumber);
        Insert(newNumber, member);
        // The new entry is written before the old one goes, so that the resource is in the directory at every
        // moment.
        if (UpdateDirFile(family_.type, newNumber, VolumePlace{buffer.Volume(), buffer.Loc()}))
            UpdateDirFile(family_.type, oldNumber, std::nullopt);
        member->WriteNumberedProperties();
        member->WritePropState(false);
        if (unloadAtEnd) member->Unload();
    });
}

}  // namespace zorvex
