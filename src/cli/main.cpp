// kaltrova-cli: the core without windows, for batch work, scripting and tests.
#include <dlfcn.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <iostream>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "base/TextFile.h"
#include "base/VbText.h"
#include "birthdata/NamesFile.h"
#include "birthdata/Record.h"
#include "cli/AtlasModule.h"
#include "cli/WheelModule.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/Startup.h"

#ifdef KALTROVA_WHEEL_EXPORT
#include "wheel/WheelTables.h"
#endif

namespace fs = std::filesystem;
using namespace kal;

namespace {

const char* kUsage =
    "usage: kaltrova-cli [--dir APPDIR] [--houses P|K|R|C|O|B|T] [--date-order 0|1|2]\n"
    "                    COMMAND (--record LINE | --names FILE --name NAME)\n"
    "       kaltrova-cli [options] batch --names FILE [--jobs N] COMMAND\n"
    "       kaltrova-cli [--dir APPDIR] atlas --place TEXT --date YYYY-MM-DD --time HH:MM\n"
    "                    [--limit N]\n"
    "commands:\n"
    "  page      the data page the program shows after OK\n"
    "  natal     the page of Data > Natal Data\n"
    "  aspects   the page of Data > Natal Aspects\n"
    "  career    the page of Data > Kaltroval factors\n"
    "  cosmic    the page of Data > Cosmic State\n"
    "  report    the natal report as Save writes it (LF line ends)\n"
    "  atlas     the atlas' places for a search text (\"Paris\", \"Paris, Texas\"), with\n"
    "            latitude, longitude and the time in force on the date at the local\n"
    "            time (24-hour clock); tab-separated, one line a reading: at a change\n"
    "            of the clocks a place has two, before and after it\n"
#ifdef KALTROVA_WHEEL_EXPORT
    "  wheel     --out FILE.svg|.png|.pdf [--style american|european] [--size WxH]:\n"
    "            the chart wheel (SVG and PNG as a window of WxH pixels shows it,\n"
    "            default 1024x768; PDF as the printed page); in a batch each\n"
    "            record's number and name go before the extension\n"
#endif
    "batch runs the command for every record of the names file on N threads (all\n"
    "the cores by default): the pages in record order, each refused record on\n"
    "standard error with its line number, then a count. Exit status 65 when no\n"
    "record could be calculated; the wheels of a batch are drawn one at a time.\n";

// A listing command: runs on a calculated chart and leaves its page in the
// output buffer.
using Command = std::function<Messages(Session&)>;

const std::map<std::string, Command>& Commands() {
    static const std::map<std::string, Command> commands = {
        {"page", [](Session&) { return Messages{}; }},
        {"natal", [](Session& s) { return s.CmdNatalData(); }},
        {"aspects", [](Session& s) { return s.CmdNatalAspects(); }},
        {"career", [](Session& s) { return s.CmdCareerFactors(); }},
        {"cosmic", [](Session& s) { return s.CmdCosmicState(); }},
        {"report", [](Session& s) { return s.CmdNatalReport(); }},
        {"wheel", [](Session&) { return Messages{}; }},
    };
    return commands;
}

void PrintMessages(const Messages& msgs) {
    for (const auto& m : msgs) std::cerr << m.caption << " " << m.text << "\n";
}

// What the wheel command writes.
struct WheelOut {
    const WheelExporter* exporter = nullptr;
    fs::path file;
    short typeChart = -1; // -1: the style of Kaltrova.INI
    bool batch = false;
    int width = 1024, height = 768; // PNG and SVG
};

#ifdef KALTROVA_WHEEL_EXPORT
// The output file of one record in a batch: the record's number and name
// before the extension.
fs::path BatchFile(const fs::path& out, int number, const std::string& name) {
    std::string safe;
    for (unsigned char c : name) safe += std::isalnum(c) ? static_cast<char>(c) : '_';
    char num[16];
    std::snprintf(num, sizeof num, "-%03d-", number);
    return out.parent_path() / (out.stem().string() + num + safe + out.extension().string());
}

// Draws the calculated chart's wheel into a file, as the wheel window
// would: the orb file's orbs, the shipped label tables, the options.
int ExportWheelOf(const WheelExporter& exporter, Session& s, const fs::path& file, short typeChart,
                  int width, int height) {
    static WheelTables tables;
    static bool loaded = false;
    if (!loaded) {
        if (auto m = LoadWheelTables(s.paths.AppPath, tables)) PrintMessages({*m});
        loaded = true;
    }
    if (auto m = LoadWheelOrbs(s.paths.OrbFilePath, s.listing.orbs)) {
        PrintMessages({*m});
        return 1;
    }
    WheelChart chart = WheelChartOf(s.calc.chart, s.listing.HeaderLines, s.listing.HeaderLines2);
    WheelStyle style;
    style.type = typeChart == 1 ? ChartStyle::European : ChartStyle::American;
    PrintedPage page;
    page.personalHeader = ReadLines(FindFile(s.paths.AppPath, "PERSONAL.NAM"));
    WheelPaintInput in{chart, style, s.options, s.listing.orbs.WheelOrbs, tables, &page};
    char error[512] = "";
    if (!exporter.write(file.c_str(), in, FindFile(s.paths.AppPath, "glyphix.ttf").c_str(), width,
                        height, error, sizeof error)) {
        std::cerr << "kaltrova-cli: " << error << "\n";
        return 73;
    }
    return 0;
}
#endif

// A module of the program's own from beside it (the wheel export, the
// atlas), loaded by the one command that needs it so that the others start
// without the libraries it brings. Its entry's table, or nothing when the
// module is missing or of another build, with the reason in `error`.
const void* LoadModule(const char* name, const char* entryName, int version, std::string& error) {
    const fs::path file = ExecutableDir() / name;
    void* module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module) {
        const char* why = dlerror();
        error = why ? why : file.string();
        return nullptr;
    }
    // Every module's entry has this one type; its table opens with the
    // version of the build that made it.
    using Entry = const void* (*)();
    auto entry = reinterpret_cast<Entry>(dlsym(module, entryName));
    const void* table = entry ? entry() : nullptr;
    if (!table || *static_cast<const int*>(table) != version) {
        error = file.string() + " is not the module of this kaltrova-cli";
        dlclose(module);
        return nullptr;
    }
    return table;
}

