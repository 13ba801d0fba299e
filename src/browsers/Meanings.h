// The meanings window's lookups without the window: the selections of its
// five option groups, the checks and keys of its four lookups, and the two
// routines that copy interpretation text into the data page (which the
// keyword lessons use as well).
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <variant>

#include "base/Message.h"
#include "base/OutputBuffer.h"

namespace kal {

// The option buttons' captions, by button index.
inline constexpr std::array<std::string_view, 12> SignCaptions = {
    "Aries", "Taurus",  "Gemini",      "Cancer",    "Leo",      "Virgo",
    "Libra", "Scorpio", "Sagittarius", "Capricorn", "Aquarius", "Pisces"};
inline constexpr std::array<std::string_view, 12> HouseCaptions = {
    "1st", "2nd", "3rd", "4th", "5th", "6th", "7th", "8th", "9th", "10th", "11th", "12th"};
inline constexpr std::array<std::string_view, 11> PlanetCaptions = {
    "Sun",    "Moon",   "Mercury", "Venus", "Mars",     "Jupiter",
    "Saturn", "Uranus", "Neptune", "Pluto", "Ascendant"};
inline constexpr std::array<std::string_view, 3> AspectCaptions = {"blending", "harmonizing",
                                                                   "discordant"};
inline constexpr short AscendantButton = 10;

// The selections the meanings window and the keyword lessons share, and the
// text they show next. Each selection is a button index of its group.
struct BrowserSelections {
    short SelSign = 6;        // Libra
    short SelHouse = 6;       // 7th
    short SelPlanet = 0;      // Sun
    short SelAspect = 2;      // discordant
    short SelPlanet2 = 1;     // Moon
    std::string TextFilePath; // "\SIGN_Lib.TXT": a file of the program directory
    std::string TextKey;      // the heading key of the passage to show
};

// A passage to show: the file (with its leading "\") and the key.
struct TextLookup {
    std::string file;
    std::string key;
    bool operator==(const TextLookup&) const = default;
};
// A lookup gives its passage, or the message that refuses it.
using LookupResult = std::variant<TextLookup, Message>;

// "Planet in sign": Uranus to Pluto are refused; the Ascendant gives the
// rising sign of the selected sign.
LookupResult PlanetInSignLookup(const BrowserSelections& s);
// "Planet house": the Ascendant is refused.
LookupResult PlanetInHouseLookup(const BrowserSelections& s);
// "Rising sign".
TextLookup RisingSignLookup(const BrowserSelections& s);
// "Aspects": the first planet above the second (in button order), not the
// same planet, and no aspect Mercury or Venus can never make with the Sun
// or with each other.
LookupResult AspectLookup(const BrowserSelections& s);

// The three hints of the meanings window's Help button.
Message MeaningsHelpMessage();

// Appends the passage of `textFilePath` (in `appPath`) under `key` to the
// page, each line after two blanks. A key that is not found appends
// nothing; a file that cannot be opened gives the missing-file message.
Messages ShowTextSection(OutputBuffer& out, const std::filesystem::path& appPath,
                         std::string_view textFilePath, std::string_view key);
// Appends every line of the file, each after two blanks.
Messages ShowTextFile(OutputBuffer& out, const std::filesystem::path& appPath,
                      std::string_view textFilePath);

// What a lookup that passed its checks writes: an empty page, one blank line
// and the passage. The selections' TextFilePath and TextKey are set to it.
// The caller shows the page.
Messages ShowLookup(OutputBuffer& out, const std::filesystem::path& appPath, BrowserSelections& s,
                    const TextLookup& lookup);

} // namespace kal
