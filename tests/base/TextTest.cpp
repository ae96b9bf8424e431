#include "zorvex/base/Text.h"

#include "zorvex/base/FileName.h"

namespace zorvex::test {

TEST(Text, HostTextCountsCharactersAndSurvivesMalformedBytes) {
    EXPECT_EQ(CharacterCount("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"), 4U);
    EXPECT_EQ(CutCharacters("a\xC3\xA9\xE2\x82\xAC", 2), "a\xC3\xA9");
    // A lone start, an overlong form, a surrogate, a lone continuation, a start cut off by the end.
    EXPECT_EQ(CharacterCount("\xC3"), 1U);
    EXPECT_EQ(CharacterCount("\xC0\x80"), 2U);
    EXPECT_EQ(CharacterCount("\xED\xA0\x80"), 3U);
    EXPECT_EQ(CharacterCount("\x80z"), 2U);
    EXPECT_EQ(CutCharacters("\xE2\x82", 1), "\xE2");
    for (const char32_t character : {U'a', U'\u00FF', U'\u2588', U'\U0001F600'}) {
        std::string text;
        AppendCharacter(text, character);
        std::string_view rest = text;
        EXPECT_EQ(TakeCharacter(rest), character);
        EXPECT_TRUE(rest.empty());
    }
}

TEST(Text, CaseIsAsciiCase) {
    EXPECT_TRUE(EqualNoCase("VOL.0", "vol.0"));
    EXPECT_FALSE(EqualNoCase("\xC9", "\xE9"));
    EXPECT_FALSE(EqualNoCase("[", "{"));
    EXPECT_TRUE(StartsWithNoCase("LogDir", "LOG"));
    EXPECT_FALSE(StartsWithNoCase("LO", "LOG"));
    EXPECT_LT(CompareNoCase("a", "AB"), 0);
    EXPECT_GT(CompareNoCase("\x80", "z"), 0);
}

TEST(Text, Pieces) {
    EXPECT_EQ(Trim("  a b\t "), "a b\t");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceAll("a", "a", "aa"), "aa");
    EXPECT_EQ(Split("a,,b,", ","), (std::vector<std::string>{"a", "", "b", ""}));
    EXPECT_EQ(Split("", ","), (std::vector<std::string>{""}));
    EXPECT_EQ(Join({"a", "", "b"}, ", "), "a, , b");
    EXPECT_TRUE(MatchesPattern("KQ4VOL.10", "*vol.*"));
    EXPECT_TRUE(MatchesPattern("abcabd", "*ab?"));
    EXPECT_FALSE(MatchesPattern("logdir.old", "*DIR"));
}

TEST(Text, NumbersAsText) {
    EXPECT_EQ(Val(" -1.5x"), -1.5);
    EXPECT_EQ(Val("1.2.3"), 1.2);
    EXPECT_EQ(Val("3.002149"), 3.002149);
    EXPECT_EQ(Val("1e3"), 1);
    EXPECT_EQ(Val("x1"), 0);
    EXPECT_EQ(ParseLong(" 2.5 "), 2);
    EXPECT_EQ(ParseLong("3.5"), 4);
    EXPECT_EQ(ParseLong("-2.5"), -2);
    EXPECT_EQ(ParseLong("&hFFFFFFFF"), -1);
    for (const char* text :
         {"", ".", "-", "1 2", "1e3", "&H", "&H123456789", "&HG", "2147483648", "0x10", "99999999999"}) {
        EXPECT_EQ(ParseLong(text), std::nullopt) << text;
    }
    EXPECT_EQ(ParseLong("-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ParseBool(" true "), true);
    EXPECT_EQ(ParseBool("-1"), true);
    EXPECT_EQ(ParseBool("0.0"), false);
    EXPECT_EQ(ParseBool("yes"), std::nullopt);
}

TEST(Helpers, CrcAndCodePage) {
    EXPECT_EQ(CRC32("123456789"), static_cast<std::int32_t>(0xCBF43926));
    EXPECT_EQ(CRC32(""), 0);
    // Two bytes stand for character 255 and none for the hard blank.
    EXPECT_EQ(CharToByte(255), 152);
    EXPECT_EQ(CharToByte(233), 130);
    EXPECT_EQ(CharToByte(160), 32);
    EXPECT_EQ(CharToByte(0x4E00), 32);
    EXPECT_EQ(TextToBytes("A\xC2\x80\xC3\xA9\xE2\x96\x88\xE4\xB8\x80"), (ByteArray{'A', 128, 130, 219, 32}));
    for (int byte = 0; byte < 255; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(TextToGame(ConvertToCodePage(text)), text) << byte;
    }
    EXPECT_EQ(TextToGame(ConvertToCodePage("\xFF")), "\x98");
}

TEST(FileName, HoldsOnlyWhatStaysInItsDirectory) {
    for (const std::string good : {"a", "VOL.0", "...", "a b", "\xC3\xA4", "\x80", "-x", "~"})
        EXPECT_TRUE(FileName::Fits(good)) << good;
    const std::vector<std::string> bad{"",
                                       ".",
                                       "..",
                                       "a/b",
                                       "a\\b",
                                       "c:",
                                       "a\nb",
                                       "a\x1b",
                                       "\xC2\x85",
                                       "\x7f",
                                       std::string("a\0b", 3),
                                       std::string(256, 'a')};
    for (const std::string& text : bad) {
        EXPECT_FALSE(FileName::Of(text)) << text;
        EXPECT_RUNTIME(reBadFileName, FileName{text});
    }
    EXPECT_TRUE(FileName::Fits(std::string(255, 'a')));
    EXPECT_EQ(FileName("x").In("\\game"), "\\game\\x");
    for (const char* text : {"a*", "a?", "\"a", "a|", " a", "a ", "<a"}) {
        EXPECT_TRUE(FileName::Fits(text)) << text;
        EXPECT_FALSE(FileName::FitsEverywhere(text)) << text;
    }
}

TEST(Helpers, PathsAndHexadecimals) {
    EXPECT_EQ(CDir(""), "");
    EXPECT_EQ(CDir("C:\\a"), "C:\\a\\");
    EXPECT_EQ(CDir("C:\\a\\"), "C:\\a\\");
    EXPECT_EQ(JustPath("name.txt"), "\\");
    EXPECT_EQ(JustPath("name.txt", true), "");
    EXPECT_EQ(JustPath("C:\\a\\b.txt", true), "C:\\a");
    EXPECT_EQ(JustFileName("C:\\a\\"), "");
    EXPECT_EQ(FileNameNoExt("C:\\a.b\\file"), "file");
    EXPECT_EQ(FileNameNoExt("a\\b.c.d"), "b.c");
    EXPECT_EQ(Hex2(10), "0A");
    EXPECT_EQ(Hex2(0), "00");
    EXPECT_EQ(HexPad(10, 8), "0000000A");
    EXPECT_EQ(HexPad(-1, 4), "FFFFFFFF");
    EXPECT_NEAR(Log10(1000), 3, 1e-9);
    EXPECT_EQ(Log10(0), 0);
    EXPECT_EQ(Log10(-1), 0);
}

}  // namespace zorvex::test
