#include "zorvex/compiler/CompileMessages.h"

#include <algorithm>

#include "zorvex/compiler/CompileRun.h"

namespace zorvex {

namespace {

bool IsControl(unsigned char code) {
    return code == 0 || (code >= 8 && code <= 10) || code == 13;
}

bool IsExtended(unsigned char code) {
    return code > 127;
}

/// The lowest number that has no text, whether it is in use or not; 0 for none.
std::int32_t EmptyMessage(const MessageTable& messages) {
    for (std::size_t i = 1; i < messages.MsgText.size(); ++i) {
        if (messages.MsgText[i].empty()) return static_cast<std::int32_t>(i);
    }
    return 0;
}

std::int32_t UnusedMessage(const MessageTable& messages) {
    const auto unused = std::find(messages.MsgUsed.begin() + 1, messages.MsgUsed.end(), false);
    return unused == messages.MsgUsed.end() ? 0
                                            : static_cast<std::int32_t>(unused - messages.MsgUsed.begin());
}

/// A message that is used again brings its warnings again.
void RepeatWarnings(CompileRun& run, std::int32_t number) {
    const std::uint8_t flags = run.MsgWarn[static_cast<std::size_t>(number)];
    if ((flags & mfControl) != 0) run.Warn(5093);
    if ((flags & mfExtended) != 0) run.Warn(5094);
}

}  // namespace

void CheckMessageText(CompileRun& run, std::string_view text, std::int32_t number) {
    if (run.Level == leLow) return;
    std::uint8_t& flags = run.MsgWarn[static_cast<std::size_t>(number)];
    bool toldControl = false;
    bool toldExtended = false;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (IsControl(code) && !toldControl) {
            toldControl = true;
            flags |= mfControl;
            run.Report(4005, 5093);
        } else if (IsExtended(code) && !toldExtended) {
            toldExtended = true;
            flags |= mfExtended;
            run.Report(4006, 5094);
        }
    }
}

void StoreMessage(CompileRun& run, std::int32_t number, std::string_view text) {
    const auto index = static_cast<std::size_t>(number);
    run.Messages.MsgUsed[index] = true;
    run.Messages.MsgText[index] = text;
    if (text.empty() || number == 0) return;
    const auto [entry, isNew] = run.MessageNumbers.emplace(text, number);
    if (!isNew) entry->second = std::min(entry->second, number);
}

std::int32_t MessageNum(CompileRun& run, std::string_view text) {
    std::int32_t number = 0;
    if (text.empty()) {
        run.Report(5074, 5074);
        number = EmptyMessage(run.Messages);
    } else if (const auto found = run.MessageNumbers.find(text); found != run.MessageNumbers.end()) {
        number = found->second;
    }
    if (number != 0) {
        run.Messages.MsgUsed[static_cast<std::size_t>(number)] = true;
        RepeatWarnings(run, number);
        return number;
    }
    number = UnusedMessage(run.Messages);
    if (number == 0) return 0;
    StoreMessage(run, number, text);
    CheckMessageText(run, text, number);
    return number;
}

}  // namespace zorvex
