// The natal report: block storage, the title page, the body from crafted
// text files, and the pagination Save and Print share.
#include <gtest/gtest.h>

#include <algorithm>

#include "TestSupport.h"
#include "report/NatalReport.h"

using namespace kal;

namespace {

std::vector<std::string> AllLines(const NatalReport& r) {
    std::vector<std::string> lines;
    for (size_t n = 0; n < r.ReportLineCount(); ++n) lines.push_back(r.ReportLineAt(n));
    return lines;
}

// A chart with the Sun and Moon in Capricorn, the Ascendant in Capricorn,
// the Moon in the 10th house and the Sun in the 1st.
Chart CapricornChart() {
    Chart c;
    c.ChartName = "Ada Example";
    c.ChartDate = "1/5/1990";
    c.ChartDay = 5;
    c.ChartMonth = 1;
    c.ChartYear = 1990;
    c.ChartTime = 10.3f;
    c.ChartAMPM = "A.M.";
    c.ChartTZ = 5;
    c.ChartLong = 75.1f;
    c.ChartLat = 39.45f;
    for (int b = 1; b <= NumBodies; ++b) c.NatalLong[static_cast<size_t>(b)] = 100 + b;
    c.NatalLong[Sun] = 285;
    c.NatalLong[Moon] = 290;
    c.NatalLong[Asc] = 280;
    std::string houses;
    for (int b = 1; b <= NumBodies; ++b) houses += " 5TH HOUSE";
    c.PlanetHouse = houses;
    c.PlanetHouse.replace(0, 10, " 1ST HOUSE");
    c.PlanetHouse.replace(90, 10, "10TH HOUSE");
    return c;
}

// A program directory with one-line chapters and keyed files whose passages
// name their key, so the report's order can be read off its lines.
struct TextDir {
    test::ScratchAppDir dir;
    TextDir() {
        for (const auto& e : std::filesystem::directory_iterator(dir.path()))
            if (e.path().extension() == ".TXT" || e.path().extension() == ".HLP" ||
                e.path().filename() == "PERSONAL.NAM")
                std::filesystem::remove(e.path());
        for (const char* chapter :
             {"PHILO.HLP", "ASCSIGN.TXT", "SIGN.TXT", "HOUSE.TXT", "ASPECT.TXT", "CLOSING.TXT"})
            dir.Write(chapter, std::string("chapter ") + chapter + "\r\n");
        dir.Write("RISING.TXT", "ARIES RISING\r\naries\r\n*\r\n\r\n  capricorn RISING\r\n"
                                "capricorn\r\n[]\r\n");
        dir.Write("SIGN_Cpr.TXT", "SUN IN CAPRICORN\r\nsun cpr\r\n*\r\nMOON IN CAPRICORN\r\n"
                                  "moon cpr\r\n*\r\n");
        dir.Write("HOUSE_1.TXT", "SUN IN THE FIRST HOUSE\r\nsun 1\r\n*\r\n");
        dir.Write("HOUSE_10.TXT", "MOON IN THE TENTH HOUSE\r\nmoon 10\r\n*\r\n");
        dir.Write("Sun.TXT", "SUN BLENDING WITH N_NODE\r\nnode\r\n*\r\nSUN DISCORDANT TO SATURN\r\n"
                             "hard\r\n*\r\nSUN SQUARE SATURN\r\nnamed\r\n*\r\n");
    }
};

// Counts the calls the report makes to its progress window.
struct Recorder : ReportProgress {
    std::vector<std::string> calls;
    void Open() override { calls.push_back("open"); }
    void Show(int done, int total) override {
        calls.push_back(std::to_string(done) + "/" + std::to_string(total));
    }
    void Close() override { calls.push_back("close"); }
};

Options ReportOptions(float o131 = 60, float o129 = 6, float o132 = 3) {
    Options o;
    o[131] = o131;
    o[129] = o129;
    o[132] = o132;
    return o;
}

} // namespace

TEST(ReportLines, BlocksOfAHundredAndAnOpenLastBlock) {
    ReportLines lines;
    for (int n = 0; n < 3000; ++n) lines.Append("line " + std::to_string(n));
    EXPECT_EQ(lines.Count(), 3000u);
    EXPECT_EQ(lines.Block(0).size(), 100u);
    EXPECT_EQ(lines.Block(23).size(), 100u);
    EXPECT_EQ(lines.Block(24).size(), 600u);
    EXPECT_EQ(lines.Block(23).back(), "line 2399");
    EXPECT_EQ(lines.Block(24).front(), "line 2400");
    for (size_t n : {0u, 99u, 100u, 2399u, 2400u, 2999u})
        EXPECT_EQ(lines.At(n), "line " + std::to_string(n));
    lines.Clear();
    EXPECT_EQ(lines.Count(), 0u);
    lines.Append("again");
    EXPECT_EQ(lines.At(0), "again");
}

