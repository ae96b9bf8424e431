#include "zorvex/base/StringList.h"

#include <atomic>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Error.h"
#include "zorvex/base/Text.h"

namespace zorvex {

void StringList::LinesChanged() {
    static std::atomic<std::uint64_t> lastRevision = 0;
    revision_ = ++lastRevision;
    ListChanged.Raise();
}

void StringList::CheckIndex(std::int32_t index) const {
    if (index < 0) RaiseCatalogue(518, ErrorSource);
    if (index > Count() - 1) RaiseCatalogue(519, ErrorSource);
}

void StringList::Add(std::string_view text, std::int32_t index) {
    if (index < 0 || index > Count()) index = Count();
    lines_.emplace(lines_.begin() + index, text);
    LinesChanged();
}

std::vector<std::string> StringList::AllLines() const {
    return lines_.empty() ? std::vector<std::string>(1) : lines_;
}

void StringList::Assign(std::string_view text, std::string_view separator) {
    if (separator != CrLf && separator != "\r" && separator != "\n") {
        lines_ = separator.empty() ? std::vector{std::string(text)} : Split(text, separator);
        LinesChanged();
        return;
    }
    lines_.clear();
    ForEachLine(text, [this](std::string_view line) { lines_.emplace_back(line); });
    LinesChanged();
}

void StringList::Assign(std::vector<std::string> lines) {
    lines_ = std::move(lines);
    LinesChanged();
}

void StringList::Assign(const StringList& source) {
    lines_ = source.lines_;
    LinesChanged();
}

void StringList::Clear() {
    lines_.clear();
    LinesChanged();
}

std::string StringList::NextLine(bool skipBlank) {
    if (currentLine_ >= Count() - 1) return {};
    ++currentLine_;
    while (skipBlank && Trim(lines_[static_cast<std::size_t>(currentLine_)]).empty()) {
        if (currentLine_ == Count() - 1) {
            ListChanged.Raise();
            return {};
        }
        ++currentLine_;
    }
    ListChanged.Raise();
    return lines_[static_cast<std::size_t>(currentLine_)];
}

void StringList::Sort() {
    std::sort(lines_.begin(), lines_.end());
    LinesChanged();
}

const std::string& StringList::StringLine(std::int32_t index) const {
    static const std::string none;
    if (currentLine_ > Count() - 1) currentLine_ = Count() - 1;
    if (currentLine_ < 0) currentLine_ = 0;
    if (index != -1) {
        if (index < 0 || index > Count() - 1) RaiseRuntime(reSubscript, ErrorSource);
        currentLine_ = index;
    }
    return lines_.empty() ? none : lines_[static_cast<std::size_t>(currentLine_)];
}

void StringList::StringLine(std::int32_t index, std::string_view text) {
    CheckIndex(index);
    lines_[static_cast<std::size_t>(index)] = text;
    LinesChanged();
}

void StringList::Delete(std::int32_t index) {
    if (lines_.empty()) RaiseCatalogue(676, ErrorSource);
    if (index != -1) {
        CheckIndex(index);
        currentLine_ = index;
    }
    currentLine_ = std::clamp(currentLine_, 0, Count() - 1);
    lines_.erase(lines_.begin() + currentLine_);
    if (currentLine_ > Count() - 1) currentLine_ = std::max(Count() - 1, 0);
    LinesChanged();
}

std::string StringList::Text(std::string_view separator) const {
    return Join(lines_, separator.empty() ? CrLf : separator);
}

void StringList::CurrentLine(std::int32_t index) {
    CheckIndex(index);
    currentLine_ = index;
    ListChanged.Raise();
}

}  // namespace zorvex
