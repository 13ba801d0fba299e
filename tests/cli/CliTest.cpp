// kaltrova-cli end to end: whole pages against pages checked by hand, bad
// input, and the files it leaves in the program directory.
//
// The stored pages were checked line by line against swetest 2.10
// (-fPls, the UT moments 1959-05-12 16:43 and 1988-01-03 02:05): every
// position, cusp, house placement and retrograde mark, and the header fields.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "TestSupport.h"
#include "base/TextFile.h"
#include "birthdata/Record.h"
#include "report/NatalReport.h"
#include "shell/Session.h"

using kal::test::RunShell;
using kal::test::ShellQuote;

namespace {

const std::string kExample = "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org";
const std::string kSouthern = "Southern,03 Jan 1988,12.05,P,-10,-151.12,-33.52,";

std::string Cli(const std::string& dir, const std::string& args) {
    return std::string(KALTROVA_CLI) + " --dir " + ShellQuote(dir) + " " + args;
}

std::string Stored(const std::string& name) {
    return *kal::ReadFileBytes(std::string(KALTROVA_SOURCE_DIR) + "/tests/cli/pages/" + name);
}

// The page as the program writes it to a file: CR LF line ends.
std::string Crlf(const std::string& page) {
    std::string crlf;
    for (char ch : page) crlf += ch == '\n' ? std::string("\r\n") : std::string(1, ch);
    return crlf;
}

} // namespace

TEST(CliPages, WholePagesOfKnownCharts) {
    kal::test::ScratchAppDir dir;
    struct Case {
        std::string args, page;
    } cases[] = {
        {"natal --record " + ShellQuote(kExample), "example_natal_placidus.txt"},
        {"--houses K aspects --record " + ShellQuote(kExample), "example_aspects_koch.txt"},
        {"--houses r natal --record " + ShellQuote(kSouthern), "southern_natal_regiomontanus.txt"},
    };
    for (const auto& c : cases) {
        auto r = RunShell(Cli(dir.path(), c.args));
        EXPECT_EQ(r.status, 0) << c.args;
        EXPECT_EQ(r.out, Stored(c.page)) << c.args;
        EXPECT_EQ(*kal::ReadFileBytes(dir.path() / "reports" / "LASTPAGE.TXT"), Crlf(r.out));
    }
}

TEST(CliPages, NamesFileRecordAndDateOrders) {
    kal::test::ScratchAppDir dir;
    dir.Write("MINE.FIL", "Other,01 Jan 2000,12.00,P,0,0.00,51.30,\r\n" + kSouthern + "\r\n");
    auto byName = RunShell(Cli(dir.path(), "--houses R natal --names " +
                                               ShellQuote((dir.path() / "MINE.FIL").string()) +
                                               " --name Southern"));
    EXPECT_EQ(byName.status, 0);
    EXPECT_EQ(byName.out, Stored("southern_natal_regiomontanus.txt"));
    // The header date is the same in every date order.
    for (const char* order : {"1", "2"}) {
        auto r =
            RunShell(Cli(dir.path(), std::string("--date-order ") + order +
                                         " --houses R natal --record " + ShellQuote(kSouthern)));
        EXPECT_EQ(r.out, Stored("southern_natal_regiomontanus.txt")) << order;
    }
    auto missing =
        RunShell(Cli(dir.path(), "natal --names " + ShellQuote((dir.path() / "MINE.FIL").string()) +
                                     " --name Nobody 2>/dev/null"));
    EXPECT_NE(missing.status, 0);
}

