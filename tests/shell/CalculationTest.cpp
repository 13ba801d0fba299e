// The page of a calculation for real charts, and the career and cosmic-state
// commands beside it. The stored pages (pages/*.txt, LF line ends) were
// produced with the option and orb files below and checked line by line by
// hand: the career lines recomputed from the printed positions, the cosmic
// scores summed from the dignity tables and options 1 to 11.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "base/TextFile.h"
#include "birthdata/Record.h"
#include "shell/Session.h"

using namespace kal;
using Lines = std::vector<std::string>;

namespace {

// Option n on line n; only options 1 to 11 are read by these listings.
const char* kOptions =
    "2      Mercury or Venus oriental\r\n1      Mercury or Venus occidental\r\n"
    "2      Mars, Jupiter, Saturn oriental\r\n1      Mars, Jupiter, Saturn occidental\r\n"
    "-5     peregrine\r\n1      direct\r\n-2     retrograde\r\n2      fast\r\n"
    "-1     slow or stationary\r\n1      Moon occidental\r\n2      Moon oriental\r\n";
const char* kNatalOrbs =
    "8.0\r\n6.0\r\n8.0\r\n8.0\r\n8.0\r\n1.0\r\n2.0\r\n2.0\r\n2.0\r\n3.0\r\n1.0\r\n1.0\r\n"
    "2.0\r\n1.0\r\n2.0\r\n1.0\r\n";
const char* kCareerOrbs =
    "6.0\r\n4.0\r\n6.0\r\n6.0\r\n6.0\r\n1.0\r\n1.5\r\n1.5\r\n1.5\r\n2.0\r\n1.0\r\n1.0\r\n"
    "1.5\r\n1.0\r\n1.5\r\n1.0\r\n";

const std::string kExample = "Example,12 May 1959,10.43,A,6,75.23,39.45,x";
const std::string kNorthern = "Northern,18 May 1909,4.10,A,10,132.22,58.34,";
const std::string kSouthern = "Southern,04 Dec 1966,3.42,A,11,50.24,-18.50,";

std::string Stored(const std::string& name) {
    return *ReadFileBytes(std::string(KALTROVA_SOURCE_DIR) + "/tests/analyses/pages/" + name);
}

std::string WithCrLf(const std::string& lf) {
    std::string s;
    for (char c : lf) s += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return s;
}

class CalculationPage : public ::testing::Test {
  protected:
    void SetUp() override {
        dir.Write("OPTIONS.OPT", kOptions);
        dir.Write("NATAL.ORB", kNatalOrbs);
        dir.Write("Dravik_Natal_Orbs.ORB", kCareerOrbs);
        s.Open(dir.path());
    }
    void TearDown() override { s.Close(); }

    // Picks the record and presses OK with the given house system.
    Messages Calculate(const std::string& line, char houses = 'P') {
        s.calc.HouseSystem = houses;
        auto in = test::FieldsOfRecord(line, s.regional.DateOrder);
        EXPECT_TRUE(in) << line;
        CalcOutcome outcome = s.Calculate(in.value_or(InputFields{}));
        EXPECT_TRUE(outcome.calculated);
        s.ShowDataPage();
        return outcome.messages;
    }

    // A Data-menu command, and its page shown when it ran.
    Messages Command(Messages (Session::*command)()) {
        Messages msgs = (s.*command)();
        if (msgs.empty()) s.ShowDataPage();
        return msgs;
    }

    std::string LastPage() const { return *ReadFileBytes(dir.path() / "reports" / "LASTPAGE.TXT"); }

    kal::test::ScratchAppDir dir;
    Session s;
};

std::string Repeat(const std::string& s, int n) {
    std::string r;
    while (n-- > 0) r += s;
    return r;
}

// Index of the first line equal to `line` at or after `from`.
size_t Find(const Lines& lines, const std::string& line, size_t from = 0) {
    for (size_t i = from; i < lines.size(); ++i)
        if (lines[i] == line) return i;
    return lines.size();
}

} // namespace

TEST_F(CalculationPage, WholePagesOfRealCharts) {
    struct Case {
        std::string record;
        char houses;
        std::string page;
    } cases[] = {
        {kExample, 'P', "example_page_placidus.txt"},
        {kNorthern, 'B', "northern_page_alcabitus.txt"},
        {kSouthern, 'T', "southern_page_topocentric.txt"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Calculate(c.record, c.houses), Messages{}) << c.page;
        EXPECT_EQ(LastPage(), WithCrLf(Stored(c.page))) << c.page;
    }
}

