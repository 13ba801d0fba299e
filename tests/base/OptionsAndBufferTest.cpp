// Reading numbered option files and the data page buffer.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "base/Options.h"
#include "base/OutputBuffer.h"
#include "base/TextFile.h"

using namespace kal;

TEST(ReadOptions, SevenCharactersEmptyLineAndLimit) {
    Options o;
    o[6] = 99;
    o.ReadOptionLines({"  -1.5  text", "abc", "1234567890", "45     Lines per page", "", "7"});
    EXPECT_FLOAT_EQ(o[1], -1.5f);
    EXPECT_FLOAT_EQ(o[2], 0);
    EXPECT_FLOAT_EQ(o[3], 1234567);
    EXPECT_FLOAT_EQ(o[4], 45);
    // Reading stopped at the empty fifth line: later options keep their values.
    EXPECT_FLOAT_EQ(o[6], 99);

    std::vector<std::string> many(300, "3");
    many[243] = "8";
    many[244] = "9";
    Options p;
    p.ReadOptionLines(many);
    EXPECT_FLOAT_EQ(p[244], 8);
    EXPECT_FLOAT_EQ(p[0], 0);
    // A missing file changes nothing.
    EXPECT_FALSE(p.ReadOptions("/nonexistent/OPTIONS.OPT"));
    EXPECT_FLOAT_EQ(p[244], 8);
}

TEST(TextFile, SplitsAnyLineEnd) {
    EXPECT_EQ(SplitLines("a\r\nb\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(SplitLines("a\r\n\r\n"), (std::vector<std::string>{"a", ""}));
    EXPECT_EQ(SplitLines(""), std::vector<std::string>{});
}

TEST(TextFile, FindsFilesWithoutRegardToCase) {
    kal::test::ScratchAppDir dir;
    dir.Write("Mixed.Orb", "1\r\n");
    EXPECT_EQ(FindFile(dir.path(), "MIXED.ORB").filename(), "Mixed.Orb");
    EXPECT_EQ(FindFile(dir.path(), "absent.txt").filename(), "absent.txt");
}

// Lines emptied by a clear are used again by later appends: none of their
// old text may show, in either list, whichever way a line is appended.
TEST(OutputBuffer, LinesReusedAfterAClearCarryNothingOver) {
    OutputBuffer out;
    for (int round = 0; round < 3; ++round) {
        const std::string tag = std::to_string(round);
        out.ClearAllLines();
        out.ClearDataPage();
        out.AppendJoined("  ", "a rather long joined line that needs storage ", tag);
        out.AppendBlankLine();
        out.OutLine = "out " + tag;
        out.AppendOutLine();
        out.Append("moved " + tag);
        out.AppendJoined("x");
        const std::vector<std::string> want = {
            "  a rather long joined line that needs storage " + tag,
            "",
            "out " + tag,
            "moved " + tag,
            "x",
            ""};
        EXPECT_EQ(out.AllLines, want) << round;
        EXPECT_EQ(out.PageLines, want) << round;
        // A second page on the same lines since the last clear.
        out.ClearDataPage();
        out.AppendJoined("p", tag);
        EXPECT_EQ(out.PageLines, (std::vector<std::string>{"p" + tag, ""})) << round;
        EXPECT_EQ(out.AllCount(), 6u) << round;
        EXPECT_EQ(out.AllLines[5], "p" + tag) << round;
    }
}

TEST(OutputBuffer, KeepsOneSpareElementAndShowsThePage) {
    kal::test::ScratchAppDir dir;
    // The page folder removed since the start is made again.
    std::filesystem::remove_all(dir.path() / "reports");
    OutputBuffer out;
    // Nothing appended yet: nothing to show.
    EXPECT_FALSE(ShowDataPage(out, dir.path()));

    out.Append("first");
    out.AppendBlankLine();
    out.Append("a\r\nb\r\n");
    EXPECT_EQ(out.AllCount(), 3u);
    EXPECT_EQ(out.AllLines.size(), 4u);
    EXPECT_EQ(out.AllLines.back(), "");

    out.ClearDataPage();
    out.Append("page");
    EXPECT_EQ(out.PageCount(), 1u);
    EXPECT_EQ(out.AllCount(), 4u);

    // A minimised window shows nothing and appends nothing.
    EXPECT_FALSE(ShowDataPage(out, dir.path(), true));
    EXPECT_EQ(out.PageCount(), 1u);

    ASSERT_TRUE(ShowDataPage(out, dir.path()));
    // The closing blank line and the spare element are both written.
    EXPECT_EQ(*ReadFileBytes(dir.path() / "reports" / "LASTPAGE.TXT"), "page\r\n\r\n\r\n");

    out.ClearAllLines();
    EXPECT_EQ(out.AllCount(), 0u);
    EXPECT_FALSE(ShowDataPage(out, dir.path()));
}

TEST(OutputBuffer, EmbeddedLineBreaksTakeThePageLineEnd) {
    OutputBuffer out;
    out.Append("x");
    out.Append("h\r\nd1\r\n");
    EXPECT_EQ(PageText(out, "\n"), "x\nh\nd1\n\n\n");
    EXPECT_EQ(PageText(out, "\r\n"), "x\r\nh\r\nd1\r\n\r\n\r\n");
    // A lone CR is dropped, a lone LF is a line end.
    OutputBuffer lone;
    lone.Append("a\rb\nc\r");
    EXPECT_EQ(PageText(lone, "\r\n"), "ab\r\nc\r\n\r\n");
}
