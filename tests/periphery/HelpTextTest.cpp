// Help texts copied into the data page.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "periphery/HelpText.h"

using namespace kal;

TEST(HelpTextPage, CopiesLinesUnchangedAndEndsWithABlankLine) {
    test::ScratchAppDir dir;
    dir.Write("OUTPUTD1.HLP", "Data window\r\n   indented line\r\n\r\nlast\r\n");
    OutputBuffer out;
    out.Append("earlier listing");
    EXPECT_TRUE(HelpTextPage(dir.path(), "\\outputd1.hlp", out).empty());
    // The page holds the file's lines and one blank line, then the spare
    // element; the buffer keeps the earlier listing.
    EXPECT_EQ(out.PageLines,
              (std::vector<std::string>{"Data window", "   indented line", "", "last", "", ""}));
    EXPECT_EQ(out.AllCount(), 6u);
}

TEST(HelpTextPage, MissingFileIsReported) {
    test::ScratchAppDir dir;
    OutputBuffer out;
    out.Append("old page");
    Messages m = HelpTextPage(dir.path(), "\\NOSUCH.HLP", out);
    ASSERT_EQ(m.size(), 1u);
    EXPECT_EQ(m[0].text,
              "Cannot find the file called " + (dir.path() / "NOSUCH.HLP").string() + ".");
    EXPECT_EQ(m[0].caption, "Warning!");
    EXPECT_EQ(m[0].icon, Icon::Critical);
    EXPECT_EQ(out.PageCount(), 0u);
}
