#include "zorvex/game/LibraryState.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/view/AGIViews.h"

namespace zorvex {

ResourceCollectionBase* CollectionOf(AGIResType type) {
    const LibraryState& library = Library();
    switch (type) {
        case rtLogic: return library.Logics.get();
        case rtPicture: return library.Pictures.get();
        case rtSound: return library.Sounds.get();
        case rtView: return library.Views.get();
        default: return nullptr;
    }
}

}  // namespace zorvex
