#include "zorvex/state/Workspace.h"

#include <utility>

#include "zorvex/platform/Services.h"
#include "zorvex/state/GameSession.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

struct WorkspaceData {
    Services OfWorkspace;  // before the record, which asks the files while it is made
    LibraryState Record;

    ~WorkspaceData() { EndGameSession(Record); }
};

namespace {

/// The workspace of a thread that entered none, and the one that is current. The raw pointer beside it keeps
/// Library() short.
thread_local std::shared_ptr<WorkspaceData> current;
constinit thread_local LibraryState* currentRecord = nullptr;

std::shared_ptr<WorkspaceData> MakeCurrent(std::shared_ptr<WorkspaceData> data) {
    currentRecord = data ? &data->Record : nullptr;
    UseServices(data ? &data->OfWorkspace : nullptr);
    return std::exchange(current, std::move(data));
}

constinit thread_local bool hasEnded = false;

/// Takes the thread out of its workspace before that goes with the thread.
struct ThreadEnd {
    ~ThreadEnd() {
        MakeCurrent(nullptr);
        hasEnded = true;
    }
};

void StartThread() {
    if (hasEnded) {  // an object that outlives the thread's variables, such as a global one, still needs a
                     // record
        currentRecord = new LibraryState;
        return;
    }
    // What the thread has put in use before it had a workspace goes along.
    auto own = std::make_shared<WorkspaceData>();
    own->OfWorkspace = PresentServices();
    MakeCurrent(std::move(own));
    thread_local ThreadEnd end;
}

}  // namespace

LibraryState& Library() {
    if (currentRecord == nullptr) StartThread();
    return *currentRecord;
}

std::shared_ptr<WorkspaceData> PresentWorkspace() {
    Library();
    return current;
}

LibraryState& RecordOf(WorkspaceData& data) noexcept {
    return data.Record;
}

Workspace::Workspace() : data_(std::make_shared<WorkspaceData>()) {}

Workspace::~Workspace() {
    EndGameSession(data_->Record);
}

Workspace::Use Workspace::Enter() {
    Library();  // the thread's own workspace is there to come back to
    return Use(data_);
}

Workspace::Use::Use(std::shared_ptr<WorkspaceData> data) : entered_(std::move(data)) {
    before_ = MakeCurrent(entered_);
}

Workspace::Use::~Use() {
    MakeCurrent(std::move(before_));
}

}  // namespace zorvex
