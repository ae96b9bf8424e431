#include "zorvex/base/StringList.h"

namespace zorvex::test {

namespace {

StringList Lines(const std::vector<std::string>& lines) {
    StringList list;
    list.Assign(lines);
    return list;
}

}  // namespace

TEST(StringList, AssignSplitsAtAnyLineEnd) {
    StringList list;
    list.Assign("a\r\nb\nc\rd\ve\n\rf\n");
    EXPECT_EQ(list.Lines(), (std::vector<std::string>{"a", "b", "c", "d", "e", "", "f", ""}));
    EXPECT_EQ(list.Text("|"), "a|b|c|d|e||f|");
    list.Assign("a\nb,c", ",");
    EXPECT_EQ(list.Lines(), (std::vector<std::string>{"a\nb", "c"}));
    EXPECT_EQ(list.Text(), "a\nb\r\nc");
    list.Assign("");
    EXPECT_EQ(list.Count(), 1);
}

TEST(StringList, EmptyListStillHasOneElement) {
    StringList list = Lines({"only"});
    list.Delete();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.AllLines(), std::vector<std::string>{""});
    EXPECT_EQ(list.StringLine(), "");
    EXPECT_EQ(list.Text(), "");
    EXPECT_ERROR(676, list.Delete());
    EXPECT_RUNTIME(reSubscript, list.StringLine(0));
    EXPECT_ERROR(519, list.StringLine(0, "x"));
}

TEST(StringList, AddDeleteAndTheCursor) {
    StringList list = Lines({"b", "c"});
    list.Add("a", 0);
    list.Add("d", 99);
    list.Add("e", -5);
    EXPECT_EQ(list.Text(" "), "a b c d e");
    EXPECT_EQ(list.StringLine(3), "d");
    EXPECT_EQ(list.CurrentLine(), 3);
    EXPECT_RUNTIME(reSubscript, list.StringLine(5));
    EXPECT_ERROR(518, list.CurrentLine(-1));
    EXPECT_ERROR(519, list.Delete(5));
    list.Delete();
    EXPECT_EQ(list.StringLine(), "e");
    list.Delete();
    EXPECT_EQ(list.CurrentLine(), 2);
    list.StringLine(0, "z");
    list.Sort();
    EXPECT_EQ(list.Text(" "), "b c z");
    list.Clear();
    list.Add("x");
    EXPECT_EQ(list.StringLine(), "x");
}

TEST(StringList, NextLineStopsOnTheLast) {
    StringList list = Lines({"first", "", "  ", "x", " ", ""});
    EXPECT_EQ(list.NextLine(true), "x");
    EXPECT_EQ(list.NextLine(true), "");
    EXPECT_EQ(list.CurrentLine(), 5);
    EXPECT_EQ(list.NextLine(), "");
    EXPECT_EQ(list.CurrentLine(), 5);
    list.CurrentLine(0);
    EXPECT_EQ(list.NextLine(), "");
    EXPECT_EQ(list.CurrentLine(), 1);
}

TEST(StringList, RevisionTellsContentsApart) {
    StringList list = Lines({"a", "b"});
    const std::uint64_t before = list.Revision();
    list.CurrentLine(1);
    EXPECT_EQ(list.Revision(), before);
    StringList copy = list;
    copy.StringLine(0, "z");
    list.StringLine(0, "y");
    EXPECT_NE(list.Revision(), before);
    EXPECT_NE(list.Revision(), copy.Revision());
}

}  // namespace zorvex::test
