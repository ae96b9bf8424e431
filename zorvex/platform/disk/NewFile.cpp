#include "zorvex/platform/disk/NewFile.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>
#include <random>

#include "zorvex/base/Error.h"
#include "zorvex/platform/disk/Listings.h"

namespace zorvex {

namespace {

constexpr mode_t permissionBits = 0777;
constexpr int namesToTry = 100;

std::string RandomName(std::string_view prefix) {
    static constexpr std::string_view signs = "0123456789abcdefghijklmnopqrstuvwxyz";
    std::string name(prefix);
    static thread_local std::random_device source;
    for (int i = 0; i < 8; ++i)
        name.push_back(signs[source() % signs.size()]);
    return name;
}

/// Whether a place is one where the system keeps its devices and the streams of a process: a link there is
/// the name of one.
bool LeadsToDevice(const DiskPlace& place, const struct stat& status) {
    if (place.Inside) return false;
    if (S_ISCHR(status.st_mode) || S_ISFIFO(status.st_mode)) return true;
    if (!S_ISLNK(status.st_mode)) return false;
    struct stat directory {};
    struct stat devices {};
    struct stat streams {};
    if (::fstat(place.Directory.Number(), &directory) != 0) return false;
    const auto same = [&directory](const struct stat& other) {
        return directory.st_dev == other.st_dev && directory.st_ino == other.st_ino;
    };
    return (::stat("/dev", &devices) == 0 && same(devices)) ||
           (::stat("/dev/fd", &streams) == 0 && same(streams));
}

void WriteToDevice(const DiskPlace& place, ByteView bytes) {
    Descriptor device(
        ::openat(place.Directory.Number(), place.Name.c_str(), O_WRONLY | O_APPEND | O_NOCTTY | O_CLOEXEC));
    if (!device.IsOpen()) RaiseErrno(errno);
    device.Write(bytes);
    device.Close();
}

}  // namespace

NewFile::NewFile(int directory, std::string_view prefix, mode_t mode) : directory_(directory) {
    for (int i = 0; i < namesToTry && !file_.IsOpen(); ++i) {
        name_ = RandomName(prefix);
        file_ = Descriptor(
            ::openat(directory, name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
        if (!file_.IsOpen() && errno != EEXIST) break;
    }
    if (file_.IsOpen()) return;
    name_.clear();
    RaiseErrno(errno);
}

NewFile::~NewFile() {
    if (!name_.empty()) ::unlinkat(directory_, name_.c_str(), 0);
}

void NewFile::TakeMode(const struct stat& old) const {
    // A file system without permissions harms nothing.
    static_cast<void>(::fchmod(file_.Number(), old.st_mode & permissionBits));
}

void NewFile::Become(const std::string& name) {
    file_.Close();
    if (::renameat(directory_, name_.c_str(), directory_, name.c_str()) != 0) RaiseErrno(errno);
    Keep();
    SharedListings().Forget(directory_);
}

void WriteFileAt(const DiskPlace& place, ByteView bytes, mode_t mode) {
    struct stat old {};
    const bool exists = place.Status(old);
    if (exists && LeadsToDevice(place, old)) return WriteToDevice(place, bytes);
    if (exists && !S_ISREG(old.st_mode) && !S_ISLNK(old.st_mode)) RaiseRuntime(rePathFileAccess);
    const bool replaces = exists && S_ISREG(old.st_mode);
    // Whoever may not read the old file must not read the new one before it has its permissions.
    NewFile fresh(place.Directory.Number(), "AGI", replaces ? 0600 : mode);
    fresh.File().Write(bytes);
    if (replaces) fresh.TakeMode(old);
    fresh.Become(place.Name);
}

void OverwriteFileAt(const DiskPlace& place, ByteView bytes) {
    Descriptor file = place.Open(O_WRONLY);
    if (!file.IsOpen()) RaiseErrno(errno);
    const struct stat status = file.Status();
    if (!S_ISREG(status.st_mode) || status.st_nlink > 1) RaiseRuntime(rePathFileAccess);
    file.WriteAt(bytes, 0);
    if (::ftruncate(file.Number(), static_cast<off_t>(bytes.size())) != 0) RaiseErrno(errno);
    file.Close();
}

}  // namespace zorvex
