// zorvex play: a sound, heard.
#include <atomic>
#include <cmath>
#include <csignal>
#include <cstdio>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/Resources.h"
#include "tools/zorvex/games/SoundFiles.h"

namespace zorvex::tool {

namespace {

using Clock = std::chrono::steady_clock;

struct PlayOptions {
    std::string Source;
    std::string Number;
};

void Declare(Declaration& command, PlayOptions& options) {
    command.Option("source", options.Source, "A game, or the file of a sound: a raw resource or a script")
        .Required();
    command.Option("number", options.Number, "The number of a sound of the game");
}

std::atomic<int>& CaughtSignal() {
    static std::atomic<int> signal{0};
    return signal;
}

/// Keeps interrupts as a number while it lives, so that what was begun can be ended in order.
class SignalWatch {
  public:
    SignalWatch() {
        for (const int number : numbers)
            std::signal(number, [](int caught) { CaughtSignal() = caught; });
    }
    ~SignalWatch() {
        for (const int number : numbers)
            std::signal(number, SIG_DFL);
    }
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    static bool Caught() { return CaughtSignal() != 0; }

  private:
    static constexpr std::array numbers{SIGINT, SIGTERM, SIGHUP};
};

std::string Seconds(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f s", value);
    return text.data();
}

/// Plays to the end, or to an interrupt. A player that does not tell of the end is not waited for without
/// end.
int PlayToEnd(AGISound& sound) {
    constexpr std::chrono::milliseconds step(50);
    constexpr double patience = 20;
    bool ended = false;
    bool good = false;
    const auto subscription = sound.SoundComplete.Subscribe([&](bool noError) {
        ended = true;
        good = noError;
    });
    const double length = std::max(static_cast<double>(sound.Length()), 0.1);
    sound.PlaySound();
    Progress progress(sound.ID(), 100);
    const Clock::time_point start = Clock::now();
    while (!ended && !SignalWatch::Caught()) {
        const double passed = std::chrono::duration<double>(Clock::now() - start).count();
        if (passed > length + patience) break;
        progress.Show(static_cast<std::size_t>(std::min(passed / length, 1.0) * 100),
                      Seconds(std::min(passed, length)) + " of " + Seconds(length));
        PumpNotices(step);
    }
    if (!ended) sound.StopSound();
    if (!good && !SignalWatch::Caught()) {
        SayError("the player did not reach the end of the sound");
        return exitFailed;
    }
    return exitDone;
}

int PlayFrom(const PlayOptions& options) {
    const SignalWatch watch;
    std::optional<std::uint8_t> number;
    if (!options.Number.empty()) number = ParseNumber255(options.Number);
    const SoundSource source(options.Source);
    const auto sound = source.Sound(number);
    if (!sound->Loaded()) sound->Load();
    return SignalWatch::Caught() ? exitDone : PlayToEnd(*sound);
}

int Run(const PlayOptions& options) {
    const int status = PlayFrom(options);
    // Everything is closed and removed by now; the caller is to see what ended the program.
    if (SignalWatch::Caught()) std::raise(CaughtSignal());
    return status;
}

}  // namespace

void AddPlayCommand(CommandLine& line) {
    AddCommand<PlayOptions>(
        line,
        {"play",
         "Plays a sound. MIDI needs a SoundFont, found in the usual places or named in the "
         "environment variable ZORVEX_SOUNDFONT.",
         "  zorvex play mygame 12   sound 12 of the game\n"
         "  zorvex play tune.ass    a script"},
        Declare, Run);
}

}  // namespace zorvex::tool
