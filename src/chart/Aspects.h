// Orb files, the three orb tables, the aspect search and the natal aspect
// listing (grid and detail table).
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/FileStamp.h"
#include "base/Message.h"
#include "base/OutputBuffer.h"
#include "chart/Chart.h"

namespace kal {

// Orbs in degrees by aspect number 1..16 (element 0 unused).
using OrbTable = std::array<float, 17>;

// An orb file as last read: where it was found, its stamp, and the orb of
// each line read. The loaders read a file again only when its stamp says
// it may have been written since, so that an edit takes effect at the next
// listing without the file being read for every one.
struct OrbFileCache {
    std::filesystem::path folder; // the folder it was looked for in
    std::filesystem::path exact;  // folder / the name as asked
    std::filesystem::path file;   // where it was found (or exact when missing)
    std::optional<FileStamp> stamp;
    std::vector<float> orbs;
};

struct OrbTables {
    OrbTable NatalOrbs{};
    OrbTable WheelOrbs{};
    OrbTable CareerOrbs{};
    OrbFileCache natalFile, careerFile, wheelFile;
};

// AspectFound(code, later listing position, earlier listing position).
using AspectFoundTable = std::array<std::array<std::array<short, 14>, 14>, 18>;

// Reads orb-file lines into a table: line k is the orb of aspect number k
// (first seven characters), reading stops at the first empty line and after
// 16 lines; entries without a line keep their values.
void ReadOrbLines(const std::vector<std::string>& lines, OrbTable& table);
// The orbs of those lines, one per line read.
std::vector<float> OrbLineValues(const std::vector<std::string>& lines);
// ReadOrbLines on a file; false (table unchanged) when it cannot be read.
bool LoadOrbFile(const std::filesystem::path& file, OrbTable& table);

// The message of a command refused because its orb file cannot be read.
Message OrbFileMissing(const std::filesystem::path& file);

// The three loaders: NatalOrbs from NATAL.ORB, CareerOrbs from
// Dravik_Natal_Orbs.ORB (both in the program directory), WheelOrbs from the
// current orb file. Each returns the refusal message when its file cannot be
// read, leaving the table as it was. A file is read again only when its size
// or modification time changed since it was last read (OrbFileCache).
std::optional<Message> LoadNatalOrbs(const std::filesystem::path& appPath, OrbTables& orbs);
std::optional<Message> LoadCareerOrbs(const std::filesystem::path& appPath, OrbTables& orbs);
std::optional<Message> LoadWheelOrbs(const std::filesystem::path& orbFilePath, OrbTables& orbs);

// The program directory's orb files.
std::filesystem::path NatalOrbPath(const std::filesystem::path& appPath);
// NatalOrbPath as the natal aspect listing last found it (NatalOrbPath
// itself before any listing ran).
std::filesystem::path NatalOrbPath(const std::filesystem::path& appPath, const OrbTables& orbs);
std::filesystem::path CareerOrbPath(const std::filesystem::path& appPath);

// Separation of two longitudes, 0..180.
double Separation(double a, double b);

struct AspectHit {
    int code = 1;   // 1 = no aspect
    double sep = 0; // separation
    double dev = 0; // separation minus the exact angle
};

// The aspect between two longitudes under the given orbs. All comparisons in
// single precision with inclusive bounds; of overlapping orbs the last test
// wins, and the conjunction is tested last.
AspectHit FindAspect(double a, double b, const OrbTable& orbs);

// The natal aspect listing of the natal copy, appended to the page. Loads
// NatalOrbs from the program directory first; refused (nothing appended)
// when that file cannot be read.
Messages ListNatalAspects(const Chart& c, const std::filesystem::path& appPath, OrbTables& orbs,
                          AspectFoundTable& found, OutputBuffer& out);

} // namespace kal
