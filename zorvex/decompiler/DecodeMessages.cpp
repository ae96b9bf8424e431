// The first step of a decompile: the messages become literals.
#include "zorvex/base/Error.h"
#include "zorvex/decompiler/DecodeRun.h"
#include "zorvex/language/MessageSection.h"

namespace zorvex {

void DecodeRun::ReadMessages() {
    try {
        ReadMessageSection();
    } catch (...) {
        const Error error = CurrentError();
        if (error.Is(688)) throw error;
        Fail(AtPosition("Unhandled error while decoding messages (" + std::to_string(error.Number()) + ": " +
                        error.Description() + ")"));
    }
}

void DecodeRun::ReadMessageSection() {
    pos_ = msgSecStart_;
    const MessageSectionLayout layout{msgSecStart_, TakeByte()};
    if (layout.count == 0) return;
    ByteAt(pos_);
    ByteAt(pos_ + 1);
    pos_ += 2;

    std::vector<std::int32_t> starts;
    for (std::int32_t i = 1; i <= layout.count; ++i) {
        const std::int32_t start = ByteAt(pos_) + 256 * ByteAt(pos_ + 1) + layout.Origin();
        if (start > LastIndex()) Fail("Invalid message section data");
        pos_ += 2;
        starts.push_back(start);
    }
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const bool exists = starts[i] >= layout.TextStart();
        msgExists_[i + 1] = exists;
        messages_.push_back(exists ? ReadMessage(starts[i], layout) : std::string());
    }
}

std::string DecodeRun::ReadMessage(std::int32_t start, const MessageSectionLayout& layout) {
    std::string literal = "\"";
    for (pos_ = start;;) {
        const std::uint8_t byte = layout.Scramble(ByteAt(pos_), pos_);
        ++pos_;
        if (byte == 0 || pos_ > LastIndex()) break;
        AppendEscaped(byte, literal);
    }
    literal += '"';
    return literal;
}

}  // namespace zorvex
