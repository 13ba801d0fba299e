// kaltrova-cli: the core without windows, for batch work, scripting and tests.
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "atlas/AtlasLookup.h"
#include "base/TextFile.h"
#include "base/VbText.h"
#include "birthdata/NamesFile.h"
#include "birthdata/Record.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/Startup.h"

#ifdef KALTROVA_WHEEL_EXPORT
#include <QGuiApplication>

#include "wheel/WheelTables.h"
#include "wheel/qt/QtCanvas.h"
#include "wheel/qt/WheelRender.h"
#endif

namespace fs = std::filesystem;
using namespace kal;

namespace {

const char* kUsage =
    "usage: kaltrova-cli [--dir APPDIR] [--houses P|K|R|C|O|B|T] [--date-order 0|1|2]\n"
    "                    COMMAND (--record LINE | --names FILE --name NAME)\n"
    "       kaltrova-cli [options] batch --names FILE COMMAND\n"
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
    ;

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
int ExportWheelOf(Session& s, const fs::path& file, short typeChart, QSize size) {
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
    if (auto err = ExportWheel(file, in, FindFile(s.paths.AppPath, "glyphix.ttf"), size)) {
        std::cerr << "kaltrova-cli: " << *err << "\n";
        return 73;
    }
    return 0;
}
#endif

// Moves the record into the input fields, calculates as OK does and runs the
// command. Returns the exit status.
int RunRecord(Session& s, BirthRecord rec, const std::string& command,
              const WheelOut* wheel = nullptr, int number = 0) {
    const Command& cmd = Commands().at(command);
    const bool calcPage = command == "page";
    InputFields in = s.calc.input;
    if (auto err = TransferRecord(rec, s.regional.DateOrder, in)) {
        PrintMessages({*err});
        return 2;
    }
    CalcOutcome calc = s.Calculate(in);
    if (!calc.calculated) {
        PrintMessages(calc.messages);
        return 1;
    }
    s.ShowDataPage();
#ifdef KALTROVA_WHEEL_EXPORT
    if (wheel)
        return ExportWheelOf(
            s, wheel->batch ? BatchFile(wheel->file, number, rec.RecName) : wheel->file,
            wheel->typeChart, QSize(wheel->width, wheel->height));
#else
    (void)wheel;
    (void)number;
#endif
    // What the calculation's own page could not show only matters to the
    // page command; the other commands write a page of their own.
    Messages msgs = calc.messages;
    if (!calcPage) {
        msgs = cmd(s);
        if (msgs.empty()) s.ShowDataPage();
    }
    if (!msgs.empty()) {
        PrintMessages(msgs);
        return 1;
    }
    if (command == "report") {
        for (const auto& line : ReportPagedLines(s.report, s.options)) {
            std::fputs(line.c_str(), stdout);
            std::fputc('\n', stdout);
        }
    } else {
        std::fputs(PageText(s.listing.out, "\n").c_str(), stdout);
    }
    return 0;
}

// "1944-08-01" and "10:00" into a clock; false when they are not such.
bool ParseClock(const std::string& date, const std::string& time, LocalClock& c) {
    char tail = 0;
    if (std::sscanf(date.c_str(), "%d-%d-%d%c", &c.year, &c.month, &c.day, &tail) != 3)
        return false;
    if (std::sscanf(time.c_str(), "%d:%d%c", &c.hour, &c.minute, &tail) != 2) return false;
    return true;
}

// "48N08": whole degrees, the direction, minutes rounded as Lookup rounds.
std::string AngleField(double arcSeconds, char positive, char negative) {
    DegreesMinutes dm = ToDegreesMinutes(arcSeconds);
    std::string minutes = std::to_string(dm.minutes);
    if (minutes.size() < 2) minutes.insert(0, "0");
    return std::to_string(dm.degrees) + (dm.negative ? negative : positive) + minutes;
}

// The atlas command: every place the search finds, one line for each reading
// of the clock at the given local time. Returns the exit status.
int RunAtlas(Session& s, const std::string& place, const std::string& date, const std::string& time,
             std::size_t limit) {
    LocalClock clock;
    if (place.empty() || !ParseClock(date, time, clock)) {
        std::cerr << "kaltrova-cli: atlas needs --place TEXT --date YYYY-MM-DD --time HH:MM\n";
        return 64;
    }
    const PlaceIndex* atlas = s.atlas.Index();
    if (!atlas) {
        std::cerr << "kaltrova-cli: " << s.atlas.Error() << "\n";
        return 66;
    }
    std::vector<PlaceMatch> found = atlas->search(place, limit);
    if (found.empty()) {
        std::cerr << "kaltrova-cli: no place of the atlas is called '" << place << "'\n";
        return 1;
    }
    std::cout << "place\tregion\tcountry\tlatitude\tlongitude\tzone\tkind\ttime\treading\t"
                 "input_zone\tiana_zone\tduplicate\n";
    for (const PlaceMatch& m : found) {
        AtlasPlace p = atlas->place(m.place);
        AtlasAnswer a = LookupPlace(*atlas, m.place, clock);
        if (!a.zone.error.empty()) {
            std::cerr << "kaltrova-cli: " << a.zone.error << "\n";
            return 64;
        }
        auto line = [&](const ZoneReading& r, const char* reading) {
            AtlasZoneValue z = AtlasZoneFromKind(r.zone900, r.kindOfTime);
            std::cout << p.name << '\t' << p.region << '\t' << p.country << '\t'
                      << AngleField(a.latitudeSeconds, 'N', 'S') << '\t'
                      << AngleField(a.longitudeSeconds, 'W', 'E') << '\t'
                      << NumText(static_cast<float>(r.zone900) / 900.0f, Precision::Single) << '\t'
                      << r.kindOfTime << '\t' << r.abbreviation << '\t' << reading << '\t'
                      << NumText(z.hours, Precision::Single) << '\t' << p.zone << '\t'
                      << a.duplicate << '\n';
        };
        if (a.zone.fit == ClockFit::Unique) {
            line(a.zone.first, "only");
        } else {
            line(a.zone.first, "before");
            line(a.zone.second, "after");
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    fs::path dir;
    std::string houses, record, namesFile, name, command, place, date, time;
    int dateOrder = 0;
    int limit = 100;
    bool batch = false;
    std::string out, style, size;
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
        else if (a == "--out")
            out = value();
        else if (a == "--style")
            style = value();
        else if (a == "--size")
            size = value();
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
        const fs::path exeDir = ExecutableDir();
        Session s;
        s.Open(dir.empty() ? exeDir : dir, ShippedDataDir(exeDir).value_or(fs::path()));
        int status = RunAtlas(s, place, date, time, static_cast<std::size_t>(limit));
        s.Close();
        return status;
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
        if (out.empty() || !ExportFormatOf(out)) {
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

#ifdef KALTROVA_WHEEL_EXPORT
    // The wheel is drawn through Qt's painter; without a display, on the
    // offscreen platform.
    std::unique_ptr<QGuiApplication> gui;
    int guiArgc = 1;
    if (isWheel) {
        if (!std::getenv("QT_QPA_PLATFORM") && !std::getenv("DISPLAY") &&
            !std::getenv("WAYLAND_DISPLAY"))
            setenv("QT_QPA_PLATFORM", "offscreen", 1);
        gui = std::make_unique<QGuiApplication>(guiArgc, argv);
    }
#endif
    Session s;
    const fs::path exeDir = ExecutableDir();
    s.Open(dir.empty() ? exeDir : dir, ShippedDataDir(exeDir).value_or(fs::path()));
#ifdef KALTROVA_WHEEL_EXPORT
    int wheelFont = -1;
    if (isWheel) {
        wheelFont = RegisterWheelFonts(s.paths.AppPath);
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
        PrintMessages(list.errors);
        if (batch) {
            int number = 0;
            for (const auto& rec : list.records) {
                int st = RunRecord(s, rec, command, isWheel ? &wheel : nullptr, ++number);
                if (st != 0) status = st;
            }
        } else {
            int idx = FindRecord(list.records, name);
            if (idx < 0) {
                std::cerr << "kaltrova-cli: no record named '" << name << "' in " << namesFile
                          << "\n";
                return 65;
            }
            status = RunRecord(s, list.records[static_cast<size_t>(idx)], command,
                               isWheel ? &wheel : nullptr);
        }
    } else if (!record.empty()) {
        auto rec = ParseRecordLine(record);
        if (!rec) {
            std::cerr << "kaltrova-cli: not a names-file record: " << record << "\n";
            return 65;
        }
        status = RunRecord(s, *rec, command, isWheel ? &wheel : nullptr);
    } else {
        std::cerr << "kaltrova-cli: give --record LINE or --names FILE --name NAME\n" << kUsage;
        return 64;
    }
    s.Close();
#ifdef KALTROVA_WHEEL_EXPORT
    RemoveWheelFonts(wheelFont);
#endif
    return status;
}