TEST_F(CalculationPage, CareerAndCosmicCommandsRepeatTheirSections) {
    Calculate(kNorthern, 'B');
    const Lines page = s.listing.out.PageLines;
    const Lines header(page.begin() + 1, page.begin() + 4);
    const std::string hyphens(80, '-');
    const size_t second = Find(page, hyphens, 1);
    const size_t heading = Find(
        page,
        "  Planet    Sign      Exlt.     Trip.     Term      Face      Speed      Rate   Strength");

    // Header, the career section, the closing blank line and the spare
    // element.
    EXPECT_EQ(Command(&Session::CmdCareerFactors), Messages{});
    Lines career = header;
    career.insert(career.end(), page.begin() + 4, page.begin() + static_cast<long>(second));
    career.insert(career.end(), {"", ""});
    EXPECT_EQ(s.listing.out.PageLines, career);
    EXPECT_EQ(LastPage(), PageText(s.listing.out, "\r\n"));

    EXPECT_EQ(Command(&Session::CmdCosmicState), Messages{});
    Lines cosmic = header;
    cosmic.insert(cosmic.end(), page.begin() + static_cast<long>(heading) - 1, page.end());
    EXPECT_EQ(s.listing.out.PageLines, cosmic);

    // The focus planet is left at the last body whose aspects were listed:
    // the ruler of the intercepted Pisces.
    EXPECT_EQ(s.listing.FocusPlanet, Neptune);
}

TEST_F(CalculationPage, NatalDataAndAspectsBringTheWorkingCopyBack) {
    Calculate(kExample);
    const Chart natal = s.calc.chart;
    for (auto command : {&Session::CmdNatalData, &Session::CmdNatalAspects}) {
        Chart& c = s.calc.chart;
        c.PlanetLong.fill(7);
        c.CuspTable.fill(3);
        c.RetroFlags = std::string(NumBodies, 'X');
        c.SiderealTime = "stepped";
        EXPECT_EQ(Command(command), Messages{});
        EXPECT_EQ(c.PlanetLong, natal.PlanetLong);
        EXPECT_EQ(c.CuspTable, natal.CuspTable);
        EXPECT_EQ(c.RetroFlags, natal.RetroFlags);
        EXPECT_EQ(c.SiderealTime, natal.SiderealTime);
    }
    // The career listing reads the working copy's Midheaven: it stays stepped.
    s.calc.chart.CuspTable.fill(3);
    EXPECT_EQ(Command(&Session::CmdCareerFactors), Messages{});
    EXPECT_EQ(s.calc.chart.CuspTable[1], 3);
}

// Orb files edited between commands: every orb made 0, the file rewritten
// with the same length and given back its modification time, as a quick
// edit within one tick of the filesystem's clock leaves it.
TEST_F(CalculationPage, OrbFileEditsTakeEffectAtTheNextCommand) {
    namespace fs = std::filesystem;
    auto rewrite = [&](const char* name, std::string text) {
        const auto time = fs::last_write_time(dir.path() / name);
        for (char& c : text)
            if (c >= '1' && c <= '9') c = '0';
        dir.Write(name, text);
        fs::last_write_time(dir.path() / name, time);
    };
    Calculate(kExample);
    const Lines page = s.listing.out.PageLines;
    const std::string sextile = "  Venus sextiles Mercury.";
    ASSERT_NE(Find(page, sextile), page.size());

    rewrite("Dravik_Natal_Orbs.ORB", kCareerOrbs);
    EXPECT_EQ(Command(&Session::CmdCareerFactors), Messages{});
    EXPECT_EQ(Find(s.listing.out.PageLines, sextile), s.listing.out.PageLines.size());

    // The Sun and the Midheaven, 2 degrees apart, are no longer conjunct.
    EXPECT_EQ(Command(&Session::CmdNatalAspects), Messages{});
    const Lines before = s.listing.out.PageLines;
    rewrite("NATAL.ORB", kNatalOrbs);
    EXPECT_EQ(Command(&Session::CmdNatalAspects), Messages{});
    EXPECT_NE(s.listing.out.PageLines, before);
    EXPECT_EQ(before[7].substr(0, 12), "  Sun    0  ");
    EXPECT_EQ(s.listing.out.PageLines[7], "  Sun  " + Repeat("---  ", 12));
}

TEST_F(CalculationPage, MissingCareerOrbFile) {
    std::filesystem::remove(dir.path() / "Dravik_Natal_Orbs.ORB");
    const Messages msgs = Calculate(kExample);
    ASSERT_EQ(msgs.size(), 1u);
    EXPECT_EQ(msgs[0], OrbFileMissing(dir.path() / "Dravik_Natal_Orbs.ORB"));
    // The career section is left out whole; the rest of the page stands.
    const Lines page = s.listing.out.PageLines;
    EXPECT_EQ(page[4], std::string(80, '-'));
    EXPECT_NE(Find(page, "  HOUSE CUSPS - Placidus"), page.size());
    EXPECT_EQ(Find(page, "  Taurus is the sign on the MC and its ruler is Venus"), page.size());

    // The command is refused without touching the buffer or the page file.
    const size_t all = s.listing.out.AllCount();
    const std::string file = LastPage();
    EXPECT_EQ(Command(&Session::CmdCareerFactors), msgs);
    EXPECT_EQ(s.listing.out.AllCount(), all);
    EXPECT_EQ(s.listing.out.PageLines, page);
    EXPECT_EQ(LastPage(), file);
}
