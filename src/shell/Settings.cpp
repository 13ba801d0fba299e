#include "shell/Settings.h"

#include <cmath>
#include <functional>
#include <type_traits>

#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

namespace {

// The values a key reads and writes.
struct Values {
    Settings s;
    std::string dataFile;
    std::string geoDataFile;
};

struct Key {
    const char* name;
    std::function<std::string(const Values&)> write;
    // Applies the value text; the key's check is part of it.
    std::function<void(const std::string&, Values&)> read;
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
// A number the file holds in plain digits. One of 1e15 and more, or of a
// size below 1e-14, would be written as "1E+16" and read back at the next
// start as 1: such a value is refused like any other that fails its check.
bool PlainNumber(double v) {
    return NumText(v).find('E') == std::string::npos;
}

// A number key stored in `field`: doubles as read, 16-bit fields rounded;
// a value that fails `accept` once stored leaves the field as it was.
template <class T>
Key Number(const char* name, T Settings::*field, bool (*accept)(double) = AnyNumber) {
    return {name, [field](const Values& v) { return NumText(v.s.*field); },
            [field, accept](const std::string& text, Values& v) {
                double x = Val(text);
                if (!PlainNumber(x)) return;
                // The check applies to the value kept: a height of .25 held
                // in a 16-bit field is 0, which is no height.
                T kept;
                if constexpr (std::is_same_v<T, short>)
                    kept = RoundToShort(x);
                else
                    kept = x;
                if (accept(kept)) v.s.*field = kept;
            }};
}

// A file key: replaced only by a non-empty value.
Key File(const char* name, std::string Values::*field) {
    return {name, [field](const Values& v) { return v.*field; },
            [field](const std::string& text, Values& v) {
                if (!text.empty()) v.*field = text;
            }};
}

// The keys in the order the file is written.
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
        File("DataFile", &Values::dataFile),
        File("GeoDataFile", &Values::geoDataFile),
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
    Values v{s, dataFile, geoDataFile};
    for (const auto& line : lines) {
        auto eq = line.find('=');
        std::string value = eq == std::string::npos ? line : line.substr(eq + 1);
        for (const auto& key : Keys()) {
            if (line.compare(0, std::char_traits<char>::length(key.name), key.name) == 0)
                key.read(value, v);
        }
    }
    s = v.s;
    dataFile = v.dataFile;
    geoDataFile = v.geoDataFile;
}

std::vector<std::string> SettingsLines(const Settings& s, const std::string& dataFile,
                                       const std::string& geoDataFile) {
    const Values v{s, dataFile, geoDataFile};
    std::vector<std::string> lines = {SettingsHeading};
    for (const auto& key : Keys()) lines.push_back(std::string(key.name) + "=" + key.write(v));
    return lines;
}

std::filesystem::path SettingsPath(const std::filesystem::path& appPath) {
    return FindFile(appPath, "Kaltrova.INI");
}

void ReadSettings(const std::filesystem::path& appPath, Settings& s,
                  std::filesystem::path& namesFile, std::filesystem::path& citiesFile) {
    s = Settings{};
    std::string dataFile = FindFile(appPath, "NAMES.FIL").string();
    std::string geoFile = FindFile(appPath, "GA_MA.LL").string();
    if (auto lines = ReadLines(SettingsPath(appPath)))
        ApplySettingsLines(*lines, s, dataFile, geoFile);
    namesFile = dataFile;
    citiesFile = geoFile;
}

WriteResult WriteSettings(const std::filesystem::path& appPath, const Settings& s,
                          const std::filesystem::path& namesFile,
                          const std::filesystem::path& citiesFile) {
    return WriteLines(SettingsPath(appPath),
                      SettingsLines(s, namesFile.string(), citiesFile.string()));
}

} // namespace kal
