// The entries of an open directory, one after the other.
#pragma once

#include <dirent.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zorvex {

/// Sees only entries whose names a FileName can hold. Raises what the system tells.
class DirectoryReader {
  public:
    /// The directory stays open on its own.
    explicit DirectoryReader(int directory);
    DirectoryReader(const DirectoryReader&) = delete;
    DirectoryReader& operator=(const DirectoryReader&) = delete;
    ~DirectoryReader();

    /// The next entry's name, or nothing at the end; it lasts until the next call.
    std::optional<std::string_view> Next();
    /// The type of that entry as the directory tells it, DT_UNKNOWN where it does not.
    unsigned char Type() const { return type_; }

  private:
    DIR* stream_ = nullptr;
    unsigned char type_ = DT_UNKNOWN;
};

}  // namespace zorvex
