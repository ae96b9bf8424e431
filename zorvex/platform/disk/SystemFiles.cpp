#include "zorvex/platform/disk/SystemFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <initializer_list>
#include <system_error>

#include "zorvex/base/Error.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/disk/DirectoryReader.h"
#include "zorvex/platform/disk/Listings.h"
#include "zorvex/platform/disk/NewFile.h"

namespace zorvex {

namespace fs = std::filesystem;

namespace {

void Check(const std::error_code& code) {
    if (code) RaiseErrno(code.default_error_condition().value());
}

/// One number that depends on each of several.
std::uint64_t Stamp(std::initializer_list<std::uint64_t> values) {
    std::uint64_t stamp = 14695981039346656037U;
    for (const std::uint64_t value : values)
        stamp = (stamp ^ value) * 1099511628211U;
    return stamp;
}

DateTime UniversalTime(std::time_t seconds) {
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    return {utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec};
}

/// How many bytes a file has from a place on, no more than wanted.
std::size_t LengthFrom(const Descriptor& file, std::uint64_t offset, std::size_t count) {
    const auto size = static_cast<std::uint64_t>(file.Status().st_size);
    return offset >= size ? 0 : static_cast<std::size_t>(std::min<std::uint64_t>(count, size - offset));
}

/// What an entry counts as, None for one that is not to be seen.
FileKind KindOf(const DirectoryReader& reader, const std::string& name, int directory, bool inside,
                bool mayBeLink, bool& isLink) {
    if (reader.Type() == DT_DIR) return FileKind::Directory;
    if (reader.Type() == DT_REG) return FileKind::File;
    struct stat status {};
    if (::fstatat(directory, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return FileKind::None;
    isLink = S_ISLNK(status.st_mode);
    if (isLink && inside && !mayBeLink) return FileKind::None;
    if (isLink && ::fstatat(directory, name.c_str(), &status, 0) != 0)
        return inside ? FileKind::None : FileKind::File;
    if (isLink && inside && !S_ISREG(status.st_mode)) return FileKind::None;
    return S_ISDIR(status.st_mode) ? FileKind::Directory : FileKind::File;
}

}  // namespace

std::shared_ptr<FileSystem> SystemFiles::Below(std::string_view directory, LinkRule mayBeLink) {
    return std::make_shared<SystemFiles>(directory, std::move(mayBeLink));
}

// --- Looking ---
FileKind SystemFiles::Kind(std::string_view path) const {
    try {
        const struct stat status = paths_.Status(path);
        return S_ISDIR(status.st_mode) ? FileKind::Directory : FileKind::File;
    } catch (const Error&) {
        return FileKind::None;
    }
}

std::uint64_t SystemFiles::Size(std::string_view path) const {
    const struct stat status = paths_.Status(path);
    if (S_ISDIR(status.st_mode)) RaiseRuntime(rePathFileAccess);
    return static_cast<std::uint64_t>(status.st_size);
}

std::vector<DirectoryEntry> SystemFiles::List(std::string_view directory) const {
    const Descriptor opened = paths_.OpenDirectory(directory);
    const bool inside = paths_.IsInside(directory);
    std::vector<DirectoryEntry> entries;
    DirectoryReader reader(opened.Number());
    while (const auto next = reader.Next()) {
        DirectoryEntry entry{std::string(*next)};
        const bool mayBeLink = inside && paths_.MayBeLink(CDir(directory) + entry.Name);
        entry.Kind = KindOf(reader, entry.Name, opened.Number(), inside, mayBeLink, entry.IsLink);
        if (entry.Kind != FileKind::None) entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(), [](const DirectoryEntry& a, const DirectoryEntry& b) {
        const int order = CompareNoCase(a.Name, b.Name);
        return order != 0 ? order < 0 : a.Name < b.Name;
    });
    return entries;
}

DateTime SystemFiles::LastWriteTime(std::string_view path) const {
    return UniversalTime(paths_.Status(path).st_mtime);
}

std::uint64_t SystemFiles::WriteStamp(std::string_view path) const {
    const struct stat info = paths_.Status(path);
    return Stamp({static_cast<std::uint64_t>(info.st_mtim.tv_sec),
                  static_cast<std::uint64_t>(info.st_mtim.tv_nsec), static_cast<std::uint64_t>(info.st_size),
                  static_cast<std::uint64_t>(info.st_ino)});
}

// --- Reading ---
ByteArray SystemFiles::Read(std::string_view path) const {
    return ReadAt(path, 0, LargestFile + 1);
}

ByteArray SystemFiles::ReadAt(std::string_view path, std::uint64_t offset, std::size_t count) const {
    const Descriptor file = paths_.OpenFile(path);
    ByteArray bytes(LengthFrom(file, offset, count));
    if (bytes.size() > LargestFile) RaiseRuntime(reOutOfMemory);
    bytes.resize(file.ReadAt(bytes.data(), bytes.size(), offset));
    return bytes;
}

ByteArray SystemFiles::ReadPart(std::string_view path, std::uint64_t offset, const PartLength& length) const {
    const Descriptor file = paths_.OpenFile(path);
    std::array<std::uint8_t, FirstPart> first;  // NOLINT: not filled in vain
    const std::size_t got = file.ReadAt(first.data(), first.size(), offset);
    const std::size_t wanted = length(ByteView(first.data(), got));
    ByteArray bytes(first.begin(), first.begin() + static_cast<std::ptrdiff_t>(std::min(got, wanted)));
    if (wanted <= got || got < first.size()) return bytes;
    bytes.resize(wanted);
    bytes.resize(got + file.ReadAt(bytes.data() + got, wanted - got, offset + got));
    return bytes;
}

// --- Writing ---
void SystemFiles::WriteWhole(std::string_view path, ByteView bytes) {
    WriteFileAt(paths_.Place(path), bytes);
}

void SystemFiles::Write(std::string_view path, ByteView bytes) {
    WriteOrOverwrite(paths_.Place(path), bytes, 0666);
}

void SystemFiles::WriteOrOverwrite(const DiskPlace& place, ByteView bytes, mode_t mode) {
    try {
        WriteFileAt(place, bytes, mode);
    } catch (const Error& error) {
        // A directory that takes no new files may still have one that takes bytes.
        struct stat status {};
        if (!error.Is(rePermissionDenied) || !place.Status(status) || !S_ISREG(status.st_mode)) throw;
        OverwriteFileAt(place, bytes);
    }
}

/// Opens a file to be changed where it is. One that has another name elsewhere, or is a link, becomes a file
/// of its own before that.
Descriptor SystemFiles::OpenToChange(const DiskPlace& place, std::string_view path, int flags) {
    for (bool own = false;; own = true) {
        Descriptor file = place.Open(O_WRONLY | flags);
        if (!file.IsOpen() && errno == ENOENT) {
            file = place.Open(O_WRONLY | O_CREAT | O_EXCL | flags, 0666);
            SharedListings().Forget(place.Directory.Number());
        }
        if (!file.IsOpen() && (errno != ELOOP || own)) RaiseErrno(errno);
        if (file.IsOpen()) {
            const struct stat status = file.Status();
            if (!S_ISREG(status.st_mode)) RaiseRuntime(rePathFileAccess);
            if (status.st_nlink <= 1) return file;
            if (own) RaiseRuntime(rePathFileAccess);
        }
        WriteFileAt(place, Read(path));
    }
}

void SystemFiles::WriteAt(std::string_view path, std::uint64_t offset, ByteView bytes) {
    Descriptor file = OpenToChange(paths_.Place(path), path, 0);
    file.WriteAt(bytes, offset);
    file.Close();
}

void SystemFiles::Append(std::string_view path, ByteView bytes) {
    Descriptor file = OpenToChange(paths_.Place(path), path, O_APPEND);
    file.Write(bytes);
    file.Close();
}

void SystemFiles::Copy(std::string_view from, std::string_view to) {
    const Descriptor source = paths_.OpenFile(from);
    const struct stat status = source.Status();
    ByteArray bytes(LengthFrom(source, 0, LargestFile + 1));
    if (bytes.size() > LargestFile) RaiseRuntime(reOutOfMemory);
    bytes.resize(source.ReadAt(bytes.data(), bytes.size(), 0));
    WriteOrOverwrite(paths_.Place(to), bytes, status.st_mode & 0777U);
}

// --- Names ---
void SystemFiles::Rename(std::string_view from, std::string_view to) {
    const DiskPlace source = paths_.Place(from);
    struct stat moved {};
    if (!source.Status(moved)) RaiseErrno(errno);
    const DiskPlace target = paths_.Place(to);
    struct stat taken {};
    const bool isTaken = target.Status(taken);
    if (isTaken && (taken.st_dev != moved.st_dev || taken.st_ino != moved.st_ino)) RaiseRuntime(reFileExists);
    // The new name is taken as it is written, while the directories before it are found as always.
    std::string_view wanted = to;
    while (wanted.ends_with('\\'))
        wanted.remove_suffix(1);
    const std::string name = NativePath(JustFileName(wanted));
    if (::renameat(source.Directory.Number(), source.Name.c_str(), target.Directory.Number(), name.c_str()) !=
        0)
        RaiseErrno(errno);
    SharedListings().Forget(source.Directory.Number());
    SharedListings().Forget(target.Directory.Number());
}

void SystemFiles::Replace(std::string_view from, std::string_view to) {
    const DiskPlace source = paths_.Place(from);
    const DiskPlace target = paths_.Place(to);
    // The new file takes over the permissions of the one it replaces; a failure here harms nothing.
    struct stat old {};
    if (target.Status(old) && S_ISREG(old.st_mode)) {
        const Descriptor file = source.Open(O_RDONLY);
        if (file.IsOpen() && S_ISREG(file.Status().st_mode))
            static_cast<void>(::fchmod(file.Number(), old.st_mode & 0777U));
    }
    if (::renameat(source.Directory.Number(), source.Name.c_str(), target.Directory.Number(),
                   target.Name.c_str()) != 0)
        RaiseErrno(errno);
    SharedListings().Forget(source.Directory.Number());
    SharedListings().Forget(target.Directory.Number());
}

void SystemFiles::Remove(std::string_view path) {
    const DiskPlace place = paths_.Place(path);
    struct stat status {};
    if (!place.Status(status)) RaiseErrno(errno);
    if (S_ISDIR(status.st_mode)) RaiseRuntime(rePathFileAccess);
    if (::unlinkat(place.Directory.Number(), place.Name.c_str(), 0) != 0) RaiseErrno(errno);
    SharedListings().Forget(place.Directory.Number());
}

void SystemFiles::MakeDirectory(std::string_view path) {
    const DiskPlace place = paths_.Place(path);
    struct stat status {};
    if (place.Status(status)) RaiseRuntime(rePathFileAccess);
    if (::mkdirat(place.Directory.Number(), place.Name.c_str(), 0777) != 0) RaiseErrno(errno);
    SharedListings().Forget(place.Directory.Number());
}

void SystemFiles::RemoveDirectory(std::string_view path) {
    const DiskPlace place = paths_.Place(path);
    if (::unlinkat(place.Directory.Number(), place.Name.c_str(), AT_REMOVEDIR) != 0) RaiseErrno(errno);
    SharedListings().Forget(place.Directory.Number());
}

std::string SystemFiles::UniqueTempFile(std::string_view directory, std::string_view prefix) {
    const Descriptor opened = paths_.OpenDirectory(directory);
    NewFile fresh(opened.Number(), prefix, 0666);
    std::string path = CDir(directory) + fresh.Name();
    fresh.Keep();
    SharedListings().Forget(opened.Number());
    return path;
}

// --- Directories of the process ---
std::string SystemFiles::CurrentDirectory() const {
    std::error_code code;
    const fs::path path = fs::current_path(code);
    Check(code);
    return InnerPath(path.string());
}

std::string SystemFiles::TempDirectory() const {
    std::error_code code;
    std::string path = InnerPath(fs::temp_directory_path(code).string());
    while (path.size() > 1 && path.back() == '\\')
        path.pop_back();
    return code ? std::string() : path;
}

}  // namespace zorvex
