// What the ways of opening and making games share.
#pragma once

namespace zorvex {

/// Puts new empty objects in the place of the collections, the inventory and the vocabulary.
void MakeEmptyCollections();

/// After a load that failed: no game, new empty objects, no property list.
void ResetToEmptyGame();

}  // namespace zorvex
