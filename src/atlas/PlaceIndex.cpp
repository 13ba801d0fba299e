#include "atlas/PlaceIndex.h"

#include <algorithm>
#include <cstring>
#include <fstream>

namespace kal {

namespace {

constexpr char kMagic[16] = {'K', 'A', 'L', 'T', 'R', 'O', 'V',  'A',
                             ' ', 'A', 'T', 'L', 'A', 'S', '\0', '\0'};
constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kPlaceSize = 32, kKeySize = 8, kRegionSize = 16, kCountrySize = 12,
                      kZoneSize = 4, kFoldSize = 8, kAboutSize = 4;
constexpr std::uint16_t kNoRegion = 0xFFFF;
constexpr std::uint32_t kCityPopulation = 100000;

enum SectionId : std::uint32_t {
    SecText = 1,
    SecPlaces,
    SecKeys,
    SecRegions,
    SecCountries,
    SecZones,
    SecFold,
    SecAbout,
    SecKeyText
};

// Field offsets of a place record.
enum PlaceField : std::size_t {
    PName = 0,
    PAscii = 4,
    PAlternates = 8,
    PLatitude = 12,
    PLongitude = 16,
    PPopulation = 20,
    PZone = 24,
    PRegion = 26,
    PCountry = 28,
    PSameName = 30
};

std::uint32_t ReadU32(const unsigned char* p) {
    return std::uint32_t(p[0]) | std::uint32_t(p[1]) << 8 | std::uint32_t(p[2]) << 16 |
           std::uint32_t(p[3]) << 24;
}

// The next code point of UTF-8 text; a byte that starts no valid sequence
// reads as U+FFFD and is skipped alone.
std::uint32_t NextCodePoint(std::string_view s, std::size_t& i) {
    auto b = static_cast<unsigned char>(s[i++]);
    if (b < 0x80) return b;
    int extra = b >= 0xF0 && b < 0xF5 ? 3 : b >= 0xE0 ? 2 : b >= 0xC2 && b < 0xE0 ? 1 : -1;
    if (extra < 0 || i + extra > s.size()) return 0xFFFD;
    std::uint32_t cp = b & (0x3F >> extra);
    for (int k = 0; k < extra; ++k) {
        auto c = static_cast<unsigned char>(s[i + k]);
        if ((c & 0xC0) != 0x80) return 0xFFFD;
        cp = cp << 6 | (c & 0x3F);
    }
    i += extra;
    return cp;
}

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// True when `q` starts `text` or starts one of its later words.
bool StartsAWord(std::string_view text, std::string_view q) {
    if (text.starts_with(q)) return true;
    for (std::size_t p = text.find(' '); p != std::string_view::npos; p = text.find(' ', p + 1)) {
        if (text.substr(p + 1).starts_with(q)) return true;
    }
    return false;
}

std::vector<std::string_view> SplitCommas(std::string_view text) {
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    for (std::size_t p; (p = text.find(',', start)) != std::string_view::npos; start = p + 1) {
        parts.push_back(text.substr(start, p - start));
    }
    parts.push_back(text.substr(start));
    return parts;
}

} // namespace

PlaceIndex::Loaded PlaceIndex::Load(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary | std::ios::ate);
    if (!in) return {std::nullopt, "The atlas file " + file.string() + " cannot be opened."};
    std::string bytes(static_cast<std::size_t>(in.tellg()), '\0');
    in.seekg(0);
    if (!in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        return {std::nullopt, "The atlas file " + file.string() + " cannot be read."};
    }
    Loaded r = FromBytes(std::move(bytes));
    if (!r.index) r.error = "The atlas file " + file.string() + " " + r.error;
    return r;
}

PlaceIndex::Loaded PlaceIndex::FromBytes(std::string bytes) {
    PlaceIndex index;
    std::string error = index.load(std::move(bytes));
    if (!error.empty()) return {std::nullopt, error};
    return {std::move(index), {}};
}

