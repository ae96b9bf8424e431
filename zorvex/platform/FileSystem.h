// The files of the system behind a plain interface that a test can replace.
//
// Every path here is an inner path: parts separated by backslashes, a directory with or without one at its
// end. File names ignore ASCII case: where no entry has the exact name, the first that differs only in case
// is meant. Failures are raised as plain run-time errors (53, 58, 61, 70, 75, 76 and so on).
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/platform/Clock.h"

namespace zorvex {

enum class FileKind : std::uint8_t { None, File, Directory };

/// One entry of a directory listing.
struct DirectoryEntry {
    std::string Name;
    FileKind Kind = FileKind::None;
    bool IsLink = false;  ///< a link, of the kind of what it leads to
};

/// Whether a name directly in a directory may be a link to a regular file, for reading.
using LinkRule = std::function<bool(std::string_view name)>;
/// Tells from the first bytes of a part how many bytes it has, these included.
using PartLength = std::function<std::size_t(ByteView first)>;

class FileSystem {
  public:
    /// No file of more bytes is read as a whole; see ReadWithin for the limits of the kinds of files.
    static constexpr std::size_t LargestFile = 64U << 20U;
    /// How many bytes ReadPart reads first.
    static constexpr std::size_t FirstPart = 8192;

    virtual ~FileSystem() = default;

    /// These files seen in such a way that no path below a directory leads out of it: what is there and below
    /// is reached from the open directory and through no link, but for files in it that the rule lets be
    /// links, and those only to be read. Null, as by default, where there is nothing that could lead out.
    virtual std::shared_ptr<FileSystem> Below(std::string_view directory, LinkRule mayBeLink);

    /// What a path names. Never raises.
    virtual FileKind Kind(std::string_view path) const = 0;
    /// A file's length in bytes.
    virtual std::uint64_t Size(std::string_view path) const = 0;
    /// The entries of a directory except "." and "..", by name without regard to case, then by byte order.
    /// An entry whose name no FileName can hold is not seen.
    virtual std::vector<DirectoryEntry> List(std::string_view directory) const = 0;
    /// Last write time in universal time.
    virtual DateTime LastWriteTime(std::string_view path) const = 0;
    /// A value that is another one after each write of the file, as finely as the system tells; by default of
    /// its length and its last write time.
    virtual std::uint64_t WriteStamp(std::string_view path) const;

    /// The whole file; raises 7 above LargestFile.
    virtual ByteArray Read(std::string_view path) const = 0;
    /// Up to `count` bytes from `offset`; fewer where the file ends before.
    virtual ByteArray ReadAt(std::string_view path, std::uint64_t offset, std::size_t count) const = 0;
    /// Bytes from `offset`, of which the first tell how many are wanted; fewer where the file ends before. On
    /// the machine's files one open, one read for parts of up to FirstPart bytes and two for longer ones.
    virtual ByteArray ReadPart(std::string_view path, std::uint64_t offset, const PartLength& length) const;

    /// Makes the file hold just these bytes, creating it if need be.
    virtual void Write(std::string_view path, ByteView bytes) = 0;
    /// As Write, but at every moment the file is the old one or the new one. Raises the fault of the step
    /// that failed, also where the directory takes no new files, and leaves no other file behind.
    virtual void WriteWhole(std::string_view path, ByteView bytes);
    /// Writes into a file from `offset`, creating or extending it if need be; the rest of it stays.
    virtual void WriteAt(std::string_view path, std::uint64_t offset, ByteView bytes) = 0;
    /// Adds bytes at the end of a file, creating it if need be.
    virtual void Append(std::string_view path, ByteView bytes) = 0;

    /// Gives a file or directory another name; raises 58 if that name is taken by another.
    virtual void Rename(std::string_view from, std::string_view to) = 0;
    /// Gives a file another name in one step, in place of any file of that name.
    virtual void Replace(std::string_view from, std::string_view to) = 0;
    /// Copies a file, over an existing one if there is one.
    virtual void Copy(std::string_view from, std::string_view to) = 0;
    /// Deletes a file; raises 53 if there is none.
    virtual void Remove(std::string_view path) = 0;
    virtual void MakeDirectory(std::string_view path) = 0;
    /// Removes an empty directory.
    virtual void RemoveDirectory(std::string_view path) = 0;

    /// Creates an empty file with a unique name that begins with `prefix` and returns its path.
    virtual std::string UniqueTempFile(std::string_view directory, std::string_view prefix) = 0;
    /// A form of an existing path without blanks, where the system has one; else the path itself.
    virtual std::string ShortPath(std::string_view path) const = 0;
    /// The current directory, without a separator at its end.
    virtual std::string CurrentDirectory() const = 0;
    /// The system's directory for temporary files, without a separator at its end; empty if it reports none.
    virtual std::string TempDirectory() const = 0;
};

/// The file system in use in the present workspace.
FileSystem& Files();
/// Puts another file system in use in the present workspace and returns the one used before; an empty pointer
/// restores the system's own.
std::shared_ptr<FileSystem> UseFileSystem(std::shared_ptr<FileSystem> files);
/// The file system in use, without the overlay of a game that is open to be looked at only.
std::shared_ptr<FileSystem> FilesBeneath();
/// A new file system on the machine's own files.
std::shared_ptr<FileSystem> MakeSystemFiles();

/// A path from a host in the inner form: both separators become backslashes.
std::string InnerPath(std::string_view hostPath);
/// An inner path in the system's own form. Raises 64 for a path with a zero byte.
std::string NativePath(std::string_view innerPath);

/// Names of the files (not directories) of a directory that match a pattern such as "*DIR", in the order of
/// List. A directory that cannot be listed has none.
std::vector<std::string> FilesMatching(std::string_view directory, std::string_view pattern);
/// Names of the subdirectories of a directory.
std::vector<std::string> SubdirectoriesOf(std::string_view directory);

}  // namespace zorvex
