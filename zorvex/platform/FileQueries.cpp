#include "zorvex/platform/FileQueries.h"

#include "zorvex/base/Error.h"
#include "zorvex/base/PathText.h"
#include "zorvex/platform/FileSystem.h"

namespace zorvex {

std::string CurrentDirectory() {
    return CDir(Files().CurrentDirectory());
}

namespace {

std::string TempDirectory() {
    std::string directory = Files().TempDirectory();
    return directory.empty() ? Files().CurrentDirectory() : directory;
}

}  // namespace

std::string TempFileName() {
    try {
        return Files().UniqueTempFile(TempDirectory(), "AGI");
    } catch (...) {
        const Error error = CurrentError();
        RaiseCatalogue(547, "TempFileName", std::to_string(error.Number()));
    }
}

DateTime FileLastMod(std::string_view path) {
    try {
        return Files().LastWriteTime(path);
    } catch (...) {  // a file that cannot be read has the zero date
        return {};
    }
}

bool FileExists(std::string_view path, bool orDirectory) {
    if (path.empty()) return false;
    const FileKind kind = Files().Kind(path);
    return kind == FileKind::File || (orDirectory && kind == FileKind::Directory);
}

bool DirectoryExists(std::string_view path) {
    return !path.empty() && Files().Kind(path) == FileKind::Directory;
}

}  // namespace zorvex
