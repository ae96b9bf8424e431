#include "zorvex/platform/FileSystem.h"

#include <algorithm>
#include <utility>

#include "zorvex/base/Error.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/Services.h"
#include "zorvex/platform/disk/SystemFiles.h"

namespace zorvex {

namespace {

const std::shared_ptr<FileSystem>& MachineFiles() {
    static const std::shared_ptr<FileSystem> files = MakeSystemFiles();
    return files;
}

}  // namespace

FileSystem& Files() {
    const Services& services = PresentServices();
    if (services.Overlay) return *services.Overlay;
    const auto& files = services.Files ? services.Files : MachineFiles();
    return services.Below && services.BelowOf == files ? *services.Below : *files;
}

std::shared_ptr<FileSystem> FilesBeneath() {
    const Services& services = PresentServices();
    const auto& files = services.Files ? services.Files : MachineFiles();
    return services.Below && services.BelowOf == files ? services.Below : files;
}

void EnterGameDirectory(Services& services, std::string_view directory, LinkRule mayBeLink) {
    services.BelowOf = services.Files ? services.Files : MachineFiles();
    services.Below = services.BelowOf->Below(directory, std::move(mayBeLink));
}

void LeaveGameDirectory(Services& services) noexcept {
    services.Below.reset();
    services.BelowOf.reset();
}

std::shared_ptr<FileSystem> UseFileSystem(std::shared_ptr<FileSystem> files) {
    auto before = std::exchange(PresentServices().Files, std::move(files));
    return before ? before : MachineFiles();
}

std::shared_ptr<FileSystem> MakeSystemFiles() {
    return std::make_shared<SystemFiles>();
}

std::string InnerPath(std::string_view hostPath) {
    std::string path(hostPath);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::string NativePath(std::string_view innerPath) {
    // The system would take the path for one that ends here.
    if (innerPath.find('\0') != std::string_view::npos) RaiseRuntime(reBadFileName);
    std::string path(innerPath);
#ifndef _WIN32
    std::replace(path.begin(), path.end(), '\\', '/');
#endif
    return path;
}

namespace {

std::vector<std::string> NamesOfKind(std::string_view directory, FileKind kind, std::string_view pattern) {
    std::vector<std::string> names;
    try {
        for (const DirectoryEntry& entry : Files().List(directory)) {
            if (entry.Kind == kind && MatchesPattern(entry.Name, pattern)) names.push_back(entry.Name);
        }
    } catch (...) {  // what cannot be listed holds nothing
        names.clear();
    }
    return names;
}

}  // namespace

std::vector<std::string> FilesMatching(std::string_view directory, std::string_view pattern) {
    return NamesOfKind(directory, FileKind::File, pattern);
}

std::vector<std::string> SubdirectoriesOf(std::string_view directory) {
    return NamesOfKind(directory, FileKind::Directory, "*");
}

// --- What file systems have in common ---
std::uint64_t FileSystem::WriteStamp(std::string_view path) const {
    std::uint64_t stamp = Size(path);
    for (const char c : DateText(LastWriteTime(path)))
        stamp = (stamp ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return stamp;
}

std::shared_ptr<FileSystem> FileSystem::Below(std::string_view /*directory*/, LinkRule /*mayBeLink*/) {
    return nullptr;
}

ByteArray FileSystem::ReadPart(std::string_view path, std::uint64_t offset, const PartLength& length) const {
    ByteArray bytes = ReadAt(path, offset, FirstPart);
    const std::size_t got = bytes.size();
    const std::size_t wanted = length(bytes);
    if (wanted <= got) bytes.resize(wanted);
    if (wanted <= got || got < FirstPart) return bytes;
    const ByteArray rest = ReadAt(path, offset + got, wanted - got);
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    return bytes;
}

void FileSystem::WriteWhole(std::string_view path, ByteView bytes) {
    std::string directory = JustPath(path, true);
    if (directory.empty()) directory = ".";
    const std::string beside = UniqueTempFile(directory, "AGI");
    Guarded(
        [&] {
            Write(beside, bytes);
            Replace(beside, path);
        },
        [&] { Remove(beside); });
}

}  // namespace zorvex
