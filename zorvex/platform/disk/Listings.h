// Which entry of a directory a name in another case means.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "zorvex/platform/disk/Descriptor.h"

namespace zorvex {

/// Listings of directories, kept as long as the stamp of the directory (device, inode, times of its last
/// change) stays. A directory that was changed just before it was listed may be changed again within the
/// same tick of a coarse clock, so its listing serves once and is not kept. For all threads.
class Listings {
  public:
    /// The first entry, in byte order, that differs from a name only in case; nothing where there is none.
    /// Raises what the reading of the directory raises. Costs one call of the system while the listing
    /// stays.
    std::optional<std::string> Find(int directory, std::string_view name);
    /// After a change in a directory by this process.
    void Forget(int directory);

  private:
    /// Entries by their names in lower case.
    using Names = std::unordered_map<std::string, std::string>;
    struct Listing {
        std::int64_t changed = 0;  // in nanoseconds
        std::int64_t renewed = 0;
        Names names;
    };
    using Identity = std::pair<dev_t, ino_t>;

    static Names Read(int directory);

    std::mutex mutex_;
    std::map<Identity, Listing> kept_;
};

/// The listings that all files of the machine share.
Listings& SharedListings();

}  // namespace zorvex
