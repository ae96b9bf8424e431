#include "zorvex/storage/VolumeFiles.h"

#include <algorithm>

#include "zorvex/base/Faults.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceFunctions.h"

namespace zorvex {

namespace {

// A directory entry has 20 bits for the place, and a header 16 for the size.
constexpr std::uint64_t farthestByte = 0xFFFFF + HeaderLengthV3 + 0xFFFF;
constexpr std::size_t pieceLength = 1U << 18U;

}  // namespace

const ByteArray* HeldVolumes::Find(const std::string& path) {
    const auto found = volumes_.find(path);
    if (found != volumes_.end()) return &found->second;
    const ByteArray* volume = nullptr;
    Attempt([&] {
        const std::uint64_t length = std::min(Files().Size(path), farthestByte);
        volume = &(volumes_[path] = Files().ReadAt(path, 0, static_cast<std::size_t>(length)));
    });
    return volume;
}

void HeldVolumes::Forget(std::string_view path) {
    const auto found = volumes_.find(path);
    if (found != volumes_.end()) volumes_.erase(found);
}

HoldingVolumes::HoldingVolumes() : first_(!Library().Volumes) {
    if (first_) Library().Volumes = std::make_shared<HeldVolumes>();
}

HoldingVolumes::~HoldingVolumes() {
    if (first_) Library().Volumes.reset();
}

const ByteArray* HeldVolume(const std::string& path) {
    const auto& volumes = Library().Volumes;
    return volumes ? volumes->Find(path) : nullptr;
}

void ForgetVolume(std::string_view path) {
    if (const auto& volumes = Library().Volumes) volumes->Forget(path);
}

void NewVolume::Add(ByteView bytes) {
    if (waiting_.size() + bytes.size() > pieceLength) Flush();
    waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
}

void NewVolume::Flush() {
    if (waiting_.empty()) return;
    Files().WriteAt(path_, static_cast<std::uint64_t>(written_), waiting_);
    written_ += static_cast<std::int32_t>(waiting_.size());
    waiting_.clear();
}

}  // namespace zorvex
