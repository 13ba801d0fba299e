// The data window's files: form feeds in saved data, the proposed name, the
// print window's font class and pages. The window tests cover the common
// cases end to end; these are the boundaries.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "base/TextFile.h"
#include "shell/DataFile.h"

using namespace kal;

namespace {

std::string Crlf(const std::vector<std::string>& lines) {
    std::string s;
    for (const auto& l : lines) s += l + "\r\n";
    return s;
}

} // namespace

TEST(SaveData, FormFeedsInTheDataRestartTheCount) {
    // Two lines, a form feed, three lines, page length 3: the count starts
    // again after the data's own form feed and no final one is added.
    std::vector<std::string> data = {"a", "b", "\f", "c", "d", "e", ""};
    EXPECT_EQ(SavedDataBytes(data, 3), Crlf({"a", "b", "\f", "c", "d", "e", "\f", ""}));
}

TEST(SaveData, LinesWithTheirOwnBreaksAndOptionZero) {
    EXPECT_EQ(SavedDataBytes({"head\r\nrow 1\r\n", ""}, 0), "head\r\nrow 1\r\n\r\n\r\n\f\r\n");
    test::ScratchAppDir dir;
    ASSERT_TRUE(SaveDataFile(dir.path() / "out.txt", {"line 1", "line 2", ""}, 45));
    EXPECT_EQ(*ReadFileBytes(dir.path() / "out.txt"), "line 1\r\nline 2\r\n\r\n\f\r\n");
}

TEST(SaveData, ProposedNameFromTheChartName) {
    EXPECT_EQ(ProposedFileName("Christopher Columbus"), "Christop.txt");
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
