#include "zorvex/platform/WholeFile.h"

#include "zorvex/game/Faults.h"
#include "zorvex/game/Helpers.h"
#include "zorvex/platform/FileSystem.h"

namespace zorvex {

void ReplaceWholeFile(std::string_view path, ByteView bytes) {
    std::string directory = JustPath(path, true);
    if (directory.empty()) directory = ".";
    const std::string beside = Files().UniqueTempFile(directory, "AGI");
    Guarded(
        [&] {
            Files().Write(beside, bytes);
            Files().Replace(beside, path);
        },
        [&] { Files().Remove(beside); });
}

void ReplaceWholeFile(std::string_view path, std::string_view text) {
    ReplaceWholeFile(path, ByteArray(text.begin(), text.end()));
}

}  // namespace zorvex
