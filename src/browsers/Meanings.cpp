#include "browsers/Meanings.h"

#include "base/Passages.h"
#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

namespace {

Message Info(std::string text) {
    return {std::move(text), "Information", Icon::Exclamation};
}

std::string_view Caption(const auto& captions, short index) {
    return captions.at(static_cast<size_t>(index));
}

} // namespace

LookupResult PlanetInSignLookup(const BrowserSelections& s) {
    if (s.SelPlanet >= 7 && s.SelPlanet <= 9)
        return Info("Uranus - Pluto sign positions are not delineated.");
    if (s.SelPlanet == AscendantButton) return RisingSignLookup(s);
    return TextLookup{"\\SIGN_" + std::string(Caption(SignCaptions, s.SelSign).substr(0, 3)) +
                          ".TXT",
                      Upper(Caption(PlanetCaptions, s.SelPlanet)) + " in"};
}

LookupResult PlanetInHouseLookup(const BrowserSelections& s) {
    if (s.SelPlanet == AscendantButton)
        return Info("The Ascendant is always the 1st house cusp. It cannot be in a house.");
    return TextLookup{"\\HOUSE_" + std::to_string(s.SelHouse + 1) + ".TXT",
                      Upper(Caption(PlanetCaptions, s.SelPlanet)) + " in"};
}

TextLookup RisingSignLookup(const BrowserSelections& s) {
    return {"\\RISING.TXT", Upper(Caption(SignCaptions, s.SelSign)) + " rising"};
}

LookupResult AspectLookup(const BrowserSelections& s) {
    const short p1 = s.SelPlanet, p2 = s.SelPlanet2;
    std::string_view first = Caption(PlanetCaptions, p1);
    std::string_view second = Caption(PlanetCaptions, p2);
    if (p1 > p2) return Info("Please select a higher planet on the left than on the right.");
    if (first == second) return Info("A planet cannot aspect itself. Select a different planet.");
    if (p1 == 0 && p2 == 2 && s.SelAspect > 0)
        return Info("Mercury can never by far enough away from the Sun to have this kind of "
                    "aspect.");
    if (p1 == 0 && p2 == 3 && s.SelAspect >= 2)
        return Info("Venus can never by far enough away from the Sun to have this kind of "
                    "aspect.");
    if (p1 == 2 && p2 == 3 && s.SelAspect >= 2)
        return Info("Venus can never by far enough away from Mercury to have this kind of "
                    "aspect.");
    static constexpr std::string_view words[] = {"blending with", "harmonizing with",
                                                 "discordant to"};
    return TextLookup{"\\" + std::string(first) + ".TXT", std::string(first) + " " +
                                                              std::string(words[s.SelAspect]) +
                                                              " " + std::string(second)};
}

Message MeaningsHelpMessage() {
    return {"1. Double-click on Sign/Asc Sign for interpretation.\n"
            "2. Double-click on House for interpretation.\n"
            "3. Double-click on Aspect for interpretation.",
            "Helpful Hints", Icon::Information};
}

Messages ShowTextSection(OutputBuffer& out, const std::filesystem::path& appPath,
                         std::string_view textFilePath, std::string_view key) {
    auto file = FindTextFile(appPath, textFilePath);
    auto lines = ReadLines(file);
    if (!lines) return {CannotFindFileMessage(file)};
    if (auto passage = FindPassage(*lines, key))
        for (const auto& line : passage->lines) out.Append("  " + line);
    return {};
}

Messages ShowTextFile(OutputBuffer& out, const std::filesystem::path& appPath,
                      std::string_view textFilePath) {
    auto file = FindTextFile(appPath, textFilePath);
    auto lines = ReadLines(file);
    if (!lines) return {CannotFindFileMessage(file)};
    for (const auto& line : *lines) out.Append("  " + line);
    return {};
}

Messages ShowLookup(OutputBuffer& out, const std::filesystem::path& appPath, BrowserSelections& s,
                    const TextLookup& lookup) {
    out.ClearDataPage();
    out.AppendBlankLine();
    s.TextKey = lookup.key;
    s.TextFilePath = lookup.file;
    return ShowTextSection(out, appPath, s.TextFilePath, s.TextKey);
}

} // namespace kal
