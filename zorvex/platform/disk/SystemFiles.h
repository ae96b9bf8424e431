// The machine's own files.
//
// A file is opened first and looked at then, so that it is the one that was looked at. What is written is a
// new file until it is whole, and then takes the place of the old one; a link of that name goes, and what it
// led to stays as it was. Only volumes, directories of resources and logs are changed where they are, and a
// file that has another name elsewhere, or a link, gets a copy of its own before that.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/disk/Paths.h"

namespace zorvex {

class SystemFiles : public FileSystem {
  public:
    SystemFiles() = default;
    SystemFiles(std::string_view root, LinkRule mayBeLink) : paths_(root, std::move(mayBeLink)) {}

    std::shared_ptr<FileSystem> Below(std::string_view directory, LinkRule mayBeLink) override;
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
    std::string ShortPath(std::string_view path) const override { return std::string(path); }
    std::string CurrentDirectory() const override;
    std::string TempDirectory() const override;

  private:
    static void WriteOrOverwrite(const DiskPlace& place, ByteView bytes, mode_t mode);
    Descriptor OpenToChange(const DiskPlace& place, std::string_view path, int flags);

    DiskPaths paths_;
};

}  // namespace zorvex
