// Cities files (*.LL): one place a line,
//   place,region,longitude,latitude,zone   e.g. "Boston,MA,71W04,42N21,5"
// longitude as 2 or 3 digits of degrees, a direction letter and 2 digits of
// minutes ("E" East, anything else West), latitude as 2 digits, a letter
// ("S" South, anything else North) and 2 digits, the zone West positive.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Message.h"
#include "base/TextFile.h"
#include "chart/InputFields.h"

namespace kal {

struct CityRecord {
    std::string PlaceName; // place and region joined with "," (the list text)
    std::string PlaceLong, PlaceLat, PlaceTZ;
};

struct CitiesList {
    bool opened = false;
    std::vector<CityRecord> places;             // in file order
    Messages errors;                            // one per line that is not a place
    TextEncoding encoding = TextEncoding::Utf8; // the file's, for writing it back
};

Message CitiesFileLineError();
Message CityFormatError();

// One line of a cities file; nothing when it does not hold five fields.
std::optional<CityRecord> ParseCityLine(std::string_view line);
// The line a place is stored as (without line end).
std::string CityLine(const CityRecord& c);

// Reads a cities file; a line whose first field is empty ends the list.
CitiesList LoadCitiesFile(const std::filesystem::path& file);

// The first place whose list text equals `name` exactly, or -1.
int FindPlace(const std::vector<CityRecord>& places, const std::string& name);

// Moves a place's longitude, direction, zone and latitude into the input
// fields (name, date and time are not touched). On a field that cannot be
// read the format error is returned and the remaining fields are skipped.
std::optional<Message> TransferPlace(const CityRecord& c, InputFields& in);

// The coordinate texts of a cities file: "071W04", "05E30" style longitude
// (two digits of degrees below 100), "42N21" latitude; minutes 0..59.
std::string CityLongitude(int degrees, int minutes, bool east);
std::string CityLatitude(int degrees, int minutes, bool south);

} // namespace kal
