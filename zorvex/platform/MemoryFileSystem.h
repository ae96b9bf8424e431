// Files in memory, in place of the machine's own: for hosts that open a game out of an archive, try an edit
// without touching the disk, or test themselves.
//
//     auto files = std::make_shared<MemoryFileSystem>();
//     files->MakeDirectory("\\game");
//     files->Write("\\game\\VOL.0", bytes);
//     const auto before = UseFileSystem(files);
//     game.OpenGameDIR("\\game");
#pragma once

#include <map>
#include <string>
#include <vector>

#include "zorvex/platform/FileSystem.h"

namespace zorvex {

/// File names ignore case, as on the machine's own file system, but no two in a directory differ only in
/// case. A path that does not begin with a backslash starts from "\work". There are the directories "\work"
/// and "\temp". Operations raise what those of the machine's files raise; a read copies the bytes.
class MemoryFileSystem : public FileSystem {
  public:
    MemoryFileSystem();

    /// All files with their bytes, by path as created.
    std::map<std::string, ByteArray> All() const;
    /// A file's bytes as a text; raises 53 when there is no such file.
    std::string Text(std::string_view path) const;

    FileKind Kind(std::string_view path) const override;
    std::uint64_t Size(std::string_view path) const override;
    std::vector<DirectoryEntry> List(std::string_view directory) const override;
    DateTime LastWriteTime(std::string_view path) const override;
    std::uint64_t WriteStamp(std::string_view path) const override;
    ByteArray Read(std::string_view path) const override;
    ByteArray ReadAt(std::string_view path, std::uint64_t offset, std::size_t count) const override;
    void Write(std::string_view path, ByteView bytes) override;
    void WriteAt(std::string_view path, std::uint64_t offset, ByteView bytes) override;
    void Append(std::string_view path, ByteView bytes) override;
    void Rename(std::string_view from, std::string_view to) override;
    void Replace(std::string_view from, std::string_view to) override;
    void Copy(std::string_view from, std::string_view to) override;
    void Remove(std::string_view path) override;
    void MakeDirectory(std::string_view path) override;
    void RemoveDirectory(std::string_view path) override;
    std::string UniqueTempFile(std::string_view directory, std::string_view prefix) override;
    std::string ShortPath(std::string_view path) const override { return std::string(path); }
    std::string CurrentDirectory() const override { return "\\work"; }
    std::string TempDirectory() const override { return "\\temp"; }

  private:
    struct Node {
        std::string path;  // as created
        FileKind kind = FileKind::File;
        ByteArray bytes;
        DateTime time;
        std::uint64_t stamp = 0;  // another one after each write
    };

    static std::string FullPath(std::string_view path);
    static std::string KeyOf(std::string_view path);
    const Node& FileAt(std::string_view path) const;
    void RequireDirectoryOf(std::string_view path) const;
    Node& FileFor(std::string_view path);
    void MoveNode(const std::string& from, std::string_view to);

    std::map<std::string, Node> nodes_;  // by path in lower case
    std::uint64_t writes_ = 0;
    int uniqueNames_ = 0;
};

}  // namespace zorvex
