// One decompile. Internal; its three steps stand in DecodeMessages, DecodeLabels and the writing pass of
// DecodeText, DecodeIf and DecodeArguments.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/decompiler/LogDecode.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/LogicFormat.h"
#include "zorvex/language/ReservedTables.h"

namespace zorvex {

/// An open block of the code.
struct DecodeBlock {
    bool IsIf = false;         // opened by an `if` and not yet turned into its `else`
    std::int32_t EndPos = 0;   // where the block closes
    std::int32_t Length = 0;   // as read, or the jump distance of an `else`
    bool IsOutside = false;    // the block ran past the end of its parent
    std::int32_t JumpPos = 0;  // such a block's own end; EndPos is then the parent's
};

class DecodeRun {
  public:
    DecodeRun(ByteView data, const DecodeSettings& settings, const DecodeNames& names);

    DecodedLogic Run();

  private:
    static constexpr int noVariable = -1;
    struct IfHeader;

    // --- Bytes ---
    std::int32_t LastIndex() const { return static_cast<std::int32_t>(data_.size()) - 1; }
    /// A byte of the data; raises 9 outside of it.
    std::uint8_t ByteAt(std::int32_t pos) const;
    /// The byte at Pos, which moves on. Raises 9.
    std::uint8_t TakeByte();
    /// The signed 16-bit distance of a jump; Pos moves on. Raises 9.
    std::int32_t TakeDistance();
    /// A 16-bit value of at most 32767; Pos moves on. Raises 9 and 6.
    std::int32_t TakeWord();
    /// For statements, which may reach past the end of a damaged logic: the byte at Pos or, past the end, the
    /// last one.
    std::uint8_t NextByte();

    [[noreturn]] void Fail(std::string_view text) const;
    std::string AtPosition(std::string_view text) const;
    void NoteDecodeWarning(std::string_view text);

    // --- Step 1, DecodeMessages ---
    void ReadMessages();
    void ReadMessageSection();
    std::string ReadMessage(std::int32_t start, const MessageSectionLayout& layout);

    // --- Step 2, DecodeLabels ---
    void FindLabels();
    void ScanCode();
    void CheckBlockEnds();
    void ScanTestBlock();
    void ScanTests();
    void ScanBlockLength();
    void ScanJump();
    void ResetBlocks();
    /// True when the jump that ends at Pos is the `else` of the innermost block, which is from then on no
    /// `if`.
    bool JumpIsElse(std::int32_t distance);
    void ContinueAsElse(std::int32_t distance);

    // --- Step 3, DecodeText ---
    void WriteCode();
    void CloseBlocks();
    void WriteElse();
    void WriteJump();
    /// False, and nothing written, when there is no label at the target.
    bool WriteGoto(std::int32_t target);
    void WriteStatement(std::uint8_t command);
    void WriteCall(std::uint8_t command);
    void WriteArgument(std::uint8_t command, std::size_t index, std::uint8_t value, ArgTypeEnum type);
    void WriteMessageList();
    /// The number of the label at a position, from 1; 0 for none.
    std::size_t LabelAt(std::int32_t pos) const;

    // --- Step 3, DecodeIf ---
    void DecodeIf();
    void WriteTests();
    void WriteTest(std::uint8_t test, bool negated);
    void WriteComparison(std::uint8_t test, bool negated);
    void WriteSaid();
    void WriteWordGroup(std::int32_t group);
    void OpenBlock();
    /// Ends a line of the header behind an operator and starts the next.
    void BreakHeader(std::string_view joiner);

    // --- Step 3, DecodeArguments ---
    /// Appends the source text of an argument; `variable` is the one that the number is assigned to or
    /// compared with.
    void ArgValue(std::uint8_t value, ArgTypeEnum type, int variable = noVariable);
    void NumberValue(std::uint8_t value, int variable);
    void FlagValue(std::uint8_t value);
    void ItemValue(std::uint8_t value);
    std::string MessageValue(std::uint8_t value);
    /// Appends a message literal, broken into several where the line grows long.
    void AppendWrapped(std::string_view literal);
    bool AppendResourceID(std::uint8_t command, std::size_t index, std::uint8_t value);

    // --- Output ---
    void StartLine(std::size_t depth) { line_.assign(2 * depth, ' '); }
    void AppendNumber(std::int32_t value);
    void AppendNumbered(std::string_view prefix, std::int32_t value);
    /// Fails where the reserved name was set to nothing: the text would lack it.
    void AppendName(ReservedGroup group, std::uint8_t index);
    /// Adds the line built so far to the text.
    void AddLine();
    void FlushWarnings(std::size_t depth);
    void CheckSize() const;

    const ByteView data_;
    const DecodeSettings& settings_;
    const DecodeNames& names_;
    const CommandTables& commands_;
    const ReservedTables& reserved_;

    std::int32_t pos_ = 0;
    std::int32_t msgSecStart_ = 0;
    std::size_t depth_ = 0;
    std::array<DecodeBlock, 65> blocks_;
    std::vector<std::int32_t> labels_;
    std::size_t nextLabel_ = 1;
    std::vector<std::string> messages_;  // literal of message i at i - 1
    std::array<bool, 256> msgExists_{};
    std::array<bool, 256> msgUsed_{};
    std::string warningList_;
    std::vector<std::string> warnings_;
    std::size_t argIndent_ = 0;
    bool cutsEscape_ = false;
    std::uint8_t lastByte_ = 0;
    std::int32_t lastDistance_ = 0;

    std::vector<std::string> lines_;
    std::string line_;
    std::size_t textSize_ = 0;
};

}  // namespace zorvex
