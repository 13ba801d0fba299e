// The shipped atlas: loading, folding, the search as the user types, and the
// lookup of a picked place.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "atlas/AtlasLookup.h"
#include "atlas/PlaceIndex.h"

namespace kal {
namespace {

const std::filesystem::path kAtlasPath = std::filesystem::path(KALTROVA_APPDIR) / kAtlasFile;

const PlaceIndex& Atlas() {
    static const PlaceIndex atlas = [] {
        PlaceIndex::Loaded l = PlaceIndex::Load(kAtlasPath);
        if (!l.index) throw std::runtime_error(l.error);
        return std::move(*l.index);
    }();
    return atlas;
}

std::string Describe(const PlaceIndex& a, const PlaceMatch& m) {
    AtlasPlace p = a.place(m.place);
    return std::string(p.name) + ", " + std::string(p.region) + ", " + std::string(p.countryCode);
}

TEST(PlaceIndex, FoldsCaseAccentsAndPunctuation) {
    const PlaceIndex& a = Atlas();
    struct Row {
        const char* text;
        const char* folded;
    } rows[] = {
        {"Saint-Étienne", "saint etienne"},
        {"MÜNCHEN", "munchen"},
        {"L'Aquila", "laquila"},
        {"  São   Paulo ", "sao paulo"},
        {"ŁÓDŹ", "lodz"},
        {"Straße", "strasse"},
        {"Xi’an", "xian"},
        {"St. Louis", "st louis"},
        {"Москва", ""},
        {"\xff\xfe", ""},
    };
    for (const auto& r : rows) EXPECT_EQ(a.fold(r.text), r.folded) << r.text;
}

TEST(PlaceIndex, FindsPlacesUnderOtherSpellings) {
    const PlaceIndex& a = Atlas();
    for (const char* typed : {"muenchen", "München", "MUNCHEN", "munich"}) {
        SCOPED_TRACE(typed);
        auto found = a.search(typed, 5);
        ASSERT_FALSE(found.empty());
        AtlasPlace p = a.place(found[0].place);
        EXPECT_EQ(p.name, "Munich");
        EXPECT_EQ(p.countryCode, "DE");
        EXPECT_EQ(p.region, "Bavaria");
        EXPECT_EQ(found[0].kind, MatchKind::Exact);
        EXPECT_EQ(a.fold(a.matchedName(found[0])), a.fold(typed));
    }
    auto bombay = a.search("Bombay", 1);
    ASSERT_EQ(bombay.size(), 1u);
    EXPECT_EQ(a.place(bombay[0].place).name, "Mumbai");
}

TEST(PlaceIndex, RanksWholeNamesThenStartsThenWordsBiggestFirst) {
    const PlaceIndex& a = Atlas();
    auto paris = a.search("paris", 50);
    ASSERT_GT(paris.size(), 5u);
    EXPECT_EQ(Describe(a, paris[0]), "Paris, Île-de-France, FR");
    // By kind, own names before alternates, then by population.
    auto group = [&](const PlaceMatch& m) {
        return static_cast<int>(m.kind) * 2 + (m.slot >= 2 && a.place(m.place).population < 100000);
    };
    for (std::size_t i = 1; i < paris.size(); ++i) {
        EXPECT_LE(group(paris[i - 1]), group(paris[i]));
        if (group(paris[i - 1]) == group(paris[i])) {
            EXPECT_GE(a.place(paris[i - 1].place).population, a.place(paris[i].place).population);
        }
    }
    auto lond = a.search("lond", 3);
    ASSERT_FALSE(lond.empty());
    EXPECT_EQ(Describe(a, lond[0]), "London, England, GB");
    EXPECT_EQ(lond[0].kind, MatchKind::Prefix);

    auto york = a.search("york, us", 100);
    bool newYork = false;
    for (const auto& m : york) newYork |= a.place(m.place).name == "New York City";
    EXPECT_TRUE(newYork);
    EXPECT_TRUE(a.search("", 10).empty());
    EXPECT_TRUE(a.search(" , Texas", 10).empty());
}

TEST(PlaceIndex, QualifiersNameCountryOrRegion) {
    const PlaceIndex& a = Atlas();
    struct Row {
        const char* typed;
        const char* first;
        const char* everyCountry; // every match lies in this country
        const char* everyRegion;  // and this region, when given
    } rows[] = {
        {"Paris, Texas", "Paris, Texas, US", "US", "Texas"},
        {"Paris, TX", "Paris, Texas, US", "US", "Texas"},
        {"paris, tex", "Paris, Texas, US", "US", "Texas"},
        {"Paris, FR", "Paris, Île-de-France, FR", "FR", nullptr},
        {"Paris, France", "Paris, Île-de-France, FR", "FR", nullptr},
        {"Paris, USA", "Paris, Texas, US", "US", nullptr},
        {"Springfield, Illinois, US", "Springfield, Illinois, US", "US", "Illinois"},
        {"London, Ontario", "London, Ontario, CA", "CA", "Ontario"},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.typed);
        auto found = a.search(r.typed, 100);
        ASSERT_FALSE(found.empty());
        EXPECT_EQ(Describe(a, found[0]), r.first);
        for (const auto& m : found) {
            AtlasPlace p = a.place(m.place);
            EXPECT_EQ(p.countryCode, r.everyCountry) << Describe(a, m);
            if (r.everyRegion) {
                EXPECT_EQ(p.region, r.everyRegion) << Describe(a, m);
            }
        }
    }
}

// Every place must be found by its own name: the program folds what is
// typed with the table the generator folded the names with.
TEST(PlaceIndex, EveryPlaceFoundByItsName) {
    const PlaceIndex& a = Atlas();
    ASSERT_GT(a.size(), 120000u);
    for (std::uint32_t i = 0; i < a.size(); i += 397) {
        AtlasPlace p = a.place(i);
        std::string typed = std::string(p.name) + ", " + std::string(p.countryCode);
        auto found = a.search(typed, static_cast<std::size_t>(p.sameName) + 50);
        bool hit = false;
        for (const auto& m : found) hit |= m.place == i && m.kind == MatchKind::Exact;
        EXPECT_TRUE(hit) << typed;
    }
}

TEST(PlaceIndex, RefusesFilesThatAreNoAtlasOrDamaged) {
    std::ifstream in(kAtlasPath, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    ASSERT_GT(bytes.size(), 1000u);

    EXPECT_EQ(PlaceIndex::FromBytes("NAMES.FIL, not an atlas at all").error, "is not an atlas.");
    EXPECT_EQ(PlaceIndex::FromBytes(bytes.substr(0, bytes.size() / 2)).error, "is damaged.");
    // A place whose name points past the end of the text.
    std::string bad = bytes;
    std::uint32_t placesOffset = 0;
    for (std::size_t s = 0; s < 8; ++s) {
        const auto* e = reinterpret_cast<const unsigned char*>(bad.data() + 24 + 16 * s);
        if (e[0] == 2) placesOffset = e[4] | e[5] << 8 | e[6] << 16 | std::uint32_t(e[7]) << 24;
    }
    ASSERT_NE(placesOffset, 0u);
    for (int k = 0; k < 4; ++k) bad[placesOffset + 32 * 7 + k] = '\xff';
    EXPECT_EQ(PlaceIndex::FromBytes(bad).error, "is damaged.");
    EXPECT_NE(PlaceIndex::Load("/nonexistent/ATLAS.DAT").error, "");
    EXPECT_TRUE(PlaceIndex::FromBytes(bytes).index.has_value());
}

} // namespace
} // namespace kal