std::string PlaceIndex::load(std::string bytes) {
    bytes_ = std::move(bytes);
    const std::size_t n = bytes_.size();
    if (n < 24 || std::memcmp(bytes_.data(), kMagic, sizeof kMagic) != 0) {
        return "is not an atlas.";
    }
    if (ReadU32(at(16)) != kVersion) return "is of another version.";
    const std::size_t sections = ReadU32(at(20));
    if (24 + 16 * sections > n) return "is damaged.";
    struct Want {
        std::uint32_t id;
        Section* section;
        std::size_t recordSize;
    } wants[] = {{SecText, &text_, 0},
                 {SecPlaces, &places_, kPlaceSize},
                 {SecKeys, &keys_, kKeySize},
                 {SecRegions, &regions_, kRegionSize},
                 {SecCountries, &countries_, kCountrySize},
                 {SecZones, &zones_, kZoneSize},
                 {SecFold, &fold_, kFoldSize},
                 {SecAbout, &about_, kAboutSize},
                 {SecKeyText, &keyText_, 0}};
    for (auto& w : wants) {
        bool found = false;
        for (std::size_t s = 0; s < sections; ++s) {
            const unsigned char* e = at(24 + 16 * s);
            if (ReadU32(e) != w.id) continue;
            Section sec{ReadU32(e + 4), ReadU32(e + 8), ReadU32(e + 12)};
            if (sec.offset > n || sec.size > n - sec.offset) return "is damaged.";
            if (w.recordSize && sec.size != sec.count * w.recordSize) return "is damaged.";
            *w.section = sec;
            found = true;
        }
        if (!found) return "is damaged.";
    }
    placeCount_ = places_.count;
    std::string problem = validate();
    if (!problem.empty()) return problem;
    // Fold-table lookups of ASCII run at every keystroke: keep them at hand.
    for (std::uint32_t c = 0; c < 128; ++c) asciiFold_[c] = findFold(c);
    return {};
}

// Every offset and index the lookups follow is checked once here, so that a
// damaged file is refused instead of read out of bounds.
std::string PlaceIndex::validate() const {
    const std::string damaged = "is damaged.";
    auto goodText = [&](std::uint32_t off) {
        return off < text_.size && off + 1 + std::size_t(*at(text_.offset + off)) <= text_.size;
    };
    for (std::size_t i = 0; i < countries_.count; ++i) {
        if (!goodText(u32(countries_, i, 4)) || !goodText(u32(countries_, i, 8))) return damaged;
    }
    for (std::size_t i = 0; i < regions_.count; ++i) {
        if (!goodText(u32(regions_, i, 0)) || !goodText(u32(regions_, i, 4)) ||
            !goodText(u32(regions_, i, 8)) || u16(regions_, i, 12) >= countries_.count) {
            return damaged;
        }
    }
    for (std::size_t i = 0; i < zones_.count; ++i) {
        if (!goodText(u32(zones_, i, 0))) return damaged;
    }
    for (std::size_t i = 0; i < fold_.count; ++i) {
        if (!goodText(u32(fold_, i, 4))) return damaged;
    }
    for (std::size_t i = 0; i < about_.count; ++i) {
        if (!goodText(u32(about_, i, 0))) return damaged;
    }
    if (placeCount_ >= (1u << 24)) return damaged;
    std::vector<std::uint8_t> alternateCount(placeCount_);
    for (std::size_t i = 0; i < placeCount_; ++i) {
        if (!goodText(u32(places_, i, PName)) || !goodText(u32(places_, i, PAscii))) {
            return damaged;
        }
        std::uint32_t alt = u32(places_, i, PAlternates);
        if (alt) {
            if (alt >= text_.size) return damaged;
            std::size_t count = *at(text_.offset + alt), off = alt + 1;
            for (std::size_t k = 0; k < count; ++k) {
                if (!goodText(static_cast<std::uint32_t>(off))) return damaged;
                off += 1 + *at(text_.offset + off);
            }
            alternateCount[i] = static_cast<std::uint8_t>(count);
        }
        std::uint16_t region = u16(places_, i, PRegion);
        if (u16(places_, i, PZone) >= zones_.count ||
            u16(places_, i, PCountry) >= countries_.count ||
            (region != kNoRegion && region >= regions_.count)) {
            return damaged;
        }
    }
    // Keys run to a zero byte: one at the end keeps every key inside.
    if (keys_.count && (keyText_.size == 0 || *at(keyText_.offset + keyText_.size - 1) != 0)) {
        return damaged;
    }
    for (std::size_t k = 0; k < keys_.count; ++k) {
        std::uint32_t ref = u32(keys_, k, 4), place = ref >> 8, slot = ref & 0xFF;
        if (u32(keys_, k, 0) >= keyText_.size || place >= placeCount_ ||
            (slot >= 2 && slot - 2 >= alternateCount[place])) {
            return damaged;
        }
    }
    return {};
}

std::uint32_t PlaceIndex::u32(const Section& s, std::size_t record, std::size_t field) const {
    std::size_t recordSize = s.count ? s.size / s.count : 0;
    return ReadU32(at(s.offset + record * recordSize + field));
}

