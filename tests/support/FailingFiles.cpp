#include "tests/support/FailingFiles.h"

#include <algorithm>
#include <limits>

#include "zorvex/base/Error.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex::test {

void FailingFileSystem::FailAt(int n, std::int32_t error, std::size_t partial) {
    changes_ = 0;
    failFrom_ = failUntil_ = n;
    error_ = error;
    partial_ = partial;
}

void FailingFileSystem::KillAt(int n, std::size_t partial) {
    FailAt(n, reDeviceIO, partial);
    failUntil_ = std::numeric_limits<int>::max();
}

/// Counts a change and tells whether it is one that fails.
bool FailingFileSystem::Fails() {
    ++changes_;
    return failFrom_ != 0 && changes_ >= failFrom_ && changes_ <= failUntil_;
}

/// Takes a step with its bytes, or with as many of them as are still let through before the failure.
template <class Step>
void FailingFileSystem::Change(ByteView bytes, Step step) {
    if (!Fails()) return step(bytes);
    const std::size_t part = changes_ == failFrom_ ? std::min(bytes.size(), partial_) : 0;
    if (part > 0) step(bytes.first(part));
    RaiseRuntime(error_);
}

ByteArray FailingFileSystem::Read(std::string_view path) const {
    if (path == unreadable_) RaiseRuntime(rePermissionDenied);
    return MemoryFileSystem::Read(path);
}

ByteArray FailingFileSystem::ReadAt(std::string_view path, std::uint64_t offset, std::size_t count) const {
    if (path == unreadable_) RaiseRuntime(rePermissionDenied);
    return MemoryFileSystem::ReadAt(path, offset, count);
}

void FailingFileSystem::Write(std::string_view path, ByteView bytes) {
    Change(bytes, [&](ByteView part) { MemoryFileSystem::Write(path, part); });
}

void FailingFileSystem::WriteAt(std::string_view path, std::uint64_t offset, ByteView bytes) {
    Change(bytes, [&](ByteView part) { MemoryFileSystem::WriteAt(path, offset, part); });
}

void FailingFileSystem::Append(std::string_view path, ByteView bytes) {
    Change(bytes, [&](ByteView part) { MemoryFileSystem::Append(path, part); });
}

void FailingFileSystem::Rename(std::string_view from, std::string_view to) {
    Change({}, [&](ByteView) { MemoryFileSystem::Rename(from, to); });
}

void FailingFileSystem::Replace(std::string_view from, std::string_view to) {
    Change({}, [&](ByteView) { MemoryFileSystem::Replace(from, to); });
}

void FailingFileSystem::Remove(std::string_view path) {
    Change({}, [&](ByteView) { MemoryFileSystem::Remove(path); });
}

void FailingFileSystem::MakeDirectory(std::string_view path) {
    Change({}, [&](ByteView) { MemoryFileSystem::MakeDirectory(path); });
}

void FailingFileSystem::RemoveDirectory(std::string_view path) {
    Change({}, [&](ByteView) { MemoryFileSystem::RemoveDirectory(path); });
}

std::string FailingFileSystem::UniqueTempFile(std::string_view directory, std::string_view prefix) {
    std::string path;
    Change({}, [&](ByteView) { path = MemoryFileSystem::UniqueTempFile(directory, prefix); });
    return path;
}

MemoryFiles::MemoryFiles() : before_(UseFileSystem(files_)) {}

MemoryFiles::~MemoryFiles() {
    UseFileSystem(before_);
}

}  // namespace zorvex::test
