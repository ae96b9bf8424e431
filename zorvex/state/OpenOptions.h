// How a game is opened.
#pragma once

#include <cstdint>

namespace zorvex {

/// What happens to a V2 directory file without bytes, as about one old game in four has for its sounds.
enum class EmptyDirectory : std::uint8_t {
    Refuse,        ///< the game does not open (511)
    MendInMemory,  ///< it counts as one empty entry; the file stays as it is until a resource is added
    MendOnDisk     ///< it gets one empty entry; the former file stays as .OLD
};

/// What happens to the directory entry of a resource that cannot be read.
enum class BadEntry : std::uint8_t {
    Leave,  ///< it stays, and so does what it points at: a disk that is inserted later has its resources
    Blank   ///< it is blanked; the former directory file stays as .OLD
};

/// The way in which AGIGame::Open opens a game. The defaults are for a host that works on a game and wants to
/// lose nothing.
struct OpenOptions {
    /// Opens the property file of a directory that has one, instead of setting it aside and beginning anew.
    /// With several, the one named after the game counts; without that, the directory's own files.
    bool PreferPropertyFile = true;
    /// Opens the game to look at it: no byte of it changes on disk. What would be written below its
    /// directory, by the load, by objects that are saved or by a build in place, stays in memory and is gone
    /// when the game is closed. Files elsewhere, such as an export, are written.
    bool ReadOnly = false;
    EmptyDirectory EmptyDirectories = EmptyDirectory::MendInMemory;
    BadEntry BadEntries = BadEntry::Leave;
};

}  // namespace zorvex
