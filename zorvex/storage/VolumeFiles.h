// The volume files of a run through all resources of a game: the old ones read once each, the new one written
// in large pieces.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

/// Volume files as far as resources can lie in them, by path; sixteen of them at most come to 18 MB.
class HeldVolumes {
  public:
    /// A volume's bytes, read when it is asked for the first time; null for one that cannot be read.
    const ByteArray* Find(const std::string& path);
    /// After the file has changed.
    void Forget(std::string_view path);

  private:
    std::map<std::string, ByteArray, std::less<>> volumes_;
};

/// While one of these lives, LibraryState::Volumes holds what is read of volumes. Whoever changes a volume
/// file calls ForgetVolume.
class HoldingVolumes {
  public:
    HoldingVolumes();
    HoldingVolumes(const HoldingVolumes&) = delete;
    HoldingVolumes& operator=(const HoldingVolumes&) = delete;
    ~HoldingVolumes();

  private:
    bool first_;  // one inside another leaves all to the outer one
};

/// A volume's bytes while volumes are held, else null.
const ByteArray* HeldVolume(const std::string& path);
void ForgetVolume(std::string_view path);

/// A new volume under construction.
class NewVolume {
  public:
    /// Goes on behind the first `length` bytes of a file.
    NewVolume(std::string path, std::int32_t length) : path_(std::move(path)), written_(length) {}

    /// Adds bytes at the end. When what waits for the disk cannot be written, that fault is raised and
    /// nothing is added.
    void Add(ByteView bytes);
    /// Writes all that waits.
    void Flush();

  private:
    std::string path_;
    std::int32_t written_;
    ByteArray waiting_;
};

}  // namespace zorvex
