// The tip list: stepping forward and back around the tips of the file.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "periphery/Tips.h"

using namespace kal;

namespace {

// "Tip 1" ... "Tip n", CR LF after each.
std::string NumberedTips(int n) {
    std::string s;
    for (int i = 1; i <= n; ++i) s += "Tip " + std::to_string(i) + "\r\n";
    return s;
}

} // namespace

TEST(TipList, NineteenTipsWrapBothWays) {
    test::ScratchAppDir dir;
    dir.Write("TIPS19.TXT", NumberedTips(19));
    TipList t;
    ASSERT_TRUE(t.LoadTips(dir.path() / "TIPS19.TXT"));
    // Loading shows the first tip.
    EXPECT_EQ(t.CurrentTip(), 1);
    EXPECT_EQ(t.CurrentText(), "Tip 1");
    for (int i = 0; i < 18; ++i) t.NextTip();
    EXPECT_EQ(t.CurrentText(), "Tip 19");
    t.NextTip();
    EXPECT_EQ(t.CurrentTip(), 1);
    t.GoBackTip();
    EXPECT_EQ(t.CurrentTip(), 19);
    EXPECT_EQ(t.CurrentText(), "Tip 19");
    t.GoBackTip();
    EXPECT_EQ(t.CurrentText(), "Tip 18");
}

TEST(TipList, ShortFileWrapsToItsLastTipAndBlankLinesAreNoTips) {
    test::ScratchAppDir dir;
    // A hand-edited file: LF line ends, a blank line, no final line end.
    dir.Write("SHORT.TXT", "First tip\n\nSecond tip\n   \nThird tip");
    TipList t;
    ASSERT_TRUE(t.LoadTips(dir.path() / "SHORT.TXT"));
    EXPECT_EQ(t.Count(), 3);
    t.GoBackTip();
    EXPECT_EQ(t.CurrentTip(), 3);
    EXPECT_EQ(t.CurrentText(), "Third tip");
    t.NextTip();
    EXPECT_EQ(t.CurrentText(), "First tip");
    t.NextTip();
    EXPECT_EQ(t.CurrentText(), "Second tip");
}

TEST(TipList, MissingFileOrEmptyPathLoadsNothing) {
    test::ScratchAppDir dir;
    dir.Write("TIPS.TXT", NumberedTips(4));
    TipList t;
    ASSERT_TRUE(t.LoadTips(dir.path() / "TIPS.TXT"));
    t.NextTip();
    // A failed load leaves no tips of an earlier one behind.
    EXPECT_FALSE(t.LoadTips(dir.path() / "NOSUCH.TXT"));
    EXPECT_EQ(t.Count(), 0);
    EXPECT_FALSE(t.LoadTips({}));
    // Stepping an empty list shows nothing.
    t.NextTip();
    t.GoBackTip();
    EXPECT_EQ(t.CurrentTip(), 0);
    EXPECT_EQ(t.CurrentText(), "");
    EXPECT_EQ(TipFileMissingText(), "that the TIPOFDAY.TXT file was not found?");
}
