// A file system in memory that fails on demand.
//
//     MemoryFiles files;                        // in use until the end of the scope
//     files->MakeDirectory("\\game");
//     files->Write("\\game\\vol.0", bytes);
//     files->FailAt(3, reDiskFull, 10);         // the third change from here writes ten bytes and fails
//     EXPECT_FALSE(SavePropertyList(*list));
//     EXPECT_EQ(files->Changes(), 4);           // the clean-up was the fourth
//
// To try every place where an operation can break off, run it for n = 1, 2, ... with KillAt(n) until
// Changes() stays below n, and look after each at what is left.
#pragma once

#include <limits>
#include <map>
#include <memory>

#include "zorvex/platform/FileSystem.h"

namespace zorvex::test {

/// File names ignore case, as on the machine's own file system, but no two in a directory differ only in
/// case. A path that does not begin with a backslash starts from "\work". There are the directories "\work"
/// and "\temp".
class MemoryFileSystem : public FileSystem {
  public:
    MemoryFileSystem();

    /// Lets the n-th change from here fail with a run-time error; a write still writes its first `partial`
    /// bytes, and a copy copies them.
    void FailAt(int n, std::int32_t error, std::size_t partial = 0);
    /// As FailAt, and every change after it fails too, as after a crash.
    void KillAt(int n, std::size_t partial = 0);
    /// Nothing fails any more.
    void Heal();
    /// The changes since the last FailAt, KillAt or Heal, failed ones included. Reads are no changes.
    int Changes() const { return changes_; }
    /// All files with their bytes, by path as created.
    std::map<std::string, ByteArray> All() const;
    /// A file's bytes as a text; raises 53 when there is no such file.
    std::string Text(std::string_view path) const;

    FileKind Kind(std::string_view path) const override;
    std::uint64_t Size(std::string_view path) const override;
    std::vector<DirectoryEntry> List(std::string_view directory) const override;
    DateTime LastWriteTime(std::string_view path) const override;
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
    };
    /// What a change may still do before it fails: everything when it does not.
    struct Permit {
        std::size_t bytes = std::numeric_limits<std::size_t>::max();
        std::int32_t error = 0;
        void Finish() const;
    };

    static std::string FullPath(std::string_view path);
    static std::string KeyOf(std::string_view path);
    const Node& FileAt(std::string_view path) const;
    Node& FileFor(std::string_view path);
    void MoveNode(const std::string& from, std::string_view to);
    Permit Change();

    std::map<std::string, Node> nodes_;  // by path in lower case
    int changes_ = 0;
    int failFrom_ = 0;  // 0: none
    int failUntil_ = 0;
    std::int32_t error_ = 0;
    std::size_t partial_ = 0;
    int uniqueNames_ = 0;
};

/// Puts a MemoryFileSystem in use, and the former file system at the end of the scope.
class MemoryFiles {
  public:
    MemoryFiles();
    MemoryFiles(const MemoryFiles&) = delete;
    MemoryFiles& operator=(const MemoryFiles&) = delete;
    ~MemoryFiles();

    MemoryFileSystem* operator->() const { return files_.get(); }
    MemoryFileSystem& operator*() const { return *files_; }

  private:
    std::shared_ptr<MemoryFileSystem> files_ = std::make_shared<MemoryFileSystem>();
    std::shared_ptr<FileSystem> before_;
    std::string tempDirBefore_;
};

}  // namespace zorvex::test
