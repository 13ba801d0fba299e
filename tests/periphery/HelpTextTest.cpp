// Help texts copied into the data page.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "base/Passages.h"
#include "periphery/HelpText.h"

using namespace kal;

TEST(HelpTextPage, CopiesLinesUnchangedOrReportsAMissingFile) {
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

    Messages m = HelpTextPage(dir.path(), "\\NOSUCH.HLP", out);
    EXPECT_EQ(m, Messages{CannotFindFileMessage(dir.path() / "NOSUCH.HLP")});
    EXPECT_EQ(out.PageCount(), 0u);
}
