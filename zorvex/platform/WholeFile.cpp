#include "zorvex/platform/WholeFile.h"

#include "zorvex/base/Faults.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"

namespace zorvex {

namespace {

/// For a file in a directory that takes no new files. When the copy fails, the temporary file still holds
/// all.
void OverwriteFile(std::string_view path, ByteView bytes) {
    Files().Append(path, {});  // a file that takes no bytes at all keeps those that it has
    const std::string temporary = TempFileName();
    Guarded([&] { Files().Write(temporary, bytes); }, [&] { Files().Remove(temporary); });
    Files().Copy(temporary, path);
    Attempt([&] { Files().Remove(temporary); });
}

}  // namespace

void ReplaceWholeFile(std::string_view path, ByteView bytes) {
    const auto error = Attempt([&] { Files().WriteWhole(path, bytes); });
    if (!error) return;
    const bool refused = error->Number() == rePermissionDenied || error->Number() == rePathFileAccess;
    if (!refused || !FileExists(path)) throw *error;
    OverwriteFile(path, bytes);
}

void ReplaceWholeFile(std::string_view path, std::string_view text) {
    ReplaceWholeFile(path, ByteArray(text.begin(), text.end()));
}

}  // namespace zorvex
