#include "zorvex/language/MessageSection.h"

#include "tests/support/LogicBytes.h"
#include "zorvex/language/LogicFormat.h"
#include "zorvex/storage/AGIResource.h"

namespace zorvex::test {

namespace {

/// The message section of a logic that holds only `return();`, with its text unscrambled.
ByteArray Section(const std::map<std::size_t, std::string>& messages) {
    ByteArray logic = LogicOf(ByteArray{0}, messages);
    EXPECT_EQ(ByteArray(logic.begin(), logic.begin() + 3), (ByteArray{1, 0, 0}));
    const MessageSectionLayout layout{3, logic[3]};
    for (std::int32_t pos = layout.TextStart(); std::cmp_less(pos, logic.size()); ++pos) {
        std::uint8_t& byte = logic[static_cast<std::size_t>(pos)];
        byte = layout.Scramble(byte, pos);
    }
    return {logic.begin() + 3, logic.end()};
}

}  // namespace

TEST(MessageSection, IsWrittenWithItsTable) {
    EXPECT_EQ(Section({}), (ByteArray{0, 2, 0}));
    EXPECT_EQ(Section({{1, "Hi"}}), (ByteArray{1, 7, 0, 4, 0, 'H', 'i', 0}));
    EXPECT_EQ(Section({{1, "a"}, {3, ""}}), (ByteArray{3, 11, 0, 8, 0, 0, 0, 10, 0, 'a', 0, 0}));
    EXPECT_EQ(Section({{0, "no such number"}}), (ByteArray{0, 2, 0}));

    const ByteArray last = Section({{255, "z"}});
    ASSERT_EQ(last.size(), 3U + 2 * 255 + 2);
    EXPECT_EQ(last[3 + 2 * 254] + 256 * last[3 + 2 * 254 + 1], 512);
}

TEST(MessageSection, ScramblesTextAndNothingElse) {
    const ByteArray logic = LogicOf(ByteArray{0}, {{1, "A"}, {2, "B"}});
    EXPECT_EQ(ByteView(logic).first(10).back(), 0);
    // the key runs on from the end of the first message
    EXPECT_EQ(ByteArray(logic.begin() + 10, logic.end()), (ByteArray{'A' ^ 0x41, 0x76, 'B' ^ 0x69, 0x73}));
}

TEST(MessageSection, ResolvesEscapes) {
    struct Case {
        std::string_view text;
        std::string bytes;
        bool terminated = true;
    };
    const Case cases[] = {{R"(a\qb)", "aqb"},
                          {R"(a\x41b)", "aAb"},
                          {R"(a\x4)", R"(a\x4)"},
                          {R"(a\x00b)", R"(a\x00b)"},
                          {R"(a\x4g)", "a\x04"},
                          {R"(a\xg4)", R"(a\xg4)"},
                          {R"(a\Xff)", "aXff"},
                          {R"(\"\\\n\N)", "\"\\\n\n"},
                          {R"(tail\)", "tail"},
                          {R"(a\0b)", "ab", false},
                          {"\t\r\n\x08\x01\xE9", "    \x01\xE9"}};
    for (const Case& each : cases) {
        ByteArray bytes;
        EXPECT_EQ(AppendMessageBytes(each.text, bytes), each.terminated) << each.text;
        EXPECT_EQ(TextOf(bytes), each.bytes) << each.text;
    }
    EXPECT_EQ(Section({{1, R"(a\0)"}, {2, "b"}}), (ByteArray{2, 9, 0, 6, 0, 7, 0, 'a', 'b', 0}));
}

TEST(MessageSection, EveryByteComesBack) {
    for (unsigned value = 1; value < 256; ++value) {
        std::string text;
        AppendEscaped(static_cast<std::uint8_t>(value), text);
        ByteArray bytes;
        AppendMessageBytes(text, bytes);
        EXPECT_EQ(bytes, ByteArray{static_cast<std::uint8_t>(value)}) << text;
    }
}

TEST(MessageSection, RefusesWhatPassesTheLargestPosition) {
    EXPECT_EQ(LogicOf(ByteArray(65525)).size(), 65530U);
    EXPECT_ERROR(516, LogicOf(ByteArray(65526)));
}

}  // namespace zorvex::test
