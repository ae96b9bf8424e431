#include "zorvex/platform/FileSystem.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <random>
#include <system_error>
#include <utility>

#include "zorvex/base/Error.h"
#include "zorvex/base/FileName.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/Services.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace zorvex {

namespace fs = std::filesystem;

namespace {

/// One number that depends on each of several.
std::uint64_t Stamp(std::initializer_list<std::uint64_t> values) {
    std::uint64_t stamp = 14695981039346656037U;
    for (const std::uint64_t value : values)
        stamp = (stamp ^ value) * 1099511628211U;
    return stamp;
}

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

[[noreturn]] void RaiseErrno(int errnoValue) {
    RaiseRuntime(RuntimeNumberOf(errnoValue));
}

void Check(const std::error_code& code) {
    if (code) RaiseErrno(code.default_error_condition().value());
}

/// A C stream that closes itself; writes are complete only after Close.
class Stream {
  public:
    Stream(const fs::path& path, const char* mode) : file_(std::fopen(path.c_str(), mode)) {
        if (file_ == nullptr) RaiseErrno(errno);
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    ~Stream() {
        if (file_ != nullptr) std::fclose(file_);
    }

    void Seek(std::uint64_t offset) {
        if (fseeko(file_, static_cast<off_t>(offset), SEEK_SET) != 0) RaiseErrno(errno);
    }
    std::size_t Read(std::uint8_t* to, std::size_t count) {
        const std::size_t done = std::fread(to, 1, count, file_);
        if (done < count && std::ferror(file_) != 0) RaiseErrno(errno);
        return done;
    }
    void Write(ByteView bytes) {
        if (!bytes.empty() && std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size())
            RaiseErrno(errno);
    }
    void Close() {
        std::FILE* file = std::exchange(file_, nullptr);
        if (std::fclose(file) != 0) RaiseErrno(errno);
    }

  private:
    std::FILE* file_;
};

std::vector<DirectoryEntry> SortedEntries(const fs::path& directory) {
    std::vector<DirectoryEntry> entries;
    std::error_code code;
    for (fs::directory_iterator it(directory, code), end; !code && it != end; it.increment(code)) {
        // What cannot be a name inside the library, such as one with a backslash, would be met as another
        // file.
        if (!FileName::Fits(it->path().filename().string())) continue;
        std::error_code ignored;
        const bool isDirectory = it->is_directory(ignored);
        entries.push_back(
            {it->path().filename().string(), isDirectory ? FileKind::Directory : FileKind::File});
    }
    Check(code);
    std::sort(entries.begin(), entries.end(), [](const DirectoryEntry& a, const DirectoryEntry& b) {
        const int order = CompareNoCase(a.Name, b.Name);
        return order != 0 ? order < 0 : a.Name < b.Name;
    });
    return entries;
}

bool ExistsExactly(const fs::path& path) {
    std::error_code code;
    return fs::symlink_status(path, code).type() != fs::file_type::not_found && !code;
}

/// The path with each part that does not exist as written replaced by the first entry that differs only in
/// case.
fs::path Resolve(std::string_view innerPath) {
    fs::path path(NativePath(innerPath));
    if (path.empty() || ExistsExactly(path)) return path;
    fs::path resolved;
    for (const fs::path& part : path) {
        const fs::path next = resolved / part;
        if (part.empty() || ExistsExactly(next)) {
            resolved = next;
            continue;
        }
        const std::string wanted = part.string();
        std::string found;
        std::error_code code;
        for (fs::directory_iterator it(resolved.empty() ? fs::path(".") : resolved, code), end;
             !code && it != end; it.increment(code)) {
            std::string name = it->path().filename().string();
            if (EqualNoCase(name, wanted) && (found.empty() || name < found)) found = std::move(name);
        }
        resolved = found.empty() ? next : resolved / found;
    }
    return resolved;
}

DateTime UniversalTime(std::time_t seconds) {
    std::tm utc{};
#ifdef _WIN32
    gmtime_s(&utc, &seconds);
#else
    gmtime_r(&seconds, &utc);
#endif
    return {utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec};
}

std::string WithoutEndSlash(std::string path) {
    while (path.size() > 1 && path.back() == '\\')
        path.pop_back();
    return path;
}

class SystemFiles : public FileSystem {
  public:
    FileKind Kind(std::string_view path) const override {
        if (path.find('\0') != std::string_view::npos) return FileKind::None;
        std::error_code code;
        const fs::file_status status = fs::status(Resolve(path), code);
        if (code || !fs::exists(status)) return FileKind::None;
        return fs::is_directory(status) ? FileKind::Directory : FileKind::File;
    }

