#include "zorvex/state/GameSession.h"

#include "zorvex/base/Error.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

bool GameSession::IsPresent() const {
    return record_ != nullptr && record_ == &Library();
}

void GameSession::RequirePresent(std::string_view errorSource) const {
    if (!IsPresent()) RaiseRuntime(reObjectNotSet, errorSource);
}

RunSession::RunSession() : session_(Library().Session) {}

bool RunSession::Lasts() const {
    return session_ && session_->IsPresent();
}

void RunSession::Require(std::string_view errorSource) const {
    if (!Lasts()) RaiseRuntime(reObjectNotSet, errorSource);
}

void BeginGameSession() {
    LibraryState& library = Library();
    EndGameSession(library);
    library.Session = std::make_shared<GameSession>(library);
}

void EndGameSession(LibraryState& record) noexcept {
    if (record.Session) record.Session->End();
    record.Session.reset();
    record.GameLoaded = false;
}

}  // namespace zorvex
