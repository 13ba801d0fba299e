// The help files and the tip file shipped in the program directory: the
// shape the data window and the tip window need, and the example lines the
// help texts quote, which must be lines the program itself accepts.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "base/Options.h"
#include "base/TextFile.h"
#include "base/VbText.h"
#include "birthdata/CitiesFile.h"
#include "birthdata/Record.h"
#include "birthdata/TimeZones.h"
#include "chart/Calc.h"
#include "periphery/Tips.h"

using namespace kal;
namespace fs = std::filesystem;

namespace {

fs::path Shipped(const std::string& name) {
    return fs::path(KALTROVA_SOURCE_DIR) / "data" / name;
}

// The lines of a shipped text file; fails on a byte that is not printable
// ASCII, a tab, a bare LF or CR, or a missing final CR LF.
std::vector<std::string> AsciiCrLfLines(const std::string& name) {
    const std::string b = ReadFileBytes(Shipped(name)).value_or("");
    EXPECT_FALSE(b.empty()) << name;
    EXPECT_TRUE(b.size() >= 2 && b.substr(b.size() - 2) == "\r\n") << name << ": last line end";
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t i = 0; i < b.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(b[i]);
        if (c == '\r') {
            EXPECT_TRUE(i + 1 < b.size() && b[i + 1] == '\n') << name << ": bare CR at " << i;
            lines.push_back(b.substr(start, i - start));
            start = i + 2;
            ++i;
        } else {
            EXPECT_TRUE(c >= 32 && c < 127) << name << ": byte " << int(c) << " at " << i;
        }
    }
    return lines;
}

std::vector<std::string> HelpFiles() {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(fs::path(KALTROVA_SOURCE_DIR) / "data")) {
        const std::string n = e.path().filename().string();
        if (Upper(e.path().extension().string()) == ".HLP") names.push_back(n);
    }
    std::sort(names.begin(), names.end());
    return names;
}

// The example lines of a help text: set off by four blanks.
std::vector<std::string> Examples(const std::string& name) {
    std::vector<std::string> out;
    for (const auto& l : AsciiCrLfLines(name))
        if (l.size() > 4 && l.compare(0, 4, "    ") == 0 && l[4] != ' ') out.push_back(l.substr(4));
    return out;
}

bool HasLine(const std::string& file, const std::string& line) {
    auto lines = ReadLines(Shipped(file)).value_or(std::vector<std::string>{});
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

// The help files the program's code names: every "X.HLP" or "\\X.HLP"
// literal of its sources, in help commands and report chapters alike.
std::set<std::string> HelpFilesNamedInTheCode() {
    const std::regex literal(R"re("(?:\\\\)?([A-Za-z0-9_]+\.HLP)")re", std::regex::icase);
    std::set<std::string> names;
    for (const auto& e : fs::recursive_directory_iterator(fs::path(KALTROVA_SOURCE_DIR) / "src")) {
        const auto ext = e.path().extension();
        if (ext != ".cpp" && ext != ".h") continue;
        std::ifstream in(e.path());
        std::stringstream code;
        code << in.rdbuf();
        const std::string text = code.str();
        for (std::sregex_iterator m(text.begin(), text.end(), literal), end; m != end; ++m)
            names.insert((*m)[1]);
    }
    return names;
}

} // namespace

TEST(ShippedHelp, EveryHelpFileTheCodeNamesIsShippedAndEveryShippedOneIsNamed) {
    const auto named = HelpFilesNamedInTheCode();
    // The Help menu alone names seventeen.
    ASSERT_GE(named.size(), 17u);
    for (const auto& name : named) {
        SCOPED_TRACE(name);
        const auto lines = ReadLines(FindFile(fs::path(KALTROVA_SOURCE_DIR) / "data", name));
        ASSERT_TRUE(lines.has_value()) << "no such file in data/";
        EXPECT_TRUE(std::any_of(lines->begin(), lines->end(), [](const std::string& l) {
            return !l.empty();
        })) << "empty";
    }
    // A help file no command shows is never read.
    std::set<std::string> namedUpper;
    for (const auto& n : named) namedUpper.insert(Upper(n));
    for (const auto& file : HelpFiles())
        EXPECT_TRUE(namedUpper.count(Upper(file))) << file << " is shown by no command";
}

