#include "zorvex/sound/SndSubclass.h"

#include <atomic>

#include "zorvex/base/Faults.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/sound/AGISound.h"
#include "zorvex/sound/SoundData.h"

namespace zorvex {

namespace {

constexpr std::int32_t openFailed = ObjectErrorBase + 678;

/// The form that has the player, of whatever thread.
std::atomic<const frmSndSubclass*> playing = nullptr;

std::weak_ptr<frmSndSubclass>& FormOfThread() {
    thread_local std::weak_ptr<frmSndSubclass> form;
    return form;
}

}  // namespace

frmSndSubclass::frmSndSubclass() : window_(MainNoticeWindow()) {
    hook_ = window_->Hook([this](const Notice& notice) { return SndSubclassProc(notice); });
}

frmSndSubclass::~frmSndSubclass() {
    hook_.Reset();
    Attempt([&] { Stop(); });
}

bool frmSndSubclass::PlayingSound() {
    return playing != nullptr;
}

bool frmSndSubclass::IsPlaying() const {
    return playing == this;
}

void frmSndSubclass::PlaySound(AGISound& sound) {
    const frmSndSubclass* none = nullptr;
    if (!playing.compare_exchange_strong(none, this)) RaiseCatalogue(629, SoundErrorSource);
    Guarded([&] { Start(sound); },
            [&] {
                CloseAll();
                Finish();
            });
}

void frmSndSubclass::Start(AGISound& sound) {
    const std::string alias = ReplaceAll(sound.ID(), " ", "_");
    Attempt([&] { file_ = TempFileName(); });
    Attempt([&] { Files().Write(file_, sound.MIDIData()); });
    std::string path = file_;
    Attempt([&] { path = Files().ShortPath(file_); });
    const std::shared_ptr<Media> media = MediaInUse();
    const std::string_view device = sound.SndFormat() == skIIgsPCM ? "waveaudio" : "sequencer";
    const std::int32_t opened =
        media->SendString("open " + path + " type " + std::string(device) + " alias " + alias, nullptr);
    if (opened != 0) RaiseText(openFailed, ErrorSource, Trim(media->ErrorText(opened)));
    media_ = media;
    soundObj_ = &sound;
    if (sound.InGame()) keep_ = sound.weak_from_this().lock();
    const std::int32_t played = media_->SendString("play " + alias + " notify", window_);
    if (played != 0) RaiseCatalogue(628, ErrorSource, Trim(media_->ErrorText(played)));
}

void frmSndSubclass::Stop() {
    if (!IsPlaying() || telling_) return;
    CloseAll();
    Finish();
}

void frmSndSubclass::Forget(const AGISound& sound) {
    if (soundObj_ != &sound) return;
    if (telling_) soundObj_ = nullptr;
    Stop();
}

/// Closes what was opened, and leaves the player to others.
void frmSndSubclass::CloseAll() {
    if (media_ != nullptr) media_->SendString("close all", nullptr);
    media_.reset();
    RemoveFile();
}

void frmSndSubclass::Finish() {
    AGISound* sound = std::exchange(soundObj_, nullptr);
    const std::shared_ptr<AGISound> kept = std::move(keep_);
    playing = nullptr;
    if (sound != nullptr) sound->PlayEnded();
}

void frmSndSubclass::RemoveFile() {
    if (!file_.empty()) Attempt([&] { Files().Remove(file_); });
    file_.clear();
}

// The sound is told before the state goes back to idle, so a handler that starts the next sound is refused,
// and one that stops it finds it stopped.
std::int32_t frmSndSubclass::SndSubclassProc(const Notice& notice) {
    const std::shared_ptr<frmSndSubclass> self = weak_from_this().lock();
    if (notice.Message != MediaNotice || !IsPlaying() || telling_) return 0;
    CloseAll();
    telling_ = true;
    Attempt([&] {
        if (soundObj_ != nullptr) soundObj_->RaiseSoundComplete(notice.First == NoticeSuccessful);
    });
    telling_ = false;
    Finish();
    return 0;
}

std::shared_ptr<frmSndSubclass> SoundPlayer() {
    std::shared_ptr<frmSndSubclass> player = PresentSoundPlayer();
    if (player == nullptr) {
        player = std::make_shared<frmSndSubclass>();
        FormOfThread() = player;
    }
    return player;
}

std::shared_ptr<frmSndSubclass> PresentSoundPlayer() {
    return FormOfThread().lock();
}

}  // namespace zorvex
