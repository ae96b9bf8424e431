#include "zorvex/compiler/StatementCompiler.h"

#include <algorithm>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Text.h"
#include "zorvex/compiler/IfCompiler.h"
#include "zorvex/compiler/arguments/ArgumentChecks.h"
#include "zorvex/compiler/arguments/ArgumentText.h"
#include "zorvex/compiler/lines/TokenReader.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/LogicFormat.h"

namespace zorvex {

namespace {

constexpr std::uint8_t returnCommand = 0;
constexpr std::uint8_t incrementCommand = 1;
constexpr std::uint8_t decrementCommand = 2;

/// The bytes of the jump over an else block, which count to the block before it.
constexpr std::int32_t elseBytes = 3;

}  // namespace

std::uint8_t CommandNum(CompileRun& run, bool isTest, std::string_view name) {
    const CommandTables& tables = run.World.Commands();
    const int number = isTest ? TestCommandNumber(name) : ActionCommandNumber(name);
    if (number < 0 || (isTest && number > tables.TestCount)) return UnknownCommand;
    if (!isTest && number > tables.ActionCount) {
        if (run.Level == leHigh) return UnsupportedCommand;
        run.Report(0, 5075, {name});
    }
    return static_cast<std::uint8_t>(number);
}

void StatementCompiler::CompileAGI() {
    WrappedRuntime(658, [&] {
        run_.ResetCompiler();
        lastFailed_ = run_.HasFailed();
        token_ = NextCommand(run_, false);
        while (run_.LineIndex != -1) {
            lastWasReturn_ = false;
            const StatementStart start{token_, run_.LineIndex, run_.CharPos, blockDepth_};
            lastFailed_ = !Recovering(run_, [&] { Statement(); });
            if (lastFailed_) GoOnAfter(start);
            prevToken_ = token_;
            token_ = NextCommand(run_, false);
        }
        FinishCode();
    });
}

void StatementCompiler::Statement() {
    const std::string_view token = token_;
    run_.QuoteErrLine = -1;
    if (token == "{") {
        if (!EqualNoCase(prevToken_, "if") && !EqualNoCase(prevToken_, "else")) run_.Fail(4008);
    } else if (token == "}") {
        CloseBlock();
    } else if (EqualNoCase(token, "if")) {
        CompileIfStatement();
    } else if (EqualNoCase(token, "else")) {
        CompileElse();
    } else if (EqualNoCase(token, "goto")) {
        CompileGoto();
    } else if (token == "/*" || token == "*/") {
        run_.Fail(4052);
    } else if (token == "++") {
        CompileStep(incrementCommand);
    } else if (token == "--") {
        CompileStep(decrementCommand);
    } else if (token == ":") {
        DeclareLabel(NextCommand(run_, false));
    } else {
        CompileNamed();
    }
}

// --- Going on after an error ---
void StatementCompiler::GoOnAfter(const StatementStart& start) {
    blockDepth_ = start.blockDepth;
    token_ = start.token;
    run_.Append(returnCommand);  // so that its block does not count as an empty one
    if (start.token == "}") {
        if (blockDepth_ > 0) --blockDepth_;
    } else if (start.token == "{") {
        OpenLostBlock();
    } else if (start.token != ";") {
        SkipStatement(start);
    }
}

/// Skips the rest of a statement: up to its semicolon, or to the brace behind it.
void StatementCompiler::SkipStatement(const StatementStart& start) {
    const bool moved = run_.LineIndex != start.lineIndex || run_.TokenStart >= start.charPos;
    // The token that the error met may be the end of the statement or the beginning of the next.
    if (moved) run_.CharPos = std::min(run_.TokenStart, run_.CurrentLine.size());
    while (true) {
        token_ = NextCommand(run_, false);
        if (run_.LineIndex == -1 || token_ == ";") return;
        if (token_ == "{") return OpenLostBlock();
        if (token_ == "}") {
            run_.CharPos = run_.TokenStart;
            return;
        }
    }
}

/// Begins a block whose statement failed, so that its closing brace is not one too many.
void StatementCompiler::OpenLostBlock() {
    if (blockDepth_ >= maxBlocks) {
        run_.LineIndex = -1;  // the braces can be counted no further
        return;
    }
    ++blockDepth_;
    blocks_[static_cast<std::size_t>(blockDepth_)] = {run_.Position(), 0, true};
    run_.LogicBuffer.WriteWord(0);
    run_.Append(returnCommand);
}

// --- Blocks ---
void StatementCompiler::CloseBlock() {
    if (blockDepth_ == 0) run_.Fail(4010);
    run_.NewRoomPending = false;
    Block& block = blocks_[static_cast<std::size_t>(blockDepth_)];
    const std::int32_t size = run_.LogicBuffer.Size() - block.start - 2;
    if (size == 0) run_.Report(4049, 5001);
    block.size = Narrow<std::int16_t>(size);
    run_.LogicBuffer.WriteWord(block.size, block.start);
    --blockDepth_;
}

void StatementCompiler::OpenBlock(bool isIf) {
    Block& block = blocks_[static_cast<std::size_t>(blockDepth_)];
    block.isIf = isIf;
    block.start = run_.Position();
    run_.LogicBuffer.WriteWord(0);
    token_ = NextCommand(run_, false);
    if (token_ != "{") run_.Fail(4053);
}

void StatementCompiler::CompileIfStatement() {
    CompileIf(run_, arguments_);
    if (blockDepth_ >= maxBlocks) run_.Fail(4110, {std::to_string(maxBlocks)});
    ++blockDepth_;
    OpenBlock(true);
}

void StatementCompiler::CompileElse() {
    if (prevToken_ != "}") run_.Fail(4011);
    Block& block = blocks_[static_cast<std::size_t>(blockDepth_ + 1)];
    if (!block.isIf) run_.Fail(4083);
    ++blockDepth_;
    block.size = Narrow<std::int16_t>(block.size + elseBytes);
    run_.LogicBuffer.WriteWord(block.size, block.start);
    run_.Append(lbGoto);
    OpenBlock(false);
}

// --- Jumps and labels ---
void StatementCompiler::WarnAfterNewRoom() {
    if (!run_.NewRoomPending) return;
    run_.Report(5095, 5095);
    run_.NewRoomPending = false;
}

void StatementCompiler::CompileGoto() {
    WarnAfterNewRoom();
    if (!TakeChar(run_, '(')) run_.Fail(4001);
    const std::string_view name = NextCommand(run_, false);
    const std::int32_t label = run_.LabelNum(name);
    if (label < 0) run_.Fail(4074, {name});
    if (gotos_.size() >= maxGotos) run_.Fail(4108, {std::to_string(maxGotos)});
    run_.Append(lbGoto);
    gotos_.push_back({label, run_.Position()});
    run_.LogicBuffer.WriteWord(0);
    if (!TakeChar(run_, ')')) run_.Fail(4003);
    if (!TakeChar(run_, ';')) run_.Fail(4007);
}

void StatementCompiler::DeclareLabel(std::string_view name) {
    const std::int32_t label = run_.LabelNum(name);
    if (label < 0) run_.Fail(4076);
    run_.Labels[static_cast<std::size_t>(label)].Loc = run_.Position();
}

// --- Commands ---
void StatementCompiler::CompileStep(std::uint8_t command) {
    run_.Append(command);
    std::string_view variable = NextCommand(run_, false);
    bool varOrNum = false;
    if (!run_.Names.ConvertArgument(variable, atVar, varOrNum)) run_.Fail(4046);
    const std::int32_t number = VariableValue(variable);
    if (number == -1) run_.Fail(4066, {""});
    run_.Append(number);
    EndStatement();
}

void StatementCompiler::EndStatement() {
    if (!TakeChar(run_, ';', true)) run_.Fail(4007);
}

void StatementCompiler::CompileNamed() {
    if (run_.CharPos < run_.CurrentLine.size() && run_.CurrentLine[run_.CharPos] == ':') {
        DeclareLabel(token_);
        NextChar(run_, false);
        return;
    }
    if (!EqualNoCase(token_, "return")) WarnAfterNewRoom();
    const std::uint8_t command = CommandNum(run_, false, token_);
    if (command == UnsupportedCommand) run_.Fail(4065, {token_});
    if (command != UnknownCommand) {
        CompileCommand(command);
    } else if (!CompileSpecial(token_)) {
        run_.Fail(4116, {token_});
    }
    EndStatement();
}

void StatementCompiler::CompileCommand(std::uint8_t command) {
    run_.Append(command);
    if (!TakeChar(run_, '(')) run_.Fail(4048);
    std::array<std::uint8_t, 8> values{};
    ReadArguments(command, values);
    ValidateArgs(run_, command, values);
    if (!TakeChar(run_, ')')) run_.FailOrBlameQuote(4160);
    if (command == returnCommand) {
        lastWasReturn_ = true;
        returnLine_ = run_.LineIndex;
    }
}

void StatementCompiler::ReadArguments(std::uint8_t command, std::array<std::uint8_t, 8>& values) {
    const CommandStruct& row = run_.World.Commands().ActionCommandTable[command];
    for (std::uint8_t i = 0; i < row.ArgCount; ++i) {
        if (i > 0 && !TakeChar(run_, ',', true)) run_.FailOrBlameQuote(4047, {std::to_string(i + 1)});
        const std::int32_t value =
            NamingCommand(row.Name, [&] { return arguments_.GetNextArg(row.ArgType[i], i); });
        values[i] = static_cast<std::uint8_t>(value);
        run_.Append(value);
    }
}

// --- The end ---
void StatementCompiler::FinishCode() {
    if (!lastWasReturn_ && !lastFailed_) {
        if (run_.Level == leHigh) run_.Fail(4102);
        run_.Append(returnCommand);
        if (run_.Level == leLow) run_.Warn(5016);
    }
    if (blockDepth_ > 0 && !run_.HasFailed()) {
        // A `return` at the end is where the brace is missing.
        if (lastWasReturn_) run_.BlameLine(returnLine_);
        run_.Fail(4009);
    }
    for (const GotoEntry& entry : gotos_) {
        const std::int32_t distance =
            run_.Labels[static_cast<std::size_t>(entry.label)].Loc - entry.dataLoc - 2;
        run_.LogicBuffer.WriteWord(distance & 0xFFFF, entry.dataLoc);
    }
}

}  // namespace zorvex
