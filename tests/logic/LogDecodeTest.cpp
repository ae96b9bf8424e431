#include "zorvex/logic/LogDecode.h"

#include "tests/support/DocumentedBytes.h"
#include "tests/support/LogicBytes.h"
#include "zorvex/game/Error.h"
#include "zorvex/logic/Disassembly.h"
#include "zorvex/logic/StringList.h"

namespace zorvex::test {

namespace {

constexpr LogicErrorLevel levels[] = {leHigh, leMedium, leLow};

DecodedLogic Decode(ByteView logic, LogicErrorLevel level = leHigh, bool elseAsGoto = false) {
    DecodeSettings settings;
    settings.ErrorLevel = level;
    settings.ElseAsGoto = elseAsGoto;
    return DecodeLogic(logic, settings, DecodeNames());
}

/// Decompiles at all levels, with and without else; only the one error may come, and each instruction is
/// listed.
void DecodeSafely(ByteView logic) {
    for (const LogicErrorLevel level : levels) {
        for (const bool elseAsGoto : {false, true}) {
            try {
                Decode(logic, level, elseAsGoto);
            } catch (const Error& error) {
                ASSERT_TRUE(error.Is(688)) << error.Number() << error.Description();
                ASSERT_EQ(error.Source(), "LogDecode");
                ASSERT_FALSE(error.Description().empty());
            }
        }
    }
    std::int32_t next = 2;
    for (const LogicInstruction& instruction : DisassembleLogic(logic)) {
        ASSERT_EQ(instruction.Position, next);
        ASSERT_GE(instruction.Length, 1);
        next += instruction.Length;
    }
}

std::string FailureOf(ByteView logic) {
    try {
        Decode(logic);
        return "none";
    } catch (const Error& error) {
        return error.Description();
    }
}

/// `depth` blocks, each the only content of the one around it; the innermost displays a message.
ByteArray Nested(int depth) {
    ByteArray code{0x67, 1, 2, 1};
    for (int i = 0; i < depth; ++i) {
        const auto length = static_cast<std::uint16_t>(code.size());
        const ByteArray header{0xFF,
                               7,
                               1,
                               0xFF,
                               static_cast<std::uint8_t>(length & 0xFF),
                               static_cast<std::uint8_t>(length >> 8)};
        code.insert(code.begin(), header.begin(), header.end());
    }
    return code;
}

MessageTable OneMessage(std::string text) {
    MessageTable messages;
    messages.MsgUsed[1] = true;
    messages.MsgText[1] = std::move(text);
    return messages;
}

}  // namespace

TEST(LogDecode, NestsSixtyThreeBlocksAndNoMore) {
    const std::string text(100, 'x');
    const DecodedLogic logic = Decode(LogicOf(Nested(63), OneMessage(text)));
    // there is no room left on such a line, so that the message is not broken up
    EXPECT_EQ(logic.Lines[63], std::string(126, ' ') + "display(1, 2, \"" + text + "\");");
    EXPECT_EQ(logic.Lines[126], "  }");
    EXPECT_EQ(FailureOf(LogicOf(Nested(64), OneMessage(text))),
              "Too many nested blocks (64) at position 384");
}

TEST(LogDecode, ReadsTheDocumentedExample) {
    EXPECT_EQ(TextOfLines(Decode(DocumentedBytes("logic.md"))),
              "if (isset(f5))\n  {\n  print(\"Hi\");\n  }\nreturn();\n\n[ Messages\n#message 2 \"No.\"\n");
}

TEST(LogDecode, ReportsLabelsMessagesAndWarnings) {
    const DecodedLogic logic =
        Decode(LogicOf(ByteArray{0xFE, 0, 0, 0x65, 9, 0xFE, 0, 0}, OneMessage("x")), leMedium);
    EXPECT_EQ(logic.Labels, (std::vector<std::int32_t>{5, 10}));
    ASSERT_EQ(logic.Messages.size(), 1U);
    EXPECT_EQ(logic.Messages[0].Literal, "\"x\"");
    EXPECT_FALSE(logic.Messages[0].Used);
    EXPECT_EQ(logic.Warnings, (std::vector<std::string>{"unknown message: 9 at position 7"}));
}

TEST(LogDecode, SurvivesEveryPrefixAndEveryByte) {
    ByteArray code{0xFF, 0xFC, 1, 5, 9,    0xFD, 7,    3, 0xFC, 0x0E, 1, 20,   0,    0xFF, 9,
                   0,    3,    1, 2, 0x65, 1,    0xFE, 2, 0,    0x0C, 3, 0xFE, 0xE0, 0xFF, 0};
    const ByteArray logic = LogicOf(code, OneMessage("some text"));
    for (std::size_t size = 0; size <= logic.size(); ++size)
        DecodeSafely(ByteView(logic).first(size));
    for (std::size_t at = 0; at < logic.size(); ++at) {
        for (const unsigned value :
             {0U, 1U, 14U, 19U, 20U, 0x7FU, 0x80U, 0xB7U, 0xFCU, 0xFDU, 0xFEU, 0xFFU}) {
            ByteArray damaged = logic;
            damaged[at] = static_cast<std::uint8_t>(value);
            DecodeSafely(damaged);
        }
    }
}

TEST(LogDecode, SurvivesJumpsAndBlocksToEverywhere) {
    for (int value = 0; value < 0x10000; value += (value > 64 && value < 0xFFC0) ? 389 : 1) {
        const auto low = static_cast<std::uint8_t>(value & 0xFF);
        const auto high = static_cast<std::uint8_t>(value >> 8);
        DecodeSafely(LogicOf(ByteArray{0x0C, 1, 0xFE, low, high, 0x0C, 2, 0}));
        DecodeSafely(
            LogicOf(ByteArray{0xFF, 7, 1, 0xFF, 12, 0, 0xFF, 7, 1, 0xFF, low, high, 0x0C, 2, 0xFE, 0, 0, 0}));
        DecodeSafely(ByteArray{1, 0, 0, 1, 9, 0, low, high, 'a', 'b'});
    }
}

TEST(LogDecode, KeepsTheTextOfADamagedLogicSmall) {
    // every statement refers to one message of 30,000 characters
    ByteArray code;
    for (int i = 0; i < 16000; ++i)
        code.insert(code.end(), {0x65, 1});
    EXPECT_TRUE(FailureOf(LogicOf(code, OneMessage(std::string(30000, '"'))))
                    .starts_with("Decompiled text is too long"));
}

TEST(Disassembly, ListsTestsStatementsAndWhatIsCutOff) {
    const ByteArray code{0xFF, 0xFC, 0xFD, 7, 3, 0x0E, 1,    20,   0,    0xFC, 0xFF,
                         3,    0,    0x74, 1, 0, 0xFE, 0xFB, 0xFF, 0xC8, 0x7A, 1};
    std::string listing;
    for (const LogicInstruction& instruction : DisassembleLogic(LogicOf(code))) {
        listing += std::to_string(instruction.Position) + " " + instruction.Text + "\n";
    }
    EXPECT_EQ(listing,
              "2 if\n3   or (\n4   not\n5   isset(f3)\n7   said(20)\n11   )\n12 then, up to 18\n"
              "15 word.to.string(s1, w1)\n18 goto 16\n21 unknown command 200\n22 add.to.pic(...\n");
}

}  // namespace zorvex::test
