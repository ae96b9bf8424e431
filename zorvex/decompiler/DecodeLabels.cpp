// The second step of a decompile: all jump targets are found, and the structure of the blocks is checked.
#include <algorithm>

#include "zorvex/base/Error.h"
#include "zorvex/decompiler/DecodeRun.h"

namespace zorvex {

namespace {

constexpr std::size_t maxDepth = 63;
/// A block of this length holds nothing but a jump, and is never the first half of an if and else.
constexpr std::int32_t loneJumpLength = 3;

}  // namespace

void DecodeRun::ResetBlocks() {
    blocks_.fill({});
    blocks_[0].EndPos = blocks_[0].Length = msgSecStart_;
    depth_ = 0;
    pos_ = LogicCodeStart;
}

void DecodeRun::FindLabels() {
    try {
        ScanCode();
    } catch (...) {
        const Error error = CurrentError();
        if (error.Is(688)) throw error;
        Fail(AtPosition("Unhandled error in FindLabels (" + std::to_string(error.Number()) + ": " +
                        error.Description() + ")"));
    }
    std::sort(labels_.begin(), labels_.end());
    labels_.erase(std::unique(labels_.begin(), labels_.end()), labels_.end());
    ResetBlocks();
}

void DecodeRun::ScanCode() {
    do {
        CheckBlockEnds();
        const std::uint8_t command = TakeByte();
        if (command == lbIf) {
            ScanTestBlock();
        } else if (command == lbGoto) {
            ScanJump();
        } else if (command >= ActionCommandRows) {
            Fail(AtPosition("Unknown action command (" + std::to_string(command) + ")"));
        } else if (command <= commands_.ActionCount) {
            pos_ += commands_.ActionCommandTable[command].ArgCount;
        }
    } while (pos_ < msgSecStart_);
}

void DecodeRun::CheckBlockEnds() {
    for (std::size_t i = depth_; i > 0; --i) {
        const DecodeBlock& block = blocks_[i];
        if (block.EndPos > pos_) continue;
        if (block.EndPos < pos_) {
            Fail("Invalid goto position, or invalid if/then block length) at position " +
                 std::to_string(block.EndPos - block.Length));
        }
        --depth_;
    }
}

void DecodeRun::ScanTestBlock() {
    try {
        ScanTests();
        ScanBlockLength();
    } catch (...) {
        const Error error = CurrentError();
        if (error.Is(688)) throw error;
        Fail("Unhandled error while decoding logic at position " + std::to_string(pos_) + "): ");
    }
}

void DecodeRun::ScanTests() {
    for (;;) {
        std::uint8_t test = TakeByte();
        if (test == lbOr) test = TakeByte();
        if (test == lbOr) test = TakeByte();
        if (test == lbNot) test = TakeByte();
        if (test == lbIf) return;
        if (test == 0 || test > commands_.TestCount) {
            Fail(AtPosition("Unknown test command (" + std::to_string(test) + ")"));
        }
        if (test == SaidCommand) {
            const std::uint8_t words = TakeByte();
            pos_ += 2 * words;
        } else {
            pos_ += commands_.TestCommandTable[test].ArgCount;
        }
    }
}

void DecodeRun::ScanBlockLength() {
    if (depth_ >= maxDepth) {
        Fail(AtPosition("Too many nested blocks (" + std::to_string(depth_ + 1) + ")"));
    }
    const DecodeBlock& parent = blocks_[depth_];
    DecodeBlock& block = blocks_[++depth_];
    block.IsIf = true;
    block.Length = TakeWord();
    block.IsOutside = false;
    if (block.Length == 0 && settings_.ErrorLevel == leHigh) {
        Fail(AtPosition("Encountered command block of length 0"));
    }
    block.EndPos = block.Length + pos_;
    if (block.EndPos <= parent.EndPos) return;
    if (settings_.ErrorLevel == leHigh) {
        Fail("Block end outside of nested block (" + std::to_string(block.EndPos) + ") at position" +
             std::to_string(pos_));
    }
    block.IsOutside = true;
    block.JumpPos = block.EndPos;
    block.EndPos = parent.EndPos;
    labels_.push_back(block.JumpPos);
}

void DecodeRun::ScanJump() {
    const std::int32_t distance = TakeDistance();
    if (JumpIsElse(distance)) {
        ContinueAsElse(distance);
        return;
    }
    const std::int32_t target = pos_ + distance;
    if (target > LastIndex() - 1 && settings_.ErrorLevel == leHigh) {
        Fail("Goto destination past end of logic (" + std::to_string(target) + ")at position " +
             std::to_string(pos_));
    }
    labels_.push_back(target);
}

bool DecodeRun::JumpIsElse(std::int32_t distance) {
    if (settings_.ElseAsGoto || depth_ == 0) return false;
    DecodeBlock& block = blocks_[depth_];
    if (block.EndPos != pos_ || !block.IsIf) return false;
    block.IsIf = false;
    block.IsOutside = false;
    return distance >= 0 && pos_ + distance <= blocks_[depth_ - 1].EndPos && block.Length > loneJumpLength;
}

void DecodeRun::ContinueAsElse(std::int32_t distance) {
    blocks_[depth_].Length = distance;
    blocks_[depth_].EndPos = pos_ + distance;
}

}  // namespace zorvex
