#include "zorvex/decompiler/DecodeRun.h"

#include <charconv>
#include <utility>

#include "zorvex/base/Error.h"

namespace zorvex {

namespace {

constexpr std::int32_t decodeError = 688;
constexpr std::string_view errorSource = "LogDecode";

/// A damaged logic can refer to one long message with every statement; no honest one comes near this many
/// bytes of text.
constexpr std::size_t maxTextSize = std::size_t{16} << 20U;

}  // namespace

DecodeRun::DecodeRun(ByteView data, const DecodeSettings& settings, const DecodeNames& names)
    : data_(data),
      settings_(settings),
      names_(names),
      commands_(CommandCatalogue()),
      reserved_(ReservedNames()) {}

DecodedLogic DecodeRun::Run() {
    if (LastIndex() == 0) return {{"return();"}, {}, {}, {}, false};
    if (data_.size() >= LogicCodeStart) {
        msgSecStart_ = data_[0] + 256 * data_[1] + LogicCodeStart;
        if (msgSecStart_ > MaxLogicWord) Fail("Invalid message section data");
    }
    ReadMessages();
    ResetBlocks();
    FindLabels();
    WriteCode();

    DecodedLogic result{std::move(lines_), std::move(labels_), {}, std::move(warnings_), cutsEscape_};
    for (std::size_t i = 0; i < messages_.size(); ++i) {
        if (!msgExists_[i + 1]) continue;
        result.Messages.push_back(
            {static_cast<std::uint8_t>(i + 1), std::move(messages_[i]), msgUsed_[i + 1]});
    }
    return result;
}

std::uint8_t DecodeRun::ByteAt(std::int32_t pos) const {
    if (std::cmp_greater_equal(pos, data_.size())) RaiseRuntime(reSubscript, errorSource);
    return data_[static_cast<std::size_t>(pos)];
}

std::uint8_t DecodeRun::TakeByte() {
    const std::uint8_t byte = ByteAt(pos_);
    ++pos_;
    return byte;
}

std::int32_t DecodeRun::TakeDistance() {
    const std::int32_t value = ByteAt(pos_) + 256 * ByteAt(pos_ + 1);
    pos_ += 2;
    return value > MaxLogicWord ? value - 65536 : value;
}

std::int32_t DecodeRun::TakeWord() {
    const std::int32_t value = ByteAt(pos_) + 256 * ByteAt(pos_ + 1);
    if (value > MaxLogicWord) RaiseRuntime(reOverflow, errorSource);
    pos_ += 2;
    return value;
}

std::uint8_t DecodeRun::NextByte() {
    if (pos_ <= LastIndex()) lastByte_ = ByteAt(pos_);
    ++pos_;
    return lastByte_;
}

void DecodeRun::Fail(std::string_view text) const {
    RaiseText(ObjectErrorBase + decodeError, errorSource, text);
}

std::string DecodeRun::AtPosition(std::string_view text) const {
    return std::string(text) + " at position " + std::to_string(pos_);
}

void DecodeRun::NoteDecodeWarning(std::string_view text) {
    if (!warningList_.empty()) warningList_ += '|';
    warningList_ += text;
    warnings_.emplace_back(text);
    textSize_ += text.size();
    CheckSize();
}

void DecodeRun::AppendNumber(std::int32_t value) {
    std::array<char, 12> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    line_.append(digits.data(), end);
}

void DecodeRun::AppendNumbered(std::string_view prefix, std::int32_t value) {
    line_ += prefix;
    AppendNumber(value);
}

void DecodeRun::AppendName(ReservedGroup group, std::uint8_t index) {
    const std::string& name = reserved_.Group(group)[index].Name;
    if (name.empty()) Fail({});
    line_ += name;
}

void DecodeRun::AddLine() {
    textSize_ += line_.size();
    CheckSize();
    lines_.push_back(line_);
}

void DecodeRun::FlushWarnings(std::size_t depth) {
    if (warningList_.empty()) return;
    // A warning that quotes a name with the separator in it becomes two comments.
    for (std::string_view rest = warningList_;;) {
        const std::size_t end = rest.find('|');
        StartLine(depth);
        line_ += "[ WARNING: ";
        line_ += rest.substr(0, end);
        AddLine();
        if (end == std::string_view::npos) break;
        rest.remove_prefix(end + 1);
    }
    warningList_.clear();
}

void DecodeRun::CheckSize() const {
    if (textSize_ > maxTextSize) Fail(AtPosition("Decompiled text is too long"));
}

}  // namespace zorvex