// What one record gave.
struct RecordRun {
    int status = 0;          // the exit status of the record alone
    bool calculated = false; // the chart was calculated
    Messages messages;       // for standard error
    std::string text;        // for standard output
};

// Closes the page as ShowDataPage does (its blank line); `show` writes it to
// reports/LASTPAGE.TXT as well, and gives the message when the file could
// not take it.
std::optional<Message> ClosePage(Session& s, bool show) {
    if (show) return s.ShowDataPage().notWritten;
    if (s.listing.out.AllCount() > 0) s.listing.out.AppendBlankLine();
    return std::nullopt;
}

// Moves the record into the input fields, calculates as OK does and runs the
// command; `wheel` for the wheel command, `number` the record's in a batch.
// With `show` each page is shown as the program shows it; without, the
// pages are only composed.
RecordRun RunRecord(Session& s, BirthRecord rec, const std::string& command, bool show,
                    const WheelOut* wheel = nullptr, int number = 0) {
    RecordRun run;
    const Command& cmd = Commands().at(command);
    const bool calcPage = command == "page";
    InputFields in = s.calc.input;
    if (auto err = TransferRecord(rec, s.regional.DateOrder, in)) {
        run.messages = {*err};
        run.status = 2;
        return run;
    }
    CalcOutcome calc = s.Calculate(in);
    if (!calc.calculated) {
        run.messages = calc.messages;
        run.status = 1;
        return run;
    }
    // The analytical model standing in for the ephemeris files is named
    // once per run, whichever session of a batch met it first.
    if (calc.notice) {
        static std::atomic<bool> named{false};
        if (!named.exchange(true)) std::cerr << "kaltrova-cli: " << *calc.notice << "\n";
    }
    run.calculated = true;
    std::optional<Message> notWritten;
    if (show || calcPage) notWritten = ClosePage(s, show);
#ifdef KALTROVA_WHEEL_EXPORT
    if (wheel) {
        run.status =
            ExportWheelOf(*wheel->exporter, s,
                          wheel->batch ? BatchFile(wheel->file, number, rec.RecName) : wheel->file,
                          wheel->typeChart, wheel->width, wheel->height);
        return run;
    }
#else
    (void)wheel;
    (void)number;
#endif
    // What the calculation's own page could not show only matters to the
    // page command; the other commands write a page of their own.
    Messages msgs = calc.messages;
    if (!calcPage) {
        msgs = cmd(s);
        if (msgs.empty()) notWritten = ClosePage(s, show);
    }
    if (!msgs.empty()) {
        run.messages = std::move(msgs);
        run.status = 1;
        return run;
    }
    // The page given is the one in reports/LASTPAGE.TXT; when the file
    // could not take it, that is an error and no page is given.
    if (notWritten) {
        run.messages = {*notWritten};
        run.status = 74;
        return run;
    }
    if (command == "report") {
        for (const auto& line : ReportPagedLines(s.report, s.options)) {
            run.text += line;
            run.text += '\n';
        }
    } else {
        run.text = PageText(s.listing.out, "\n");
    }
    return run;
}

