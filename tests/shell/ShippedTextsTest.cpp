// The interpretation and lesson texts as shipped: every key the natal report
// (under every setting of options 140, 141 and 145) and the meanings window
// can form finds its passage through the program's own reader, every passage
// has its end line, every keyed file keeps the passage format, and every
// lesson file of the keyword system is there, and no sentence is met twice
// by a reader of the texts. The same walks over a damaged copy show that they
// notice.
#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <set>

#include "TestSupport.h"
#include "base/Passages.h"
#include "base/TextFile.h"
#include "browsers/Keywords.h"
#include "browsers/Meanings.h"
#include "report/NatalReport.h"

using namespace kal;
namespace fs = std::filesystem;

namespace {

// Aspects the orbs can never find: Mercury keeps within 28 degrees of the
// Sun and Venus within 47, and the two within about 76 of each other. By
// listing position: Sun 1, Mercury 3, Venus 4.
bool CanOccur(int i, int j, int a) {
    if (i == 1 && (j == 3 || j == 4)) return a == 2;
    if (i == 3 && j == 4) return a <= 3;
    return true;
}

// Every (file, key) the report and the meanings window can look up.
std::map<std::string, std::set<std::string>> WantedKeys() {
    std::map<std::string, std::set<std::string>> keys;
    for (int sign = 1; sign <= 12; ++sign) {
        keys["RISING.TXT"].insert(RisingKey(sign));
        for (int body : ReportPlanetOrder) keys[SignFileName(sign)].insert(PlanetInKey(body));
    }
    for (int house = 1; house <= 12; ++house)
        for (int body : ReportPlanetOrder) keys[HouseFileName(house)].insert(PlanetInKey(body));
    for (float o140 : {0.f, 1.f})
        for (float o141 : {0.f, 1.f}) {
            Options o;
            o[140] = o140;
            o[141] = o141;
            // Option 145 = 1 reaches every pair of the 13 points; 0 a subset.
            for (int i = 1; i <= 12; ++i)
                for (int j = i + 1; j <= 13; ++j)
                    for (int a = 2; a <= 6; ++a)
                        if (CanOccur(i, j, a))
                            keys[AspectFileName(i)].insert(AspectKey(i, j, a, o));
        }
    BrowserSelections s;
    auto add = [&](const LookupResult& r) {
        if (auto* t = std::get_if<TextLookup>(&r)) keys[t->file.substr(1)].insert(t->key);
    };
    for (short p = 0; p <= 10; ++p)
        for (short q = 0; q <= 10; ++q)
            for (short a = 0; a <= 2; ++a)
                for (short n = 0; n <= 11; ++n) {
                    s.SelPlanet = p;
                    s.SelPlanet2 = q;
                    s.SelAspect = a;
                    s.SelSign = n;
                    s.SelHouse = n;
                    add(PlanetInSignLookup(s));
                    add(PlanetInHouseLookup(s));
                    add(RisingSignLookup(s));
                    add(AspectLookup(s));
                }
    return keys;
}

// What is wrong with one keyed file's format: line ends other than CR LF,
// bytes that are not ASCII, a passage without its end line (a passage
// starts at the first non-empty line of the file or after an end line).
// Returns the numbers of the passages' heading lines.
std::set<size_t> CheckFormat(const std::string& name, const std::string& bytes,
                             std::vector<std::string>& problems) {
    for (size_t k = 0; k < bytes.size(); ++k) {
        auto c = static_cast<unsigned char>(bytes[k]);
        if (c >= 0x80) {
            problems.push_back(name + ": byte " + std::to_string(k) + " is not ASCII");
            break;
        }
        bool crlf = (c == '\r' && k + 1 < bytes.size() && bytes[k + 1] == '\n') ||
                    (c == '\n' && k > 0 && bytes[k - 1] == '\r');
        if ((c == '\r' || c == '\n') && !crlf) {
            problems.push_back(name + ": a line end that is not CR LF at byte " +
                               std::to_string(k));
            break;
        }
    }
    if (!bytes.empty() && bytes.back() != '\n')
        problems.push_back(name + ": the last line has no line end");
    std::set<size_t> headings;
    auto lines = SplitLines(bytes);
    bool inside = false;
    size_t start = 0;
    for (size_t n = 0; n < lines.size(); ++n) {
        if (!inside) {
            if (lines[n].find_first_not_of(' ') == std::string::npos) continue;
            inside = true;
            start = n;
            headings.insert(n);
        } else if (IsPassageEnd(lines[n])) {
            inside = false;
        }
    }
    if (inside)
        problems.push_back(name + ":" + std::to_string(start + 1) +
                           ": passage without an end line");
    return headings;
}

// Every problem of the texts in `dir`.
std::vector<std::string> TextProblems(const fs::path& dir) {
    std::vector<std::string> problems;
    for (const auto& [name, keys] : WantedKeys()) {
        fs::path file = FindTextFile(dir, name);
        auto bytes = ReadFileBytes(file);
        if (!bytes) {
            problems.push_back(name + ": missing");
            continue;
        }
        auto headings = CheckFormat(name, *bytes, problems);
        auto lines = SplitLines(*bytes);
        for (const auto& key : keys) {
            auto p = FindPassage(lines, key);
            if (!p)
                problems.push_back(name + ": no passage for \"" + key + "\"");
            else if (!headings.count(p->heading))
                problems.push_back(name + ":" + std::to_string(p->heading + 1) + ": \"" + key +
                                   "\" first matches a line inside a passage");
            else if (!p->ended)
                problems.push_back(name + ": \"" + key + "\" has no end line");
        }
    }
    return problems;
}

// The files shown whole: the report's chapters and every lesson file the
// keyword window names.
std::vector<std::string> WholeTextFiles() {
    std::vector<std::string> names(ReportChapters.begin(), ReportChapters.end());
    for (auto lesson : {IntroLesson, StepsLesson, KeyLesson, GeneralLesson, ExampleLesson,
                        SummaryLesson, AspectsLesson})
        names.emplace_back(lesson);
    for (short k = 0; k < 12; ++k) {
        names.push_back(SignLessonFile(k));
        names.push_back(HouseLessonFile(k));
    }
    for (short k = 0; k < 10; ++k) names.push_back(PlanetLessonFile(k));
    return names;
}

// Words that change from one passage of a series to the next: the points,
// signs, houses and aspects. A sentence that differs from another only in
// these (and in "the") is the same sentence to a reader.
const std::set<std::string> SeriesWords = {
    "sun",         "moon",        "mercury",   "venus",      "mars",     "jupiter",
    "saturn",      "uranus",      "neptune",   "pluto",      "node",     "nodes",
    "ascendant",   "descendant",  "midheaven", "mc",         "ic",       "aries",
    "taurus",      "gemini",      "cancer",    "leo",        "virgo",    "libra",
    "scorpio",     "sagittarius", "capricorn", "aquarius",   "pisces",   "first",
    "second",      "third",       "fourth",    "fifth",      "sixth",    "seventh",
    "eighth",      "ninth",       "tenth",     "eleventh",   "twelfth",  "1st",
    "2nd",         "3rd",         "4th",       "5th",        "6th",      "7th",
    "8th",         "9th",         "10th",      "11th",       "12th",     "conjunct",
    "conjunction", "sextile",     "sextiles",  "square",     "squares",  "trine",
    "trines",      "opposite",    "opposes",   "opposition", "blending", "harmonizing",
    "discordant"};

// The sentences of `text` of eight words or more, each as its words in lower
// case with the series words replaced by "#" and "the" left out.
std::vector<std::string> LongSentences(const std::string& text) {
    std::vector<std::string> out;
    std::string shape, word;
    int words = 0;
    auto endWord = [&] {
        if (word.empty()) return;
        if (word.size() > 2 && word.compare(word.size() - 2, 2, "'s") == 0)
            word.resize(word.size() - 2);
        ++words;
        if (word != "the") shape += (SeriesWords.count(word) ? std::string("#") : word) + " ";
        word.clear();
    };
    for (char c : text + ".") {
        auto u = static_cast<unsigned char>(c);
        if (std::isalnum(u) || (c == '\'' && !word.empty())) {
            word += static_cast<char>(std::tolower(u));
            continue;
        }
        endWord();
        if (c == '.' || c == '!' || c == '?') {
            if (words >= 8) out.push_back(shape);
            shape.clear();
            words = 0;
        }
    }
    return out;
}

// Every sentence met twice in the texts of `dir` a reader can be shown: the
// passages of the keyed files, the report's chapters and the lessons.
std::vector<std::string> RepeatedSentences(const fs::path& dir) {
    std::map<std::string, std::vector<std::string>> seen;
    std::set<fs::path> keyed;
    for (const auto& [name, keys] : WantedKeys()) keyed.insert(FindTextFile(dir, name));
    for (const auto& file : keyed) {
        auto lines = ReadLines(file);
        if (!lines) continue;
        std::string body;
        size_t heading = 0;
        bool inside = false;
        for (size_t n = 0; n < lines->size(); ++n) {
            const auto& line = (*lines)[n];
            if (!inside) {
                inside = line.find_first_not_of(' ') != std::string::npos;
                heading = n;
            } else if (IsPassageEnd(line)) {
                for (auto& s : LongSentences(body))
                    seen[s].push_back(file.filename().string() + ":" + std::to_string(heading + 1));
                body.clear();
                inside = false;
            } else {
                body += line + " ";
            }
        }
    }
    for (const auto& name : WholeTextFiles()) {
        fs::path file = FindTextFile(dir, name);
        auto lines = ReadLines(file);
        if (!lines) continue;
        std::string body;
        for (const auto& l : *lines) body += l + " ";
        for (auto& s : LongSentences(body)) seen[s].push_back(file.filename().string());
    }
    std::vector<std::string> repeats;
    for (const auto& [shape, where] : seen) {
        if (where.size() < 2) continue;
        std::string at;
        for (const auto& w : where) at += (at.empty() ? "" : ", ") + w;
        repeats.push_back(at + ": \"" + shape + "\"");
    }
    return repeats;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string s;
    for (const auto& l : lines) s += l + "\n";
    return s;
}

bool Mentions(const std::vector<std::string>& problems, const std::string& what) {
    for (const auto& p : problems)
        if (p.find(what) != std::string::npos) return true;
    return false;
}

} // namespace

