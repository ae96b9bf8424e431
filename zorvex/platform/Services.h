// The replaceable services that a thread uses: its files and its clock.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

namespace zorvex {

class Clock;
class FileSystem;

/// The file system and the clock in use; an empty pointer stands for the machine's own. Each workspace has a
/// set of them, so that the games of two workspaces can lie in different file systems.
struct Services {
    std::shared_ptr<FileSystem> Overlay;  // over Files, while a game is open that must not change
    std::shared_ptr<FileSystem> Below;    // of BelowOf, while a game is open that lies in it
    std::shared_ptr<FileSystem> BelowOf;  // a host may put other files in use meanwhile
    std::shared_ptr<FileSystem> Files;
    std::shared_ptr<Clock> TheClock;
};

/// The set that is current in this thread: that of its present workspace, or one of the thread's own.
Services& PresentServices() noexcept;

/// Makes another set current in this thread and returns the one before; a null pointer stands for the
/// thread's own.
Services* UseServices(Services* services) noexcept;

/// From now on the files of a set let no path below a directory lead out of it; see FileSystem::Below.
void EnterGameDirectory(Services& services, std::string_view directory,
                        std::function<bool(std::string_view name)> mayBeLink);
void LeaveGameDirectory(Services& services) noexcept;

}  // namespace zorvex
