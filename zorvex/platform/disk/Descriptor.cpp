#include "zorvex/platform/disk/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>

#include "zorvex/base/Error.h"

#ifdef __linux__
#include <sys/syscall.h>
#if __has_include(<linux/openat2.h>) && defined(SYS_openat2)
#include <linux/openat2.h>
#define ZORVEX_HAS_OPENAT2
#endif
#endif

namespace zorvex {

namespace {

std::int32_t RuntimeNumberOf(int errnoValue) {
    switch (errnoValue) {
        case ENOENT: return reFileNotFound;
        case ENOTDIR: return rePathNotFound;
        case EEXIST:
        case ENOTEMPTY: return reFileExists;
        case ENOSPC:
        case EDQUOT: return reDiskFull;
        case EACCES:
        case EPERM:
        case EROFS: return rePermissionDenied;
        case EISDIR:
        case EBUSY:
        case ETXTBSY:
        case ELOOP:
        case ENXIO:
        case ESPIPE:
        case EXDEV: return rePathFileAccess;
        case ENOMEM: return reOutOfMemory;
        case EMFILE:
        case ENFILE: return 67;
        case ENAMETOOLONG:
        case EINVAL:
        case EILSEQ: return reBadFileName;
        default: return reDeviceIO;
    }
}

}  // namespace

void RaiseErrno(int errnoValue) {
    RaiseRuntime(RuntimeNumberOf(errnoValue));
}

Descriptor::~Descriptor() {
    if (number_ >= 0) ::close(number_);
}

struct stat Descriptor::Status() const {
    struct stat status {};
    if (::fstat(number_, &status) != 0) RaiseErrno(errno);
    return status;
}

std::size_t Descriptor::ReadAt(std::uint8_t* to, std::size_t count, std::uint64_t offset) const {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t now = ::pread(number_, to + done, count - done, static_cast<off_t>(offset + done));
        if (now < 0 && errno == EINTR) continue;
        if (now < 0) RaiseErrno(errno);
        if (now == 0) break;
        done += static_cast<std::size_t>(now);
    }
    return done;
}

void Descriptor::Write(ByteView bytes) const {
    while (!bytes.empty()) {
        const ssize_t now = ::write(number_, bytes.data(), bytes.size());
        if (now < 0 && errno == EINTR) continue;
        if (now < 0) RaiseErrno(errno);
        bytes = bytes.subspan(static_cast<std::size_t>(now));
    }
}

void Descriptor::WriteAt(ByteView bytes, std::uint64_t offset) const {
    while (!bytes.empty()) {
        const ssize_t now = ::pwrite(number_, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (now < 0 && errno == EINTR) continue;
        if (now < 0) RaiseErrno(errno);
        offset += static_cast<std::uint64_t>(now);
        bytes = bytes.subspan(static_cast<std::size_t>(now));
    }
}

void Descriptor::Close() {
    if (::close(Release()) != 0 && errno != EINTR) RaiseErrno(errno);
}

// --- Opening without a way out ---
#ifdef O_PATH
const int directoryFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;
#else
const int directoryFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
#endif

Descriptor OpenPartByPart(int directory, const char* path, int flags, mode_t mode) {
    Descriptor inner;
    int at = directory;
    std::string_view rest = path;
    for (std::size_t end = rest.find('/'); end != std::string_view::npos; end = rest.find('/')) {
        const std::string part(rest.substr(0, end));
        rest.remove_prefix(end + 1);
        if (part.empty() || part == ".") continue;
        if (part == "..") {
            errno = EXDEV;
            return {};
        }
        Descriptor next(::openat(at, part.c_str(), directoryFlags | O_NOFOLLOW));
        if (!next.IsOpen()) {
            struct stat status {};
            const bool isLink = errno == ENOTDIR &&
                                ::fstatat(at, part.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
                                S_ISLNK(status.st_mode);
            if (isLink) errno = ELOOP;
            return {};
        }
        inner = std::move(next);
        at = inner.Number();
    }
    if (rest == ".." || path[0] == '/') {
        errno = EXDEV;
        return {};
    }
    const std::string last(rest.empty() ? std::string_view(".") : rest);
    return Descriptor(::openat(at, last.c_str(), flags | O_NOFOLLOW | O_CLOEXEC, mode));
}

#ifdef ZORVEX_HAS_OPENAT2
Descriptor OpenBeneath(int directory, const char* path, int flags, mode_t mode) {
    open_how how{};
    how.flags = static_cast<decltype(how.flags)>(flags | O_CLOEXEC);
    how.mode = mode;
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_MAGICLINKS;
    const auto number = static_cast<int>(::syscall(SYS_openat2, directory, path, &how, sizeof how));
    // An old kernel does not know the call, and a sandbox may forbid what it does not know.
    if (number < 0 && (errno == ENOSYS || errno == EPERM || errno == E2BIG))
        return OpenPartByPart(directory, path, flags, mode);
    return Descriptor(number);
}
#else
Descriptor OpenBeneath(int directory, const char* path, int flags, mode_t mode) {
    return OpenPartByPart(directory, path, flags, mode);
}
#endif

}  // namespace zorvex
