// What the ways of opening and making games share.
#pragma once

#include "zorvex/state/GameSession.h"

namespace zorvex {

struct LibraryState;

/// Raises 501 while a game is open or is being opened.
void RequireClosed();

/// The session of a game that is being opened or made. It ends again unless the game is open at the end.
class Opening {
  public:
    Opening() = default;
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;
    ~Opening();

  private:
    static RunSession Started();

    RunSession session_ = Started();
};

/// Empties the four collections of a record. Objects that a host holds stand alone from then on.
void EmptyCollections(LibraryState& record) noexcept;

/// Puts a new empty inventory and vocabulary in the place of the present ones, which leave the game.
void MakeEmptyLists();

/// After a load that failed: no game, empty collections, new lists, no property list.
void ResetToEmptyGame();

}  // namespace zorvex