    std::uint64_t Size(std::string_view path) const override {
        std::error_code code;
        const std::uintmax_t size = fs::file_size(Resolve(path), code);
        Check(code);
        return size;
    }

    std::vector<DirectoryEntry> List(std::string_view directory) const override {
        return SortedEntries(directory.empty() ? fs::path(".") : Resolve(directory));
    }

    DateTime LastWriteTime(std::string_view path) const override {
        struct stat info {};
        if (::stat(Resolve(path).c_str(), &info) != 0) RaiseErrno(errno);
        return UniversalTime(info.st_mtime);
    }

    std::uint64_t WriteStamp(std::string_view path) const override {
        struct stat info {};
        if (::stat(Resolve(path).c_str(), &info) != 0) RaiseErrno(errno);
        return Stamp({static_cast<std::uint64_t>(info.st_mtim.tv_sec),
                      static_cast<std::uint64_t>(info.st_mtim.tv_nsec),
                      static_cast<std::uint64_t>(info.st_size), static_cast<std::uint64_t>(info.st_ino)});
    }

    ByteArray Read(std::string_view path) const override {
        const fs::path resolved = Resolve(path);
        RaiseForDirectory(resolved);
        std::error_code code;
        // A name in a game can lead to a device, which need not have an end.
        if (fs::is_character_file(resolved, code)) RaiseRuntime(rePathFileAccess);
        Stream stream(resolved, "rb");
        ByteArray bytes;
        const std::uintmax_t size = fs::file_size(resolved, code);
        if (!code) bytes.reserve(static_cast<std::size_t>(size));
        constexpr std::size_t block = 1U << 16U;
        for (std::size_t done = block; done == block;) {
            const std::size_t before = bytes.size();
            bytes.resize(before + block);
            done = stream.Read(bytes.data() + before, block);
            bytes.resize(before + done);
        }
        return bytes;
    }

    ByteArray ReadAt(std::string_view path, std::uint64_t offset, std::size_t count) const override {
        const fs::path resolved = Resolve(path);
        RaiseForDirectory(resolved);
        Stream stream(resolved, "rb");
        stream.Seek(offset);
        ByteArray bytes(count);
        bytes.resize(stream.Read(bytes.data(), count));
        return bytes;
    }

    void Write(std::string_view path, ByteView bytes) override {
        Stream stream(Resolve(path), "wb");
        stream.Write(bytes);
        stream.Close();
    }

    void WriteAt(std::string_view path, std::uint64_t offset, ByteView bytes) override {
        const fs::path resolved = Resolve(path);
        Stream stream(resolved, ExistsExactly(resolved) ? "r+b" : "w+b");
        stream.Seek(offset);
        stream.Write(bytes);
        stream.Close();
    }

    void Append(std::string_view path, ByteView bytes) override {
        Stream stream(Resolve(path), "ab");
        stream.Write(bytes);
        stream.Close();
    }

