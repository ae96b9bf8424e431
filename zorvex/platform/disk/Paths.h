// Where on the disk an inner path leads: the machine's files as a whole, or those below one open directory.
#pragma once

#include <string>
#include <string_view>

#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/disk/Descriptor.h"

namespace zorvex {

/// An open directory, and the name that a path has in it: an entry's where there is one that fits, also in
/// another case, else as the path writes it.
struct DiskPlace {
    Descriptor Directory;
    std::string Name;
    bool Inside = false;  // below the root, where links count for nothing
    bool MayBeLink = false;

    /// The status of the entry itself, of the link where it is one. False where there is none.
    bool Status(struct stat& status) const;
    /// Opens the entry itself, never what a link leads to; not open and errno set where that fails.
    Descriptor Open(int flags, mode_t mode = 0) const;
};

/// Finds paths. With a root, everything below it is reached from its open directory and through no link, but
/// for files that the rule lets be links.
class DiskPaths {
  public:
    DiskPaths() = default;
    /// The root is an existing directory. Raises 53 and so on.
    DiskPaths(std::string_view root, LinkRule mayBeLink);

    /// Opens a file for reading; raises 75 for all that is no regular file.
    Descriptor OpenFile(std::string_view path) const;
    Descriptor OpenDirectory(std::string_view path) const;
    /// Where a path lies; raises 53 where its directory is not there.
    DiskPlace Place(std::string_view path) const;
    /// The status of what a path means. Below the root that is a link itself, unless it may be one and leads
    /// to a regular file; elsewhere what it leads to. Raises 53 and so on.
    struct stat Status(std::string_view path) const;
    /// Of an entry of a listed directory that is a link: whether it counts as the file that it leads to.
    bool MayBeLink(std::string_view path) const;
    bool IsInside(std::string_view path) const { return RouteOf(path).inside; }

  private:
    struct Route {
        bool inside = false;
        std::string path;  // in the system's form: below the root, or as it is
    };
    Route RouteOf(std::string_view path) const;
    bool MayBeLink(const Route& route) const;
    Descriptor Open(const Route& route, const std::string& path, int flags) const;
    Descriptor TryFile(const Route& route, const std::string& path) const;
    Descriptor OpenDirectory(const Route& route, const std::string& path) const;
    DiskPlace Place(const Route& route, const std::string& path) const;

    std::string root_;  // an inner path with a backslash at its end
    Descriptor handle_;
    LinkRule mayBeLink_;
};

}  // namespace zorvex
