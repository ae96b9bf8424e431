#include "zorvex/storage/FileSwap.h"

#include <algorithm>

#include "zorvex/base/Faults.h"
#include "zorvex/base/FileName.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"

namespace zorvex {

namespace {

constexpr std::string_view journalName = "NEW_SWAP.TXT";
constexpr std::string_view journalHead = "zorvex file swap 1";
constexpr std::string_view journalEnd = "end";
constexpr std::string_view separator = "\r\n";

std::string Backup(const std::string& path) {
    return path + ".OLD";
}

}  // namespace

void FileSwap::Add(std::string_view fresh, std::string_view name) {
    steps_.push_back({std::string(fresh), std::string(name)});
}

void FileSwap::Retire(std::string_view name) {
    steps_.push_back({"", std::string(name)});
}

std::string FileSwap::Journal() const {
    std::string text = std::string(journalHead) + std::string(separator);
    for (const Step& step : steps_)
        text += step.fresh + ">" + step.name + std::string(separator);
    return text + std::string(journalEnd) + std::string(separator);
}

// Files that only go come first: once no new file waits any more, all is done.
void FileSwap::Run() {
    std::stable_partition(steps_.begin(), steps_.end(), [](const Step& step) { return step.fresh.empty(); });
    const std::string journal = directory_ + std::string(journalName);
    failedAt_ = std::string(journalName);
    ReplaceWholeFile(journal, Journal());
    Guarded([this] { Forward(); },
            [&] {
                Backward();
                DropJournal();
            });
    DropJournal();
}

/// A list that stays behind would be carried out again at some later time, so at least it loses its lines.
void FileSwap::DropJournal() const {
    const std::string journal = directory_ + std::string(journalName);
    if (Attempt([&] { Files().Remove(journal); })) Attempt([&] { Files().Write(journal, {}); });
}

bool FileSwap::IsDone() const {
    return std::none_of(steps_.begin(), steps_.end(), [this](const Step& step) {
        return !step.fresh.empty() && FileExists(directory_ + step.fresh);
    });
}

// Each step can be met in one of three states: untouched, its old file set aside, or done. A new file that
// still has its first name tells that the step is not done, so that doing all steps again does the rest of
// them.
void FileSwap::Forward() {
    for (const Step& step : steps_) {
        failedAt_ = step.name;
        const std::string path = directory_ + step.name;
        const bool pending = step.fresh.empty() || FileExists(directory_ + step.fresh);
        if (!pending) continue;
        if (FileExists(path)) Files().Replace(path, Backup(path));
        if (!step.fresh.empty()) Files().Replace(directory_ + step.fresh, path);
    }
}

void FileSwap::Backward() {
    for (auto step = steps_.rbegin(); step != steps_.rend(); ++step) {
        const std::string path = directory_ + step->name;
        if (!step->fresh.empty() && !FileExists(directory_ + step->fresh) && FileExists(path)) {
            Files().Replace(path, directory_ + step->fresh);
        }
        if (!FileExists(path) && FileExists(Backup(path))) Files().Replace(Backup(path), path);
    }
}

FileSwap FileSwap::FromJournal(const std::string& directory) {
    FileSwap swap(directory);
    const ByteArray bytes = Files().Read(directory + std::string(journalName));
    const std::vector<std::string> lines = Split(std::string(bytes.begin(), bytes.end()), separator);
    if (lines.size() < 2 || lines.front() != journalHead || lines[lines.size() - 2] != journalEnd)
        return swap;
    for (std::size_t i = 1; i + 2 < lines.size(); ++i) {
        const std::size_t mark = lines[i].find('>');
        const std::string fresh = lines[i].substr(0, mark);
        const std::string name = mark == std::string::npos ? std::string() : lines[i].substr(mark + 1);
        // The list comes from a file, so it may name nothing outside the directory.
        if (!FileName::Fits(name) || (!fresh.empty() && !FileName::Fits(fresh))) return FileSwap(directory);
        swap.steps_.push_back({fresh, name});
    }
    return swap;
}

void FileSwap::Finish(std::string_view directory) {
    const std::string path = CDir(directory);
    const std::string journal = path + std::string(journalName);
    if (!FileExists(journal)) return;
    Attempt([&] {
        FileSwap swap = FromJournal(path);
        if (!swap.IsDone()) swap.Forward();
        swap.DropJournal();
    });
}

}  // namespace zorvex