TEST(CliInput, BadRecordsGiveTheCheckMessages) {
    kal::test::ScratchAppDir dir;
    // Latitude 70 with Placidus, and a zone of -3 with a West longitude.
    auto r = RunShell(
        Cli(dir.path(), "natal --record " +
                            ShellQuote("Far North,12 May 1959,10.43,A,-3,75.23,70.00,") + " 2>&1"));
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out,
              "Warning! Error in natal input data section. Please correct.\n"
              "Warning! Your latitude is too high. Lower to 66 degrees, 00 minutes or below OR "
              "change house systems.\n");
    EXPECT_FALSE(std::filesystem::exists(dir.path() / "reports" / "LASTPAGE.TXT"));

    auto fmt =
        RunShell(Cli(dir.path(), "natal --record " +
                                     ShellQuote("Bad,12 May 1959,ten,A,6,75.23,39.45,") + " 2>&1"));
    EXPECT_EQ(fmt.status, 2);
    EXPECT_NE(fmt.out.find("Format error or typographical error in selected data."),
              std::string::npos);

    auto shape = RunShell(
        Cli(dir.path(), "natal --record " + ShellQuote("Only,three,fields") + " 2>/dev/null"));
    EXPECT_NE(shape.status, 0);
    auto usage =
        RunShell(Cli(dir.path(), "nonsense --record " + ShellQuote(kExample) + " 2>/dev/null"));
    EXPECT_EQ(usage.status, 64);
}

TEST(CliInput, MissingOrbFileRefusesAspects) {
    kal::test::ScratchAppDir dir;
    std::filesystem::remove(dir.path() / "NATAL.ORB");
    auto r = RunShell(Cli(dir.path(), "aspects --record " + ShellQuote(kExample) + " 2>&1"));
    EXPECT_NE(r.status, 0);
    EXPECT_NE(r.out.find("NATAL.ORB"), std::string::npos);
    EXPECT_EQ(r.out.find("NATAL PLANET ASPECTS"), std::string::npos); // no page
    // The natal data listing needs no orb file.
    EXPECT_EQ(RunShell(Cli(dir.path(), "natal --record " + ShellQuote(kExample))).out,
              Stored("example_natal_placidus.txt"));
}

TEST(CliReport, TheReportAsSaveWritesIt) {
    kal::test::ScratchAppDir dir;
    auto r = RunShell(Cli(dir.path(), "report --record " + ShellQuote(kExample)));
    ASSERT_EQ(r.status, 0);
    // The passages of this chart: Leo rising, the Sun in Taurus in the 10th
    // house conjunct the Midheaven, the Sun square the Ascendant.
    for (const char* heading : {"LEO RISING", "SUN IN TAURUS", "SUN IN THE TENTH HOUSE",
                                "SUN BLENDING WITH M_HEAVEN", "SUN DISCORDANT TO ASCENDANT"})
        EXPECT_NE(r.out.find(std::string("\n") + heading), std::string::npos) << heading;
    // Its data page holds the natal data and the aspects.
    EXPECT_NE(
        kal::ReadFileBytes(dir.path() / "reports" / "LASTPAGE.TXT")->find("NATAL PLANET ASPECTS"),
        std::string::npos);

    // The same report saved by the program: the same lines with CR LF.
    kal::Session s;
    s.Open(dir.path());
    ASSERT_TRUE(s.Calculate(*kal::test::FieldsOfRecord(kExample, s.regional.DateOrder)).calculated);
    EXPECT_TRUE(s.CmdNatalReport().empty());
    ASSERT_TRUE(kal::SaveReportFile(dir.path() / "n_report" / "saved.txt", s.report, s.options));
    EXPECT_EQ(*kal::ReadFileBytes(dir.path() / "n_report" / "saved.txt"), Crlf(r.out));
    s.Close();
}

