// The data window's files: form feeds in saved data, the proposed name, the
// print window's font class and pages. The window tests cover the common
// cases end to end; these are the boundaries.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "base/TextFile.h"
#include "birthdata/Record.h"
#include "report/NatalReport.h"
#include "shell/DataFile.h"
#include "shell/Session.h"

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

// Page options typed far out of range, or as nothing: the saved listing,
// the print pages and the natal report (title page and paging) stay within
// a thousand lines a page, and no value makes them count for ever.
TEST(PageOptions, ValuesOutOfRangeNeverFillAFileWithEmptyLines) {
    test::ScratchAppDir dir;
    Session s;
    s.Open(dir.path());
    auto in = test::FieldsOfRecord("Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org");
    ASSERT_TRUE(in && s.Calculate(*in).calculated);
    const std::vector<std::string> data(300, "data line");
    ASSERT_TRUE(s.CmdNatalReport().empty());
    const size_t usual = s.report.ReportLineCount();
    for (float v : {9999999.0f, 1e20f, -9999999.0f, 0.0f, -1.0f, std::nanf("")}) {
        SCOPED_TRACE(v);
        EXPECT_LE(SplitLines(SavedDataBytes(data, v)).size(), 302u);
        EXPECT_LE(PrintPages(data, v).front().size(), 1000u);
        s.options[131] = v;
        s.options[132] = v;
        s.options[129] = 6;
        ASSERT_TRUE(s.CmdNatalReport().empty());
        const size_t reportLines = s.report.ReportLineCount();
        EXPECT_LE(reportLines, usual + 1000);
        const auto paged = ReportPagedLines(s.report, s.options);
        // Every report line is there; breaks, footers and padding add at
        // most a page's bound per page.
        EXPECT_GE(paged.size(), reportLines);
        EXPECT_LE(paged.size(), reportLines * 8 + 2 * 1000);
    }
    // A page at the bound: a break after a thousand lines.
    const std::vector<std::string> many(2500, "x");
    EXPECT_EQ(SplitAtFormFeeds(SplitLines(SavedDataBytes(many, 9999999))).front().size(), 1000u);
}