void PrintRun(const RecordRun& run) {
    PrintMessages(run.messages);
    if (run.status == 0) std::fwrite(run.text.data(), 1, run.text.size(), stdout);
}

// What every session of a run opens with.
struct SessionSetup {
    fs::path dir; // the program directory given, or empty for the program's
    short dateOrder = 0;
    char houses = 0; // the house system given, or 0 for the options' own
};

void OpenSession(Session& s, const SessionSetup& setup) {
    const fs::path exeDir = ExecutableDir();
    s.Open(setup.dir.empty() ? exeDir : setup.dir, ShippedDataDir(exeDir).value_or(fs::path()));
    s.regional.DateOrder = setup.dateOrder;
    if (setup.houses != 0) s.calc.HouseSystem = setup.houses;
}

// A refused line of a names file: its number before each message.
void PrintRefused(int line, const Messages& msgs) {
    for (const auto& m : msgs)
        std::cerr << "line " << line << ": " << m.caption << " " << m.text << "\n";
}

// batch: the command for every record of the list, on `jobs` threads with a
// session each. The pages reach standard output in record order as they
// come, the refused lines standard error with their line numbers, and a
// count closes the run. reports/LASTPAGE.TXT is written once, at the end,
// with what the last record calculated left there. The wheels (`wheel`) are
// drawn on this thread alone, in the session `s` that has their fonts.
// Returns the exit status: 65 when no record could be calculated.
int RunBatch(Session& s, const SessionSetup& setup, const NamesList& list,
             const std::string& command, unsigned jobs, const WheelOut* wheel) {
    const std::size_t n = list.records.size();
    jobs =
        wheel
            ? 0
            : static_cast<unsigned>(std::clamp<std::size_t>(jobs, 1, std::max<std::size_t>(n, 1)));
    // Each worker takes the records a run of `chunk` at a time and hands the
    // run over in one step, so that the writing thread is woken once a run
    // and not once a record. The workers run at most `ahead` records ahead
    // of the output, so that a long file is never held whole.
    const std::size_t chunk = 16;
    const std::size_t ahead = 4 * chunk * std::size_t{std::max(jobs, 1u)};
    std::vector<RecordRun> runs(n);
    std::vector<char> done(n, 0);
    std::size_t next = 0, written = 0;
    std::mutex lock;
    std::condition_variable changed;

    auto work = [&] {
        Session s;
        OpenSession(s, setup);
        std::vector<RecordRun> made;
        for (;;) {
            std::size_t first = 0, end = 0;
            {
                std::unique_lock<std::mutex> l(lock);
                changed.wait(l, [&] { return next >= n || next < written + ahead; });
                if (next >= n) break;
                first = next;
                end = next = std::min(n, next + chunk);
            }
            made.clear();
            for (std::size_t k = first; k < end; ++k)
                made.push_back(RunRecord(s, list.records[k], command, false));
            {
                std::lock_guard<std::mutex> l(lock);
                for (std::size_t k = first; k < end; ++k) {
                    runs[k] = std::move(made[k - first]);
                    done[k] = 1;
                }
            }
            changed.notify_all();
        }
        s.Close();
    };
    std::vector<std::thread> workers;
    for (unsigned j = 0; j < jobs; ++j) workers.emplace_back(work);

    std::size_t given = 0, refused = list.errors.size(), lastCalculated = n;
    std::size_t lineError = 0;
    auto refusedLinesBefore = [&](int line) {
        for (; lineError < list.errors.size() && list.lines.errors[lineError] < line; ++lineError)
            PrintRefused(list.lines.errors[lineError], {list.errors[lineError]});
    };
    for (std::size_t k = 0; k < n; ++k) {
        RecordRun run;
        if (jobs == 0) {
            run = RunRecord(s, list.records[k], command, false, wheel, static_cast<int>(k) + 1);
        } else {
            std::unique_lock<std::mutex> l(lock);
            changed.wait(l, [&] { return done[k] != 0; });
            run = std::move(runs[k]);
            written = k + 1;
            l.unlock();
            // A waiting worker goes on when a whole run has been written.
            if (written % chunk == 0) changed.notify_all();
        }
        const int line = list.lines.items[k];
        refusedLinesBefore(line);
        if (run.calculated) lastCalculated = k;
        if (run.status == 0) {
            ++given;
            std::fwrite(run.text.data(), 1, run.text.size(), stdout);
        } else {
            ++refused;
            PrintRefused(line, run.messages);
        }
    }
    refusedLinesBefore(std::numeric_limits<int>::max());
    for (auto& w : workers) w.join();
    std::fflush(stdout);

    // The wheel command's page is the calculation's.
    bool pageWritten = true;
    if (lastCalculated < n) {
        RecordRun last = RunRecord(s, list.records[lastCalculated], wheel ? "page" : command, true);
        if (last.status == 74) {
            PrintMessages(last.messages);
            pageWritten = false;
        }
    }
    std::cerr << "kaltrova-cli: " << given << (given == 1 ? " record" : " records")
              << " calculated, " << refused << " refused\n";
    return given == 0 ? 65 : pageWritten ? 0 : 74;
}

} // namespace