// The atlas command: the places found, with the time in force at the given
// local time, one line a reading.
TEST(CliAtlas, PlacesWithTheTimeInForce) {
    auto lines = [](const std::string& out) {
        std::vector<std::vector<std::string>> rows;
        std::istringstream in(out);
        for (std::string line; std::getline(in, line);) {
            std::vector<std::string> fields;
            std::istringstream f(line);
            for (std::string field; std::getline(f, field, '\t');) fields.push_back(field);
            rows.push_back(fields);
        }
        return rows;
    };
    const std::string cli = std::string(KALTROVA_CLI) + " atlas ";

    auto munich = RunShell(cli + "--place muenchen --date 1944-08-01 --time 10:00 --limit 3 2>&1");
    ASSERT_EQ(munich.status, 0) << munich.out;
    auto rows = lines(munich.out);
    ASSERT_GE(rows.size(), 2u);
    EXPECT_EQ(rows[0][0], "place");
    // place region country latitude longitude zone kind time reading
    // input_zone iana_zone duplicate
    ASSERT_EQ(rows[1].size(), 12u);
    EXPECT_EQ(rows[1][0] + "|" + rows[1][1] + "|" + rows[1][2] + "|" + rows[1][3],
              "Munich|Bavaria|Germany|48N08");
    EXPECT_TRUE(rows[1][4] == "11E34" || rows[1][4] == "11E35") << rows[1][4];
    EXPECT_EQ(rows[1][5] + " " + rows[1][6] + " " + rows[1][8] + " " + rows[1][9] + " " +
                  rows[1][10],
              "-1 1 only -2 Europe/Berlin");

    // At a change of the clocks both readings, before and after it.
    auto gap = RunShell(cli + "--place 'New York City' --date 2007-03-11 --time 02:30 --limit 1");
    rows = lines(gap.out);
    ASSERT_EQ(rows.size(), 3u) << gap.out;
    EXPECT_EQ(rows[1][7] + " " + rows[1][8] + " " + rows[1][9], "EST before 5");
    EXPECT_EQ(rows[2][7] + " " + rows[2][8] + " " + rows[2][9], "EDT after 4");

    EXPECT_EQ(RunShell(cli + "--place Qqxyzzy --date 2000-01-01 --time 12:00 2>/dev/null").status,
              1);
    for (const char* bad :
         {"--place Paris --date 2000-01-01", "--place Paris --date 1/1/2000 --time 12:00",
          "--place Paris --date 2000-02-30 --time 12:00"})
        EXPECT_EQ(RunShell(cli + bad + " 2>/dev/null").status, 64) << bad;
}

TEST(CliWheel, SvgPngAndPdfInBothStyles) {
    kal::test::ScratchAppDir dir;
    const auto out = dir.path() / "wheels";
    std::filesystem::create_directories(out);
    for (const char* style : {"american", "european"}) {
        for (const char* ext : {"svg", "png", "pdf"}) {
            auto file = out / (std::string(style) + "." + ext);
            auto r = RunShell(Cli(dir.path(), "wheel --style " + std::string(style) + " --out " +
                                                  ShellQuote(file.string()) + " --record " +
                                                  ShellQuote(kExample)));
            ASSERT_EQ(r.status, 0) << style << " " << ext;
            EXPECT_TRUE(r.out.empty()); // no page on the standard output
            auto bytes = kal::ReadFileBytes(file);
            ASSERT_TRUE(bytes) << file;
            if (std::string(ext) == "png") {
                ASSERT_GT(bytes->size(), 24u);
                EXPECT_EQ(bytes->substr(1, 3), "PNG");
                // The window of a 1024 by 768 screen: the header's width and height.
                EXPECT_EQ(bytes->substr(16, 8), std::string("\0\0\x04\0\0\0\x03\0", 8));
            } else if (std::string(ext) == "svg") {
                // Viewable anywhere: the glyph font travels with the file and the
                // sans face is named by faces a viewer has.
                EXPECT_NE(bytes->find("@font-face{font-family:'Glyphix'"), std::string::npos);
                EXPECT_NE(bytes->find("Liberation Sans, Arial"), std::string::npos);
                EXPECT_EQ(bytes->find("MS Sans Serif"), std::string::npos);
                EXPECT_NE(bytes->find("Example - natal"), std::string::npos);
            } else {
                EXPECT_EQ(bytes->substr(0, 5), "%PDF-");
            }
        }
    }
    // The two styles draw different wheels.
    EXPECT_NE(kal::ReadFileBytes(out / "american.svg"), kal::ReadFileBytes(out / "european.svg"));
}

