#include "zorvex/platform/disk/Listings.h"

#include <algorithm>
#include <chrono>

#include "zorvex/base/Text.h"
#include "zorvex/platform/disk/DirectoryReader.h"

namespace zorvex {

namespace {

// The coarsest usual clock of a file system counts in two seconds; a network adds to that.
constexpr std::int64_t margin = 3'000'000'000;
constexpr std::size_t mostListings = 64;

std::int64_t Nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

std::int64_t Today() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

std::optional<std::string> NameIn(const std::unordered_map<std::string, std::string>& names,
                                  std::string_view name) {
    const auto found = names.find(LowerCase(name));
    if (found == names.end()) return std::nullopt;
    return found->second;
}

}  // namespace

Listings::Names Listings::Read(int directory) {
    Names names;
    DirectoryReader reader(directory);
    while (const auto name = reader.Next()) {
        const auto [at, fresh] = names.try_emplace(LowerCase(*name), *name);
        if (!fresh && *name < at->second) at->second = *name;
    }
    return names;
}

std::optional<std::string> Listings::Find(int directory, std::string_view name) {
    struct stat status {};
    if (::fstat(directory, &status) != 0) RaiseErrno(errno);
    const Identity identity{status.st_dev, status.st_ino};
    const std::int64_t changed = Nanoseconds(status.st_mtim);
    const std::int64_t renewed = Nanoseconds(status.st_ctim);
    {
        const std::lock_guard lock(mutex_);
        const auto kept = kept_.find(identity);
        if (kept != kept_.end()) {
            if (kept->second.changed == changed && kept->second.renewed == renewed)
                return NameIn(kept->second.names, name);
            kept_.erase(kept);
        }
    }
    const std::int64_t now = Today();
    Names names = Read(directory);
    auto found = NameIn(names, name);
    if (now - std::max(changed, renewed) >= margin) {
        const std::lock_guard lock(mutex_);
        if (kept_.size() >= mostListings) kept_.clear();
        kept_[identity] = {changed, renewed, std::move(names)};
    }
    return found;
}

void Listings::Forget(int directory) {
    struct stat status {};
    if (::fstat(directory, &status) != 0) return;
    const std::lock_guard lock(mutex_);
    kept_.erase({status.st_dev, status.st_ino});
}

Listings& SharedListings() {
    static Listings& listings = *new Listings;
    return listings;
}

}  // namespace zorvex
