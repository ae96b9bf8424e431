// The third step of a decompile: an `if` with its tests, one to a line, and the start of its block.
#include "zorvex/base/Checked.h"
#include "zorvex/decompiler/DecodeRun.h"

namespace zorvex {

namespace {

constexpr std::uint8_t firstComparison = 1;
constexpr std::uint8_t lastComparison = 6;

/// The operators of the comparisons, plain and negated; each stands for a test with a number and one with a
/// variable.
constexpr std::array<std::array<std::string_view, 2>, 3> comparisons{
    {{" == ", " != "}, {" < ", " >= "}, {" > ", " <= "}}};

}  // namespace

/// The state of the header being written.
struct DecodeRun::IfHeader {
    bool first = true;  // no test yet in this list or group
    bool inOr = false;
};

void DecodeRun::DecodeIf() {
    try {
        WriteTests();
        OpenBlock();
    } catch (...) {
        const Error error = CurrentError();
        if (error.Is(688)) throw error;
        Fail("Unhandled error (" + std::to_string(error.Number()) + ": " + error.Description() +
             ")\r\rat position " + std::to_string(pos_) + " in DecodeIf");
    }
}

void DecodeRun::WriteTests() {
    IfHeader header;
    StartLine(depth_);
    line_ += "if (";
    for (;;) {
        std::uint8_t test = TakeByte();
        if (test == lbOr) {
            header.inOr = !header.inOr;
            if (header.inOr) {
                if (!header.first) BreakHeader(" && ");
                header.first = true;
                line_ += '(';
            } else {
                line_ += ')';
            }
            test = TakeByte();
        }
        if (test == lbOr && !header.inOr) {
            BreakHeader(" && ");
            header = {true, true};
            line_ += '(';
            test = TakeByte();
        }
        const bool negated = test == lbNot;
        if (negated) test = TakeByte();
        if (test == lbIf) return;
        if (test == 0 || test > commands_.TestCount) {
            Fail(AtPosition("Unknown test command (" + std::to_string(test) + ")"));
        }
        if (!header.first) BreakHeader(header.inOr ? " || " : " && ");
        WriteTest(test, negated);
        header.first = false;
    }
}

void DecodeRun::BreakHeader(std::string_view joiner) {
    line_ += joiner;
    AddLine();
    StartLine(depth_ + 2);
}

void DecodeRun::WriteTest(std::uint8_t test, bool negated) {
    if (settings_.SpecialSyntax && test >= firstComparison && test <= lastComparison) {
        WriteComparison(test, negated);
        return;
    }
    const CommandStruct& row = commands_.TestCommandTable[test];
    if (negated) line_ += '!';
    line_ += row.Name;
    line_ += '(';
    if (test == SaidCommand) {
        WriteSaid();
    } else {
        for (std::size_t i = 0; i < row.ArgCount; ++i) {
            if (i != 0) line_ += ", ";
            ArgValue(TakeByte(), row.ArgType[i]);
        }
    }
    line_ += ')';
    if (test == UnknownTest) NoteDecodeWarning("unknowntest19 is only valid in Amiga AGI versions");
}

void DecodeRun::WriteComparison(std::uint8_t test, bool negated) {
    const std::uint8_t left = TakeByte();
    const std::uint8_t right = TakeByte();
    ArgValue(left, atVar);
    line_ += comparisons[(test - 1U) / 2][negated ? 1 : 0];
    ArgValue(right, test % 2 == 1 ? atNum : atVar, left);
}

void DecodeRun::WriteSaid() {
    const std::uint8_t count = TakeByte();
    for (std::uint8_t i = 0; i < count; ++i) {
        if (i != 0) line_ += ", ";
        WriteWordGroup(TakeWord());
    }
}

void DecodeRun::WriteWordGroup(std::int32_t group) {
    if (!names_.HasVocabulary()) {
        AppendNumber(group);
    } else if (const auto name = names_.GroupName(group)) {
        line_ += '"';
        line_ += *name;
        line_ += '"';
    } else {
        if (settings_.ErrorLevel == leHigh) {
            Fail(AtPosition("unknown word group (" + std::to_string(group) + ")"));
        }
        if (settings_.ErrorLevel == leMedium) NoteDecodeWarning("unknown word: " + std::to_string(group));
        AppendNumber(group);
    }
}

void DecodeRun::OpenBlock() {
    line_ += ")\r\n";
    line_.append(2 * depth_ + 2, ' ');
    line_ += '{';

    const std::int32_t parentEnd = blocks_[depth_].EndPos;
    DecodeBlock& block = At(blocks_, ++depth_);
    block = {};
    block.IsIf = true;
    block.Length = TakeWord();
    const bool remarks = settings_.ErrorLevel == leMedium;
    if (remarks && block.Length == 0) NoteDecodeWarning("this block contains no commands");
    block.EndPos = block.Length + pos_;
    if (block.EndPos > LastIndex() - 1 && settings_.ErrorLevel != leHigh) {
        block.EndPos = LastIndex() - 1;
        if (remarks) NoteDecodeWarning("block end past end of resource; adjusted to end of resource");
    }
    if (block.EndPos > parentEnd) {
        if (remarks) {
            NoteDecodeWarning(
                AtPosition("Block end outside of nested block (" + std::to_string(block.EndPos) + ")"));
        }
        block.IsOutside = true;
        block.JumpPos = block.EndPos;
        block.EndPos = parentEnd;
    }
    AddLine();
    FlushWarnings(depth_);
}

}  // namespace zorvex
