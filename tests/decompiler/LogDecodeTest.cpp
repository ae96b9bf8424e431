#include "zorvex/decompiler/LogDecode.h"

#include "tests/support/CaseFile.h"
#include "tests/support/LogicBytes.h"
#include "zorvex/base/StringList.h"
#include "zorvex/decompiler/Disassembly.h"
#include "zorvex/language/AGILogicSourceSettings.h"

namespace zorvex::test {

namespace {

DecodedLogic Decode(ByteView logic, LogicErrorLevel level = leHigh) {
    DecodeSettings settings;
    settings.ErrorLevel = level;
    return DecodeLogic(logic, settings, DecodeNames());
}

/// `depth` blocks, each the only content of the one around it; the innermost displays a message.
ByteArray Nested(int depth) {
    ByteArray code{0x67, 1, 2, 1};
    for (int i = 0; i < depth; ++i) {
        const std::size_t length = code.size();
        code.insert(code.begin(), {0xFF, 7, 1, 0xFF, static_cast<std::uint8_t>(length),
                                   static_cast<std::uint8_t>(length >> 8U)});
    }
    return code;
}

}  // namespace

TEST(LogDecode, NestsSixtyThreeBlocksAndNoMore) {
    const std::string text(100, 'x');
    const DecodedLogic logic = Decode(LogicOf(Nested(63), {{1, text}}));
    // there is no room left on such a line, so that the message is not broken up
    EXPECT_EQ(logic.Lines[63], std::string(126, ' ') + "display(1, 2, \"" + text + "\");");
    EXPECT_EQ(logic.Lines[126], "  }");
    EXPECT_ERROR_TEXT(688, "Too many nested blocks (64) at position 384", Decode(LogicOf(Nested(64))));
}

TEST(LogDecode, BreaksMessagesUpAtTheWidthAskedFor) {
    const std::string escape = std::string(72, 'x') + "\"" + std::string(20, 'y');
    const ByteArray logic = LogicOf(ByteArray{0x65, 1}, {{1, escape}});
    DecodeSettings settings;
    const DecodedLogic cut = DecodeLogic(logic, settings, DecodeNames());
    EXPECT_EQ(cut.Lines[0],
              "print(\"" + std::string(72, 'x') + "\\\"");  // the backslash stays here, its quote not
    EXPECT_TRUE(cut.CutsEscape);
    settings.WrapWidth = 0;
    const DecodedLogic whole = DecodeLogic(logic, settings, DecodeNames());
    EXPECT_EQ(whole.Lines[0], "print(\"" + std::string(72, 'x') + "\\\"" + std::string(20, 'y') + "\");");
    EXPECT_FALSE(whole.CutsEscape);
    settings.WrapWidth = 40;
    EXPECT_EQ(DecodeLogic(logic, settings, DecodeNames()).Lines[0].size(), 41U);
}

TEST(LogDecode, ReadsTheDocumentedExample) {
    EXPECT_EQ(TextOfLines(Decode(DocumentedBytes("logic.md"))),
              "if (isset(f5))\n  {\n  print(\"Hi\");\n  }\nreturn();\n\n[ Messages\n#message 2 \"No.\"\n");
}

TEST(LogDecode, ReportsLabelsMessagesAndWarnings) {
    const DecodedLogic logic =
        Decode(LogicOf(ByteArray{0xFE, 0, 0, 0x65, 9, 0xFE, 0, 0}, {{1, "x"}}), leMedium);
    EXPECT_EQ(logic.Labels, (std::vector<std::int32_t>{5, 10}));
    ASSERT_EQ(logic.Messages.size(), 1U);
    EXPECT_EQ(logic.Messages[0].Literal, "\"x\"");
    EXPECT_FALSE(logic.Messages[0].Used);
    EXPECT_EQ(logic.Warnings, (std::vector<std::string>{"unknown message: 9 at position 7"}));
}

TEST(LogDecode, RefusesAnArgumentWithoutAName) {
    AGILogicSourceSettings names;
    names.ResDef(1, 3, "");
    DecodeSettings settings;
    settings.NamesAsText = true;
    for (const ByteArray& code : {ByteArray{0x17, 3}, ByteArray{0xFF, 8, 3, 0xFF, 1, 0, 0}})
        EXPECT_ERROR(688, DecodeLogic(LogicOf(code), settings, DecodeNames()));
    settings.SpecialSyntax = true;
    for (const ByteArray& code :
         {ByteArray{3, 3, 7}, ByteArray{4, 50, 3}, ByteArray{0xFF, 3, 3, 9, 0xFF, 1, 0, 0}})
        EXPECT_ERROR(688, DecodeLogic(LogicOf(code), settings, DecodeNames()));
    names.ResetResDefines();
}

TEST(LogDecode, KeepsTheTextOfADamagedLogicSmall) {
    // every statement refers to one message of 30,000 characters
    ByteArray code;
    for (int i = 0; i < 16000; ++i)
        code.insert(code.end(), {0x65, 1});
    const ByteArray logic = LogicOf(code, {{1, std::string(30000, '"')}});
    EXPECT_TRUE(RaisedText([&] { Decode(logic); }).starts_with("Decompiled text is too long"));
}

TEST(Disassembly, ListsTestsStatementsAndWhatIsCutOff) {
    const ByteArray code{0xFF, 0xFC, 0xFD, 7, 3, 0x0E, 1,    20,   0,    0xFC, 0xFF,
                         3,    0,    0x74, 1, 0, 0xFE, 0xFB, 0xFF, 0xC8, 0x7A, 1};
    std::string listing;
    for (const LogicInstruction& instruction : DisassembleLogic(LogicOf(code)))
        listing += std::to_string(instruction.Position) + " " + instruction.Text + "\n";
    EXPECT_EQ(listing,
              "2 if\n3   or (\n4   not\n5   isset(f3)\n7   said(20)\n11   )\n12 then, up to 18\n"
              "15 word.to.string(s1, w1)\n18 goto 16\n21 unknown command 200\n22 add.to.pic(...\n");
}

}  // namespace zorvex::test
