// A file or directory of the system that is open, and the faults of its calls.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <utility>

#include "zorvex/base/Types.h"

namespace zorvex {

/// Raises the run-time error that stands for an error number of the system.
[[noreturn]] void RaiseErrno(int errnoValue);

/// Closes what it holds at its end. Every call goes on after a signal and raises what the system tells.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();

    bool IsOpen() const noexcept { return number_ >= 0; }
    int Number() const noexcept { return number_; }
    /// Gives the number away; whoever takes it closes it.
    int Release() noexcept { return std::exchange(number_, -1); }

    struct stat Status() const;
    /// Up to `count` bytes from `offset`, fewer at the end of the file.
    std::size_t ReadAt(std::uint8_t* to, std::size_t count, std::uint64_t offset) const;
    /// All bytes, at the place where the descriptor stands or from `offset` on.
    void Write(ByteView bytes) const;
    void WriteAt(ByteView bytes, std::uint64_t offset) const;
    /// Some systems tell of a full disk no earlier than here.
    void Close();

  private:
    int number_ = -1;
};

/// Opens a path relative to an open directory in such a way that no part of it is a link and none leads out;
/// the last part may be a link only for an open with O_PATH and O_NOFOLLOW, which then holds the link itself.
/// A descriptor that is not open means a failure, told by errno: ELOOP for a link, EXDEV for a way out.
Descriptor OpenBeneath(int directory, const char* path, int flags, mode_t mode = 0);
/// The same by one open for each part, for systems that cannot do it in one step.
Descriptor OpenPartByPart(int directory, const char* path, int flags, mode_t mode = 0);

/// What opens a directory only to go on from it.
extern const int directoryFlags;

}  // namespace zorvex
