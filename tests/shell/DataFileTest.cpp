// The data window's files: saving with form feeds, the proposed name, the
// print window's font class and pages, the font steps.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "shell/DataFile.h"
#include "shell/TextFile.h"

using namespace kal;

namespace {

// n numbered lines and the buffer's spare empty element.
std::vector<std::string> Buffer(int n) {
    std::vector<std::string> lines;
    for (int i = 1; i <= n; ++i) lines.push_back("line " + std::to_string(i));
    lines.emplace_back();
    return lines;
}

std::string Crlf(const std::vector<std::string>& lines) {
    std::string s;
    for (const auto& l : lines) s += l + "\r\n";
    return s;
}

} // namespace

TEST(SaveData, FormFeedAfterEveryPageAndAtTheEnd) {
    std::vector<std::string> expected;
    for (int i = 1; i <= 60; ++i) expected.push_back("line " + std::to_string(i));
    expected.push_back("\f");
    for (int i = 61; i <= 100; ++i) expected.push_back("line " + std::to_string(i));
    expected.push_back("");
    expected.push_back("\f");
    EXPECT_EQ(SavedDataBytes(Buffer(100), 60), Crlf(expected));
}

TEST(SaveData, FormFeedsInTheDataRestartTheCount) {
    // Two lines, a form feed, three lines, page length 3: the count starts
    // again after the data's own form feed and no final one is added.
    std::vector<std::string> data = {"a", "b", "\f", "c", "d", "e", ""};
    EXPECT_EQ(SavedDataBytes(data, 3), Crlf({"a", "b", "\f", "c", "d", "e", "\f", ""}));
}

TEST(SaveData, LinesWithTheirOwnBreaksAndOptionZero) {
    EXPECT_EQ(SavedDataBytes({"head\r\nrow 1\r\n", ""}, 0), "head\r\nrow 1\r\n\r\n\r\n\f\r\n");
    test::ScratchAppDir dir;
    ASSERT_TRUE(SaveDataFile(dir.path() / "out.txt", Buffer(2), 45));
    EXPECT_EQ(*ReadFileBytes(dir.path() / "out.txt"), "line 1\r\nline 2\r\n\r\n\f\r\n");
}

TEST(SaveData, ProposedNameFromTheChartName) {
    EXPECT_EQ(ProposedFileName("Mary Jane Smith"), "Mary.txt");
    EXPECT_EQ(ProposedFileName("Christopher Columbus"), "Christop.txt");
    EXPECT_EQ(ProposedFileName("Now"), "Now.txt");
    // A blank at position 9 is too far: the first eight characters.
    EXPECT_EQ(ProposedFileName("Abcdefgh Ij"), "Abcdefgh.txt");
    EXPECT_EQ(ProposedFileName("Abcdefg Hij"), "Abcdefg.txt");
    EXPECT_EQ(ProposedFileName(""), ".txt");
}

TEST(PrintWindow, TheLastLongLineDecidesTheFontSize) {
    const std::string l80(80, 'x'), l90(90, 'x'), l120(120, 'x');
    EXPECT_EQ(PrintFontSize(PrintWidthClass({l120, l90}, 80, 100)), 10);
    EXPECT_EQ(PrintFontSize(PrintWidthClass({l90, l120}, 80, 100)), 8);
    EXPECT_EQ(PrintFontSize(PrintWidthClass({l80, "short"}, 80, 100)), 12);
    EXPECT_EQ(PrintWidthClass({l90, "short"}, 80, 100), 1);
}

TEST(PrintWindow, PagesByLineCountAndFormFeeds) {
    auto pages = PrintPages({"1", "2", "3", "4", "5"}, 2);
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(pages[0], (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(pages[2], (std::vector<std::string>{"5"}));

    // A form feed ends the page early and is not printed; the count restarts.
    pages = PrintPages({"1", "\f", "2", "3", "4"}, 2);
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(pages[0], (std::vector<std::string>{"1"}));
    EXPECT_EQ(pages[1], (std::vector<std::string>{"2", "3"}));
    EXPECT_EQ(pages[2], (std::vector<std::string>{"4"}));

    // An exact fill leaves no empty page at the end.
    EXPECT_EQ(PrintPages({"1", "2", "3", "4"}, 2).size(), 2u);
}

TEST(PrintWindow, PrintFileHasCrLfLines) {
    test::ScratchAppDir dir;
    ASSERT_TRUE(WritePrintFile(dir.path(), {"a", "", "b"}));
    EXPECT_EQ(*ReadFileBytes(dir.path() / "PRNTFILE.XXX"), "a\r\n\r\nb\r\n");
}

TEST(FontSteps, StepIsHalfTheWheelScaleWithinEightToTwelve) {
    double size = 8.75;
    EXPECT_TRUE(DecreaseFontSize(size, 1.5));
    EXPECT_DOUBLE_EQ(size, 8.0);
    EXPECT_FALSE(CanDecreaseFont(size));
    EXPECT_FALSE(DecreaseFontSize(size, 1.5));
    EXPECT_DOUBLE_EQ(size, 8.0);

    size = 11.5;
    EXPECT_TRUE(IncreaseFontSize(size, 1.5));
    EXPECT_DOUBLE_EQ(size, 12.25);
    EXPECT_FALSE(CanIncreaseFont(size));

    size = 8.5;
    EXPECT_TRUE(IncreaseFontSize(size, 1.2));
    EXPECT_DOUBLE_EQ(size, 9.1);
}
