// The third step of a decompile: statements, jumps, the ends of blocks and the list of messages.
#include <algorithm>

#include "zorvex/decompiler/DecodeRun.h"

namespace zorvex {

namespace {

/// How a command is written in operator form: a text before the first variable, the operator, and the second
/// argument.
struct OperatorForm {
    std::string_view before;
    std::string_view between;
    ArgTypeEnum second = atNum;
};

constexpr std::uint8_t assignn = 3;
constexpr std::uint8_t firstMultiply = 165;

constexpr std::array<OperatorForm, 11> assignments{{{"++", "", atNum},
                                                    {"--", "", atNum},
                                                    {"", " = ", atNum},
                                                    {"", " = ", atVar},
                                                    {"", "  += ", atNum},
                                                    {"", "  += ", atVar},
                                                    {"", " -= ", atNum},
                                                    {"", " -= ", atVar},
                                                    {"*", " = ", atVar},
                                                    {"", " = *", atVar},
                                                    {"*", " = ", atNum}}};
constexpr std::array<OperatorForm, 4> multiplications{
    {{"", " *= ", atNum}, {"", " *= ", atVar}, {"", " /= ", atNum}, {"", " /= ", atVar}}};

const OperatorForm* OperatorOf(std::uint8_t command, bool specialSyntax) {
    if (command >= firstMultiply && command < firstMultiply + multiplications.size()) {
        return &multiplications[command - firstMultiply];
    }
    if (specialSyntax && command >= 1 && command <= assignments.size()) return &assignments[command - 1U];
    return nullptr;
}

}  // namespace

void DecodeRun::WriteCode() {
    lines_.reserve(data_.size() / 4);
    do {
        CloseBlocks();
        if (nextLabel_ <= labels_.size() && labels_[nextLabel_ - 1] == pos_) {
            StartLine(0);
            AppendNumbered("Label", static_cast<std::int32_t>(nextLabel_++));
            line_ += ':';
            AddLine();
        }
        const std::uint8_t command = NextByte();
        if (command == lbIf) {
            DecodeIf();
        } else if (command == lbGoto) {
            WriteJump();
        } else if (command < ActionCommandRows) {
            WriteStatement(command);
        }
    } while (pos_ < msgSecStart_);
    CloseBlocks();
    StartLine(0);
    AddLine();
    WriteMessageList();
}

void DecodeRun::CloseBlocks() {
    for (std::size_t i = depth_; i > 0; --i) {
        const DecodeBlock& block = blocks_[i];
        if (block.EndPos != pos_) continue;
        if (block.IsOutside) {
            // The code goes on past this block's place, so what skips the block has to jump. Only an else
            // says that.
            WriteElse();
            WriteGoto(block.JumpPos);
        }
        StartLine(i);
        line_ += '}';
        AddLine();
        --depth_;
    }
}

void DecodeRun::WriteElse() {
    StartLine(depth_);
    line_ += '}';
    AddLine();
    StartLine(depth_ - 1);
    line_ += "else\r\n";
    line_.append(2 * depth_, ' ');
    line_ += '{';
    AddLine();
}

void DecodeRun::WriteJump() {
    // A jump that reaches past the end of a damaged logic keeps the last distance.
    if (pos_ + 1 <= LastIndex()) {
        lastDistance_ = TakeDistance();
    } else {
        pos_ += 2;
    }
    if (JumpIsElse(lastDistance_)) {
        WriteElse();
        ContinueAsElse(lastDistance_);
        return;
    }
    std::int32_t target = pos_ + lastDistance_;
    if (target > LastIndex() - 1) {
        if (settings_.ErrorLevel == leMedium) {
            NoteDecodeWarning(AtPosition("Goto destination past end of logic") + " adjusted to end of logic");
        }
        if (settings_.ErrorLevel != leHigh) target = LastIndex() - 1;
    }
    if (WriteGoto(target)) FlushWarnings(0);
}

std::size_t DecodeRun::LabelAt(std::int32_t pos) const {
    const auto found = std::lower_bound(labels_.begin(), labels_.end(), pos);
    if (found == labels_.end() || *found != pos) return 0;
    return static_cast<std::size_t>(found - labels_.begin()) + 1;
}

bool DecodeRun::WriteGoto(std::int32_t target) {
    const std::size_t label = LabelAt(target);
    if (label == 0) return false;
    StartLine(depth_);
    AppendNumbered("goto(Label", static_cast<std::int32_t>(label));
    line_ += ");";
    AddLine();
    return true;
}

void DecodeRun::WriteStatement(std::uint8_t command) {
    if (command > commands_.ActionCount) {
        NoteDecodeWarning("this command not valid for selected interpreter version (" +
                          settings_.InterpreterVersion + ")");
    }
    StartLine(depth_);
    if (const OperatorForm* form = OperatorOf(command, settings_.SpecialSyntax)) {
        const std::uint8_t variable = NextByte();
        line_ += form->before;
        ArgValue(variable, atVar);
        line_ += form->between;
        if (!form->between.empty()) {
            ArgValue(NextByte(), form->second, command == assignn ? variable : noVariable);
        }
    } else {
        WriteCall(command);
    }
    line_ += ';';
    AddLine();
    FlushWarnings(0);
}

void DecodeRun::WriteCall(std::uint8_t command) {
    const CommandStruct& row = commands_.ActionCommandTable[command];
    line_ += row.Name;
    line_ += '(';
    argIndent_ = line_.size();
    for (std::size_t i = 0; i < row.ArgCount; ++i) {
        if (i != 0) line_ += ", ";
        WriteArgument(command, i, NextByte(), row.ArgType[i]);
    }
    line_ += ')';
}

void DecodeRun::WriteMessageList() {
    StartLine(0);
    line_ += "[ Messages";
    AddLine();
    for (std::size_t i = 0; i < messages_.size(); ++i) {
        if (!msgExists_[i + 1] || (msgUsed_[i + 1] && !settings_.ShowAllMessages)) continue;
        StartLine(0);
        AppendNumbered("#message ", static_cast<std::int32_t>(i) + 1);
        line_ += ' ';
        line_ += messages_[i];
        AddLine();
    }
}

}  // namespace zorvex