TEST(CliWheel, SilentOnTheStandardErrorWithoutASession) {
    // As under cron or a container: no display, no runtime directory.
    kal::test::ScratchAppDir dir;
    const auto tmp = dir.path() / "tmp";
    std::filesystem::create_directories(tmp);
    const std::string bare = "env -u XDG_RUNTIME_DIR -u DISPLAY -u WAYLAND_DISPLAY -u "
                             "QT_QPA_PLATFORM TMPDIR=" +
                             ShellQuote(tmp.string()) + " ";
    for (const char* ext : {"png", "svg", "pdf"}) {
        auto file = dir.path() / (std::string("quiet.") + ext);
        auto r =
            RunShell(bare + Cli(dir.path(), "wheel --out " + ShellQuote(file.string()) +
                                                " --record " + ShellQuote(kExample) + " 2>&1"));
        EXPECT_EQ(r.status, 0) << ext;
        EXPECT_EQ(r.out, "") << ext; // standard error and output together
        EXPECT_TRUE(std::filesystem::exists(file)) << ext;
    }
    // Nothing is left behind in the temporary folder.
    EXPECT_TRUE(std::filesystem::is_empty(tmp));
}

TEST(CliWheel, BatchNamesEachFileAndBadArgumentsAreRefused) {
    kal::test::ScratchAppDir dir;
    dir.Write("TWO.FIL", kExample + "\r\nO'Brien Jr,03 Jan 1988,12.05,P,-10,-151.12,-33.52,\r\n");
    auto out = dir.path() / "w.png";
    auto r =
        RunShell(Cli(dir.path(), "batch --names " + ShellQuote((dir.path() / "TWO.FIL").string()) +
                                     " wheel --size 300x200 --out " + ShellQuote(out.string())));
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "w-001-Example.png"));
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "w-002-O_Brien_Jr.png"));

    for (const std::string args :
         {"wheel --record " + ShellQuote(kExample),
          "wheel --out x.gif --record " + ShellQuote(kExample),
          "wheel --out x.png --style round --record " + ShellQuote(kExample),
          "wheel --out x.png --size 10 --record " + ShellQuote(kExample),
          "natal --out x.png --record " + ShellQuote(kExample)})
        EXPECT_EQ(RunShell(Cli(dir.path(), args + " 2>/dev/null")).status, 64) << args;
}

TEST(CliModules, TheWheelAndTheAtlasNeedTheirModulesBesideTheProgram) {
    // The program names no Qt library: the listings start without it.
    auto dynamic = RunShell("readelf -d " + ShellQuote(KALTROVA_CLI));
    ASSERT_EQ(dynamic.status, 0);
    ASSERT_NE(dynamic.out.find("libswe"), std::string::npos);
    EXPECT_EQ(dynamic.out.find("Qt"), std::string::npos) << dynamic.out;

    // A copy without the modules beside it: the pages as ever, the wheel
    // and the atlas refused with the module's name and nothing drawn.
    kal::test::TempFolder bin;
    const auto cli = bin.path() / "kaltrova-cli";
    std::filesystem::copy_file(KALTROVA_CLI, cli);
    kal::test::ScratchAppDir dir;
    const std::string run = ShellQuote(cli.string()) + " --dir " + ShellQuote(dir.path()) + " ";
    auto page = RunShell(run + "natal --record " + ShellQuote(kExample));
    EXPECT_EQ(page.status, 0);
    EXPECT_EQ(page.out, Stored("example_natal_placidus.txt"));
    const auto png = dir.path() / "w.png";
    auto wheel = RunShell(run + "wheel --out " + ShellQuote(png.string()) + " --record " +
                          ShellQuote(kExample) + " 2>&1");
    EXPECT_EQ(wheel.status, 69);
    EXPECT_NE(wheel.out.find("needs kaltrova-cli-wheel.so beside the program"), std::string::npos)
        << wheel.out;
    EXPECT_FALSE(std::filesystem::exists(png));
    auto atlas = RunShell(run + "atlas --place Paris --date 2000-01-01 --time 12:00 2>&1");
    EXPECT_EQ(atlas.status, 69);
    EXPECT_NE(atlas.out.find("needs kaltrova-cli-atlas.so beside the program"), std::string::npos)
        << atlas.out;
}

