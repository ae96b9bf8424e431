#include "zorvex/state/GameProperties.h"

#include "tests/support/CaseFile.h"
#include "tests/support/FailingFiles.h"
#include "zorvex/base/StringList.h"
#include "zorvex/state/OldPropertyFile.h"
#include "zorvex/state/PropertyFile.h"

namespace zorvex::test {

namespace {

class FixedClock : public Clock {
  public:
    DateTime Now() const override { return {2001, 2, 3, 4, 5, 6}; }
};

/// The library's record with a property list of its own, as if a game were about to open.
class GamePropertiesTest : public testing::Test {
  protected:
    void SetUp() override {
        clockBefore_ = UseClock(std::make_shared<FixedClock>());
        files_->MakeDirectory("\\game");
        Library().GameDir = "\\game\\";
        Library().GameFile = "\\game\\A.zvg";
    }
    void TearDown() override { UseClock(clockBefore_); }
    static void Open(std::string_view text) {
        Files().Write("\\game\\A.zvg", Bytes(text));
        Library().PropertyList = OpenPropertyList("\\game\\A.zvg", false);
    }
    static std::string Line(std::string_view key) {
        for (const std::string& line : Library().PropertyList->Lines()) {
            if (Trim(line).starts_with(std::string(key) + " =")) return line;
        }
        return "none";
    }

