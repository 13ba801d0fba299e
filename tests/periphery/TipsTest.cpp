// The tip list read from a hand-edited file; the tip window's test steps
// around the shipped kind of file and shows the missing-file sentence.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "periphery/Tips.h"

using namespace kal;

TEST(TipList, BlankLinesAreNoTipsAndAFailedLoadLeavesNone) {
    test::ScratchAppDir dir;
    // LF line ends, blank lines, no final line end.
    dir.Write("SHORT.TXT", "First tip\n\nSecond tip\n   \nThird tip");
    TipList t;
    ASSERT_TRUE(t.LoadTips(dir.path() / "SHORT.TXT"));
    EXPECT_EQ(t.Count(), 3);
    EXPECT_EQ(t.CurrentText(), "First tip");
    t.GoBackTip();
    EXPECT_EQ(t.CurrentText(), "Third tip");
    t.GoBackTip();
    EXPECT_EQ(t.CurrentText(), "Second tip");

    // A failed load leaves no tips of an earlier one behind, and stepping an
    // empty list shows nothing.
    EXPECT_FALSE(t.LoadTips(dir.path() / "NOSUCH.TXT"));
    EXPECT_EQ(t.Count(), 0);
    EXPECT_FALSE(t.LoadTips({}));
    t.NextTip();
    t.GoBackTip();
    EXPECT_EQ(t.CurrentTip(), 0);
    EXPECT_EQ(t.CurrentText(), "");
}
