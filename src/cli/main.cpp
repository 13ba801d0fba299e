// kaltrova-cli: the core without windows, for batch work, scripting and tests.
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "atlas/AtlasLookup.h"
#include "base/TextFile.h"
#include "base/VbText.h"
#include "birthdata/NamesFile.h"
#include "birthdata/Record.h"
#include "shell/Session.h"
#include "shell/Startup.h"

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
    "            of the clocks a place has two, before and after it\n";

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
    };
    return commands;
}

void PrintMessages(const Messages& msgs) {
    for (const auto& m : msgs) std::cerr << m.caption << " " << m.text << "\n";
}

// Moves the record into the input fields, calculates as OK does and runs the
// command. Returns the exit status.
int RunRecord(Session& s, BirthRecord rec, const std::string& command) {
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
    if (dateOrder < 0 || dateOrder > 2) {
        std::cerr << "kaltrova-cli: --date-order takes 0, 1 or 2\n";
        return 64;
    }

    Session s;
    const fs::path exeDir = ExecutableDir();
    s.Open(dir.empty() ? exeDir : dir, ShippedDataDir(exeDir).value_or(fs::path()));
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
            for (const auto& rec : list.records) {
                int st = RunRecord(s, rec, command);
                if (st != 0) status = st;
            }
        } else {
            int idx = FindRecord(list.records, name);
            if (idx < 0) {
                std::cerr << "kaltrova-cli: no record named '" << name << "' in " << namesFile
                          << "\n";
                return 65;
            }
            status = RunRecord(s, list.records[static_cast<size_t>(idx)], command);
        }
    } else if (!record.empty()) {
        auto rec = ParseRecordLine(record);
        if (!rec) {
            std::cerr << "kaltrova-cli: not a names-file record: " << record << "\n";
            return 65;
        }
        status = RunRecord(s, *rec, command);
    } else {
        std::cerr << "kaltrova-cli: give --record LINE or --names FILE --name NAME\n" << kUsage;
        return 64;
    }
    s.Close();
    return status;
}