TEST(ShippedTexts, EveryKeyFindsAPassageWithItsEndLine) {
    auto keys = WantedKeys();
    size_t count = 0;
    for (const auto& [name, k] : keys) count += k.size();
    // The report: 12 rising signs, 12 x 10 signs, 12 x 10 houses, and 78
    // pairs of points with 7 aspect words each, less the aspects Mercury and
    // Venus cannot make (530). The meanings window adds its upper-cased
    // planets in the signs (7 x 12) and houses (10 x 12), the Ascendant's 30
    // aspects and "Sun harmonizing with Venus".
    EXPECT_EQ(count, 252u + 530 + 84 + 120 + 30 + 1);
    EXPECT_TRUE(keys.count("SIGN_Cap.TXT")) << "the meanings window's Capricorn";
    EXPECT_TRUE(keys["Sun.TXT"].count("Sun blending with Ascendant"));
    EXPECT_TRUE(keys["Sun.TXT"].count("Sun blending with Asc"));
    EXPECT_TRUE(keys["Sun.TXT"].count("Sun harmonizing with Venus"));
    EXPECT_FALSE(keys["Sun.TXT"].count("Sun square Mercury"));
    auto problems = TextProblems(test::AppDir());
    EXPECT_TRUE(problems.empty()) << Joined(problems);
}