TEST(NatalReport, TitlePageCentresItsLinesAndEndsTheHeaderAtThePageFoot) {
    TextDir t;
    t.dir.Write("PERSONAL.NAM", "Jo Reader\r\nAstrology Practice\r\n(555) 010-0199\r\n");
    Chart c = CapricornChart();
    AspectFoundTable found{};
    Options o = ReportOptions();
    NatalReport r;
    BuildNatalReport(r, c, {t.dir.path(), o, 1, found}, nullptr);
    auto lines = AllLines(r);
    EXPECT_EQ(r.ReportTitle, std::string(32, ' ') + "NATAL REPORT FOR");
    for (int n = 0; n < 5; ++n) EXPECT_EQ(lines[static_cast<size_t>(n)], "");
    EXPECT_EQ(lines[5], r.ReportTitle);
    EXPECT_EQ(lines[7], std::string(40 - 5, ' ') + "ADA EXAMPLE");
    // The data line is upper-cased and centred on column 39.
    const std::string data = "  01 MAY 1990    TZ = 5.0      10.30 A.M.   75W10    39N45";
    EXPECT_EQ(lines[10], std::string(39 - data.size() / 2, ' ') + data);
    // 60 - 3 - 11 - 6 = 40 blank lines, then the header lines, not
    // upper-cased.
    for (size_t n = 11; n < 51; ++n) EXPECT_EQ(lines[n], "") << n;
    EXPECT_EQ(lines[51], std::string(40 - 4, ' ') + "Jo Reader");
    EXPECT_EQ(lines[53], std::string(40 - 7, ' ') + "(555) 010-0199");
    // One blank, then the body's opening blank and the first chapter.
    EXPECT_EQ(lines[54], "");
    EXPECT_EQ(lines[55], "");
    EXPECT_EQ(lines[56], "chapter PHILO.HLP");
}

TEST(NatalReport, BodyInItsOrderWithCapricornAndTheTenthHouse) {
    TextDir t;
    Chart c = CapricornChart();
    AspectFoundTable found{};
    Options o = ReportOptions();
    NatalReport r;
    Recorder progress;
    BuildNatalReport(r, c, {t.dir.path(), o, 0, found}, &progress);
    auto lines = AllLines(r);
    // No PERSONAL.NAM: no header lines, 60 - 0 - 11 - 6 = 43 blank lines.
    ASSERT_GT(lines.size(), 56u);
    EXPECT_EQ(std::count(lines.begin(), lines.begin() + 56, ""), 56 - 3);
    std::vector<std::string> body(lines.begin() + 56, lines.end());
    EXPECT_EQ(body, (std::vector<std::string>{
                        "chapter PHILO.HLP", "", "chapter ASCSIGN.TXT", "",
                        // The rising sign: key "CAPRICORN rising", an indented heading.
                        "  capricorn RISING", "capricorn", "", "", "chapter SIGN.TXT", "",
                        // The Sun, then the Moon, from SIGN_Cpr.TXT.
                        "SUN IN CAPRICORN", "sun cpr", "", "MOON IN CAPRICORN", "moon cpr", "", "",
                        "chapter HOUSE.TXT", "",
                        // The Sun in HOUSE_1.TXT, the Moon in HOUSE_10.TXT; the other
                        // planets' HOUSE_5.TXT is missing and adds nothing.
                        "SUN IN THE FIRST HOUSE", "sun 1", "", "MOON IN THE TENTH HOUSE", "moon 10",
                        "", "", "chapter ASPECT.TXT", "", "", "chapter CLOSING.TXT"}));
    std::vector<std::string> expected = {"open"};
    // Option 145 is 0: the ten planets are the first points.
    for (int i = 1; i <= 10; ++i) expected.push_back(std::to_string(i) + "/10");
    expected.push_back("close");
    EXPECT_EQ(progress.calls, expected);
}

