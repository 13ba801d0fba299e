#include "chart/Aspects.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>
#include <vector>

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
        if (cache.file.native() != cache.exact.native()) {
            cache.stamp.reset();
            cache.file = cache.exact;
        }
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

namespace {

// The bounds of every test under one orb table, each rounded to single
// precision as the tests compare them.
struct AspectBounds {
    explicit AspectBounds(const OrbTable& orbs) {
        for (size_t i = 0; i < kRanged.size(); ++i) {
            const float orb = orbs[static_cast<size_t>(kRanged[i].code - 1)];
            lo[i] = static_cast<float>(kRanged[i].angle) - orb;
            hi[i] = static_cast<float>(kRanged[i].angle) + orb;
        }
        lo165 = 165.0f - orbs[16];
        hi165 = 165.0f + orbs[16];
        conjunct = orbs[1];
    }
    std::array<float, kRanged.size()> lo{}, hi{};
    float lo165 = 0, hi165 = 0, conjunct = 0;
};

AspectHit FindAspect(double a, double b, const AspectBounds& bounds) {
    AspectHit hit;
    hit.sep = Separation(a, b);
    const float sep = static_cast<float>(hit.sep);
    auto pass = [&](int code, int angle) {
        hit.code = code;
        hit.dev = hit.sep - angle;
    };
    for (size_t i = 0; i < kRanged.size(); ++i) {
        const AspectTest& t = kRanged[i];
        if (t.code == 6 ? sep >= bounds.lo[i] : (bounds.lo[i] <= sep && sep <= bounds.hi[i]))
            pass(t.code, t.angle);
    }
    if (bounds.lo165 <= sep && sep <= bounds.hi165) pass(17, 165);
    if (sep <= bounds.conjunct) pass(2, 0);
    return hit;
}

// The aspect of every eighth of a degree of separation under one orb table,
// so that a pair costs one look-up: the separations of one eighth share one
// answer unless a bound of some test falls among them; only those eighths
// run the tests.
class AspectFinder {
  public:
    explicit AspectFinder(const OrbTable& orbs) : orbs_(orbs), bounds_(orbs) {
        std::copy(bounds_.lo.begin(), bounds_.lo.end(), edges_.begin());
        std::copy(bounds_.hi.begin(), bounds_.hi.end(), edges_.begin() + kRanged.size());
        edges_[edges_.size() - 3] = bounds_.lo165;
        edges_[edges_.size() - 2] = bounds_.hi165;
        edges_[edges_.size() - 1] = bounds_.conjunct;
        part_.fill(kUnknown);
    }
    const OrbTable& Orbs() const { return orbs_; }

    AspectHit Find(double a, double b) {
        const double sep = Separation(a, b);
        const float f = static_cast<float>(sep);
        if (!(f >= 0 && f < 180.0f)) return FindAspect(a, b, bounds_);
        const auto d = static_cast<size_t>(f * kParts); // exact: a power of 2
        if (part_[d] == kUnknown) part_[d] = Classify(d);
        const signed char code = part_[d];
        if (code == kSplit) return FindAspect(a, b, bounds_);
        AspectHit hit;
        hit.sep = sep;
        hit.code = code;
        if (code != 1) hit.dev = sep - AspectAngle[static_cast<size_t>(code)];
        return hit;
    }

  private:
    // The aspect of every separation in part d, or kSplit when a bound falls
    // in it. Taken when first asked for: a chart asks for few parts.
    signed char Classify(size_t d) const {
        const float low = static_cast<float>(d) / kParts;
        const float high = static_cast<float>(d + 1) / kParts;
        const bool split = std::any_of(edges_.begin(), edges_.end(), [&](float e) {
            return low <= e && e <= high; // never true for a NaN bound
        });
        return split ? kSplit
                     : static_cast<signed char>(FindAspect((d + 0.5) / kParts, 0, bounds_).code);
    }

    static constexpr signed char kSplit = -1, kUnknown = -2;
    static constexpr int kParts = 8; // eighths of a degree
    OrbTable orbs_;
    AspectBounds bounds_;
    std::array<float, 2 * kRanged.size() + 3> edges_{}; // every bound of every test
    std::array<signed char, 180 * kParts> part_{};      // 0 up to 180 degrees, 180 itself tested
};

// The finder of the orb table last asked for on this thread, made again
// when the table differs.
AspectFinder& FinderFor(const OrbTable& orbs) {
    thread_local std::optional<AspectFinder> finder;
    if (!finder || std::memcmp(finder->Orbs().data(), orbs.data(), sizeof orbs) != 0)
        finder.emplace(orbs);
    return *finder;
}

} // namespace

AspectHit FindAspect(double a, double b, const OrbTable& orbs) {
    return FindAspect(a, b, AspectBounds(orbs));
}

