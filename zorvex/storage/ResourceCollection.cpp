#include "zorvex/storage/ResourceCollection.h"

#include <algorithm>

#include "zorvex/game/Faults.h"

namespace zorvex {

std::int16_t ResourceCollectionBase::Max() const {
    std::int16_t max = family_.emptyMax;
    for (const auto& member : members_)
        max = std::max<std::int16_t>(max, member->Number());
    return max;
}

const std::shared_ptr<GameResource>& ResourceCollectionBase::Require(std::uint8_t number) const {
    if (!Exists(number)) RaiseCatalogue(617, family_.errorSource);
    return byNumber_[number];
}

void ResourceCollectionBase::Insert(std::uint8_t number, std::shared_ptr<GameResource> member) {
    byNumber_[number] = member;
    members_.push_back(std::move(member));
}

void ResourceCollectionBase::Take(std::uint8_t number) {
    std::erase(members_, byNumber_[number]);
    byNumber_[number] = nullptr;
}

void ResourceCollectionBase::LoadEntry(std::uint8_t number, std::int32_t volume, std::int32_t loc) {
    if (Exists(number)) RaiseCatalogue(602, family_.errorSource);
    Wrapped(family_.loadEntryFailure,
            [&] {
                std::shared_ptr<GameResource> member = MakeMember();
                member->Resource().Unload();
                member->InitInGame(number, volume, loc);
                Insert(number, std::move(member));
            },
            {502, 505, 506, 507, 511, 606});
}

void ResourceCollectionBase::ClearCollection() {
    while (!members_.empty()) {
        const std::shared_ptr<GameResource> member = members_.back();
        if (member->Loaded()) member->Unload();
        members_.pop_back();
        byNumber_[member->Number()] = nullptr;
    }
}

}  // namespace zorvex
