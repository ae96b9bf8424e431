#include "tests/support/CaseFile.h"
#include "zorvex/base/ScrambleKey.h"
#include "zorvex/vocab/ObjectFile.h"
#include "zorvex/vocab/ObjectText.h"

namespace zorvex::test {
namespace {

InventoryData Inventory(std::vector<InventoryData::Item> items) {
    InventoryData data;
    data.Items = std::move(items);
    return data;
}

ByteArray Scrambled(ByteArray bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] ^= ScrambleKey[i % ScrambleKey.size()];
    return bytes;
}

TEST(ObjectFile, TheDocumentedExampleReadsAndWrites) {
    const ByteArray bytes = DocumentedBytes("object.md");
    InventoryData items = Inventory({{"?", 0}, {"key", 5}, {"?", 7}});
    EXPECT_EQ(DecodeObjectFile(bytes), items);
    EXPECT_EQ(EncodeObjectFile(items), bytes);
    items.Encrypted = true;
    EXPECT_EQ(DecodeObjectFile(Scrambled(bytes)), items);
    EXPECT_EQ(EncodeObjectFile(items), Scrambled(bytes));
}

TEST(ObjectFile, TheAmigaFormIsToldByTheFirstName) {
    InventoryData items = Inventory({{"?", 1}, {"lamp", 255}});
    items.AmigaOBJ = true;
    items.MaxScreenObjects = 31;
    const ByteArray bytes = BytesOfText(R"(08 00 1F 00  08 00 01 00  0A 00 FF 00  "?" 00 "lamp" 00)");
    EXPECT_EQ(EncodeObjectFile(items), bytes);
    EXPECT_EQ(DecodeObjectFile(bytes), items);
}

TEST(ObjectFile, RefusesOtherBytes) {
    for (const char* text :
         {"00", "41", "00 80 10 \"?\" 00", "00 00 10 \"!!\" 00", "03 00 10  FF 00 00  \"?\" 00",
          "03 00 10  00 80 00  \"?\" 00", "09 00 10 03 00", "03 00 10  03 00 00  \"?\" 01"})
        EXPECT_FALSE(DecodeObjectFile(BytesOfText(text))) << text;
}

TEST(ObjectFile, HoldsUpTo256ItemsAndOffsetsBelow32768) {
    InventoryData items = Inventory(std::vector<InventoryData::Item>(256, {"sword", 9}));
    EXPECT_EQ(DecodeObjectFile(EncodeObjectFile(items)), items);
    items.Items.push_back({"one too many", 0});
    EXPECT_EQ(DecodeObjectFile(EncodeObjectFile(items))->Items.size(), 256U);
    items = Inventory({{std::string(32700, 'x'), 1}, {"fits", 2}});
    EXPECT_EQ(DecodeObjectFile(EncodeObjectFile(items)), items);
    items.Items[0].Name.append(100, 'x');
    EXPECT_RUNTIME(reOverflow, EncodeObjectFile(items));
}

TEST(ObjectText, WritesAndReads) {
    InventoryData items = Inventory({{"?", 3}, {"key\tring", 255}, {"\xE9", 0}});
    items.MaxScreenObjects = 20;
    items.Description = "line\r\nline";
    const ByteArray bytes = EncodeObjectText(items);
    EXPECT_EQ(TextOf(bytes),
              "2.1.1\r\n20\r\n3\t?\r\n255\tkey\tring\r\n0\t\xE9\r\n\xFF\xFF\r\nline\r\nline\r\n");
    items.Description = "line\rline";
    EXPECT_EQ(DecodeObjectText(bytes), items);
}

TEST(ObjectText, TakesNumbersOutOfRangeAsTheNearest) {
    const auto data = DecodeObjectText(Bytes("1.2.7\n0\n300\tfar\n-5\tnear\nx\tnone\nno tab\n\n"));
    EXPECT_EQ(data->Items, (std::vector<InventoryData::Item>{
                               {"far", 255}, {"near", 0}, {"none", 0}, {"no tab", 0}, {"", 0}}));
    EXPECT_EQ(data->MaxScreenObjects, 1);
    const std::string digits(400, '9');
    EXPECT_EQ(DecodeObjectText(Bytes("2.1.1\n" + digits))->MaxScreenObjects, 255);
    EXPECT_FALSE(DecodeObjectText(Bytes("2.1.1\n")));
    EXPECT_FALSE(DecodeObjectText(Bytes("2.1.2\n5\n")));
    std::string many = "2.1.1\n16";
    for (int i = 0; i < 256; ++i)
        many.append("\n1\titem");
    EXPECT_TRUE(DecodeObjectText(Bytes(many)));
    EXPECT_FALSE(DecodeObjectText(Bytes(many + "\n1\titem")));
}

}  // namespace
}  // namespace zorvex::test
