// The keyword method without its windows: the topics of the keywords grid
// with the text each one shows, and the lesson files of the
// delineation-by-keywords window.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/Message.h"
#include "base/OutputBuffer.h"
#include "browsers/Meanings.h"

namespace kal {

// The grid's cells by row and column: planets, signs, houses, and the
// elements, modes and general notes (two cells of the last column empty).
inline constexpr int KeywordRows = 12;
inline constexpr int KeywordColumns = 4;
extern const std::array<std::array<std::string_view, KeywordColumns>, KeywordRows> KeywordGrid;
// The headings over the grid's columns.
inline constexpr std::string_view KeywordColumnHeadings =
    "    Planet          Sign             House         Quality";

// What a click on a cell shows: the topic's text with the topic as the
// title, information icon. Nothing for an empty cell or an unknown text.
std::optional<Message> KeywordTopicMessage(std::string_view cellText);

// The lesson files of the delineation window, each with its leading "\".
inline constexpr std::string_view IntroLesson = "\\INTRO1.TXT";
inline constexpr std::string_view StepsLesson = "\\INTRO2.TXT";
inline constexpr std::string_view KeyLesson = "\\KEY.TXT";
inline constexpr std::string_view GeneralLesson = "\\GENERAL.TXT";
inline constexpr std::string_view ExampleLesson = "\\EXAMPLE1.TXT";
inline constexpr std::string_view SummaryLesson = "\\EXAMPLE2.TXT";
inline constexpr std::string_view AspectsLesson = "\\ASPECTS.TXT";

// The planet buttons' captions of the delineation window.
inline constexpr std::array<std::string_view, 10> LessonPlanetCaptions = {
    "The_Sun", "Moon",   "Mercury", "Venus",   "Mars",
    "Jupiter", "Saturn", "Uranus",  "Neptune", "Pluto"};

// "\ARI.TXT" .. "\PIS.TXT" (Capricorn "\CAP.TXT") for a sign button.
std::string SignLessonFile(short selSign);
// "\1.TXT" .. "\12.TXT" for a house button.
std::string HouseLessonFile(short selHouse);
// "\The_Sun.TXT", "\Moo.TXT" .. "\Plu.TXT" for a planet button.
std::string PlanetLessonFile(short selPlanet);

// A lesson in the data page: an empty page, one blank line and the whole
// file, each line after two blanks; TextFilePath is set to the file. The
// caller shows the page (also after the missing-file message).
Messages ShowLesson(OutputBuffer& out, const std::filesystem::path& appPath, BrowserSelections& s,
                    std::string_view file);

// The three hints of the delineation window's Help button.
Message KeywordSystemHelpMessage();

} // namespace kal
