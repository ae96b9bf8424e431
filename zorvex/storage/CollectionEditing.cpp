// The part of the collections that changes a game: adding, removing and renumbering resources.
#include "zorvex/game/Faults.h"
#include "zorvex/game/GameProperties.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/storage/VolManager.h"

namespace zorvex {

namespace {

constexpr int maxTries = 255;  // as far as an ID is made unique by a number behind it

std::string NumberedID(std::string_view id, int number) {
    return std::string(id) + "_" + std::to_string(number);
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

std::shared_ptr<GameResource> ResourceCollectionBase::AddMember(std::uint8_t number, GameResource* source) {
    if (Exists(number)) RaiseCatalogue(602, family_.errorSource);
    std::shared_ptr<GameResource> member;
    std::string newID;
    Wrapped(family_.addFailure, [&] {
        member = MakeMember();
        newID = std::string(member->TypeWord()) + std::to_string(number);
        if (source != nullptr) {
            member->CopyFrom(*source);
            newID = source->ID();
        }
        member->Resource().Init(number, -1, -1);
        Insert(number, member);
        member->SetIDField("");
    });
    SetUniqueID(*member, newID, [](const Error& error) { return error.Is(623); });
    Wrapped(family_.addFailure, [&] {
        member->DataDirty(true);
        member->WritePropState(true);
        member->Save();
    });
    return member;
}

void ResourceCollectionBase::Remove(std::uint8_t number) {
    const std::shared_ptr<GameResource> member = Require(number);
    if (Attempt([&] {
            member->Unload();
            Take(number);
            UpdateDirFile(member->Resource(), true);
        })) {
        RaiseCatalogue(617, family_.errorSource);
    }
    DeleteGameSection(member->Section());
}

void ResourceCollectionBase::Renumber(std::uint8_t oldNumber, std::uint8_t newNumber) {
    if (oldNumber == newNumber) return;
    if (Exists(newNumber)) RaiseCatalogue(669, family_.errorSource);
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
        buffer.Number(newNumber);
        Insert(newNumber, member);
        // The new entry is written before the old one goes, so that the resource is in the directory at every
        // moment.
        if (UpdateDirFile(buffer, false)) {
            AGIResource former;
            former.ResType(buffer.ResType());
            former.Number(oldNumber);
            UpdateDirFile(former, true);
        }
        member->WriteNumberedProperties();
        member->WritePropState(false);
        if (unloadAtEnd) member->Unload();
    });
}

}  // namespace zorvex
