#include "chart/Aspects.h"

#include <cmath>

#include "base/Options.h"
#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

std::vector<float> OrbLineValues(const std::vector<std::string>& lines) {
    std::vector<float> orbs;
    for (const auto& line : lines) {
        if (line.empty() || orbs.size() == 16) break;
        orbs.push_back(LeadingValue(line));
    }
    return orbs;
}

namespace {
void ApplyOrbs(const std::vector<float>& orbs, OrbTable& table) {
    for (size_t k = 0; k < orbs.size(); ++k) table[k + 1] = orbs[k];
}
} // namespace

void ReadOrbLines(const std::vector<std::string>& lines, OrbTable& table) {
    ApplyOrbs(OrbLineValues(lines), table);
}

bool LoadOrbFile(const std::filesystem::path& file, OrbTable& table) {
    auto lines = ReadLines(file);
    if (!lines) return false;
    ReadOrbLines(*lines, table);
    return true;
}

Message OrbFileMissing(const std::filesystem::path& file) {
    return {"The orb file " + file.filename().string() +
                " cannot be read. It must be in the program folder (" +
                file.parent_path().string() + ").",
            "Error!", Icon::Critical};
}

std::filesystem::path NatalOrbPath(const std::filesystem::path& appPath) {
    return FindFile(appPath, "NATAL.ORB");
}

std::filesystem::path CareerOrbPath(const std::filesystem::path& appPath) {
    return FindFile(appPath, "Dravik_Natal_Orbs.ORB");
}

std::filesystem::path NatalOrbPath(const std::filesystem::path& appPath, const OrbTables& orbs) {
    const OrbFileCache& c = orbs.natalFile;
    if (c.file.empty() || c.folder.native() != appPath.native()) return NatalOrbPath(appPath);
    return c.file;
}

namespace {

// Finds the file and stamps it: the name as given, the file found the last
// time (another spelling of the name), or a search of the folder without
// regard to case. Without a name the path is taken as it is.
std::optional<FileStamp> Locate(const std::filesystem::path& folder, const char* name,
                                OrbFileCache& cache) {
    if (!name) {
        if (cache.file.native() != folder.native())
            cache = OrbFileCache{folder, folder, folder, {}, {}};
        return StampFile(cache.file);
    }
    if (cache.folder.native() != folder.native()) {
        cache = OrbFileCache{};
        cache.folder = folder;
        cache.exact = folder / name;
    }
    if (auto s = StampFile(cache.exact)) {
        if (cache.file.native() != cache.exact.native()) cache.stamp.reset();
        cache.file = cache.exact;
        return s;
    }
    if (!cache.file.empty() && cache.file.native() != cache.exact.native())
        if (auto s = StampFile(cache.file)) return s;
    cache.stamp.reset();
    cache.file = FindFile(folder, name);
    return StampFile(cache.file);
}

// The orbs of a file into a table, read again only when the file may have
// changed since the cache took them.
std::optional<Message> LoadCached(const std::filesystem::path& folder, const char* name,
                                  OrbFileCache& cache, OrbTable& table) {
    auto now = Locate(folder, name, cache);
    if (!now) {
        cache.stamp.reset();
        return OrbFileMissing(cache.file);
    }
    if (!cache.stamp || !Unchanged(*cache.stamp, *now)) {
        // Stamped before reading: a write during the read shows as a change
        // the next time.
        auto lines = ReadLines(cache.file);
        if (!lines) {
            cache.stamp.reset();
            return OrbFileMissing(cache.file);
        }
        cache.orbs = OrbLineValues(*lines);
        cache.stamp = now;
    }
    ApplyOrbs(cache.orbs, table);
    return std::nullopt;
}

} // namespace

std::optional<Message> LoadNatalOrbs(const std::filesystem::path& appPath, OrbTables& orbs) {
    return LoadCached(appPath, "NATAL.ORB", orbs.natalFile, orbs.NatalOrbs);
}

std::optional<Message> LoadCareerOrbs(const std::filesystem::path& appPath, OrbTables& orbs) {
    return LoadCached(appPath, "Dravik_Natal_Orbs.ORB", orbs.careerFile, orbs.CareerOrbs);
}

std::optional<Message> LoadWheelOrbs(const std::filesystem::path& orbFilePath, OrbTables& orbs) {
    return LoadCached(orbFilePath, nullptr, orbs.wheelFile, orbs.WheelOrbs);
}