int main(int argc, char** argv) {
    fs::path dir;
    std::string houses, record, namesFile, name, command, place, date, time;
    std::string out, style, size;
    int dateOrder = 0;
    int limit = 100;
    std::string jobsText;
    bool batch = false;
    std::vector<std::string> args(argv + 1, argv + argc);
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto value = [&]() -> std::string {
            if (i + 1 >= args.size()) {
                std::cerr << "kaltrova-cli: " << a << " needs a value\n" << kUsage;
                std::exit(64);
            }
            return args[++i];
        };
        if (a == "--dir")
            dir = value();
        else if (a == "--houses")
            houses = value();
        else if (a == "--record")
            record = value();
        else if (a == "--names")
            namesFile = value();
        else if (a == "--name")
            name = value();
        else if (a == "--date-order")
            dateOrder = std::atoi(value().c_str());
        else if (a == "--place")
            place = value();
        else if (a == "--date")
            date = value();
        else if (a == "--time")
            time = value();
        else if (a == "--limit")
            limit = std::atoi(value().c_str());
        else if (a == "--out")
            out = value();
        else if (a == "--style")
            style = value();
        else if (a == "--size")
            size = value();
        else if (a == "--jobs")
            jobsText = value();
        else if (a == "-h" || a == "--help") {
            std::cout << kUsage;
            return 0;
        } else if (a == "batch" && command.empty() && !batch)
            batch = true;
        else if (!a.empty() && a[0] != '-' && command.empty())
            command = a;
        else {
            std::cerr << "kaltrova-cli: unexpected argument '" << a << "'\n" << kUsage;
            return 64;
        }
    }
    if (command == "atlas" && !batch) {
        if (limit < 1) {
            std::cerr << "kaltrova-cli: --limit takes a number from 1\n";
            return 64;
        }
        std::string why;
        auto* atlas = static_cast<const AtlasCommand*>(
            LoadModule(AtlasModuleFile, AtlasModuleEntry, AtlasModuleVersion, why));
        if (!atlas) {
            std::cerr << "kaltrova-cli: the atlas command needs " << AtlasModuleFile
                      << " beside the program: " << why << "\n";
            return 69;
        }
        const fs::path exeDir = ExecutableDir();
        const fs::path appDir = dir.empty() ? exeDir : dir;
        const fs::path shipped = ShippedDataDir(exeDir).value_or(fs::path());
        std::fflush(stdout);
        return atlas->run(appDir.c_str(), shipped.c_str(), place.c_str(), date.c_str(),
                          time.c_str(), limit);
    }
    auto it = Commands().find(command);
    if (it == Commands().end()) {
        std::cerr << (command.empty() ? "kaltrova-cli: no command given\n"
                                      : "kaltrova-cli: unknown command '" + command + "'\n")
                  << kUsage;
        return 64;
    }
    WheelOut wheel;
    const bool isWheel = command == "wheel";
    if (isWheel) {
#ifdef KALTROVA_WHEEL_EXPORT
        std::string why;
        wheel.exporter = static_cast<const WheelExporter*>(
            LoadModule(WheelModuleFile, WheelModuleEntry, WheelModuleVersion, why));
        if (!wheel.exporter) {
            std::cerr << "kaltrova-cli: the wheel command needs " << WheelModuleFile
                      << " beside the program: " << why << "\n";
            return 69;
        }
        if (out.empty() || !wheel.exporter->knowsFormat(out.c_str())) {
            std::cerr << "kaltrova-cli: wheel needs --out FILE.svg, FILE.png or FILE.pdf\n";
            return 64;
        }
        if (!style.empty() && style != "american" && style != "european") {
            std::cerr << "kaltrova-cli: --style takes american or european\n";
            return 64;
        }
        if (!size.empty() &&
            (std::sscanf(size.c_str(), "%dx%d", &wheel.width, &wheel.height) != 2 ||
             wheel.width < 16 || wheel.height < 16 || wheel.width > 20000 ||
             wheel.height > 20000)) {
            std::cerr << "kaltrova-cli: --size takes WIDTHxHEIGHT in pixels, e.g. 1024x768\n";
            return 64;
        }
        wheel.file = out;
        wheel.batch = batch;
        if (!style.empty()) wheel.typeChart = style == "european" ? 1 : 0;
#else
        std::cerr << "kaltrova-cli: this build draws no wheels (built without Qt)\n";
        return 64;
#endif
    } else if (!out.empty() || !style.empty() || !size.empty()) {
        std::cerr << "kaltrova-cli: --out, --style and --size belong to the wheel command\n";
        return 64;
    }
    if (dateOrder < 0 || dateOrder > 2) {
        std::cerr << "kaltrova-cli: --date-order takes 0, 1 or 2\n";
        return 64;
    }

    SessionSetup setup{dir, static_cast<short>(dateOrder), 0};
    if (!houses.empty()) {
        for (const auto& h : HouseSystems)
            if (houses.size() == 1 && std::toupper(houses[0]) == h.letter) setup.houses = h.letter;
        if (setup.houses == 0) {
            std::cerr << "kaltrova-cli: --houses takes one of P K R C O B T\n";
            return 64;
        }
    }
    // All the cores unless told.
    unsigned jobs = std::max(1u, std::thread::hardware_concurrency());
    if (!jobsText.empty()) {
        const auto n = NumberText(jobsText);
        if (!batch || !n || *n < 1 || *n > 1024 || *n != std::floor(*n)) {
            std::cerr << "kaltrova-cli: --jobs takes a number of threads from 1, with batch\n";
            return 64;
        }
        jobs = static_cast<unsigned>(*n);
    }

