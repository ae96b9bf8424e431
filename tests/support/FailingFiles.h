// Files in memory that fail on demand.
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

#include <memory>

#include "zorvex/platform/MemoryFileSystem.h"

namespace zorvex::test {

class FailingFileSystem : public MemoryFileSystem {
  public:
    /// Lets the n-th change from here fail with a run-time error; a write still writes its first `partial`
    /// bytes, and a copy copies them.
    void FailAt(int n, std::int32_t error, std::size_t partial = 0);
    /// As FailAt, and every change after it fails too, as after a crash.
    void KillAt(int n, std::size_t partial = 0);
    /// Nothing fails any more.
    void Heal() { FailAt(0, 0); }
    /// Lets a file no longer be read, as a whole or in part. The path is taken exactly.
    void MakeUnreadable(std::string path) { unreadable_ = std::move(path); }
    /// The changes since the last FailAt, KillAt or Heal, failed ones included. Reads are no changes.
    int Changes() const { return changes_; }

    ByteArray Read(std::string_view path) const override;
    ByteArray ReadAt(std::string_view path, std::uint64_t offset, std::size_t count) const override;
    void Write(std::string_view path, ByteView bytes) override;
    void WriteAt(std::string_view path, std::uint64_t offset, ByteView bytes) override;
    void Append(std::string_view path, ByteView bytes) override;
    void Rename(std::string_view from, std::string_view to) override;
    void Replace(std::string_view from, std::string_view to) override;
    void Remove(std::string_view path) override;
    void MakeDirectory(std::string_view path) override;
    void RemoveDirectory(std::string_view path) override;
    std::string UniqueTempFile(std::string_view directory, std::string_view prefix) override;

  private:
    bool Fails();
    template <class Step>
    void Change(ByteView bytes, Step step);

    std::string unreadable_;
    int changes_ = 0;
    int failFrom_ = 0;  // 0: none
    int failUntil_ = 0;
    std::int32_t error_ = 0;
    std::size_t partial_ = 0;
};

/// Puts files in memory in use, and the former file system at the end of the scope.
class MemoryFiles {
  public:
    MemoryFiles();
    MemoryFiles(const MemoryFiles&) = delete;
    MemoryFiles& operator=(const MemoryFiles&) = delete;
    ~MemoryFiles();

    FailingFileSystem* operator->() const { return files_.get(); }
    FailingFileSystem& operator*() const { return *files_; }

  private:
    std::shared_ptr<FailingFileSystem> files_ = std::make_shared<FailingFileSystem>();
    std::shared_ptr<FileSystem> before_;
};

}  // namespace zorvex::test
