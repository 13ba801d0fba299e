// Kaltrova.INI: the data window's font, the places of the main, data and
// chart wheel windows, the current names and cities files and two chart
// wheel settings, kept from one run to the next. Lines of key=value in a
// fixed order; read by key (any order), written in the standard order.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/SafeWrite.h"

namespace kal {

struct Settings {
    // The data window's font.
    double ListFontSize = 8.5;
    double ListFontBold = 0;   // 0 or -1
    double ListFontItalic = 0; // 0 or -1
    // The main window's place, twips.
    double KaltrovaTop = 0;
    double KaltrovaLeft = 0;
    double KaltrovaHeight = 675;
    double KaltrovaWidth = 10860;
    // The data window's place, twips.
    short DataTop = 675;
    short DataLeft = 0;
    short DataHeight = 8250;
    short DataWidth = 9600;
    // The chart wheel.
    short StartScale = 287;
    short TypeChart = 0;
    short WheelsTop = 620;
    short WheelsLeft = 0;
    short WheelsHeight = 5760;
    short WheelsWidth = 5760;
};

// The settings file's first line.
inline constexpr const char* SettingsHeading =
    "[Kaltrova] - Do NOT change the order of these variables.";

// Applies the lines of a settings file: every line whose start matches a key
// (exact case) sets that key when its value passes the key's check. Lines
// matching no key are ignored. `dataFile` / `geoDataFile` are the names and
// cities file paths, replaced only by a non-empty value.
void ApplySettingsLines(const std::vector<std::string>& lines, Settings& s, std::string& dataFile,
                        std::string& geoDataFile);

// The file's lines in the standard order (the heading and the nineteen keys).
std::vector<std::string> SettingsLines(const Settings& s, const std::string& dataFile,
                                       const std::string& geoDataFile);

std::filesystem::path SettingsPath(const std::filesystem::path& appPath);

// Sets every default (the names and cities files NAMES.FIL and GA_MA.LL of
// the program directory included), then reads appPath/Kaltrova.INI when it
// can be opened.
void ReadSettings(const std::filesystem::path& appPath, Settings& s,
                  std::filesystem::path& namesFile, std::filesystem::path& citiesFile);
// Writes appPath/Kaltrova.INI anew with CR LF line ends; on failure the old
// file is left whole and the reason is returned.
WriteResult WriteSettings(const std::filesystem::path& appPath, const Settings& s,
                          const std::filesystem::path& namesFile,
                          const std::filesystem::path& citiesFile);

} // namespace kal