std::uint16_t PlaceIndex::u16(const Section& s, std::size_t record, std::size_t field) const {
    std::size_t recordSize = s.count ? s.size / s.count : 0;
    const unsigned char* p = at(s.offset + record * recordSize + field);
    return static_cast<std::uint16_t>(p[0] | p[1] << 8);
}

std::string_view PlaceIndex::text(std::uint32_t offset) const {
    const unsigned char* p = at(text_.offset + offset);
    return {reinterpret_cast<const char*>(p + 1), p[0]};
}

std::string_view PlaceIndex::countryCode(std::size_t c) const {
    return {reinterpret_cast<const char*>(at(countries_.offset + c * kCountrySize)), 2};
}

const char* PlaceIndex::key(std::size_t k) const {
    return reinterpret_cast<const char*>(
        at(keyText_.offset + ReadU32(at(keys_.offset + k * kKeySize))));
}

bool PlaceIndex::keyIsWord(std::size_t k) const {
    std::uint32_t off = ReadU32(at(keys_.offset + k * kKeySize));
    return off > 0 && *at(keyText_.offset + off - 1) == ' ';
}

std::uint32_t PlaceIndex::keyPlace(std::size_t k) const {
    return ReadU32(at(keys_.offset + k * kKeySize + 4)) >> 8;
}

AtlasPlace PlaceIndex::place(std::uint32_t i) const {
    AtlasPlace p;
    p.name = text(u32(places_, i, PName));
    p.asciiName = text(u32(places_, i, PAscii));
    std::uint16_t region = u16(places_, i, PRegion);
    if (region != kNoRegion) {
        p.region = text(u32(regions_, region, 0));
        p.regionCode = text(u32(regions_, region, 8));
    }
    std::uint16_t country = u16(places_, i, PCountry);
    p.countryCode = countryCode(country);
    p.country = text(u32(countries_, country, 4));
    p.zone = text(u32(zones_, u16(places_, i, PZone), 0));
    p.latitude = static_cast<std::int32_t>(u32(places_, i, PLatitude)) / 1e6;
    p.longitude = static_cast<std::int32_t>(u32(places_, i, PLongitude)) / 1e6;
    p.population = u32(places_, i, PPopulation);
    p.sameName = u16(places_, i, PSameName);
    return p;
}

std::vector<std::string_view> PlaceIndex::alternates(std::uint32_t i) const {
    std::vector<std::string_view> names;
    std::uint32_t off = u32(places_, i, PAlternates);
    if (!off) return names;
    std::size_t count = *at(text_.offset + off++);
    for (std::size_t k = 0; k < count; ++k) {
        names.push_back(text(off));
        off += 1 + static_cast<std::uint32_t>(names.back().size());
    }
    return names;
}

std::string_view PlaceIndex::matchedName(const PlaceMatch& m) const {
    if (m.slot == 0) return text(u32(places_, m.place, PName));
    if (m.slot == 1) return text(u32(places_, m.place, PAscii));
    auto names = alternates(m.place);
    return m.slot - 2u < names.size() ? names[m.slot - 2] : std::string_view{};
}

std::string_view PlaceIndex::about(std::string_view key) const {
    for (std::size_t i = 0; i < about_.count; ++i) {
        std::string_view line = text(u32(about_, i, 0));
        if (line.size() > key.size() && line.starts_with(key) && line[key.size()] == '=') {
            return line.substr(key.size() + 1);
        }
    }
    return {};
}

std::uint32_t PlaceIndex::findFold(std::uint32_t cp) const {
    std::size_t lo = 0, hi = fold_.count;
    while (lo < hi) {
        std::size_t mid = (lo + hi) / 2;
        if (u32(fold_, mid, 0) < cp)
            lo = mid + 1;
        else
            hi = mid;
    }
    return lo < fold_.count && u32(fold_, lo, 0) == cp ? u32(fold_, lo, 4) + 1 : 0;
}

std::string_view PlaceIndex::foldOf(std::uint32_t cp) const {
    std::uint32_t entry = cp < 128 ? asciiFold_[cp] : findFold(cp);
    return entry ? text(entry - 1) : std::string_view(" ");
}

std::string PlaceIndex::fold(std::string_view s) const {
    std::string out;
    bool space = false;
    for (std::size_t i = 0; i < s.size();) {
        for (char c : foldOf(NextCodePoint(s, i))) {
            if (c == ' ') {
                space = !out.empty();
            } else {
                if (space) out += ' ';
                space = false;
                out += c;
            }
        }
    }
    return out;
}