TEST(ShippedTexts, NoSentenceIsMetTwice) {
    // Word for word, or with only the points, signs, houses or aspects changed:
    // one report reads many passages of a series, and a lesson is read beside
    // the passages it explains.
    auto repeats = RepeatedSentences(test::AppDir());
    EXPECT_TRUE(repeats.empty()) << Joined(repeats);
}

TEST(ShippedTexts, TheWalkNoticesADamagedCopy) {
    test::ScratchAppDir dir;
    auto edit = [&](const std::string& name, const std::string& from, const std::string& to) {
        auto bytes = *ReadFileBytes(dir.path() / name);
        auto at = bytes.find(from);
        ASSERT_NE(at, std::string::npos) << name << ": " << from;
        bytes.replace(at, from.size(), to);
        dir.Write(name, bytes);
    };
    // A heading renamed, the last end line of a file gone, a file missing,
    // a bare LF.
    edit("HOUSE_7.TXT", "SATURN IN THE SEVENTH", "SATURNINE IN THE SEVENTH");
    auto pluto = *ReadFileBytes(dir.path() / "Pluto.TXT");
    dir.Write("Pluto.TXT", pluto.substr(0, pluto.rfind("*\r\n")));
    fs::remove(dir.path() / "SIGN_Leo.TXT");
    edit("RISING.TXT", "ARIES RISING\r\n", "ARIES RISING\n");
    auto problems = TextProblems(dir.path());
    EXPECT_TRUE(Mentions(problems, "HOUSE_7.TXT: no passage for \"Saturn in\""))
        << Joined(problems);
    // The last passage of Pluto.TXT now runs to the end of the file.
    EXPECT_TRUE(Mentions(problems, "\" has no end line"));
    EXPECT_TRUE(Mentions(problems, "Pluto.TXT:") && Mentions(problems, "without an end line"));
    EXPECT_TRUE(Mentions(problems, "SIGN_Leo.TXT: missing"));
    EXPECT_TRUE(Mentions(problems, "RISING.TXT: a line end that is not CR LF"));

    // A sentence of a passage copied into a lesson with another sign and an
    // article changed; the same sentence twice in one passage; a seven-word
    // sentence repeated, which is allowed.
    auto key = *ReadFileBytes(dir.path() / "KEY.TXT");
    dir.Write("KEY.TXT", key + "Both planets rule the fire signs, Leo and Sagittarius, and\r\n"
                               "the conjunction has a fiery openness, generous in victory and\r\n"
                               "impatient with small minds. Short sentences may say it again.\r\n");
    edit("Mars.TXT", "thin.\r\n*\r\n",
         "thin. Short sentences may say it again. Hand over one old campaign before\r\n"
         "you start the next. Hand over one old campaign before you start the\r\n"
         "next.\r\n*\r\n");
    auto repeats = RepeatedSentences(dir.path());
    EXPECT_TRUE(Mentions(repeats, "Mars.TXT:1, KEY.TXT: \"both planets rule fire signs # and"))
        << Joined(repeats);
    EXPECT_TRUE(Mentions(repeats, "Mars.TXT:1, Mars.TXT:1: \"hand over one old campaign"));
    EXPECT_EQ(repeats.size(), 2u) << Joined(repeats);
}

TEST(ShippedTexts, ChaptersAndLessonFilesExist) {
    auto names = WholeTextFiles();
    names.push_back("PERSONAL.NAM");
    for (const auto& name : names) {
        fs::path file = FindTextFile(test::AppDir(), name);
        auto lines = ReadLines(file);
        ASSERT_TRUE(lines) << name;
        EXPECT_FALSE(lines->empty()) << name;
    }
}
