// The former, binary property file: a chain of records before a 16-byte signature.
#pragma once

namespace zorvex {

/// Rebuilds the library's property list from the binary file GameFile. Drops the list when the file's
/// signature is unknown or when it has no game ID or no interpreter version.
void ConvertOldPropertyFile();

}  // namespace zorvex
