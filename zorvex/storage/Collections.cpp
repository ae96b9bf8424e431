#include "zorvex/game/LibraryState.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/view/AGIViews.h"

namespace zorvex {

ResourceCollectionBase* CollectionOf(AGIResType type) {
    if (type == rtLogic) return Library().Logics.get();
    if (type == rtSound) return Library().Sounds.get();
    if (type == rtView) return Library().Views.get();
    return nullptr;
}

}  // namespace zorvex
