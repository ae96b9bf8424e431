// The pass that turns the prepared lines into code.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "zorvex/compiler/CompileRun.h"
#include "zorvex/compiler/arguments/ArgumentReader.h"

namespace zorvex {

/// Compiles all statements of a run in one walk over the tokens. Bytes go to the run's buffer at once; the
/// length of a block is filled in at its closing brace, the distance of a jump at the very end. After an
/// error the walk goes on at the next statement, if the run shall go on at all.
class StatementCompiler {
  public:
    explicit StatementCompiler(CompileRun& run) : run_(run), arguments_(run) {}
    StatementCompiler(const StatementCompiler&) = delete;
    StatementCompiler& operator=(const StatementCompiler&) = delete;

    /// Compiles everything.
    void CompileAGI();

  private:
    static constexpr std::int32_t maxBlocks = 64;
    static constexpr std::size_t maxGotos = 255;

    struct Block {
        std::int16_t start = 0;  // of the length word
        std::int16_t size = 0;
        bool isIf = false;
    };
    struct GotoEntry {
        std::int32_t label = 0;
        std::int16_t dataLoc = 0;  // of the distance
    };
    /// A command of the special forms with its operands.
    struct SpecialCommand {
        std::int32_t command = -1;  // not known yet
        std::uint8_t left = 0;
        std::uint8_t right = 0;
        bool leftIndirect = false;
        bool rightIndirect = false;
        bool rightIsVariable = false;
    };

    /// Where a statement began.
    struct StatementStart {
        std::string_view token;
        std::int32_t lineIndex;
        std::size_t charPos;  // behind the token
        std::int32_t blockDepth;
    };

    void Statement();
    void GoOnAfter(const StatementStart& start);
    void SkipStatement(const StatementStart& start);
    void OpenLostBlock();
    void CloseBlock();
    void CompileIfStatement();
    void CompileElse();
    void OpenBlock(bool isIf);
    void CompileGoto();
    void CompileStep(std::uint8_t command);
    void DeclareLabel(std::string_view name);
    void CompileNamed();
    void CompileCommand(std::uint8_t command);
    void ReadArguments(std::uint8_t command, std::array<std::uint8_t, 8>& values);
    void EndStatement();
    void FinishCode();
    void WarnAfterNewRoom();

    // The special forms, such as `v1 = 3;`
    bool CompileSpecial(std::string_view token);
    bool ReadFirstOperand(std::string_view token, SpecialCommand& special);
    void ReadIndirectTarget(SpecialCommand& special);
    void ReadStringAssignment(std::string_view name, SpecialCommand& special);
    void ReadVariableOperator(std::string_view name, SpecialCommand& special);
    void ReadFlagAssignment(std::string_view name, SpecialCommand& special);
    void ReadSecondOperand(SpecialCommand& special);
    void ReadIndirectSource(SpecialCommand& special);
    void ReadValue(std::string_view token, SpecialCommand& special);
    void ChooseVariableCommand(SpecialCommand& special);
    void ReadArithmetic(SpecialCommand& special);
    void WriteSpecial(const SpecialCommand& special);

    CompileRun& run_;
    ArgumentReader arguments_;
    std::string_view token_;
    std::string_view prevToken_;
    std::int32_t blockDepth_ = 0;
    std::array<Block, maxBlocks + 2> blocks_{};
    std::vector<GotoEntry> gotos_;
    bool lastWasReturn_ = false;
    bool lastFailed_ = false;
    std::int32_t returnLine_ = -1;  // in the working lines
};

/// The number of a test or action command: 255 for an unknown name, 254 for an action that the game's
/// interpreter does not know, which below leHigh is taken all the same.
std::uint8_t CommandNum(CompileRun& run, bool isTest, std::string_view name);

inline constexpr std::uint8_t UnknownCommand = 255;
inline constexpr std::uint8_t UnsupportedCommand = 254;

}  // namespace zorvex
