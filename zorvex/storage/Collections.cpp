#include "zorvex/game/LibraryState.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/storage/ResourceCollection.h"

namespace zorvex {

ResourceCollectionBase* CollectionOf(AGIResType type) {
    if (type == rtLogic) return Library().Logics.get();
    return nullptr;
}

}  // namespace zorvex
