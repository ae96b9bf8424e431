#include "zorvex/compiler/names/ResourceIDs.h"

#include <algorithm>

#include "zorvex/base/CodePage.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceCollection.h"

namespace zorvex {

std::optional<std::uint8_t> ResourceIDTable::NumberOf(std::string_view id) const {
    const std::uint8_t* found = Find(numbers_, id);
    if (found == nullptr) return std::nullopt;
    return *found;
}

void ResourceIDTable::Add(AGIResType type, std::uint8_t number, std::string id) {
    if (id.empty()) return;
    const auto [entry, isNew] = numbers_.emplace(id, number);
    if (!isNew) entry->second = std::min(entry->second, number);
    ids_[type][number] = std::move(id);
}

void LoadResourceIDs() {
    if (Library().ResourceIDsValid && Library().ResourceIDs != nullptr) return;
    auto table = std::make_shared<ResourceIDTable>();
    for (const AGIResType type : {rtLogic, rtPicture, rtSound, rtView}) {
        const ResourceCollectionBase* collection = CollectionOf(type);
        if (collection == nullptr) continue;
        for (const auto& member : collection->Members())
            table->Add(type, member->Number(), TextToGame(member->ID()));
    }
    Library().ResourceIDs = std::move(table);
    Library().ResourceIDsValid = true;
}

}  // namespace zorvex
