#include "shell/Startup.h"

#include <array>
#include <fstream>
#include <system_error>

#include "atlas/PlaceIndex.h"
#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

namespace fs = std::filesystem;

fs::path ExecutableDir() {
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    return ec ? fs::current_path() : exe.parent_path();
}

std::string BuildTitlePrefix() {
    return std::string("Kaltrova ") + "(Tropical zodiac) - ";
}

WheelSize ChooseWheelSize(int screenWidthPx, int twipsPerPixel) {
    if (screenWidthPx == 640) return {640, 1.5};
    if (screenWidthPx == 800) return {800, twipsPerPixel == 12 ? 1.2 : 1.5};
    return {1024, twipsPerPixel == 15 ? 1.5 : 1.2};
}

IntlSettings IntlFromFormats(std::string_view dateFormat, std::string_view timeFormat,
                             const char* iDate, const char* iTime) {
    IntlSettings s;
    auto d = dateFormat.find_first_of("dD");
    auto m = dateFormat.find('M');
    auto y = dateFormat.find_first_of("yY");
    if (y != std::string_view::npos && (m == std::string_view::npos || y < m) &&
        (d == std::string_view::npos || y < d))
        s.DateOrder = 2;
    else if (d != std::string_view::npos && m != std::string_view::npos && d < m)
        s.DateOrder = 1;
    else
        s.DateOrder = 0;
    bool ampm = timeFormat.find_first_of("aA") != std::string_view::npos;
    bool hour24 = timeFormat.find('H') != std::string_view::npos;
    s.TimeFormat = (hour24 && !ampm) ? 1 : 0;
    if (iDate && *iDate) s.DateOrder = static_cast<short>(Val(iDate));
    if (iTime && *iTime) s.TimeFormat = static_cast<short>(Val(iTime));
    return s;
}

std::string ClockCaption(std::string_view prefix, const std::tm& now, short timeFormat) {
    static const std::array<const char*, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::string s(prefix);
    s += FormatNumber(now.tm_mday, "00") + " " + months.at(static_cast<size_t>(now.tm_mon) % 12) +
         " " + std::to_string(now.tm_year + 1900);
    s += "     ";
    std::string mmss = ":" + FormatNumber(now.tm_min, "00") + ":" + FormatNumber(now.tm_sec, "00");
    if (timeFormat == 1) {
        s += FormatNumber(now.tm_hour, "00") + mmss;
    } else {
        int h = now.tm_hour % 12;
        if (h == 0) h = 12;
        s += std::to_string(h) + mmss + (now.tm_hour < 12 ? " AM" : " PM");
    }
    return s;
}

bool HoldsProgramData(const fs::path& dir) {
    std::error_code ec;
    return fs::is_regular_file(FindFile(dir, "NATAL.ORB"), ec);
}

bool IsWritableDir(const fs::path& dir) {
    std::error_code ec;
    if (!fs::is_directory(dir, ec)) return false;
    fs::path probe = dir / ".kaltrova-write-probe";
    {
        std::ofstream f(probe);
        if (!f) return false;
    }
    fs::remove(probe, ec);
    return true;
}

bool CopyProgramData(const fs::path& from, const fs::path& to) {
    std::error_code ec;
    fs::create_directories(to, ec);
    if (!fs::is_directory(to, ec)) return false;
    const fs::path atlasFolder = fs::path(kAtlasFile).parent_path();
    bool ok = true;
    for (fs::recursive_directory_iterator it(from, ec), end; !ec && it != end; it.increment(ec)) {
        fs::path rel = it->path().lexically_relative(from);
        // Fifteen megabytes the program never writes stay where they are.
        std::error_code e1;
        if (Lower(rel.string()) == Lower(atlasFolder.string()) && it->is_directory(e1)) {
            it.disable_recursion_pending();
            continue;
        }
        fs::path target = to / rel;
        std::error_code e2;
        if (fs::exists(fs::symlink_status(target, e2))) continue;
        if (it->is_symlink(e2)) {
            fs::copy_symlink(it->path(), target, e2);
        } else if (it->is_directory(e2)) {
            fs::create_directories(target, e2);
        } else {
            fs::copy_file(it->path(), target, e2);
        }
        if (e2) ok = false;
    }
    return ok && !ec;
}

std::optional<fs::path> ShippedDataDir(const fs::path& exeDir) {
    for (const fs::path& dir : {exeDir, exeDir.parent_path() / "share" / "kaltrova"}) {
        if (HoldsProgramData(dir)) return dir;
    }
    return std::nullopt;
}

fs::path FindAtlasFile(const fs::path& appPath, const fs::path& shippedDir) {
    for (const fs::path& dir : {appPath, shippedDir}) {
        if (dir.empty()) continue;
        std::error_code ec;
        fs::path file = FindFile(dir, std::string(kAtlasFile));
        if (fs::is_regular_file(file, ec)) return file;
    }
    return {};
}

std::optional<fs::path> ResolveAppPath(const fs::path& exeDir, const char* xdgDataHome,
                                       const char* home,
                                       const std::function<bool(const fs::path&)>& writable) {
    std::optional<fs::path> shipped = ShippedDataDir(exeDir);
    if (!shipped) return std::nullopt;
    if (writable(*shipped)) return shipped;

    fs::path userData;
    if (xdgDataHome && *xdgDataHome)
        userData = fs::path(xdgDataHome) / "kaltrova";
    else if (home && *home)
        userData = fs::path(home) / ".local" / "share" / "kaltrova";
    else
        return shipped;
    if (!CopyProgramData(*shipped, userData) && !HoldsProgramData(userData)) return shipped;
    return userData;
}

} // namespace kal
