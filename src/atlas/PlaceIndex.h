// The place index of the built-in atlas: the file atlas/ATLAS.DAT (written by
// tools/make_atlas.py) read whole into memory, and the search the atlas window
// runs as the user types.
//
// A search text is a place name, optionally followed by qualifiers after
// commas: "Paris, FR", "Paris, Texas", "Springfield, IL, US". The name is
// compared folded (case and accents ignored, "muenchen" as "München") with
// each place's name, ASCII name and alternate names; a qualifier is a country
// code, or the start of a word of the country's name, of the region's name,
// or the region's letter code ("TX"). Matches rank by how the name matched
// (the whole name, its start, the start of a later word), a place's own name
// before its alternates (except for cities of 100000 people or more), then
// by population.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kal {

// Where the atlas lies in the program directory.
inline constexpr std::string_view kAtlasFile = "atlas/ATLAS.DAT";

// One place, as views into the loaded index (valid while the index lives).
struct AtlasPlace {
    std::string_view name;        // as GeoNames writes it: "München"
    std::string_view asciiName;   // "Muenchen"
    std::string_view region;      // first-order division, "Bavaria"; may be empty
    std::string_view regionCode;  // letter code where the country has one ("TX")
    std::string_view country;     // "Germany"
    std::string_view countryCode; // "DE"
    std::string_view zone;        // IANA zone id, "Europe/Berlin"
    double latitude = 0;          // degrees, North positive
    double longitude = 0;         // degrees, East positive
    std::uint32_t population = 0;
    int sameName = 1; // places of the atlas whose folded name is this one's
};

enum class MatchKind : std::uint8_t {
    Exact = 1,  // a name of the place is the search name
    Prefix = 2, // a name starts with it
    Word = 3,   // a later word of a name starts with it
};

struct PlaceMatch {
    std::uint32_t place = 0;
    MatchKind kind = MatchKind::Exact;
    std::uint8_t slot = 0; // which name matched: 0 name, 1 ASCII name, 2 + n alternate n
};

class PlaceIndex {
  public:
    struct Loaded;
    // Reads an atlas file; a file that is missing, not an atlas or damaged
    // gives the reason instead.
    static Loaded Load(const std::filesystem::path& file);
    // The same from the file's bytes.
    static Loaded FromBytes(std::string bytes);

    std::size_t size() const { return placeCount_; }
    AtlasPlace place(std::uint32_t index) const;
    std::vector<std::string_view> alternates(std::uint32_t index) const;
    // The name through which a match was found.
    std::string_view matchedName(const PlaceMatch& m) const;
    // A "key=value" line of the file's description ("snapshot", "source").
    std::string_view about(std::string_view key) const;

    // The folded form of a text, as names are compared: "Saint-Étienne" gives
    // "saint etienne".
    std::string fold(std::string_view text) const;

    // The places a search text finds, best first, at most `limit`.
    std::vector<PlaceMatch> search(std::string_view text, std::size_t limit = 100) const;

  private:
    struct Section {
        std::size_t offset = 0, size = 0, count = 0;
    };
    PlaceIndex() = default;
    std::string load(std::string bytes);
    std::string validate() const;

    const unsigned char* at(std::size_t offset) const {
        return reinterpret_cast<const unsigned char*>(bytes_.data()) + offset;
    }
    std::uint32_t u32(const Section& s, std::size_t record, std::size_t field) const;
    std::uint16_t u16(const Section& s, std::size_t record, std::size_t field) const;
    std::string_view text(std::uint32_t offset) const;
    std::uint32_t findFold(std::uint32_t codePoint) const;  // text offset + 1, 0 none
    std::string_view foldOf(std::uint32_t codePoint) const; // " " for none
    std::string_view countryCode(std::size_t c) const;
    const char* key(std::size_t k) const; // runs to a zero byte
    bool keyIsWord(std::size_t k) const;  // a later word of a name
    std::uint32_t keyPlace(std::size_t k) const;

    std::string bytes_;
    Section text_, places_, keys_, regions_, countries_, zones_, fold_, about_, keyText_;
    std::size_t placeCount_ = 0;
    std::uint32_t asciiFold_[128] = {}; // fold-table text offset + 1 of each ASCII code, 0 none
};

struct PlaceIndex::Loaded {
    std::optional<PlaceIndex> index;
    std::string error; // set when index is empty
};

} // namespace kal
