// Every writer of a file a user can lose, failed and interrupted at each step
// of its write. A run first counts the steps of an undisturbed write; then
// each step k in turn fails with a system error, and in a child process the
// write is cut off at step k as a crash or a power cut would. Afterwards
// every file the writer touches is either the old one or the new one, byte
// for byte, the user is told of a failed write, a failed write leaves nothing
// behind, and no record of a names file is lost.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <map>
#include <set>

#include "TestSupport.h"
#include "base/OutputBuffer.h"
#include "base/SafeWrite.h"
#include "base/TextFile.h"
#include "birthdata/NamesFile.h"
#include "birthdata/Record.h"
#include "birthdata/RecordWriter.h"
#include "report/NatalReport.h"
#include "shell/DataFile.h"
#include "shell/EditorFile.h"
#include "shell/Settings.h"
#include "shell/Startup.h"

using namespace kal;
namespace fs = std::filesystem;

namespace {

// What a write reported: the message the user is shown when it failed.
struct Outcome {
    bool ok = false;
    std::string told;
};

Outcome Told(const WriteResult& w, const fs::path& file) {
    return {w.ok, w ? std::string() : WriteFailedMessage(file, w).text};
}

Outcome Told(bool ok, const Messages& messages) {
    std::string told;
    for (const auto& m : messages) told += m.text + "\n";
    return {ok, told};
}

struct Writer {
    const char* name;
    // The files the write changes, relative to the folder.
    std::vector<std::string> files;
    std::function<void(const test::TempFolder&)> setUp;
    std::function<Outcome(const fs::path& folder)> write;
    // A names file: the first of `files`, whose records are counted, and
    // its backup, the second, missing for a moment while it is made and
    // afterwards holding the names file as it was. File by file: each file
    // is written on its own, so a failure leaves the files before it written.
    enum class Kind { OneFile, NamesFile, FileByFile } kind = Kind::OneFile;
};

using Snapshot = std::map<std::string, std::optional<std::string>>;

Snapshot Take(const test::TempFolder& d, const std::vector<std::string>& files) {
    Snapshot s;
    for (const auto& f : files) s[f] = d.Read(f);
    return s;
}

// Every file and folder under `dir`, relative to it.
std::set<std::string> Entries(const fs::path& dir) {
    std::set<std::string> names;
    for (const auto& e : fs::recursive_directory_iterator(dir))
        names.insert(e.path().lexically_relative(dir).string());
    return names;
}

std::string NamesFileOf(int records) {
    std::string text;
    for (int n = 1; n <= records; ++n)
        text += "Person " + std::to_string(n) + ",12 May 1959,10.43,A,6,75.23,39.45,p" +
                std::to_string(n) + "@example.org\r\n";
    return text;
}

InputFields Mary() {
    return *test::FieldsOfRecord("Mary Smith,03 Feb 1971,4.05,P,5,071.04,42.21,mary@example.org");
}

// A listing of more than one block of data.
std::vector<std::string> Listing() {
    std::vector<std::string> lines;
    for (int n = 0; n < 1500; ++n)
        lines.push_back("Line " + std::to_string(n) + " of the listing " + std::string(40, '.'));
    return lines;
}

// The error a step fails with: as a full disk, a failing disk or a folder
// that refuses would answer.
int ErrorAt(WriteStep step) {
    switch (step) {
    case WriteStep::Create:
        return EROFS;
    case WriteStep::Write:
        return ENOSPC;
    case WriteStep::Rename:
        return EACCES;
    default:
        return EIO;
    }
}

std::vector<Writer> Writers() {
    const std::string names = NamesFileOf(2500);
    return {
        {"a record saved into a names file",
         {"NAMES.FIL", "NAMES.OLD"},
         [=](const test::TempFolder& d) {
             d.Write("NAMES.FIL", names);
             d.Write("NAMES.OLD", "the backup before\r\n");
         },
         [](const fs::path& dir) {
             auto r = SaveInputRecord(Mary(), 0, dir, dir / "NAMES.FIL", nullptr);
             return Told(r.saved, r.messages);
         },
         Writer::Kind::NamesFile},
        {"a new names file",
         {"NEW.FIL"},
         [](const test::TempFolder&) {},
         [](const fs::path& dir) {
             return Told(WriteNewNamesFile(dir / "NEW.FIL"), dir / "NEW.FIL");
         }},
        {"Kaltrova.INI",
         {"Kaltrova.INI"},
         [](const test::TempFolder& d) { d.Write("Kaltrova.INI", "FontSize=9\r\n"); },
         [](const fs::path& dir) {
             return Told(WriteSettings(dir, Settings{}, dir / "NAMES.FIL", dir / "GA_MA.LL"),
                         SettingsPath(dir));
         }},
        {"OPTIONS.OPT restored from OPTIONS.MST",
         {"OPTIONS.OPT"},
         [](const test::TempFolder& d) {
             d.Write("OPTIONS.OPT", "1      edited\r\n");
             d.Write("OPTIONS.MST", std::string(70000, 'm'));
         },
         [](const fs::path& dir) { return Told(RestoreDefaultOptions(dir), dir / "OPTIONS.OPT"); }},
        {"a saved listing",
         {"Mary.txt"},
         [](const test::TempFolder& d) { d.Write("Mary.txt", "an older listing\r\n"); },
         [](const fs::path& dir) {
             return Told(SaveDataFile(dir / "Mary.txt", Listing(), 45), dir / "Mary.txt");
         }},
        {"the print file",
         {"PRNTFILE.XXX"},
         [](const test::TempFolder& d) { d.Write("PRNTFILE.XXX", "printed before\r\n"); },
         [](const fs::path& dir) {
             return Told(WritePrintFile(dir, Listing()), dir / "PRNTFILE.XXX");
         }},
        {"a saved report",
         {"report.txt"},
         [](const test::TempFolder& d) { d.Write("report.txt", "an older report\r\n"); },
         [](const fs::path& dir) {
             NatalReport r;
             for (const auto& line : Listing()) r.Lines.Append(line);
             Options o;
             o[131] = 60;
             o[129] = 6;
             o[132] = 3;
             return Told(SaveReportFile(dir / "report.txt", r, o), dir / "report.txt");
         }},
        {"the data window's page",
         {"reports/LASTPAGE.TXT"},
         [](const test::TempFolder& d) {
             fs::create_directory(d.path() / "reports");
             d.Write("reports/LASTPAGE.TXT", "the page before\r\n");
         },
         [](const fs::path& dir) {
             OutputBuffer out;
             for (const auto& line : Listing()) out.Append(line);
             ShownPage p = ShowDataPage(out, dir);
             return Outcome{p.shown, p.notWritten ? p.notWritten->text : ""};
         }},
        {"the first start's copies",
         {"user/TZ.DAT", "user/OPTIONS.MST", "user/Dravik_Natal_Orbs.ORB"},
         [](const test::TempFolder& d) {
             fs::create_directory(d.path() / "shipped");
             d.Write("shipped/TZ.DAT", "\"Eastern\",EST,5\r\n");
             d.Write("shipped/OPTIONS.MST", std::string(70000, 'm'));
             d.Write("shipped/Dravik_Natal_Orbs.ORB", "8,8,6\r\n");
             // An empty copy left by an earlier start is repaired.
             fs::create_directory(d.path() / "user");
             d.Write("user/Dravik_Natal_Orbs.ORB", "");
         },
         [](const fs::path& dir) {
             CopyReport r = CopyProgramData(dir / "shipped", dir / "user");
             return Told(r.failed.empty(), CopyProblems(r, dir / "user"));
         },
         Writer::Kind::FileByFile},
    };
}

} // namespace

