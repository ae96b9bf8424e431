// The list of a stream's commands against what drawing the stream does.
#include <random>

#include "zorvex/picture/AGIPicture.h"
#include "zorvex/picture/PictureFunctions.h"

namespace zorvex::test {
namespace {

/// The bytes of all commands, one behind the other.
ByteArray BytesOf(const std::vector<PictureCommand>& commands) {
    ByteArray bytes;
    for (const PictureCommand& command : commands) {
        EXPECT_EQ(static_cast<std::size_t>(command.Position), bytes.size());
        bytes.push_back(command.Code);
        bytes.insert(bytes.end(), command.Arguments.begin(), command.Arguments.end());
    }
    return bytes;
}

/// What drawing reports, as the list has it: drawing stops at the first failure.
std::int32_t LevelOf(const std::vector<PictureCommand>& commands) {
    std::int32_t level = 0;
    for (const PictureCommand& command : commands) {
        level |= command.Faults;
        if ((command.Faults & peFailure) != 0) break;
    }
    return level;
}

ByteArray RandomStream(std::mt19937& random) {
    ByteArray stream(1 + random() % 40);
    for (std::uint8_t& byte : stream) {
        const auto kind = random() % 10;
        byte = static_cast<std::uint8_t>(kind < 4 ? 0xF0 + random() % 11 : random() % (kind < 8 ? 160 : 256));
    }
    if (random() % 2 == 0) stream.push_back(dfEnd);
    return stream;
}

TEST(PictureCommands, AreWhatDrawingDraws) {
    std::mt19937 random(29);
    ByteArray visual, priority, prefixVisual, prefixPriority;
    for (int round = 0; round < 20000; ++round) {
        const ByteArray stream = RandomStream(random);
        const auto commands = ListPictureCommands(stream);
        const ByteArray bytes = BytesOf(commands);
        ASSERT_TRUE(std::equal(bytes.begin(), bytes.end(), stream.begin())) << round;
        ASSERT_TRUE(bytes.size() == stream.size() || bytes.back() == dfEnd) << round;
        ASSERT_EQ(LevelOf(commands), DrawPicture(visual, priority, stream)) << round;
        if (LevelOf(commands) != 0 || commands.size() < 2) continue;
        // A draw that stops at a command draws what stands before it, with the pen that the list tells.
        const std::size_t at = 1 + random() % (commands.size() - 1);
        const std::int32_t position = commands[at].Position;
        DrawPicture(visual, priority, stream, position);
        ByteArray prefix(stream.begin(), stream.begin() + position);
        prefix.push_back(dfEnd);
        DrawPicture(prefixVisual, prefixPriority, prefix);
        ASSERT_TRUE(visual == prefixVisual && priority == prefixPriority) << round;
        ASSERT_EQ(GetToolStatus(), commands[at - 1].Pen) << round;
    }
}

TEST(PictureCommands, TellOperandsPenAndFaults) {
    AGIPicture picture;
    picture.SetPictureData(
        ByteArray{0xF0, 4, 0xF2, 3, 0xF6, 1, 2, 3, 4, 7, 0xFC, 0xF9, 0x25, 0xFA, 9, 50, 60, 9, 0xFF, 0xF1});
    const auto commands = picture.Commands();
    std::string codes;
    std::string faults;
    for (const PictureCommand& command : commands) {
        codes += HexPad(command.Code, 2) + ":" + std::to_string(command.Arguments.size()) + " ";
        faults += std::to_string(command.Faults);
    }
    EXPECT_EQ(codes, "F0:1 F2:1 F6:6 F9:1 FA:4 FF:0 ") << "a pair takes its second byte whatever it is";
    EXPECT_EQ(faults, "000000");
    EXPECT_EQ(commands[4].Pen, (PenStatus{agRed, agCyan, psCircle, psSplatter, 5}));
    EXPECT_EQ(ListPictureCommands(ByteArray{0xF8, 1}).front().Faults, peDataEnds);
    EXPECT_EQ(ListPictureCommands(ByteArray{0x12, 0xF0, 0x22, 0xFF}).front().Faults, peCommand);
    EXPECT_TRUE(ListPictureCommands({}).empty());
    EXPECT_EQ(picture.VisView().data(), picture.VisView().data());
    EXPECT_EQ(ByteArray(picture.PriView().begin(), picture.PriView().end()), picture.PriData());
    EXPECT_EQ(ByteArray(picture.View().begin(), picture.View().end()), picture.AllData());
    picture.Unload();
    EXPECT_ERROR(563, picture.Commands());
    EXPECT_ERROR(563, picture.VisView());
    EXPECT_ERROR(563, picture.View());
}

}  // namespace
}  // namespace zorvex::test
