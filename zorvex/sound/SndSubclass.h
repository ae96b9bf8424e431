// Playing one sound at a time through the system's media, and learning of its end. Internal to the library.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "zorvex/platform/Media.h"
#include "zorvex/platform/Notices.h"

namespace zorvex {

class AGISound;

/// The library's form that receives the end-of-play notice. Each thread has one as long as somebody holds it:
/// the collection of a game's sounds, or a playing sound that belongs to no game. It hooks the notice window
/// of its thread while it exists. Of all threads one form plays at a time, since there is one player.
class frmSndSubclass : public std::enable_shared_from_this<frmSndSubclass> {
  public:
    static constexpr std::string_view ErrorSource = "SndSubclass";

    frmSndSubclass();
    /// Stops what plays and takes the hook out.
    ~frmSndSubclass();
    frmSndSubclass(const frmSndSubclass&) = delete;
    frmSndSubclass& operator=(const frmSndSubclass&) = delete;

    /// True while this form or that of another thread plays: from a successful start until the end of play
    /// has been told, the handlers of the event included.
    static bool PlayingSound();
    /// Starts playing a sound's converted form from a temporary file. Raises 629 while one plays, 678 and
    /// 628.
    void PlaySound(AGISound& sound);
    /// Ends play without telling the sound. Does nothing while this form plays none, and while the end of
    /// play is being told.
    void Stop();
    /// Stops a sound that goes, and does not speak of it again.
    void Forget(const AGISound& sound);

  private:
    bool IsPlaying() const;
    void Start(AGISound& sound);
    std::int32_t SndSubclassProc(const Notice& notice);
    void CloseAll();
    void Finish();
    void RemoveFile();

    std::shared_ptr<NoticeWindow> window_;
    std::shared_ptr<Media> media_;
    bool telling_ = false;  // the end of play
    AGISound* soundObj_ = nullptr;
    std::shared_ptr<AGISound> keep_;  // a sound of a game outlives the game while it plays
    std::string file_;
    Subscription hook_;
};

/// The form of this thread, made if need be, and the form if there is one.
std::shared_ptr<frmSndSubclass> SoundPlayer();
std::shared_ptr<frmSndSubclass> PresentSoundPlayer();

}  // namespace zorvex