std::vector<PlaceMatch> PlaceIndex::search(std::string_view text, std::size_t limit) const {
    std::vector<std::string_view> parts = SplitCommas(text);
    const std::string name = fold(parts[0]);
    if (name.empty() || limit == 0) return {};

    // Each qualifier marks the countries and regions it names: by code
    // ("FR", "TX") when it is one, else by the start of a word of the name
    // ("tex", "united states"). A place passes when every qualifier marks
    // its country or its region.
    std::vector<std::vector<bool>> countryOk, regionOk;
    auto sameCode = [](std::string_view code, std::string_view f) {
        return code.size() == f.size() &&
               std::equal(code.begin(), code.end(), f.begin(),
                          [](char a, char b) { return LowerAscii(a) == b; });
    };
    for (std::size_t q = 1; q < parts.size(); ++q) {
        std::string f = fold(parts[q]);
        if (f.empty()) continue;
        auto& co = countryOk.emplace_back(countries_.count);
        auto& ro = regionOk.emplace_back(regions_.count);
        bool byCode = false;
        for (std::size_t c = 0; c < countries_.count; ++c) {
            byCode |= co[c] = sameCode(countryCode(c), f);
        }
        for (std::size_t r = 0; r < regions_.count; ++r) {
            byCode |= ro[r] = sameCode(this->text(u32(regions_, r, 8)), f);
        }
        if (byCode) continue;
        for (std::size_t c = 0; c < countries_.count; ++c) {
            co[c] = StartsAWord(this->text(u32(countries_, c, 8)), f);
        }
        for (std::size_t r = 0; r < regions_.count; ++r) {
            ro[r] = StartsAWord(this->text(u32(regions_, r, 4)), f);
        }
    }
    auto passes = [&](std::uint32_t p) {
        std::uint16_t country = u16(places_, p, PCountry), region = u16(places_, p, PRegion);
        for (std::size_t q = 0; q < countryOk.size(); ++q) {
            if (!countryOk[q][country] && (region == kNoRegion || !regionOk[q][region])) {
                return false;
            }
        }
        return true;
    };

    // The best match of each place found so far (0 none): by kind, and
    // within a kind the place's own name before its alternates, so that
    // "Springfield" lists the Springfields before places once so called.
    // A city's other names are as good as its own ("Cologne", "Bombay").
    std::vector<std::uint8_t> best(placeCount_, 0), slot(placeCount_, 0);
    std::vector<std::uint32_t> found;
    auto consider = [&](std::size_t k, MatchKind kind) {
        std::uint32_t p = keyPlace(k);
        auto s = static_cast<std::uint8_t>(ReadU32(at(keys_.offset + k * kKeySize + 4)));
        bool lesser = s >= 2 && u32(places_, p, PPopulation) < kCityPopulation;
        auto rank = static_cast<std::uint8_t>(static_cast<int>(kind) * 2 + lesser);
        if (best[p] && best[p] <= rank) return;
        if (!best[p]) {
            if (!passes(p)) return;
            found.push_back(p);
        }
        best[p] = rank;
        slot[p] = s;
    };

    // Names and later words of names starting with the search name lie
    // together in the sorted keys.
    std::size_t lo = 0, hi = keys_.count;
    while (lo < hi) {
        std::size_t mid = (lo + hi) / 2;
        if (std::strcmp(key(mid), name.c_str()) < 0)
            lo = mid + 1;
        else
            hi = mid;
    }
    for (std::size_t k = lo; k < keys_.count; ++k) {
        const char* kt = key(k);
        if (std::strncmp(kt, name.data(), name.size()) != 0) break;
        consider(k, keyIsWord(k)              ? MatchKind::Word
                    : kt[name.size()] == '\0' ? MatchKind::Exact
                                              : MatchKind::Prefix);
    }

    auto before = [&](std::uint32_t a, std::uint32_t b) {
        return best[a] != best[b] ? best[a] < best[b] : a < b; // places are stored biggest first
    };
    std::size_t n = std::min(limit, found.size());
    std::partial_sort(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(n), found.end(),
                      before);
    std::vector<PlaceMatch> matches;
    matches.reserve(n);
    for (std::size_t i = 0; i < n; ++i) {
        std::uint32_t p = found[i];
        matches.push_back({p, static_cast<MatchKind>(best[p] / 2), slot[p]});
    }
    return matches;
}

} // namespace kal