double Separation(double a, double b) {
    double sep = std::fabs(a - b);
    if (sep > 180) sep = 360 - sep;
    return sep;
}

namespace {

struct AspectTest {
    int code;
    int angle;
};

// The ranged tests in the order they run; the opposition has no upper bound
// and the conjunction (run last) no lower one.
constexpr std::array<AspectTest, 13> kRanged = {{{3, 60},
                                                 {4, 90},
                                                 {5, 120},
                                                 {6, 180},
                                                 {8, 30},
                                                 {9, 45},
                                                 {10, 135},
                                                 {11, 150},
                                                 {12, 36},
                                                 {13, 40},
                                                 {14, 72},
                                                 {15, 108},
                                                 {16, 144}}};

} // namespace

AspectHit FindAspect(double a, double b, const OrbTable& orbs) {
    AspectHit hit;
    hit.sep = Separation(a, b);
    float sep = static_cast<float>(hit.sep);
    auto test = [&](int code, int angle) {
        float orb = orbs[static_cast<size_t>(code - 1)];
        float lo = static_cast<float>(angle) - orb;
        float hi = static_cast<float>(angle) + orb;
        bool pass = code == 6 ? sep >= lo : (lo <= sep && sep <= hi);
        if (pass) {
            hit.code = code;
            hit.dev = hit.sep - angle;
        }
    };
    for (const auto& t : kRanged) test(t.code, t.angle);
    test(17, 165);
    if (sep <= orbs[1]) {
        hit.code = 2;
        hit.dev = hit.sep;
    }
    return hit;
}

namespace {

std::string Degrees(double v, const char* pattern, size_t width) {
    return PadLeft(FormatNumber(std::floor(v), pattern), width);
}

std::string Minutes(double v) {
    return FormatNumber((v - std::floor(v)) * 60, "00");
}

// The exact angle right-aligned in three characters, then two blanks.
std::string AngleCell(int angle) {
    const char* pattern = angle < 10 ? "0" : angle < 100 ? "00" : "000";
    return PadLeft(FormatNumber(angle, pattern), 3) + "  ";
}

} // namespace

Messages ListNatalAspects(const Chart& c, const std::filesystem::path& appPath, OrbTables& orbs,
                          AspectFoundTable& found, OutputBuffer& out) {
    if (auto refused = LoadNatalOrbs(appPath, orbs)) return {*refused};
    found = AspectFoundTable{};

    std::array<double, 14> P{};
    for (int pos = 1; pos <= 13; ++pos)
        P[static_cast<size_t>(pos)] =
            c.NatalLong[static_cast<size_t>(KeyBody[static_cast<size_t>(pos)])];

    std::string detail = "  Planet     Planet    Separation   Degrees from exact\r\n";
    out.AppendBlankLine();
    out.Append(std::string(22, ' ') + "NATAL PLANET ASPECTS TO NATAL PLANETS");
    out.AppendBlankLine();
    out.Append(std::string(8, ' ') + "MC  Asc  N.N  Plu  Nep  Ura  Sat  Jup  Mar  Ven  Mer  Moo");

    for (int r = 1; r <= 12; ++r) {
        std::string line =
            "  " + (r == 11 ? std::string("N.N") : PlanetKey[static_cast<size_t>(r)].substr(0, 3)) +
            "  ";
        for (int k = 13; k >= r + 1; --k) {
            AspectHit h =
                FindAspect(P[static_cast<size_t>(r)], P[static_cast<size_t>(k)], orbs.NatalOrbs);
            if (h.code == 1) {
                line += "---  ";
                continue;
            }
            line += AngleCell(AspectAngle[static_cast<size_t>(h.code)]);
            found[static_cast<size_t>(h.code)][static_cast<size_t>(k)][static_cast<size_t>(r)] = 1;
            if (r == 12) continue;
            double adev = std::fabs(h.dev);
            detail += "  " + PadRight(PlanetKey[static_cast<size_t>(r)], 11) +
                      PadRight(PlanetKey[static_cast<size_t>(k)], 11) + Degrees(h.sep, "##0", 3) +
                      "d " + Minutes(h.sep) + "m" + std::string(7, ' ') + Degrees(adev, "#0", 4) +
                      "d " + Minutes(adev) + "m\r\n";
        }
        out.Append(line);
    }
    out.AppendBlankLine();
    out.Append(detail);
    return {};
}

} // namespace kal
