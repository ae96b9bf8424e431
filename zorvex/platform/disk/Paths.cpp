#include "zorvex/platform/disk/Paths.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>

#include "zorvex/base/Error.h"
#include "zorvex/base/FileName.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/disk/Listings.h"

namespace zorvex {

namespace {

// A pipe must not keep the library waiting, and a terminal must not become that of the process.
constexpr int readFlags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

/// Whether the rest of a path below a root consists of names only; one of a person may hold "..".
bool HoldsNames(std::string_view rest) {
    const auto parts = Split(std::string(rest), "\\");
    return std::all_of(parts.begin(), parts.end(), [](const auto& part) { return FileName::Fits(part); });
}

void TrimEnd(std::string& path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
}

/// A path's directory, "" for one that has none, and its last part.
std::pair<std::string, std::string> Halves(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return {"", path};
    std::string directory = path.substr(0, slash == 0 ? 1 : slash);
    TrimEnd(directory);
    return {directory, path.substr(slash + 1)};
}

bool IsRegular(const struct stat& status) {
    return S_ISREG(status.st_mode);
}

}  // namespace

bool DiskPlace::Status(struct stat& status) const {
    return ::fstatat(Directory.Number(), Name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

Descriptor DiskPlace::Open(int flags, mode_t mode) const {
    return Descriptor(::openat(Directory.Number(), Name.c_str(),
                               flags | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, mode));
}

DiskPaths::DiskPaths(std::string_view root, LinkRule mayBeLink)
    : root_(CDir(root)), handle_(DiskPaths().OpenDirectory(root)), mayBeLink_(std::move(mayBeLink)) {}

DiskPaths::Route DiskPaths::RouteOf(std::string_view path) const {
    if (!handle_.IsOpen() || path.size() + 1 < root_.size() ||
        !path.starts_with(std::string_view(root_).substr(0, std::min(path.size(), root_.size()))))
        return {false, NativePath(path)};
    std::string_view rest = path.substr(std::min(path.size(), root_.size()));
    while (rest.ends_with('\\'))
        rest.remove_suffix(1);
    if (!rest.empty() && !HoldsNames(rest)) {
        const bool hasZero = rest.find('\0') != std::string_view::npos;
        if (hasZero) RaiseRuntime(reBadFileName);
        return {false, NativePath(path)};
    }
    return {true, rest.empty() ? "." : NativePath(rest)};
}

bool DiskPaths::MayBeLink(const Route& route) const {
    return route.inside && mayBeLink_ && route.path.find('/') == std::string::npos && mayBeLink_(route.path);
}

bool DiskPaths::MayBeLink(std::string_view path) const {
    return MayBeLink(RouteOf(path));
}

Descriptor DiskPaths::Open(const Route& route, const std::string& path, int flags) const {
    if (!route.inside) return Descriptor(::open(path.c_str(), flags));
    return OpenBeneath(handle_.Number(), path.c_str(), flags);
}

// --- Directories ---
Descriptor DiskPaths::OpenDirectory(const Route& route, const std::string& path) const {
    Descriptor directory = Open(route, path, directoryFlags);
    if (directory.IsOpen()) return directory;
    if (errno != ENOENT || path.empty()) RaiseErrno(errno);
    const auto [parentPath, name] = Halves(path);
    if (name.empty() || (parentPath.empty() && name == ".")) RaiseErrno(ENOENT);
    const Descriptor parent = OpenDirectory(route, parentPath.empty() ? "." : parentPath);
    const auto found = SharedListings().Find(parent.Number(), name);
    if (!found) RaiseErrno(ENOENT);
    Descriptor opened(
        ::openat(parent.Number(), found->c_str(), directoryFlags | (route.inside ? O_NOFOLLOW : 0)));
    if (!opened.IsOpen()) RaiseErrno(errno);
    return opened;
}

Descriptor DiskPaths::OpenDirectory(std::string_view path) const {
    Route route = RouteOf(path);
    TrimEnd(route.path);
    return OpenDirectory(route, route.path.empty() ? "." : route.path);
}

DiskPlace DiskPaths::Place(const Route& route, const std::string& path) const {
    const auto [directory, name] = Halves(path);
    if (name.empty()) RaiseErrno(ENOENT);
    DiskPlace place{OpenDirectory(route, directory.empty() ? "." : directory), name, route.inside, false};
    struct stat status {};
    if (!place.Status(status) && errno == ENOENT) {
        if (auto found = SharedListings().Find(place.Directory.Number(), name))
            place.Name = std::move(*found);
    }
    place.MayBeLink = MayBeLink(route);
    return place;
}

DiskPlace DiskPaths::Place(std::string_view path) const {
    Route route = RouteOf(path);
    TrimEnd(route.path);
    return Place(route, route.path);
}

// --- Files ---
Descriptor DiskPaths::TryFile(const Route& route, const std::string& path) const {
    Descriptor file = Open(route, path, readFlags);
    if (file.IsOpen() || errno != ELOOP || !MayBeLink(route)) return file;
    return Descriptor(::openat(handle_.Number(), path.c_str(), readFlags));
}

Descriptor DiskPaths::OpenFile(std::string_view path) const {
    const Route route = RouteOf(path);
    Descriptor file = TryFile(route, route.path);
    if (!file.IsOpen()) {
        if (errno != ENOENT || route.path.empty()) RaiseErrno(errno);
        const DiskPlace place = Place(route, route.path);
        file = place.Open(readFlags);
        const bool isLink = !file.IsOpen() && errno == ELOOP;
        if (isLink && (!route.inside || place.MayBeLink))
            file = Descriptor(::openat(place.Directory.Number(), place.Name.c_str(), readFlags));
        if (!file.IsOpen()) RaiseErrno(errno);
    }
    if (!IsRegular(file.Status())) RaiseRuntime(rePathFileAccess);
    return file;
}

struct stat DiskPaths::Status(std::string_view path) const {
    Route route = RouteOf(path);
    TrimEnd(route.path);
    struct stat status {};
    if (!route.inside && ::stat(route.path.c_str(), &status) == 0) return status;
    if (route.inside && route.path == ".") return handle_.Status();
    if (!route.inside && errno != ENOENT) RaiseErrno(errno);
    const DiskPlace place = Place(route, route.path);
    if (!place.Status(status)) RaiseErrno(errno);
    if (!S_ISLNK(status.st_mode) || (route.inside && !place.MayBeLink)) return status;
    struct stat target {};
    const bool leads = ::fstatat(place.Directory.Number(), place.Name.c_str(), &target, 0) == 0;
    if (!route.inside && !leads) RaiseErrno(errno);
    return leads && (!route.inside || IsRegular(target)) ? target : status;
}

}  // namespace zorvex
