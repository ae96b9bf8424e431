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

/// The library's form that receives the end-of-play notice. One exists as long as somebody holds it: the
/// collection of a game's sounds, or a playing sound that belongs to no game. It hooks the notice window
/// while it exists.
class frmSndSubclass : public std::enable_shared_from_this<frmSndSubclass> {
  public:
    static constexpr std::string_view ErrorSource = "SndSubclass";

    frmSndSubclass();
    /// Stops what plays and takes the hook out.
    ~frmSndSubclass();
    frmSndSubclass(const frmSndSubclass&) = delete;
    frmSndSubclass& operator=(const frmSndSubclass&) = delete;

    /// True from a successful start until the end of play has been told, the handlers of the event included.
    bool PlayingSound() const { return playingSound_; }
    /// Starts playing a sound's converted form from a temporary file. Raises 678 and 628.
    void PlaySound(AGISound& sound);
    /// Ends play without telling the sound. Does nothing while none plays.
    void Stop();

  private:
    std::int32_t SndSubclassProc(const Notice& notice);
    void CloseAll();
    void Finish();
    void RemoveFile();

    std::shared_ptr<NoticeWindow> window_;
    NoticeWindow::Procedure oldWndProc_;
    std::shared_ptr<Media> media_;
    bool playingSound_ = false;
    AGISound* soundObj_ = nullptr;
    std::shared_ptr<AGISound> keep_;  // a sound of a game outlives the game while it plays
    std::string file_;
};

/// The form, made if need be, and the form if there is one.
std::shared_ptr<frmSndSubclass> SoundPlayer();
std::shared_ptr<frmSndSubclass> PresentSoundPlayer();

}  // namespace zorvex
