// Writing a whole file so that its old content is never lost.
#pragma once

#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

/// Makes a file hold just these bytes, creating it if need be. The bytes are written to a new file beside it,
/// which then takes its name in one step: after a failure, or if the process dies, the file is the old one or
/// the new one. Raises the plain run-time error of the step that failed and leaves no other file behind.
/// In a directory that takes no new files the file is written over instead; should that break off, the whole
/// is still in a file of the directory for temporary files.
void ReplaceWholeFile(std::string_view path, ByteView bytes);
void ReplaceWholeFile(std::string_view path, std::string_view text);

}  // namespace zorvex