TEST(NatalReport, AspectWordsAndRangeFollowTheOptions) {
    TextDir t;
    Chart c = CapricornChart();
    AspectFoundTable found{};
    // Sun (position 1) conjunct the node (11), square Saturn (7).
    found[2][11][1] = 1;
    found[4][7][1] = 1;
    auto aspectLines = [&](float o140, float o141, float o145) {
        Options o = ReportOptions();
        o[140] = o140;
        o[141] = o141;
        o[145] = o145;
        NatalReport r;
        BuildNatalReport(r, c, {t.dir.path(), o, 0, found}, nullptr);
        auto lines = AllLines(r);
        auto from = std::find(lines.begin(), lines.end(), "chapter ASPECT.TXT");
        auto to = std::find(lines.begin(), lines.end(), "chapter CLOSING.TXT");
        return std::vector<std::string>(from + 2, to - 1);
    };
    // The ten planets only: the square, in words.
    EXPECT_EQ(aspectLines(0, 0, 0),
              (std::vector<std::string>{"SUN DISCORDANT TO SATURN", "hard", ""}));
    // Option 141 names the square; option 145 adds the node.
    EXPECT_EQ(aspectLines(0, 1, 1),
              (std::vector<std::string>{"SUN SQUARE SATURN", "named", "",
                                        "SUN BLENDING WITH N_NODE", "node", ""}));
    EXPECT_EQ(ReportAspectWord(3, ReportOptions()), "harmonizing with");
    Options named = ReportOptions();
    named[140] = 1;
    EXPECT_EQ(ReportAspectWord(3, named), "sextile");
    EXPECT_EQ(ReportAspectWord(5, named), "trine");
    EXPECT_EQ(ReportAspectWord(6, named), "discordant to");
}

TEST(NatalReport, SectionsEndWithABlankUnlessTheyRunToTheEndOfTheFile) {
    test::ScratchAppDir dir;
    dir.Write("K.TXT", "ONE\r\na\r\n*\r\nTWO\r\nb\r\n");
    NatalReport r;
    r.AppendReportSection("one", dir.path() / "K.TXT");
    r.AppendReportSection("two", dir.path() / "K.TXT");
    r.AppendReportSection("three", dir.path() / "K.TXT");
    r.AppendReportSection("one", dir.path() / "MISSING.TXT");
    r.AppendReportFile(dir.path() / "MISSING.TXT");
    EXPECT_EQ(AllLines(r), (std::vector<std::string>{"ONE", "a", "", "TWO", "b"}));
}

TEST(ReportPages, AHundredLinesWithPagesOfSixtyFootOfSixAndThreeTopLines) {
    NatalReport r;
    for (int n = 1; n <= 100; ++n) r.Lines.Append("line " + std::to_string(n));
    auto out = ReportPagedLines(r, ReportOptions(60, 6, 3));
    const std::string page2 = std::string(37, ' ') + "Page 2";
    std::vector<std::string> expected;
    // Page 1: lines 1..55 (the counter runs 0..54), four empty lines, an
    // empty footer, a form feed.
    for (int n = 1; n <= 55; ++n) expected.push_back("line " + std::to_string(n));
    expected.insert(expected.end(), {"", "", "", "", "", "\f"});
    // Page 2: three top lines, the rest and the empty line after the
    // report, padded to the page's length, its number and a form feed.
    expected.insert(expected.end(), {"", "", ""});
    for (int n = 56; n <= 100; ++n) expected.push_back("line " + std::to_string(n));
    expected.push_back("");
    for (int k = 0; k < 54 - 50 + 5; ++k) expected.push_back("");
    expected.insert(expected.end(), {page2, "\f"});
    EXPECT_EQ(out, expected);
}

TEST(ReportPages, PageNumbersAndAnEmptyLastPage) {
    // 3 text lines a page (the first 4), no top lines: the last page is
    // numbered even when it is the first.
    NatalReport r;
    r.Lines.Append("a");
    auto out = ReportPagedLines(r, ReportOptions(9, 6, 0));
    EXPECT_EQ(out, (std::vector<std::string>{"a", "", "", "", "", "", "", "",
                                             std::string(37, ' ') + "Page 1", "\f"}));
    // A report that fills its pages exactly: the page after the last break
    // holds only its top lines and is not padded.
    for (const char* l : {"b", "c"}) r.Lines.Append(l);
    out = ReportPagedLines(r, ReportOptions(9, 6, 1));
    auto pages = SplitAtFormFeeds(out);
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0].size(), 4u + 4 + 1);
    EXPECT_EQ(pages[1], (std::vector<std::string>{""}));
    // Three pages: later pages carry their numbers.
    for (int n = 0; n < 3; ++n) r.Lines.Append("x");
    pages = SplitAtFormFeeds(ReportPagedLines(r, ReportOptions(9, 6, 1)));
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(pages[1].back(), std::string(37, ' ') + "Page 2");
    EXPECT_EQ(pages[2].back(), std::string(37, ' ') + "Page 3");
}
