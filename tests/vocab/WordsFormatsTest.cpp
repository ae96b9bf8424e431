#include "tests/support/CaseFile.h"
#include "zorvex/vocab/WordsFile.h"
#include "zorvex/vocab/WordsText.h"

namespace zorvex::test {
namespace {

VocabularyData Vocabulary(std::vector<AGIWord> words) {
    VocabularyData data;
    data.Words = std::move(words);
    ArrangeVocabulary(data);
    return data;
}

/// An index that says that the words begin at 52, and then the bytes of a text.
ByteArray WordsFileOf(std::string_view entries) {
    ByteArray bytes(52);
    bytes[1] = 52;
    for (const std::uint8_t byte : BytesOfText(entries))
        bytes.push_back(byte);
    return bytes;
}

VocabularyData FromText(std::string_view text) {
    const std::optional<VocabularyData> data = DecodeWordsText(Bytes(text));
    EXPECT_TRUE(data) << text;
    return data.value_or(VocabularyData{});
}

TEST(WordsFile, TheDocumentedExampleReadsAndWrites) {
    const ByteArray bytes = DocumentedBytes("words.md");
    const VocabularyData words =
        Vocabulary({{"a", 0}, {"anyword", 1}, {"look", 300}, {"look at", 300}, {"rol", 9999}});
    EXPECT_EQ(DecodeWordsFile(bytes), words);
    EXPECT_EQ(EncodeWordsFile(words), bytes);
    const VocabularyData odd = Vocabulary({{"\x01\x7F", 0}, {"2", 65535}, {"zz", 3}, {"~", 4}});
    EXPECT_EQ(DecodeWordsFile(EncodeWordsFile(odd)), odd);
}

TEST(WordsFile, ReadsWhatOddFilesHold) {
    EXPECT_EQ(DecodeWordsFile(WordsFileOf("00")), DefaultVocabulary());
    // "Go" in group 2 is lowered, the "go" right behind it skipped, the one at the end counts; "ab" claims to
    // share more than there is.
    const VocabularyData odd = *DecodeWordsFile(
        WordsFileOf("00 38 90 00 02  00 18 90 00 03  00 9E 00 06  FF 9D 00 07  00 18 90 00 05  00"));
    EXPECT_EQ(odd.Words, (std::vector<AGIWord>{{"a", 6}, {"ab", 7}, {"go", 5}}));
    EXPECT_EQ(odd.Groups, (std::vector<std::int32_t>{2, 5, 6, 7}));
}

TEST(WordsFile, RefusesFilesThatEndEarly) {
    const ByteArray bytes = DocumentedBytes("words.md");
    EXPECT_FALSE(DecodeWordsFile(ByteView(bytes).first(bytes.size() - 1))) << "no zero byte at the end";
    EXPECT_FALSE(DecodeWordsFile(Bytes("\xFF\xFF"))) << "the words begin behind the end";
}

TEST(WordsFile, RefusesWhatTheFormatCannotHold) {
    EXPECT_RUNTIME(reOverflow, EncodeWordsFile(Vocabulary({{"caf\xE9", 1}})));
    EXPECT_RUNTIME(reInvalidCall, EncodeWordsFile(Vocabulary({{"", 9}})));
    const std::string longWord(256, 'x');
    EXPECT_RUNTIME(reOverflow, EncodeWordsFile(Vocabulary({{longWord, 1}, {longWord + "y", 1}})));

    std::vector<AGIWord> many;
    for (int i = 0; i < 9000; ++i)
        many.push_back({"w" + std::to_string(i), 1});
    EXPECT_EQ(DecodeWordsFile(EncodeWordsFile(Vocabulary(many)))->Words.size(), 9000U) << "one letter fits";
    many.push_back({"x", 1});
    EXPECT_RUNTIME(reOverflow, EncodeWordsFile(Vocabulary(many)));
}

TEST(WordsText, WritesGroupsInOrderWithTheirWordsInOrder) {
    VocabularyData words = Vocabulary({{"look", 300}, {"a", 0}, {"examine", 300}, {"rol", 9999}});
    words.Groups.push_back(10000);
    EXPECT_EQ(TextOf(EncodeWordsText(words)), "2.1.1\r\n0\ta\r\n300\texamine\tlook\r\n9999\trol\r\n");
    words.Description = "one\r\ntwo";
    EXPECT_TRUE(TextOf(EncodeWordsText(words)).ends_with("rol\r\n\xFF\xFF\r\none\r\ntwo\r\n"));
    const VocabularyData back = FromText(TextOf(EncodeWordsText(words)));
    EXPECT_EQ(back.Description, "one\rtwo");
    EXPECT_EQ(FromText(TextOf(EncodeWordsText(back))), back);
}

TEST(WordsText, ReadsOlderVersionsAndAnyLineEnd) {
    for (const char* version :
         {"2.1.1", "ZORVEX v1.2     ", "ZORVEX v1.0     ", "1.0 BETA        ", "1.2.", "1.2.9 and more"}) {
        EXPECT_EQ(FromText(std::string(version) + "\r5\tGet\ttake\n\nno tab\r\n7\tx").Words,
                  (std::vector<AGIWord>{{"get", 5}, {"take", 5}, {"x", 7}}));
    }
    EXPECT_EQ(FromText("2.1.1\n"), DefaultVocabulary());
    EXPECT_EQ(FromText("2.1.1\n\xFF\xFF\n\nfor \xE9t\xE9\n").Description, "\rfor \u00E9t\u00E9");
    EXPECT_EQ(CharacterCount(FromText("2.1.1\n\xFF\xFF\n" + std::string(3000, '\xE9')).Description), 1024U);
    for (const char* other : {"", "2.1.0\n0\ta", "2.1.1 \n0\ta", "ZORVEX v1.2\n0\ta"})
        EXPECT_FALSE(DecodeWordsText(Bytes(other))) << other;
}

TEST(WordsText, RefusesBadGroupsAndRaisesForWordsThatComeTwice) {
    for (const char* line : {"x\ta", "-1\ta", "65536\ta", "0\ta\n0\tb", "\ta", "1e3\ta"})
        EXPECT_FALSE(DecodeWordsText(Bytes("2.1.1\n" + std::string(line)))) << line;
    const std::string digits(400, '9');
    EXPECT_FALSE(DecodeWordsText(Bytes("2.1.1\n" + digits + "." + digits + "\ta")));
    EXPECT_ERROR(579, DecodeWordsText(Bytes("2.1.1\n0\ta\n1\tb\tA\n")));
}

}  // namespace
}  // namespace zorvex::test
