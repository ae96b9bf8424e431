#include "zorvex/storage/ResourceCollection.h"

namespace zorvex {

// No collection exists before the resource classes do.
ResourceCollectionBase* CollectionOf(AGIResType) {
    return nullptr;
}

}  // namespace zorvex