namespace {

// Births spread over years and both hemispheres, each its own moment.
std::vector<std::string> ManyRecords(int n) {
    const char* months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::vector<std::string> lines;
    for (int k = 0; k < n; ++k) {
        // The longitude on the side of Greenwich its zone says (West
        // positive), the latitude North or South below 60 degrees.
        const int zone = k % 25 - 12;
        const int lon = (zone < 0 ? -zone : zone) * 14 + k % 7;
        char line[128];
        std::snprintf(line, sizeof line,
                      "Batch %d,%02d %s %d,%d.%02d,%c,%d,%s%03d.%02d,%s%02d.%02d,", k, 1 + k % 28,
                      months[k % 12], 1901 + k * 37 % 140, 1 + k % 12, k * 7 % 60,
                      k % 2 ? 'P' : 'A', zone, zone < 0 ? "-" : "", lon, k % 60, k % 3 ? "" : "-",
                      k * 11 % 60, k * 3 % 60);
        lines.push_back(line);
    }
    return lines;
}

} // namespace

// The pages of a batch are those of the records run one at a time, in file
// order, whatever the number of threads; the refused lines are told with
// their numbers, in file order, and LASTPAGE.TXT holds the last page.
TEST(CliBatch, PagesInRecordOrderOnAnyNumberOfThreads) {
    kal::test::ScratchAppDir dir;
    std::vector<std::string> lines = ManyRecords(40);
    lines.insert(lines.begin() + 3, "not,a record");
    lines.insert(lines.begin() + 17, "Far North,12 May 1959,10.43,A,-3,75.23,70.00,");
    lines.push_back(kExample);
    std::string file;
    for (const auto& l : lines) file += l + "\r\n";
    dir.Write("MANY.FIL", file);
    const std::string names = ShellQuote((dir.path() / "MANY.FIL").string());
    const std::string err = ShellQuote((dir.path() / "err.txt").string());

    // The whole page holds every listing, the aspects with their orb file
    // among them.
    std::string expected;
    for (const auto& l : lines) {
        if (l == "not,a record" || l.rfind("Far North", 0) == 0) continue;
        auto one = RunShell(Cli(dir.path(), "page --record " + ShellQuote(l) + " 2>/dev/null"));
        ASSERT_EQ(one.status, 0) << l;
        expected += one.out;
    }
    const std::string lastPage = *kal::ReadFileBytes(dir.path() / "reports" / "LASTPAGE.TXT");
    for (const char* jobs : {"--jobs 1", "--jobs 3", ""}) {
        SCOPED_TRACE(jobs);
        std::filesystem::remove(dir.path() / "reports" / "LASTPAGE.TXT");
        auto r = RunShell(
            Cli(dir.path(), std::string("batch ") + jobs + " --names " + names + " page 2>" + err));
        EXPECT_EQ(r.status, 0);
        EXPECT_TRUE(r.out == expected);
        auto told = kal::SplitLines(*kal::ReadFileBytes(dir.path() / "err.txt"));
        ASSERT_EQ(told.size(), 4u);
        EXPECT_EQ(told[0].rfind("line 4: Error! You have an error in the current names", 0), 0u);
        EXPECT_EQ(told[1], "line 18: Warning! Error in natal input data section. Please correct.");
        EXPECT_EQ(told[2].rfind("line 18: Warning! Your latitude is too high.", 0), 0u);
        EXPECT_EQ(told[3], "kaltrova-cli: 41 records calculated, 2 refused");
        EXPECT_EQ(*kal::ReadFileBytes(dir.path() / "reports" / "LASTPAGE.TXT"), lastPage);
    }
}

