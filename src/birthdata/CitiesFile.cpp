#include "birthdata/CitiesFile.h"

#include <cctype>

#include "base/TextFile.h"
#include "base/VbText.h"
#include "birthdata/ListFile.h"

namespace kal {

namespace {

// The number written in `text`: digits only (blanks around allowed).
std::optional<int> Digits(std::string_view text) {
    std::string t = Trim(text);
    if (t.empty()) return std::nullopt;
    for (char c : t)
        if (!std::isdigit(static_cast<unsigned char>(c))) return std::nullopt;
    return std::stoi(t);
}

std::string Two(int n) {
    return FormatNumber(n, "00");
}

} // namespace

Message CitiesFileLineError() {
    return {"You have an error in the current cities file. You need to check and see if you have "
            "entered the data correctly and in the proper amount. Please correct the data by "
            "clicking on the Edit this List command button in the Cities window and edit the "
            "incorrect data.",
            "Error!", Icon::Critical};
}

Message CityFormatError() {
    return {"Format error or typographical error in selected data. Please correct this data "
            "entry by clicking on the Edit this List command button in the Cities window and "
            "editing the data associated with your chosen city.",
            "Error!", Icon::Critical};
}

std::optional<CityRecord> ParseCityLine(std::string_view line) {
    std::vector<std::string> f = SplitFields(line);
    if (f.size() != 5) return std::nullopt;
    return CityRecord{f[0] + "," + f[1], Trim(f[2]), Trim(f[3]), Trim(f[4])};
}

std::string CityLine(const CityRecord& c) {
    return c.PlaceName + "," + c.PlaceLong + "," + c.PlaceLat + "," + c.PlaceTZ;
}

CitiesList LoadCitiesFile(const std::filesystem::path& file) {
    CitiesList list;
    list.opened = ReadListFile(file, ParseCityLine, CitiesFileLineError(), list.places, list.errors,
                               &list.encoding);
    return list;
}

int FindPlace(const std::vector<CityRecord>& places, const std::string& name) {
    for (size_t i = 0; i < places.size(); ++i)
        if (places[i].PlaceName == name) return static_cast<int>(i);
    return -1;
}

std::optional<Message> TransferPlace(const CityRecord& c, InputFields& in) {
    // Longitude: "dd?mm" or "ddd?mm".
    const std::string& lon = c.PlaceLong;
    const size_t L = lon.size();
    if (L < 5) return CityFormatError();
    const size_t degLen = L == 5 ? 2 : 3;
    auto lonDeg = Digits(lon.substr(0, degLen));
    if (!lonDeg) return CityFormatError();
    in.txtLongDeg = std::to_string(*lonDeg);
    in.optEast = lon[degLen] == 'E';
    auto lonMin = Digits(lon.substr(L - 2));
    if (!lonMin) return CityFormatError();
    in.txtLongMin = std::to_string(*lonMin);

    auto tz = FieldNumber(c.PlaceTZ);
    if (!tz) return CityFormatError();
    in.txtTZ = NumText(*tz);

    const std::string& lat = c.PlaceLat;
    if (lat.size() < 5) return CityFormatError();
    auto latDeg = Digits(lat.substr(0, 2));
    if (!latDeg) return CityFormatError();
    in.txtLatDeg = std::to_string(*latDeg);
    in.optSouth = lat[2] == 'S';
    auto latMin = Digits(lat.substr(lat.size() - 2));
    if (!latMin) return CityFormatError();
    in.txtLatMin = std::to_string(*latMin);
    return std::nullopt;
}

std::string CityLongitude(int degrees, int minutes, bool east) {
    return (degrees < 100 ? Two(degrees) : std::to_string(degrees)) + (east ? "E" : "W") +
           Two(minutes);
}

std::string CityLatitude(int degrees, int minutes, bool south) {
    return Two(degrees) + (south ? "S" : "N") + Two(minutes);
}

} // namespace kal
