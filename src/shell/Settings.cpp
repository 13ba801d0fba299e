#include "shell/Settings.h"

#include <cmath>
#include <functional>
#include <limits>

#include "shell/Session.h"
#include "shell/TextFile.h"
#include "shell/VbText.h"

namespace kal {

namespace {

// Twips and wheel values are kept as 16-bit integers: the number read is
// rounded (halves to even) and held within range.
short ToShort(double v) {
    double r = std::nearbyint(v);
    if (r > std::numeric_limits<short>::max()) r = std::numeric_limits<short>::max();
    if (r < std::numeric_limits<short>::min()) r = std::numeric_limits<short>::min();
    return static_cast<short>(r);
}

struct Key {
    const char* name;
    // Applies the value text; the check is part of the setter.
    std::function<void(const std::string&, Settings&, std::string&, std::string&)> apply;
};

using Num = std::function<void(double, Settings&)>;

Key Number(const char* name, Num set) {
    return {name, [set](const std::string& v, Settings& s, std::string&, std::string&) {
                set(Val(v), s);
            }};
}

const std::vector<Key>& Keys() {
    static const std::vector<Key> keys = {
        Number("FontSize",
               [](double v, Settings& s) {
                   if (v >= 7.75) s.ListFontSize = v;
               }),
        Number("FontBold", [](double v, Settings& s) { s.ListFontBold = v; }),
        Number("FontItalic", [](double v, Settings& s) { s.ListFontItalic = v; }),
        Number("KaltrovaTop", [](double v, Settings& s) { s.KaltrovaTop = v; }),
        Number("KaltrovaLeft", [](double v, Settings& s) { s.KaltrovaLeft = v; }),
        Number("KaltrovaHeight",
               [](double v, Settings& s) {
                   if (v > 0) s.KaltrovaHeight = v;
               }),
        Number("KaltrovaWidth",
               [](double v, Settings& s) {
                   if (v > 0) s.KaltrovaWidth = v;
               }),
        Number("DataTop",
               [](double v, Settings& s) {
                   if (v > 0) s.DataTop = ToShort(v);
               }),
        Number("DataLeft", [](double v, Settings& s) { s.DataLeft = ToShort(v); }),
        Number("DataHeight",
               [](double v, Settings& s) {
                   if (v > 0) s.DataHeight = ToShort(v);
               }),
        Number("DataWidth",
               [](double v, Settings& s) {
                   if (v > 0) s.DataWidth = ToShort(v);
               }),
        {"DataFile",
         [](const std::string& v, Settings&, std::string& data, std::string&) {
             if (!v.empty()) data = v;
         }},
        {"GeoDataFile",
         [](const std::string& v, Settings&, std::string&, std::string& geo) {
             if (!v.empty()) geo = v;
         }},
        Number("StartScale", [](double v, Settings& s) { s.StartScale = ToShort(v); }),
        Number("TypeChart", [](double v, Settings& s) { s.TypeChart = ToShort(v); }),
        Number("wheelsTop", [](double v, Settings& s) { s.WheelsTop = ToShort(v); }),
        Number("wheelsLeft", [](double v, Settings& s) { s.WheelsLeft = ToShort(v); }),
        Number("wheelsHeight",
               [](double v, Settings& s) {
                   if (v > 0) s.WheelsHeight = ToShort(v);
               }),
        Number("wheelsWidth",
               [](double v, Settings& s) {
                   if (v > 0) s.WheelsWidth = ToShort(v);
               }),
    };
    return keys;
}

} // namespace

void ApplySettingsLines(const std::vector<std::string>& lines, Settings& s, std::string& dataFile,
                        std::string& geoDataFile) {
    for (const auto& line : lines) {
        auto eq = line.find('=');
        std::string value = eq == std::string::npos ? line : line.substr(eq + 1);
        for (const auto& key : Keys()) {
            if (line.compare(0, std::char_traits<char>::length(key.name), key.name) == 0)
                key.apply(value, s, dataFile, geoDataFile);
        }
    }
}

std::vector<std::string> SettingsLines(const Settings& s, const std::string& dataFile,
                                       const std::string& geoDataFile) {
    auto n = [](double v) { return NumText(v); };
    return {
        SettingsHeading,
        "FontSize=" + n(s.ListFontSize),
        "FontBold=" + n(s.ListFontBold),
        "FontItalic=" + n(s.ListFontItalic),
        "KaltrovaTop=" + n(s.KaltrovaTop),
        "KaltrovaLeft=" + n(s.KaltrovaLeft),
        "KaltrovaHeight=" + n(s.KaltrovaHeight),
        "KaltrovaWidth=" + n(s.KaltrovaWidth),
        "DataTop=" + n(s.DataTop),
        "DataLeft=" + n(s.DataLeft),
        "DataHeight=" + n(s.DataHeight),
        "DataWidth=" + n(s.DataWidth),
        "DataFile=" + dataFile,
        "GeoDataFile=" + geoDataFile,
        "StartScale=" + n(s.StartScale),
        "TypeChart=" + n(s.TypeChart),
        "wheelsTop=" + n(s.WheelsTop),
        "wheelsLeft=" + n(s.WheelsLeft),
        "wheelsHeight=" + n(s.WheelsHeight),
        "wheelsWidth=" + n(s.WheelsWidth),
    };
}

std::filesystem::path SettingsPath(const std::filesystem::path& appPath) {
    return FindFile(appPath, "Kaltrova.INI");
}

void ReadSettings(Session& session) {
    session.settings = Settings{};
    std::string dataFile = FindFile(session.AppPath, "NAMES.FIL").string();
    std::string geoFile = FindFile(session.AppPath, "GA_MA.LL").string();
    if (auto lines = ReadLines(SettingsPath(session.AppPath)))
        ApplySettingsLines(*lines, session.settings, dataFile, geoFile);
    session.NamesFilePath = dataFile;
    session.CitiesFilePath = geoFile;
}

bool WriteSettings(const Session& session) {
    return WriteLines(SettingsPath(session.AppPath),
                      SettingsLines(session.settings, session.NamesFilePath.string(),
                                    session.CitiesFilePath.string()));
}

} // namespace kal