TEST(CliBatch, ExitStatusAndArguments) {
    kal::test::ScratchAppDir dir;
    auto batch = [&](const std::string& fileText, const std::string& more = "") {
        dir.Write("B.FIL", fileText);
        return RunShell(Cli(dir.path(), "batch " + more + " --names " +
                                            ShellQuote((dir.path() / "B.FIL").string()) +
                                            " page 2>/dev/null"));
    };
    // Nothing calculated: every line refused, an empty file, a file that
    // ends before its first record.
    const std::string refused = "x,y\r\nFar North,12 May 1959,10.43,A,-3,75.23,70.00,\r\n";
    for (const std::string& text : {refused, std::string(), ",\r\n" + kExample + "\r\n"}) {
        auto r = batch(text);
        EXPECT_EQ(r.status, 65) << text;
        EXPECT_EQ(r.out, "");
    }
    EXPECT_FALSE(std::filesystem::exists(dir.path() / "reports" / "LASTPAGE.TXT"));
    // One record calculated among refused ones is a batch that gave pages.
    auto some = batch(refused + kSouthern + "\r\n", "--jobs 2");
    EXPECT_EQ(some.status, 0);
    EXPECT_NE(some.out.find("Southern"), std::string::npos);
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "reports" / "LASTPAGE.TXT"));

    for (const char* jobs : {"--jobs 0", "--jobs -2", "--jobs two", "--jobs 1.5"})
        EXPECT_EQ(batch(kExample, jobs).status, 64) << jobs;
    EXPECT_EQ(
        RunShell(Cli(dir.path(), "page --jobs 2 --record " + ShellQuote(kExample) + " 2>/dev/null"))
            .status,
        64);
    EXPECT_EQ(
        RunShell(Cli(dir.path(), "batch --names " + ShellQuote((dir.path() / "none.fil").string()) +
                                     " page 2>/dev/null"))
            .status,
        66);
}

// The page writer's full and read-only disks are the safe writer's and the
// data window's tests; here the command's exit status and silence.
TEST(CliPageFile, APageThatCannotBeWrittenIsAnErrorNeverAStalePage) {
    kal::test::ScratchAppDir dir;
    // The reports folder is a file: nothing can be written in it.
    std::filesystem::remove_all(dir.path() / "reports");
    dir.Write("reports", "not a folder");
    auto r = RunShell(Cli(dir.path(), "page --record " + ShellQuote(kSouthern) + " 2>&1"));
    EXPECT_EQ(r.status, 74);
    EXPECT_NE(r.out.find("The page could not be written to "), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("(not a directory); the file still holds the page before it."),
              std::string::npos)
        << r.out;
    EXPECT_EQ(r.out.find("Southern"), std::string::npos); // no page at all
    // A batch whose page file cannot take its last page says so too.
    dir.Write("ONE.FIL", kSouthern + "\r\n");
    auto batch =
        RunShell(Cli(dir.path(), "batch --names " + ShellQuote((dir.path() / "ONE.FIL").string()) +
                                     " page 2>&1"));
    EXPECT_EQ(batch.status, 74);
    EXPECT_NE(batch.out.find("The page could not be written to "), std::string::npos) << batch.out;
}

