// Help texts copied into the data page.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "periphery/HelpText.h"
#include "shell/Session.h"
#include "shell/TextFile.h"

using namespace kal;

TEST(ShowHelpText, CopiesLinesUnchangedAndEndsWithABlankLine) {
    test::ScratchAppDir dir;
    dir.Write("OUTPUTD1.HLP", "Data window\r\n   indented line\r\n\r\nlast\r\n");
    Session s;
    s.AppPath = dir.path();
    s.out.Append("earlier listing");
    EXPECT_TRUE(ShowHelpText(s, "\\outputd1.hlp").empty());
    // The page holds the file's lines, one blank line and the closing one
    // ShowDataPage appends, then the spare element.
    EXPECT_EQ(s.out.PageLines, (std::vector<std::string>{"Data window", "   indented line", "",
                                                         "last", "", "", ""}));
    EXPECT_EQ(*ReadFileBytes(LastPagePath(dir.path())),
              "Data window\r\n   indented line\r\n\r\nlast\r\n\r\n\r\n\r\n");
    EXPECT_EQ(s.out.AllCount(), 7u);
}

TEST(ShowHelpText, MissingFileIsReported) {
    test::ScratchAppDir dir;
    Session s;
    s.AppPath = dir.path();
    s.out.Append("old page");
    Messages m = ShowHelpText(s, "\\NOSUCH.HLP");
    ASSERT_EQ(m.size(), 1u);
    EXPECT_EQ(m[0].text,
              "Cannot find the file called " + (dir.path() / "NOSUCH.HLP").string() + ".");
    EXPECT_EQ(m[0].caption, "Warning!");
    EXPECT_EQ(m[0].icon, Icon::Critical);
    EXPECT_EQ(s.out.PageCount(), 0u);
}
