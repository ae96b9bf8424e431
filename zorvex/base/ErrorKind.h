// What sort of trouble an error number stands for.
#pragma once

#include <cstdint>

namespace zorvex {

/// The plain kinds of errors, for a host that acts on an error without knowing its number.
enum class ErrorKind : std::uint8_t {
    Other,             // none of those below; a wrapping error tells the fault within in its description
    FileNotFound,      // a file or directory is not there
    FileExists,        // it is there and must not be
    PermissionDenied,  // the system does not allow it
    DiskFull,
    FileAccess,     // any other fault of the disk or the system while a file was used
    AlreadyOpen,    // a game, or a file, is open already
    NoGame,         // no game is open, or the object belongs to none or to another workspace
    NotLoaded,      // the object must be loaded first
    AlreadyLoaded,  // the object must be unloaded first
    ReadOnly,       // the property cannot be set, or not in a game
    BadArgument,    // a value that the call does not take
    NotFound,       // nothing has that number, index or name
    AlreadyExists,  // the number or name is taken
    TooLarge,       // more than the format, or the game, has room for
    BadData,        // bytes that are no honest resource, list, directory or property file
    Unsupported,    // a version that the library does not know
    SourceError,    // a fault of a logic's source, or bytes that no source can tell
    Busy,           // something else runs
    OutOfMemory,
    Internal  // a fault of the library or of a host's handler
};

/// The kind of a catalogue id or of a plain run-time number.
ErrorKind KindOfError(std::int32_t id);

}  // namespace zorvex