    void Rename(std::string_view from, std::string_view to) override {
        const fs::path source = Resolve(from);
        if (!ExistsExactly(source)) RaiseRuntime(reFileNotFound);
        const fs::path target = Resolve(to);
        std::error_code code;
        if (ExistsExactly(target) && !fs::equivalent(source, target, code)) RaiseRuntime(reFileExists);
        // The new name is taken as it is written, while the directories before it are found as always.
        const fs::path wanted(NativePath(WithoutEndSlash(std::string(to))));
        fs::rename(source, Resolve(InnerPath(wanted.parent_path().string())) / wanted.filename(), code);
        Check(code);
    }

    void Replace(std::string_view from, std::string_view to) override {
        const fs::path source = Resolve(from);
        const fs::path target = Resolve(to);
        std::error_code code;
        // The new file takes over the permissions of the one it replaces; a failure here harms nothing.
        const fs::file_status replaced = fs::status(target, code);
        if (!code && fs::exists(replaced)) fs::permissions(source, replaced.permissions(), code);
        fs::rename(source, target, code);
        Check(code);
    }

    void Copy(std::string_view from, std::string_view to) override {
        std::error_code code;
        fs::copy_file(Resolve(from), Resolve(to), fs::copy_options::overwrite_existing, code);
        Check(code);
    }

    void Remove(std::string_view path) override {
        const fs::path resolved = Resolve(path);
        RaiseForDirectory(resolved);
        std::error_code code;
        if (!fs::remove(resolved, code) && !code) RaiseRuntime(reFileNotFound);
        Check(code);
    }

    void MakeDirectory(std::string_view path) override {
        std::error_code code;
        if (!fs::create_directory(Resolve(WithoutEndSlash(std::string(path))), code) && !code) {
            RaiseRuntime(rePathFileAccess);
        }
        Check(code);
    }

    void RemoveDirectory(std::string_view path) override {
        if (::rmdir(Resolve(WithoutEndSlash(std::string(path))).c_str()) != 0) RaiseErrno(errno);
    }

    std::string UniqueTempFile(std::string_view directory, std::string_view prefix) override {
        std::string path = (Resolve(directory) / (std::string(prefix) + "XXXXXX")).string();
        const int descriptor = ::mkstemp(path.data());
        if (descriptor < 0) RaiseErrno(errno);
        // The file may become one of the game's own, so it gets the permissions of any new file.
        const mode_t mask = ::umask(0);
        ::umask(mask);
        static_cast<void>(::fchmod(descriptor, 0666U & ~mask));
        ::close(descriptor);
        return InnerPath(path);
    }

    std::string ShortPath(std::string_view path) const override { return std::string(path); }

    std::string CurrentDirectory() const override {
        std::error_code code;
        const fs::path path = fs::current_path(code);
        Check(code);
        return InnerPath(path.string());
    }

    std::string TempDirectory() const override {
        std::error_code code;
        const fs::path path = fs::temp_directory_path(code);
        return code ? std::string() : WithoutEndSlash(InnerPath(path.string()));
    }

  private:
    // Opening a directory for reading succeeds on some systems and fails only at the first read.
    static void RaiseForDirectory(const fs::path& path) {
        std::error_code code;
        if (fs::is_directory(path, code)) RaiseRuntime(rePathFileAccess);
    }
};

const std::shared_ptr<FileSystem>& MachineFiles() {
    static const std::shared_ptr<FileSystem> files = MakeSystemFiles();
    return files;
}

}  // namespace

FileSystem& Files() {
    const Services& services = PresentServices();
    if (services.Overlay) return *services.Overlay;
    return services.Files ? *services.Files : *MachineFiles();
}

std::shared_ptr<FileSystem> FilesBeneath() {
    const auto& files = PresentServices().Files;
    return files ? files : MachineFiles();
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

std::uint64_t FileSystem::WriteStamp(std::string_view path) const {
    std::uint64_t stamp = Size(path);
    for (const char c : DateText(LastWriteTime(path)))
        stamp = Stamp({stamp, static_cast<unsigned char>(c)});
    return stamp;
}

}  // namespace zorvex
