// The page of a calculation for real charts, and the career and cosmic-state
// commands beside it. The stored pages (pages/*.txt, LF line ends) were
// produced with the option and orb files below and checked line by line by
// hand: the career lines recomputed from the printed positions, the cosmic
// scores summed from the dignity tables and options 1 to 11.
#include <gtest/gtest.h>

#include "TestSupport.h"
#include "analyses/NatalData.h"
#include "birthdata/Record.h"
#include "shell/Session.h"
#include "shell/TextFile.h"

using namespace kal;
using Listing = std::vector<std::string>;

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
        for (size_t i = 0; i < HouseSystems.size(); ++i)
            s.houseMenu[i] = HouseSystems[i].letter == houses;
        auto rec = ParseRecordLine(line);
        EXPECT_TRUE(rec);
        EXPECT_FALSE(TransferRecord(*rec, s.DateOrder, s.input));
        s.UpdateMode = 0;
        return s.CalcChart();
    }

    std::string LastPage() const { return *ReadFileBytes(dir.path() / "reports" / "LASTPAGE.TXT"); }

    kal::test::ScratchAppDir dir;
    Session s;
};

// Index of the first line equal to `line` at or after `from`.
size_t Find(const Listing& lines, const std::string& line, size_t from = 0) {
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
    const Listing page = s.out.PageLines;
    const Listing header(page.begin() + 1, page.begin() + 4);
    const std::string hyphens(80, '-');
    const size_t second = Find(page, hyphens, 1);
    const size_t heading = Find(
        page,
        "  Planet    Sign      Exlt.     Trip.     Term      Face      Speed      Rate   Strength");

    // Header, the career section, the closing blank line and the spare
    // element.
    EXPECT_EQ(s.CmdCareerFactors(), Messages{});
    Listing career = header;
    career.insert(career.end(), page.begin() + 4, page.begin() + static_cast<long>(second));
    career.insert(career.end(), {"", ""});
    EXPECT_EQ(s.out.PageLines, career);
    EXPECT_EQ(LastPage(), PageText(s.out, "\r\n"));

    EXPECT_EQ(s.CmdCosmicState(), Messages{});
    Listing cosmic = header;
    cosmic.insert(cosmic.end(), page.begin() + static_cast<long>(heading) - 1, page.end());
    EXPECT_EQ(s.out.PageLines, cosmic);

    // The focus planet is left at the last body whose aspects were listed:
    // the ruler of the intercepted Pisces.
    EXPECT_EQ(s.FocusPlanet, Neptune);
}

TEST_F(CalculationPage, MissingCareerOrbFile) {
    std::filesystem::remove(dir.path() / "Dravik_Natal_Orbs.ORB");
    const Messages msgs = Calculate(kExample);
    ASSERT_EQ(msgs.size(), 1u);
    EXPECT_EQ(msgs[0], OrbFileMissing(dir.path() / "Dravik_Natal_Orbs.ORB"));
    // The career section is left out whole; the rest of the page stands.
    const Listing page = s.out.PageLines;
    EXPECT_EQ(page[4], std::string(80, '-'));
    EXPECT_NE(Find(page, "  HOUSE CUSPS - Placidus"), page.size());
    EXPECT_EQ(Find(page, "  Taurus is the sign on the MC and its ruler is Venus"), page.size());

    // The command is refused without touching the buffer or the page file.
    const size_t all = s.out.AllCount();
    const std::string file = LastPage();
    EXPECT_EQ(s.CmdCareerFactors(), msgs);
    EXPECT_EQ(s.out.AllCount(), all);
    EXPECT_EQ(s.out.PageLines, page);
    EXPECT_EQ(LastPage(), file);

    // kaltrova-cli refuses the command too.
    s.Close();
    auto refused = kal::test::RunShell(
        std::string(KALTROVA_CLI) + " --dir " + kal::test::ShellQuote(dir.path().string()) +
        " career --record " + kal::test::ShellQuote(kExample) + " 2>&1");
    EXPECT_NE(refused.status, 0);
    EXPECT_NE(refused.out.find("Dravik_Natal_Orbs.ORB"), std::string::npos);
}
