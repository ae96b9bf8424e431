// A file on its way to a name: it is written under another one, by the descriptor that made it.
#pragma once

#include <string>
#include <string_view>

#include "zorvex/platform/disk/Paths.h"

namespace zorvex {

class NewFile {
  public:
    /// Makes an empty file with a name of its own in a directory. The mask of the process takes its share of
    /// the mode.
    NewFile(int directory, std::string_view prefix, mode_t mode);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    /// Removes the file, unless it was kept or has its name.
    ~NewFile();

    const Descriptor& File() const { return file_; }
    const std::string& Name() const { return name_; }
    void Keep() { name_.clear(); }
    /// Gives the file the permissions of an old one, without those that let a program run as another user.
    void TakeMode(const struct stat& old) const;
    /// Closes the file and puts it in place of whatever has that name in the directory.
    void Become(const std::string& name);

  private:
    int directory_;
    Descriptor file_;
    std::string name_;
};

/// Writes a whole file at a place: a new file that takes over the permissions of the one it replaces, or that
/// gets `mode` less the mask of the process. A pipe or device that a person named takes the bytes as they
/// come.
void WriteFileAt(const DiskPlace& place, ByteView bytes, mode_t mode = 0666);

/// The same where the directory takes no new files: over the old bytes.
void OverwriteFileAt(const DiskPlace& place, ByteView bytes);

}  // namespace zorvex
