#include "tools/zorvex/console/Console.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>
#include <vector>

#include "zorvex/base/Text.h"
#include "zorvex/platform/FileSystem.h"

namespace zorvex::tool {

namespace {

struct ScratchName {
    std::string scratch;
    std::string original;
};

std::vector<ScratchName>& ScratchNames() {
    static std::vector<ScratchName> names;
    return names;
}

/// The files of the user's that were replaced.
std::vector<std::string>& Replaced() {
    static std::vector<std::string> paths;
    return paths;
}

bool& HasProgressLine() {
    static bool shown = false;
    return shown;
}

void Say(std::string_view head, std::string_view text) {
    const std::string line = "zorvex: " + std::string(head) + ShownText(text) + "\n";
    ClearProgressLine();
    std::fflush(stdout);
    std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

std::string Counted(std::size_t count, std::string_view noun) {
    return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

std::string Colored(std::string_view kind) {
    static const bool wanted = [] {
        const char* off = std::getenv("NO_COLOR");
        const char* terminal = std::getenv("TERM");
        return isatty(STDERR_FILENO) == 1 && (off == nullptr || *off == '\0') && terminal != nullptr &&
               std::string_view(terminal) != "dumb";
    }();
    if (!wanted) return std::string(kind);
    return (kind == "error" ? "\033[1;31m" : "\033[1;35m") + std::string(kind) + "\033[0m";
}

void NoteWriting(const std::string& path) {
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path, ignored)) Replaced().push_back(path);
}

void SayReplaced() {
    const std::vector<std::string>& paths = Replaced();
    if (paths.size() == 1) SayNote(paths.front() + " was there and is replaced");
    if (paths.size() > 1) {
        SayNote(Counted(paths.size(), "file") + " that were there are replaced, the first being " +
                paths.front());
    }
}

std::int32_t ShownNumber(const Error& error) {
    return error.Id() > 0 && error.Id() < 6000 ? error.Id() : error.Number();
}

void SayError(const Error& error) {
    Say(Colored("error") + " " + std::to_string(ShownNumber(error)) + ": ", error.Description());
}

void SayError(std::string_view what, const Error& error) {
    Say(std::string(what) + ": " + Colored("error") + " " + std::to_string(ShownNumber(error)) + ": ",
        error.Description());
}

void SayError(std::string_view text) {
    Say(Colored("error") + ": ", text);
}
void SayWarning(std::string_view text) {
    Say(Colored("warning") + ": ", text);
}
void SayNote(std::string_view text) {
    Say("", text);
}

void ShowScratchAs(std::string_view scratch, std::string_view original) {
    ScratchNames().push_back({std::string(scratch), std::string(original)});
}

std::string ShownText(std::string_view text) {
    std::string shown(text);
    for (const ScratchName& name : ScratchNames()) {
        const std::string inner = InnerPath(name.scratch);
        for (std::size_t at = shown.find(inner); at != std::string::npos; at = shown.find(inner, at + 1)) {
            // A game's own directory may have a name as short as "."; only a path goes on after it.
            if (name.scratch == name.original && shown.substr(at + inner.size(), 1) != "\\") continue;
            // The rest of the path, up to a character that ends it, gets the system's separators too.
            std::size_t end = at + inner.size();
            while (end < shown.size() &&
                   std::string_view(" '\")(:,").find(shown[end]) == std::string_view::npos)
                ++end;
            std::string rest = shown.substr(at + inner.size(), end - at - inner.size());
            std::replace(rest.begin(), rest.end(), '\\', '/');
            shown.replace(at, end - at, name.original + rest);
        }
        shown = ReplaceAll(shown, name.scratch, name.original);
    }
    return shown;
}

// --- Progress ---
void ClearProgressLine() {
    if (std::exchange(HasProgressLine(), false)) std::fputs("\r\033[K", stderr);
}

Progress::Progress(std::string title, std::size_t total)
    : title_(std::move(title)), total_(total), onTerminal_(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
    ClearProgressLine();
}

void Progress::Show(std::size_t done, std::string_view at) {
    if (!onTerminal_) return;
    constexpr std::size_t width = 30;
    std::string line = "\r\033[K" + title_ + " ";
    if (total_ > 0) {
        const std::size_t filled = std::min(width, done * width / total_);
        line += "[" + std::string(filled, '#') + std::string(width - filled, '.') + "] ";
        line += std::to_string(done) + "/" + std::to_string(total_) + " ";
    }
    line += at;
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
    HasProgressLine() = true;
}

}  // namespace zorvex::tool