TEST(ShippedHelp, PlainTextThatFitsTheDataWindow) {
    const auto files = HelpFiles();
    ASSERT_GE(files.size(), 12u);
    for (const auto& name : files) {
        SCOPED_TRACE(name);
        const auto lines = AsciiCrLfLines(name);
        ASSERT_FALSE(lines.empty());
        EXPECT_FALSE(lines.front().empty()); // the title, not a blank line
        for (size_t i = 0; i < lines.size(); ++i) {
            EXPECT_LE(lines[i].size(), 72u) << "line " << i + 1;
            EXPECT_TRUE(lines[i].empty() || lines[i].back() != ' ') << "line " << i + 1;
            if (i > 0) {
                EXPECT_FALSE(lines[i].empty() && lines[i - 1].empty()) << "line " << i + 1;
            }
        }
    }
}

TEST(ShippedHelp, QuotedRecordsAndPlacesAreAccepted) {
    // Names-file records: read, moved into the input fields and cast.
    for (const char* file : {"NAMES.HLP", "NAMEEDIT.HLP"}) {
        const auto examples = Examples(file);
        ASSERT_FALSE(examples.empty()) << file;
        for (const auto& line : examples) {
            SCOPED_TRACE(line);
            auto rec = ParseRecordLine(line);
            ASSERT_TRUE(rec);
            InputFields in;
            EXPECT_FALSE(TransferRecord(*rec, 0, in).has_value());
            EXPECT_TRUE(InputChecks(in, 'P').empty());
        }
    }
    // Cities-file lines: read and moved into the input fields.
    for (const char* file : {"GEOGRAPH.HLP", "LONGLAT.HLP"}) {
        const auto examples = Examples(file);
        ASSERT_FALSE(examples.empty()) << file;
        for (const auto& line : examples) {
            SCOPED_TRACE(line);
            auto city = ParseCityLine(line);
            ASSERT_TRUE(city);
            InputFields in;
            EXPECT_FALSE(TransferPlace(*city, in).has_value());
        }
    }
}

TEST(ShippedHelp, QuotedZonesOptionsAndOrbsAreThoseOfTheFiles) {
    // TZ.DAT lines: a table that reads whole, each zone can be picked.
    std::string tz;
    for (const auto& line : Examples("INPUTD.HLP")) tz += line + "\r\n";
    const ZoneTable t = ParseZoneTable(tz);
    EXPECT_FALSE(t.corrupt);
    ASSERT_GE(t.ZoneName.size(), 2u);
    for (size_t i = 0; i < t.ZoneName.size(); ++i) {
        InputFields in;
        const std::string shown = ZoneListLine(t.ZoneName[i], t.ZoneCode[i], t.ZoneOffset[i]);
        EXPECT_FALSE(ApplyZone(t, shown, in).has_value()) << shown;
    }
    // The option line and the orb line are quoted as the shipped files hold
    // them, and the option line is the one the text says it is.
    const auto opt = Examples("OPTIONS.HLP");
    ASSERT_EQ(opt.size(), 2u);
    const auto options = ReadLines(Shipped("OPTIONS.OPT")).value();
    EXPECT_EQ(opt[0], options.at(41));
    EXPECT_TRUE(HasLine("NATAL.ORB", opt[1])) << opt[1];
}

TEST(ShippedTips, NineteenTipsForTheWindow) {
    const auto lines = AsciiCrLfLines(kTipFileName);
    // The Next button's caption counts them.
    ASSERT_EQ(lines.size(), 19u);
    std::map<std::string, int> seen;
    for (const auto& tip : lines) {
        SCOPED_TRACE(tip);
        EXPECT_GE(tip.size(), 40u);
        // Short enough for the tip label without scrolling.
        EXPECT_LE(tip.size(), 200u);
        EXPECT_TRUE(tip.back() == '.' || tip.back() == '?');
        EXPECT_EQ(++seen[tip], 1);
    }
    TipList t;
    ASSERT_TRUE(t.LoadTips(Shipped(kTipFileName)));
    EXPECT_EQ(t.Count(), 19);
}
