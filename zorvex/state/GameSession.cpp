#include "zorvex/state/GameSession.h"

#include <algorithm>
#include <array>
#include <utility>

#include "zorvex/base/Error.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/OverlayFileSystem.h"
#include "zorvex/platform/Services.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

namespace {

constexpr std::array<std::string_view, 6> ownFiles{"*VOL.?", "*VOL.1?",   "*DIR",
                                                   "OBJECT", "WORDS.TOK", "*.zvg"};

/// The files that make a game.
bool IsOwnFile(std::string_view name) {
    return std::any_of(ownFiles.begin(), ownFiles.end(),
                       [name](std::string_view pattern) { return MatchesPattern(name, pattern); });
}

}  // namespace

void GameSession::End() noexcept {
    record_ = nullptr;
    if (std::exchange(protected_, false)) services_->Overlay.reset();
    if (std::exchange(entered_, false)) LeaveGameDirectory(*services_);
}

void GameSession::EnterDirectory(std::string_view directory) {
    LeaveGameDirectory(*services_);
    EnterGameDirectory(*services_, directory, IsOwnFile);
    entered_ = true;
}

void GameSession::ProtectDirectory(std::string_view directory) {
    services_->Overlay = std::make_shared<OverlayFileSystem>(FilesBeneath(), directory);
    protected_ = true;
}

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
    library.LoadIssues.clear();
    for (auto& entries : library.LeftEntries)
        entries.reset();
    library.Session = std::make_shared<GameSession>(library, PresentServices());
}

void EndGameSession(LibraryState& record) noexcept {
    if (record.Session) record.Session->End();
    record.Session.reset();
    record.GameLoaded = false;
}

}  // namespace zorvex
