// The tip list: stepping forward and back around the tips of the file.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "periphery/Tips.h"

using namespace kal;

TEST(TipList, WrapsBothWaysAndBlankLinesAreNoTips) {
    test::ScratchAppDir dir;
    // A hand-edited file: LF line ends, blank lines, no final line end.
    dir.Write("SHORT.TXT", "First tip\n\nSecond tip\n   \nThird tip");
    TipList t;
    ASSERT_TRUE(t.LoadTips(dir.path() / "SHORT.TXT"));
    EXPECT_EQ(t.Count(), 3);
    // Loading shows the first tip.
    EXPECT_EQ(t.CurrentTip(), 1);
    EXPECT_EQ(t.CurrentText(), "First tip");
    t.GoBackTip();
    EXPECT_EQ(t.CurrentTip(), 3);
    EXPECT_EQ(t.CurrentText(), "Third tip");
    t.GoBackTip();
    EXPECT_EQ(t.CurrentText(), "Second tip");
    t.NextTip();
    t.NextTip();
    EXPECT_EQ(t.CurrentTip(), 1);
    t.NextTip();
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
    EXPECT_EQ(TipFileMissingText(), "that the TIPOFDAY.TXT file was not found?");
}