namespace {

// A whole number right-aligned in `width` (at least its digits, at most
// eight), written at `at`; returns the end.
char* PutSmallWhole(char* at, unsigned n, size_t width) {
    if (n < 1000 && width >= 3 && width <= 8) {
        // The common case of the listing, without the loop.
        at = std::fill_n(at, width - 3, ' ');
        at[0] = n >= 100 ? static_cast<char>('0' + n / 100) : ' ';
        at[1] = n >= 10 ? static_cast<char>('0' + n / 10 % 10) : ' ';
        at[2] = static_cast<char>('0' + n % 10);
        return at + 3;
    }
    char cell[8];
    char* const end = cell + sizeof cell;
    char* b = end;
    do {
        *--b = static_cast<char>('0' + n % 10);
        n /= 10;
    } while (n != 0 && b > cell);
    while (static_cast<size_t>(end - b) < width && b > cell) *--b = ' ';
    return std::copy(b, end, at);
}

// Whole degrees (v is 0 to 180) right-aligned in `width`, then "d ", the
// minutes (rounded) and "m", written at `at`; returns the end.
char* PutDegreesMinutes(char* at, double v, size_t width) {
    const double whole = std::floor(v);
    at = PutSmallWhole(at, static_cast<unsigned>(whole), width);
    *at++ = 'd';
    *at++ = ' ';
    // The minutes, 0 to 60, rounded half away from zero in two digits. Away
    // from a half, rounding to the formatter's 15 digits first cannot carry
    // the value across it, so the whole minute is plain; near a half the
    // formatter decides.
    const double minutes = (v - whole) * 60;
    const double m = std::floor(minutes);
    const double f = minutes - m;
    if (std::fabs(f - 0.5) > 1e-9) {
        const unsigned n = static_cast<unsigned>(m) + (f > 0.5 ? 1 : 0);
        *at++ = static_cast<char>('0' + n / 10);
        *at++ = static_cast<char>('0' + n % 10);
    } else {
        std::string mm;
        AppendNumber(mm, minutes, "00");
        at = std::copy(mm.begin(), mm.end(), at);
    }
    *at++ = 'm';
    return at;
}

// `text` left-aligned in `n` places (whole when longer), written at `at`;
// returns the end.
char* PutPadded(char* at, std::string_view text, size_t n) {
    at = std::copy(text.begin(), text.end(), at);
    return text.size() < n ? std::fill_n(at, n - text.size(), ' ') : at;
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

    AspectFinder& finder = FinderFor(orbs.NatalOrbs);
    std::string detail;
    detail.reserve(2048);
    detail = "  Planet     Planet    Separation   Degrees from exact\r\n";
    out.AppendBlankLine();
    out.Append("                      NATAL PLANET ASPECTS TO NATAL PLANETS");
    out.AppendBlankLine();
    out.Append("        MC  Asc  N.N  Plu  Nep  Ura  Sat  Jup  Mar  Ven  Mer  Moo");

    for (int r = 1; r <= 12; ++r) {
        const std::string& key = PlanetKey[static_cast<size_t>(r)];
        // Each cell five characters: the exact angle right-aligned in three
        // and two blanks, or "---  " when there is no aspect.
        char line[80];
        char* at = line;
        *at++ = ' ';
        *at++ = ' ';
        const std::string_view label =
            r == 11 ? std::string_view("N.N") : std::string_view(key).substr(0, 3);
        at = std::copy(label.begin(), label.end(), at);
        *at++ = ' ';
        *at++ = ' ';
        for (int k = 13; k >= r + 1; --k) {
            AspectHit h = finder.Find(P[static_cast<size_t>(r)], P[static_cast<size_t>(k)]);
            if (h.code == 1) {
                at = std::copy_n("---  ", 5, at);
                continue;
            }
            at = PutSmallWhole(at, static_cast<unsigned>(AspectAngle[static_cast<size_t>(h.code)]),
                               3);
            *at++ = ' ';
            *at++ = ' ';
            found[static_cast<size_t>(h.code)][static_cast<size_t>(k)][static_cast<size_t>(r)] = 1;
            if (r == 12) continue;
            // The table's keys are short: the line fits.
            char entry[96];
            char* n = std::copy_n("  ", 2, entry);
            n = PutPadded(n, key, 11);
            n = PutPadded(n, PlanetKey[static_cast<size_t>(k)], 11);
            n = PutDegreesMinutes(n, h.sep, 3);
            n = std::copy_n("       ", 7, n);
            n = PutDegreesMinutes(n, std::fabs(h.dev), 4);
            *n++ = '\r';
            *n++ = '\n';
            detail.append(entry, n);
        }
        out.AppendJoined(std::string_view(line, static_cast<size_t>(at - line)));
    }
    out.AppendBlankLine();
    out.Append(std::move(detail));
    return {};
}

} // namespace kal