    LibraryReset reset_;
    MemoryFiles files_;
    std::shared_ptr<Clock> clockBefore_;
};

}  // namespace

TEST_F(GamePropertiesTest, OpenAndSave) {
    EXPECT_EQ(OpenPropertyList("\\game\\none.zvg", false)->Text("|"), "\\game\\none.zvg|#");
    EXPECT_EQ(Files().Kind("\\game\\none.zvg"), FileKind::None);
    EXPECT_EQ(OpenPropertyList("\\game\\new.zvg", true)->Text("|"), "\\game\\new.zvg|#");
    EXPECT_EQ(files_->Text("\\game\\new.zvg"), "#");
    EXPECT_EQ(OpenPropertyList("\\game", false)->Text("|"), "\\game|#");

    Open("# one\n[General]\r\n   GameID = A\r\n");
    EXPECT_EQ(Library().PropertyList->Count(), 5);
    EXPECT_TRUE(SaveGameProperties());
    EXPECT_EQ(files_->Text("\\GAME\\a.ZVG"), "# one\r\n[General]\r\n   GameID = A\r\n");
    EXPECT_EQ(Library().PropertyList->Lines().front(), "\\game\\A.zvg");
    EXPECT_EQ(files_->All().size(), 2U);
}

TEST_F(GamePropertiesTest, AFailedSaveKeepsTheFormerFileAndTheList) {
    Open("old");
    WriteGameProperty("General", "Description", std::string(100, 'x'));
    for (int step = 1;; ++step) {
        files_->FailAt(step, reDiskFull, 20);
        const bool saved = SaveGameProperties();
        if (saved) {
            EXPECT_GT(step, 2);
            break;
        }
        EXPECT_EQ(files_->Text("\\game\\A.zvg"), "old") << step;
        EXPECT_EQ(files_->All().size(), 1U) << step;
        EXPECT_EQ(Library().LastErrorNumber, reDiskFull);
    }
    EXPECT_TRUE(files_->Text("\\game\\A.zvg").ends_with('x'));
}

TEST_F(GamePropertiesTest, ADirectoryThatTakesNoNewFilesStillTakesASave) {
    Open("old");
    files_->FailAt(1, rePermissionDenied);
    EXPECT_TRUE(SaveGameProperties());
    EXPECT_EQ(files_->All().size(), 1U);
    files_->Heal();
    files_->KillAt(1);
    EXPECT_FALSE(SaveGameProperties());
}

TEST_F(GamePropertiesTest, ThePaletteIsReadInBothFormsAndRewritten) {
    Open(
        "[Palette]\nColor3 = &H00112233\nColor4 = &H12,&H34,&H56,&H78\nColor5 = red\nColor6 = &HZZ000000\n"
        "Color7 = &H1,&H2,&H3\nColor8 = &H00abcdef");
    GetGameProperties();
    const LibraryState& library = Library();
    EXPECT_EQ(std::vector(library.EGAColor.begin() + 3, library.EGAColor.begin() + 9),
              (std::vector{0x112233, 0x12345678, 0xA00080, 0x0050A0, 0xA0A0A0, 0xABCDEF}));
    EXPECT_EQ(library.EGARevColor[3], 0x332211);
    EXPECT_EQ(library.EGARevColor[4], 0x12785634);
    EXPECT_EQ(Line("Color8"), "Color8 = &H00abcdef");
    EXPECT_EQ(ReadGameString("Palette", "Color4", ""), "&H12345678");
    EXPECT_EQ(ReadGameString("Palette", "Color5", ""), "&H00A00080");
    EXPECT_EQ(ReadGameString("Palette", "Color9", ""), "&H00FF5050");
}

TEST_F(GamePropertiesTest, GeneralValues) {
    Open(
        "[General]\nDescription = \"two\\nlines\"\nPlatformType = 3\nUseResNames = 1\nuseLE=True\n"
        "LastEdit = \"1999-12-31 23:59:58\"");
    GetGameProperties();
    const LibraryState& library = Library();
    EXPECT_EQ(library.GameDescription, "two\r\nlines");
    EXPECT_EQ(library.PlatformType, 3);
    EXPECT_TRUE(library.UseReservedNames);
    EXPECT_TRUE(library.UseLE);
    EXPECT_EQ(DateText(library.LastEdit), "1999-12-31 23:59:58");
    // What was missing is there now, with its default.
    EXPECT_EQ(Line("DOSExec"), "   DOSExec = \"\"");

    WriteGameProperty("General", "ZorvexVersion", "2.1.1");
    EXPECT_EQ(library.LastEdit.Year, 1999);
    WriteGameProperty("General", "Author", "A");
    EXPECT_EQ(DateText(library.LastEdit), "2001-02-03 04:05:06");
}

TEST_F(GamePropertiesTest, ADateThatIsNoneIsAFaultAfterAllElseIsRead) {
    Open("[General]\nLastEdit = yesterday\nUseLE = True");
    EXPECT_RUNTIME(reTypeMismatch, GetGameProperties());
    EXPECT_TRUE(Library().UseLE);
    WriteLastEdit();
    EXPECT_EQ(ReadGameString("General", "LastEdit", ""), "yesterday") << "kept until there is another";
    WriteGameProperty("General", "Author", "A");
    WriteLastEdit();
    EXPECT_EQ(ReadGameString("General", "LastEdit", ""), "2001-02-03 04:05:06");
    // The zero date is written as an empty text and reads back.
    WriteGameProperty("General", "LastEdit", DateText({}));
    EXPECT_NO_THROW(GetGameProperties());
}

TEST_F(GamePropertiesTest, NoLineEndOfAValueEndsItsLine) {
    Open("[General]\n");
    const std::int32_t lines = Library().PropertyList->Count();
    WriteGameProperty("General", "About", "one\vtwo\rthree\nfour");
    EXPECT_EQ(Library().PropertyList->Count(), lines + 1);
    Open(Library().PropertyList->Text());
    EXPECT_EQ(ReadGameString("General", "About", ""), "one\r\ntwo\r\nthree\r\nfour");
}

TEST_F(GamePropertiesTest, WithoutAListNothingHappens) {
    WriteGameProperty("General", "Author", "A");
    EXPECT_EQ(Library().LastEdit, DateTime{});
    EXPECT_EQ(ReadGameLong("General", "Size", -1), -1);
    DeleteGameProperty("General", "Author");
    DeleteGameSection("General");
    EXPECT_TRUE(SaveGameProperties());
}

TEST_F(GamePropertiesTest, TheLogTakesLinesAndNeverRaises) {
    Library().LastErrorNumber = 5;
    WriteLogEntry(0, "one");
    WriteLogEntry(1, "two");
    EXPECT_EQ(files_->Text("\\game\\errlog.txt"), "03-Feb-2001: WARNING: one\r\n03-Feb-2001: ERROR: two\r\n");
    files_->KillAt(1);
    WriteLogEntry(0, "three");
    EXPECT_EQ(Library().LastErrorNumber, 5);
    files_->Heal();
    Library().GameDir.clear();
    WriteLogEntry(0, "here");
    EXPECT_EQ(files_->Text("\\work\\errlog.txt"), "03-Feb-2001: WARNING: here\r\n");
}

// The input of a case is a former, binary property file as text of bytes; the expectation is the list that it
// gives.
TEST_F(GamePropertiesTest, FormerPropertyFiles) {
    RunCases("old-property-file", [](const CaseFile& file) {
        Open(TextOf(BytesOfText(file.Section("input"))));
        ConvertOldPropertyFile();
        return Library().PropertyList->Text("\n");
    });
}

TEST_F(GamePropertiesTest, AFormerPropertyFileHasItsSignatureAnIDAndAVersion) {
    const std::string id = "83 00 00 01 00 \"A\" ";
    const std::string version = "84 00 00 05 00 \"2.936\" ";
    for (const auto& [bytes, isOne] : {std::pair(id + version + "\"1.0 BETA        \"", true),
                                       {id + version + "\"ZORVEX v1.3     \"", false},
                                       {id + version + "\"1.0 BETA\"", false},
                                       {id + "84 00 00 00 00 \"ZORVEX v1.2     \"", false},
                                       {id + version + "81 00 00 FF FF \"ZORVEX v1.2     \"", false}}) {
        Open(TextOf(BytesOfText(bytes)));
        ConvertOldPropertyFile();
        EXPECT_EQ(Library().PropertyList != nullptr, isOne) << bytes;
    }
}

TEST_F(GamePropertiesTest, TheExamplesOfTheFormatPageHold) {
    Open(DocumentedBlock("property-file.md", "text"));
    EXPECT_EQ(ReadGameString("general", "interpreter", ""), "2.936");
    EXPECT_EQ(ReadGameString("General", "About", ""), "two\r\nlines of text");
    EXPECT_EQ(ReadGameLong("Logic7", "CRC32", 0), static_cast<std::int32_t>(0x8B1A9953));
    GetGameProperties();
    EXPECT_EQ(Library().EGAColor[4], 0x1020A0);

    Open(TextOf(DocumentedBytes("property-file.md")));
    ConvertOldPropertyFile();
    ASSERT_TRUE(Library().PropertyList);
    EXPECT_EQ(ReadGameString("General", "GameID", ""), "DEMO");
    EXPECT_EQ(Line("CRC32"), "   CRC32 = &H8B1A9953");
}

}  // namespace zorvex::test
