#include "zorvex/sound/SndSubclass.h"

#include "zorvex/base/Faults.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/sound/AGISound.h"
#include "zorvex/sound/SoundData.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

namespace {

constexpr std::int32_t openFailed = ObjectErrorBase + 678;

}  // namespace

frmSndSubclass::frmSndSubclass() : window_(MainNoticeWindow()) {
    oldWndProc_ = window_->SetProcedure([this](const Notice& notice) { return SndSubclassProc(notice); });
}

frmSndSubclass::~frmSndSubclass() {
    Attempt([&] { Stop(); });
    window_->SetProcedure(oldWndProc_);
}

void frmSndSubclass::PlaySound(AGISound& sound) {
    const std::string alias = ReplaceAll(sound.ID(), " ", "_");
    Attempt([&] { file_ = TempFileName(); });
    Attempt([&] { Files().Write(file_, sound.MIDIData()); });
    std::string path = file_;
    Attempt([&] { path = Files().ShortPath(file_); });
    media_ = MediaInUse();
    const std::string_view device = sound.SndFormat() == skIIgsPCM ? "waveaudio" : "sequencer";
    const std::int32_t opened =
        media_->SendString("open " + path + " type " + std::string(device) + " alias " + alias, nullptr);
    if (opened != 0) {
        RemoveFile();
        RaiseText(openFailed, ErrorSource, Trim(media_->ErrorText(opened)));
    }
    playingSound_ = true;
    soundObj_ = &sound;
    if (sound.InGame()) keep_ = sound.weak_from_this().lock();
    const std::int32_t played = media_->SendString("play " + alias + " notify", window_);
    if (played != 0) {
        const std::string text = media_->ErrorText(played);
        Stop();
        RaiseCatalogue(628, ErrorSource, Trim(text));
    }
}

void frmSndSubclass::Stop() {
    if (!playingSound_) return;
    CloseAll();
    Finish();
}

void frmSndSubclass::CloseAll() {
    if (media_ != nullptr) media_->SendString("close all", nullptr);
    RemoveFile();
}

void frmSndSubclass::Finish() {
    AGISound* sound = std::exchange(soundObj_, nullptr);
    const std::shared_ptr<AGISound> kept = std::move(keep_);
    playingSound_ = false;
    if (sound != nullptr) sound->PlayEnded();
}

void frmSndSubclass::RemoveFile() {
    if (!file_.empty()) Attempt([&] { Files().Remove(file_); });
    file_.clear();
}

// The sound is told before the state goes back to idle, so a handler that starts the next sound is refused.
std::int32_t frmSndSubclass::SndSubclassProc(const Notice& notice) {
    const std::shared_ptr<frmSndSubclass> self = weak_from_this().lock();
    const NoticeWindow::Procedure next = oldWndProc_;
    if (notice.Message == MediaNotice) {
        CloseAll();
        Attempt([&] {
            if (soundObj_ != nullptr) soundObj_->RaiseSoundComplete(notice.First == NoticeSuccessful);
        });
        Finish();
    }
    return next ? next(notice) : 0;
}

std::shared_ptr<frmSndSubclass> SoundPlayer() {
    std::shared_ptr<frmSndSubclass> player = PresentSoundPlayer();
    if (player == nullptr) {
        player = std::make_shared<frmSndSubclass>();
        Library().SoundForm = player;
    }
    return player;
}

std::shared_ptr<frmSndSubclass> PresentSoundPlayer() {
    return Library().SoundForm.lock();
}

}  // namespace zorvex