TEST(WriteFaults, EveryWriterAtEveryStepLeavesTheOldFileOrTheNewOneWhole) {
    int points = 0, lost = 0;
    for (const Writer& w : Writers()) {
        SCOPED_TRACE(w.name);
        // The undisturbed write: its steps, the files before and after.
        Snapshot before, after;
        std::set<std::string> entries;
        std::vector<WriteStep> steps;
        {
            test::TempFolder d;
            w.setUp(d);
            before = Take(d, w.files);
            entries = Entries(d.path());
            Outcome out;
            steps = test::WriteSteps([&] { out = w.write(d.path()); });
            ASSERT_TRUE(out.ok) << out.told;
            after = Take(d, w.files);
            ASSERT_NE(before[w.files[0]], after[w.files[0]]);
            // Nothing is left beside the files.
            for (const auto& e : Entries(d.path())) {
                if (entries.insert(e).second) {
                    EXPECT_NE(std::find(w.files.begin(), w.files.end(), e), w.files.end()) << e;
                }
            }
        }
        ASSERT_GE(steps.size(), 3u);
        const bool names = w.kind == Writer::Kind::NamesFile;
        if (names) {
            EXPECT_EQ(after[w.files[1]], before[w.files[0]]);
        }

        auto check = [&](const test::TempFolder& d, const char* how, size_t k) {
            SCOPED_TRACE(std::string(how) + " at step " + std::to_string(k));
            ++points;
            for (const auto& f : w.files) {
                auto now = d.Read(f);
                if (names && f == w.files[1] && !now) continue;
                EXPECT_TRUE(now == before[f] || now == after[f])
                    << f << " is neither the old file nor the new one: "
                    << (now ? std::to_string(now->size()) + " bytes" : "missing");
            }
            if (names) {
                const int l = test::LostRecords(*before[w.files[0]], d.path() / w.files[0]);
                EXPECT_EQ(l, 0);
                lost += l;
            }
        };
        for (size_t k = 1; k <= steps.size(); ++k) {
            {
                test::TempFolder d;
                w.setUp(d);
                const int error = ErrorAt(steps[k - 1]);
                Outcome out;
                {
                    test::WriteFault fault(static_cast<int>(k), error);
                    out = w.write(d.path());
                }
                check(d, "failed", k);
                EXPECT_FALSE(out.ok) << "step " << k;
                EXPECT_NE(out.told.find(WriteErrorReason(error)), std::string::npos)
                    << "step " << k << " told: " << out.told;
                if (w.kind != Writer::Kind::FileByFile) {
                    EXPECT_EQ(d.Read(w.files[0]), before[w.files[0]]);
                }
                for (const auto& e : Entries(d.path())) {
                    EXPECT_TRUE(entries.contains(e)) << "left behind: " << e;
                }
            }
            {
                test::TempFolder d;
                w.setUp(d);
                EXPECT_TRUE(test::CrashAtWriteStep(static_cast<int>(k), [&] { w.write(d.path()); }))
                    << "step " << k;
                check(d, "cut off", k);
            }
        }
    }
    std::cout << "fault points tried: " << points << ", records lost: " << lost << std::endl;
    EXPECT_EQ(lost, 0);
}
