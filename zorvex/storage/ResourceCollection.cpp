#include "zorvex/storage/ResourceCollection.h"

#include <algorithm>

#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/Text.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

ResourceCollectionBase* CollectionOf(AGIResType type) {
    const auto& collections = Library().Collections;
    return type < collections.size() ? collections[type] : nullptr;
}

std::int16_t ResourceCollectionBase::Max() const {
    std::int16_t max = family_.emptyMax;
    for (const auto& member : Members())
        max = std::max<std::int16_t>(max, member->Number());
    return max;
}

void ResourceCollectionBase::RaiseUnknown(std::int32_t id) const {
    if (id == 0) RaiseRuntime(reSubscript, family_.errorSource);
    if (id == 617) RaiseCatalogue(617, family_.errorSource);
    RaiseCatalogue(id, family_.errorSource,
                   std::to_string(reSubscript) + ":" + std::string(RuntimeText(reSubscript)));
}

void ResourceCollectionBase::RequirePresent() const {
    if (CollectionOf(family_.type) != this) RaiseRuntime(reObjectNotSet, family_.errorSource);
}

bool ResourceCollectionBase::IsLeft(std::uint8_t number) const {
    return Library().LeftEntries[family_.type][number];
}

std::shared_ptr<GameResource> ResourceCollectionBase::MemberOfID(std::string_view id) const {
    for (const auto& member : Members()) {
        if (EqualNoCase(member->ID(), id)) return member;
    }
    return nullptr;
}

MemberTable::List& ResourceCollectionBase::Changed() {
    if (table_->Members.use_count() > 1) table_->Members = std::make_shared<MemberTable::List>(Members());
    // The list was made as one that can change; only walks see it as one that cannot.
    return const_cast<MemberTable::List&>(*table_->Members);
}

void ResourceCollectionBase::Insert(std::uint8_t number, std::shared_ptr<GameResource> member) {
    table_->ByNumber[number] = member;
    Changed().push_back(std::move(member));
    Library().ResourceIDsValid = false;
}

void ResourceCollectionBase::Take(std::uint8_t number) {
    std::erase(Changed(), table_->ByNumber[number]);
    table_->ByNumber[number] = nullptr;
    Library().ResourceIDsValid = false;
}

void ResourceCollectionBase::LoadEntry(const Internal& key, std::uint8_t number, std::int32_t volume,
                                       std::int32_t loc) {
    if (Exists(number)) RaiseCatalogue(602, family_.errorSource);
    Wrapped(family_.loadEntryFailure,
            [&] {
                std::shared_ptr<GameResource> member = MakeMember();
                member->Resource().Unload();
                member->InitInGame(key, number, volume, loc);
                Insert(number, std::move(member));
            },
            {502, 505, 506, 507, 511, 606});
}

void ResourceCollectionBase::ClearCollection(const Internal& key) noexcept {
    MemberTable former = std::exchange(*table_, MemberTable());
    for (auto member = former.Members->rbegin(); member != former.Members->rend(); ++member)
        (*member)->Detach(key);
}

}  // namespace zorvex
