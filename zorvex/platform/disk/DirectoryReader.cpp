#include "zorvex/platform/disk/DirectoryReader.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "zorvex/base/FileName.h"
#include "zorvex/platform/disk/Descriptor.h"

namespace zorvex {

DirectoryReader::DirectoryReader(int directory) {
    Descriptor opened(::openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.IsOpen()) RaiseErrno(errno);
    stream_ = ::fdopendir(opened.Number());
    if (stream_ == nullptr) RaiseErrno(errno);
    opened.Release();
}

DirectoryReader::~DirectoryReader() {
    ::closedir(stream_);
}

std::optional<std::string_view> DirectoryReader::Next() {
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(stream_);
        if (entry == nullptr && errno != 0) RaiseErrno(errno);
        if (entry == nullptr) return std::nullopt;
        type_ = entry->d_type;
        // What cannot be a name inside the library, such as one with a backslash, would be met as another
        // file.
        const std::string_view name(entry->d_name);
        if (FileName::Fits(name)) return name;
    }
}

}  // namespace zorvex
