#include "zorvex/vocab/AGIInventoryItem.h"

#include "zorvex/base/Checked.h"
#include "zorvex/base/Text.h"
#include "zorvex/vocab/AGIInventoryObjects.h"

namespace zorvex {

void AGIInventoryItem::ReleaseName() {
    if (unique_ || parent_ == nullptr) return;
    AGIInventoryItem* other = nullptr;
    int found = 0;
    for (const auto& item : parent_->Items()) {
        if (item.get() == this || !EqualNoCase(item->itemName_, itemName_)) continue;
        other = item.get();
        if (++found == 2) break;
    }
    if (found == 1) other->unique_ = true;
    unique_ = true;
}

void AGIInventoryItem::ItemName(std::string_view value) {
    std::string name(value.empty() ? UnusedItemName : value);
    ReleaseName();
    itemName_ = std::move(name);
    if (parent_ == nullptr) return;
    parent_->IsDirty(true);
    if (itemName_ == UnusedItemName) return;
    for (const auto& item : parent_->Items()) {
        if (item.get() == this || !EqualNoCase(item->itemName_, itemName_)) continue;
        item->unique_ = false;
        unique_ = false;
    }
}

void AGIInventoryItem::Room(AnyInteger value) {
    room_ = Narrow<std::uint8_t>(value, AGIInventoryObjects::ErrorSource);
    if (parent_ != nullptr) parent_->IsDirty(true);
}

}  // namespace zorvex