#ifdef KALTROVA_WHEEL_EXPORT
    // Qt, once started for the wheel, ends after the session, whichever way
    // the command ends.
    struct PainterOpen {
        const WheelExporter* exporter = nullptr;
        ~PainterOpen() {
            if (exporter) exporter->close();
        }
    } painter;
#endif
    Session s;
    OpenSession(s, setup);
#ifdef KALTROVA_WHEEL_EXPORT
    if (isWheel) {
        wheel.exporter->open(argv[0], s.paths.AppPath.c_str());
        painter.exporter = wheel.exporter;
        if (wheel.typeChart < 0) {
            // The style the wheel window last had.
            Settings settings;
            fs::path names, cities;
            ReadSettings(s.paths.AppPath, settings, names, cities);
            wheel.typeChart = settings.TypeChart == 0 ? 0 : 1;
        }
    }
#endif
    s.regional.DateOrder = static_cast<short>(dateOrder);
    if (!houses.empty()) {
        bool known = false;
        for (const auto& h : HouseSystems)
            if (houses.size() == 1 && std::toupper(houses[0]) == h.letter) {
                s.calc.HouseSystem = h.letter;
                known = true;
            }
        if (!known) {
            std::cerr << "kaltrova-cli: --houses takes one of P K R C O B T\n";
            return 64;
        }
    }

    int status = 0;
    if (batch || !namesFile.empty()) {
        if (namesFile.empty()) {
            std::cerr << "kaltrova-cli: batch needs --names FILE\n";
            return 64;
        }
        NamesList list = LoadNamesFile(namesFile);
        if (!list.opened) {
            std::cerr << "kaltrova-cli: cannot read names file " << namesFile << "\n";
            return 66;
        }
        if (batch) {
            status = RunBatch(s, setup, list, command, jobs, isWheel ? &wheel : nullptr);
        } else {
            PrintMessages(list.errors);
            int idx = FindRecord(list.records, name);
            if (idx < 0) {
                std::cerr << "kaltrova-cli: no record named '" << name << "' in " << namesFile
                          << "\n";
                return 65;
            }
            RecordRun run = RunRecord(s, list.records[static_cast<size_t>(idx)], command, true,
                                      isWheel ? &wheel : nullptr);
            PrintRun(run);
            status = run.status;
        }
    } else if (!record.empty()) {
        auto rec = ParseRecordLine(record);
        if (!rec) {
            std::cerr << "kaltrova-cli: not a names-file record: " << record << "\n";
            return 65;
        }
        RecordRun run = RunRecord(s, *rec, command, true, isWheel ? &wheel : nullptr);
        PrintRun(run);
        status = run.status;
    } else {
        std::cerr << "kaltrova-cli: give --record LINE or --names FILE --name NAME\n" << kUsage;
        return 64;
    }
    s.Close();
    return status;
}
