#include "shell/Settings.h"

#include <cmath>
#include <functional>
#include <limits>
#include <type_traits>

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

// Checks applied to a number before it is taken.
bool AnyNumber(double) {
    return true;
}
bool Positive(double v) {
    return v > 0;
}
bool ReadableFontSize(double v) {
    return v >= 7.75;
}

// A number key stored in `field`: doubles as read, 16-bit fields rounded;
// a value that fails `accept` leaves the field as it was.
template <class T>
Key Number(const char* name, T Settings::*field, bool (*accept)(double) = AnyNumber) {
    return {name,
            [field, accept](const std::string& text, Settings& s, std::string&, std::string&) {
                double v = Val(text);
                if (!accept(v)) return;
                if constexpr (std::is_same_v<T, short>)
                    s.*field = ToShort(v);
                else
                    s.*field = v;
            }};
}

const std::vector<Key>& Keys() {
    static const std::vector<Key> keys = {
        Number("FontSize", &Settings::ListFontSize, ReadableFontSize),
        Number("FontBold", &Settings::ListFontBold),
        Number("FontItalic", &Settings::ListFontItalic),
        Number("KaltrovaTop", &Settings::KaltrovaTop),
        Number("KaltrovaLeft", &Settings::KaltrovaLeft),
        Number("KaltrovaHeight", &Settings::KaltrovaHeight, Positive),
        Number("KaltrovaWidth", &Settings::KaltrovaWidth, Positive),
        Number("DataTop", &Settings::DataTop, Positive),
        Number("DataLeft", &Settings::DataLeft),
        Number("DataHeight", &Settings::DataHeight, Positive),
        Number("DataWidth", &Settings::DataWidth, Positive),
        {"DataFile",
         [](const std::string& v, Settings&, std::string& data, std::string&) {
             if (!v.empty()) data = v;
         }},
        {"GeoDataFile",
         [](const std::string& v, Settings&, std::string&, std::string& geo) {
             if (!v.empty()) geo = v;
         }},
        Number("StartScale", &Settings::StartScale),
        Number("TypeChart", &Settings::TypeChart),
        Number("wheelsTop", &Settings::WheelsTop),
        Number("wheelsLeft", &Settings::WheelsLeft),
        Number("wheelsHeight", &Settings::WheelsHeight, Positive),
        Number("wheelsWidth", &Settings::WheelsWidth, Positive),
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
