// Several libraries side by side: each with its own open game, settings and files.
#pragma once

#include <memory>

namespace zorvex {

struct LibraryState;
struct WorkspaceData;

/// One library with everything that it keeps: the open game, the palette, the settings of the compiler, the
/// file system and the clock in use.
///
/// A program that makes no workspace has one all the same: each thread has one of its own, made when it is
/// first needed, and is in it until it enters another. So a program with one game and one thread never
/// meets this class. A program with two open games makes a workspace for each (or for the second):
///
///     zorvex::Workspace other;
///     {
///         auto use = other.Enter();
///         zorvex::AGIGame second;         // belongs to `other`
///         second.OpenGameDIR("second");
///     }                                   // back in the workspace before
///
/// An AGIGame belongs to the workspace that was current when it was made, and its objects (resources, lists,
/// collections) are used while that workspace is current; with another one current they raise 91. Making a
/// second AGIGame in one workspace starts that workspace afresh: the first then raises 91 from its members.
/// Stand-alone objects belong to no workspace and use the one that is current, as for the palette.
///
/// Two threads may work at once in two workspaces, and with stand-alone objects that they do not share. A
/// workspace is current in one thread at a time.
class Workspace {
  public:
    Workspace();
    /// Closes nothing and saves nothing: a game that is still open ends without being saved, its resources
    /// become stand-alone objects.
    ~Workspace();
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    /// Keeps a workspace current in the thread that entered it. Uses of one thread end in the reverse order
    /// of their beginning, as local variables do.
    class Use {
      public:
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

      private:
        friend class Workspace;
        explicit Use(std::shared_ptr<WorkspaceData> data);
        std::shared_ptr<WorkspaceData> entered_;
        std::shared_ptr<WorkspaceData> before_;
    };

    /// Makes this workspace current in the calling thread for as long as the result lives.
    [[nodiscard]] Use Enter();

  private:
    std::shared_ptr<WorkspaceData> data_;
};

/// What a workspace consists of; for the library. The one that is current in this thread.
std::shared_ptr<WorkspaceData> PresentWorkspace();
/// The record of a workspace, as long as that lives.
LibraryState& RecordOf(WorkspaceData& data) noexcept;

}  // namespace zorvex