TEST(CliBatch, ANulInANameCutsNothing) {
    kal::test::ScratchAppDir dir;
    dir.Write("NUL.FIL", std::string("Jo\0e,12 May 1959,10.43,A,6,75.23,39.45,\r\n", 41));
    auto r = RunShell(Cli(
        dir.path(), "batch --names " + ShellQuote((dir.path() / "NUL.FIL").string()) + " natal"));
    EXPECT_EQ(r.status, 0);
    // The whole page comes out: the name with its NUL, and what follows it.
    EXPECT_NE(r.out.find(std::string("Jo\0e", 4)), std::string::npos);
    EXPECT_NE(r.out.find("HOUSE CUSPS - Placidus"), std::string::npos);
}

TEST(CliEphemeris, ADamagedFileIsAnErrorAndNoPage) {
    namespace fs = std::filesystem;
    const fs::path shipped = fs::canonical(kal::test::AppDir() / "ephems");
    for (const std::string& damage : {"cut", "empty", "noise"}) {
        kal::test::ScratchAppDir dir;
        // An ephemeris folder of its own, with a damaged planet file.
        fs::remove(dir.path() / "ephems");
        fs::create_directory(dir.path() / "ephems");
        for (const auto& e : fs::directory_iterator(shipped))
            if (e.path().filename() != "sepl_18.se1")
                fs::create_symlink(fs::canonical(e.path()),
                                   dir.path() / "ephems" / e.path().filename());
        std::string bytes = *kal::ReadFileBytes(shipped / "sepl_18.se1");
        if (damage == "cut") bytes.resize(bytes.size() / 3);
        if (damage == "empty") bytes.clear();
        if (damage == "noise")
            for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7919 % 251);
        dir.Write("ephems/sepl_18.se1", bytes);

        auto r = RunShell(Cli(dir.path(), "career --record " + ShellQuote(kExample) + " 2>&1"));
        EXPECT_EQ(r.status, 1) << damage;
        EXPECT_EQ(
            r.out.rfind("Error! The positions could not be calculated for this date (Ephemeris "
                        "file ",
                        0),
            0u)
            << r.out;
        EXPECT_NE(r.out.find("sepl_18.se1 is damaged"), std::string::npos) << r.out;
        // No page at all, and none written.
        EXPECT_EQ(r.out.find("Example"), std::string::npos) << damage;
        EXPECT_FALSE(fs::exists(dir.path() / "reports" / "LASTPAGE.TXT")) << damage;
    }
}

TEST(CliEphemeris, TheAnalyticalModelIsNamedOncePerRun) {
    namespace fs = std::filesystem;
    kal::test::ScratchAppDir dir;
    const std::string notice = "kaltrova-cli: positions from the analytical model: no ephemeris "
                               "file for this date in " +
                               (dir.path() / "ephems").string() + "\n";
    auto countNotices = [&](const std::string& text) {
        size_t n = 0;
        for (size_t at = text.find(notice); at != std::string::npos; at = text.find(notice, at + 1))
            ++n;
        return n;
    };
    // The shipped files begin in 1800: a birth in 1750 has none.
    dir.Write("OLD.FIL", "Early,12 May 1750,10.43,A,6,75.23,39.45,\r\nLater,12 May 1760,1.00,P,6,"
                         "75.23,39.45,\r\n" +
                             kExample + "\r\n");
    auto early =
        RunShell(Cli(dir.path(), "batch --names " + ShellQuote((dir.path() / "OLD.FIL").string()) +
                                     " natal 2>&1 >/dev/null"));
    EXPECT_EQ(early.status, 0);
    EXPECT_EQ(countNotices(early.out), 1u) << early.out;
    // A date the files cover says nothing.
    auto covered = RunShell(Cli(dir.path(), "natal --record " + ShellQuote(kExample) + " 2>&1"));
    EXPECT_EQ(covered.out, Stored("example_natal_placidus.txt"));

    // Without the ephemeris folder every date falls back, and says so.
    fs::remove(dir.path() / "ephems");
    auto none =
        RunShell(Cli(dir.path(), "natal --record " + ShellQuote(kExample) + " 2>&1 >/dev/null"));
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.out, notice);
}
