// The time for which one game is open, and what belongs to it.
#pragma once

#include <memory>
#include <string_view>

namespace zorvex {

struct LibraryState;
struct Services;

/// A session begins when a game is being opened and ends when it is closed, when its opening fails, and when
/// its AGIGame or its workspace goes. Resources and lists of the game share it; once it has ended, none of
/// them reaches a property list, a volume or a directory any more.
class GameSession {
  public:
    /// Of a record, with the services of its workspace.
    GameSession(LibraryState& record, Services& services) : record_(&record), services_(&services) {}
    GameSession(const GameSession&) = delete;
    GameSession& operator=(const GameSession&) = delete;

    bool IsOpen() const noexcept { return record_ != nullptr; }
    void End() noexcept;
    /// From now on nothing below a directory leads out of it until the session ends: it is an open directory,
    /// and its links count for nothing, but for volumes, directories of resources, lists and property files,
    /// which may be links to regular files to be read. Raises 53 where there is no such directory.
    void EnterDirectory(std::string_view directory);
    /// From now on nothing below a directory changes on disk until the session ends.
    void ProtectDirectory(std::string_view directory);
    bool IsProtected() const noexcept { return protected_; }
    /// True while the session is open and its workspace is the one that is current in this thread.
    bool IsPresent() const;
    /// Raises 91 unless IsPresent.
    void RequirePresent(std::string_view errorSource) const;

  private:
    LibraryState* record_;
    Services* services_;
    bool protected_ = false;
    bool entered_ = false;
};

/// The session in which a run began. The handler of an event may close the game or start the library afresh;
/// the run asks after each event and then touches nothing any more.
class RunSession {
  public:
    RunSession();
    bool Lasts() const;
    /// Raises 91 unless the session lasts.
    void Require(std::string_view errorSource) const;

  private:
    std::shared_ptr<const GameSession> session_;
};

/// Begins a session of the present record; one that is still there ends.
void BeginGameSession();
/// Ends the session of a record, if it has one, and empties its collections, whose members a host may keep.
void EndGameSession(LibraryState& record) noexcept;

}  // namespace zorvex
