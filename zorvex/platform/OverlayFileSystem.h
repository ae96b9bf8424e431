// A directory of another file system, seen as it is and never changed: what is written below it stays in
// memory.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "zorvex/platform/FileSystem.h"

namespace zorvex {

/// Reads go through to the file system beneath; what is written, renamed or removed below the root is kept
/// here and goes with this object. Everything outside the root goes through. Names behave as on the machine's
/// own files: case counts for nothing where no name fits exactly, and two names that differ only in case are
/// two files. A file that was not changed is never read but when it is asked for, so that a look at a game
/// costs what the look needs, and a medium that cannot be written is no obstacle.
class OverlayFileSystem : public FileSystem {
  public:
    /// The root is an inner path, with or without a backslash at its end.
    OverlayFileSystem(std::shared_ptr<FileSystem> beneath, std::string_view root);

    /// The file system beneath.
    const std::shared_ptr<FileSystem>& Beneath() const { return beneath_; }
    /// True when anything below the root differs from what lies beneath.
    bool Changed() const { return !nodes_.empty(); }

    FileKind Kind(std::string_view path) const override;
    std::uint64_t Size(std::string_view path) const override;
    std::vector<DirectoryEntry> List(std::string_view directory) const override;
    DateTime LastWriteTime(std::string_view path) const override;
    std::uint64_t WriteStamp(std::string_view path) const override;
    ByteArray Read(std::string_view path) const override;
    ByteArray ReadAt(std::string_view path, std::uint64_t offset, std::size_t count) const override;
    ByteArray ReadPart(std::string_view path, std::uint64_t offset, const PartLength& length) const override;
    void Write(std::string_view path, ByteView bytes) override;
    void WriteWhole(std::string_view path, ByteView bytes) override;
    void WriteAt(std::string_view path, std::uint64_t offset, ByteView bytes) override;
    void Append(std::string_view path, ByteView bytes) override;
    void Rename(std::string_view from, std::string_view to) override;
    void Replace(std::string_view from, std::string_view to) override;
    void Copy(std::string_view from, std::string_view to) override;
    void Remove(std::string_view path) override;
    void MakeDirectory(std::string_view path) override;
    void RemoveDirectory(std::string_view path) override;
    std::string UniqueTempFile(std::string_view directory, std::string_view prefix) override;
    std::string ShortPath(std::string_view path) const override;
    std::string CurrentDirectory() const override { return beneath_->CurrentDirectory(); }
    std::string TempDirectory() const override { return beneath_->TempDirectory(); }

  private:
    /// A path that differs from what lies beneath; of the kind None where something beneath is hidden.
    struct Node {
        std::string path;
        FileKind kind = FileKind::None;
        ByteArray bytes;
        DateTime time;
    };

    bool IsInside(std::string_view path) const;
    const Node* NodeOf(std::string_view path) const;
    Node& NodeFor(std::string_view path);
    /// The node that a path means, or null where the file system beneath answers for `name`.
    const Node* Meant(std::string_view path, std::string& name) const;
    void RequireDirectoryOf(std::string_view path) const;
    /// The node to change of a file, made with what lies beneath if it was not there.
    Node& FileFor(std::string_view path, bool keepBytes);
    void Hide(std::string_view path);
    void MoveDirectory(const std::string& from, const std::string& to);

    std::shared_ptr<FileSystem> beneath_;
    std::string root_;                                // in lower case, with a backslash at its end
    std::map<std::string, std::vector<Node>> nodes_;  // by path in lower case
    int uniqueNames_ = 0;
};

}  // namespace zorvex
