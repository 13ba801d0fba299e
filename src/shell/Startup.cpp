#include "shell/Startup.h"

#include <array>
#include <fstream>
#include <system_error>

#include "atlas/PlaceIndex.h"
#include "base/SafeWrite.h"
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

namespace {

// A program (an ELF file or a script), which is not data to copy.
bool IsProgram(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    char head[4] = {};
    in.read(head, sizeof head);
    const bool elf =
        in.gcount() == 4 && head[0] == 0x7f && head[1] == 'E' && head[2] == 'L' && head[3] == 'F';
    const bool script = in.gcount() >= 2 && head[0] == '#' && head[1] == '!';
    return elf || script;
}

// Files the user changes through the program's editors and commands: kept
// as they are unless empty.
bool UserFile(const fs::path& file) {
    const std::string ext = Upper(file.extension().string());
    const std::string name = Upper(file.filename().string());
    for (const char* e : {".FIL", ".OLD", ".LL", ".ORB", ".NAM", ".INI"})
        if (ext == e) return true;
    return name == "OPTIONS.OPT";
}

bool NeedsCopy(const fs::path& shipped, const fs::path& target) {
    std::error_code ec;
    if (!fs::exists(fs::symlink_status(target, ec))) return true;
    if (!fs::is_regular_file(target, ec) || fs::is_symlink(target, ec)) return false;
    const auto have = fs::file_size(target, ec);
    if (ec) return false;
    const auto want = fs::file_size(shipped, ec);
    if (ec) return false;
    if (have == 0) return want != 0;
    return !UserFile(target) && have != want;
}

} // namespace

CopyReport CopyProgramData(const fs::path& from, const fs::path& to) {
    CopyReport report;
    std::error_code ec;
    fs::create_directories(to, ec);
    if (!fs::is_directory(to, ec)) {
        report.folderMade = false;
        return report;
    }
    const fs::path atlasFolder = fs::path(kAtlasFile).parent_path();
    for (fs::recursive_directory_iterator it(from, ec), end; !ec && it != end; it.increment(ec)) {
        const fs::path rel = it->path().lexically_relative(from);
        const fs::path target = to / rel;
        std::error_code e2;
        // Fifteen megabytes the program never writes stay where they are.
        if (Lower(rel.string()) == Lower(atlasFolder.string()) && it->is_directory(e2)) {
            it.disable_recursion_pending();
            continue;
        }
        if (it->is_symlink(e2)) {
            if (!fs::exists(fs::symlink_status(target, e2)))
                fs::copy_symlink(it->path(), target, e2);
        } else if (it->is_directory(e2)) {
            fs::create_directories(target, e2);
        } else if (it->is_regular_file(e2) && !IsProgram(it->path()) &&
                   NeedsCopy(it->path(), target)) {
            WriteResult w = ReplaceFileWithCopy(it->path(), target);
            if (!w) report.failed.emplace_back(target, w);
            continue;
        } else {
            continue;
        }
        if (e2) report.failed.emplace_back(target, WriteResult{false, e2.message(), e2.value()});
    }
    return report;
}

Messages CopyProblems(const CopyReport& report, const fs::path& to) {
    Messages out;
    if (!report.folderMade)
        out.push_back({"The folder " + to.string() +
                           " cannot be made; the program works in its own folder, where nothing "
                           "can be saved.",
                       "Warning!", Icon::Exclamation});
    for (const auto& [file, why] : report.failed)
        out.push_back({"The file " + file.filename().string() + " could not be copied into " +
                           to.string() + " (" + why.reason +
                           "). It is copied again at the next start.",
                       "Warning!", Icon::Exclamation});
    return out;
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

std::optional<ProgramDirectory>
ResolveAppPath(const fs::path& exeDir, const char* xdgDataHome, const char* home,
               const std::function<bool(const fs::path&)>& writable) {
    std::optional<fs::path> shipped = ShippedDataDir(exeDir);
    if (!shipped) return std::nullopt;
    if (writable(*shipped)) return ProgramDirectory{*shipped, {}};

    fs::path userData;
    if (xdgDataHome && *xdgDataHome)
        userData = fs::path(xdgDataHome) / "kaltrova";
    else if (home && *home)
        userData = fs::path(home) / ".local" / "share" / "kaltrova";
    else
        return ProgramDirectory{*shipped, {}};
    CopyReport report = CopyProgramData(*shipped, userData);
    Messages told = CopyProblems(report, userData);
    if (!HoldsProgramData(userData)) return ProgramDirectory{*shipped, told};
    return ProgramDirectory{userData, told};
}

} // namespace kal
