// Start-up values that come from the machine: the wheel size constants from
// the screen, the regional date order and clock from the locale's formats,
// the caption clock, and the program directory (the folder holding the data
// files, or a writable copy of it in the user's data folder).
#pragma once

#include <ctime>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Message.h"
#include "base/SafeWrite.h"

namespace kal {

// The folder of the running program (the current folder when it cannot be
// told).
std::filesystem::path ExecutableDir();

// The caption prefix of the main window and the other windows.
std::string BuildTitlePrefix();

struct WheelSize {
    double WheelScreenW = 1024;
    double WheelScale = 1.5;
};
// The wheel size constants for a screen width in pixels and the twips per
// horizontal pixel.
WheelSize ChooseWheelSize(int screenWidthPx, int twipsPerPixel);

struct IntlSettings {
    short DateOrder = 0;  // 0 month-day-year, 1 day-month-year, 2 year-month-day
    short TimeFormat = 0; // 0 12-hour clock, 1 24-hour clock
};
// The regional settings from a locale's short date format ("M/d/yy",
// "dd.MM.yyyy", "yyyy-MM-dd") and time format ("h:mm AP", "HH:mm"). The
// texts `iDate` / `iTime`, when given (the KALTROVA_IDATE / KALTROVA_ITIME
// environment variables), override them as numbers.
IntlSettings IntlFromFormats(std::string_view dateFormat, std::string_view timeFormat,
                             const char* iDate = nullptr, const char* iTime = nullptr);

// The main window's caption: prefix, the date "dd Mmm yyyy", five blanks and
// the time ("14:03:27" on a 24-hour clock, "2:03:27 PM" on a 12-hour one).
std::string ClockCaption(std::string_view prefix, const std::tm& now, short timeFormat);

// True when `dir` holds the program's data files.
bool HoldsProgramData(const std::filesystem::path& dir);
// True when a file can be created in `dir`.
bool IsWritableDir(const std::filesystem::path& dir);

// What copying the shipped files into the user's folder did.
struct CopyReport {
    bool folderMade = true;
    // The files that could not be copied, with the reason.
    std::vector<std::pair<std::filesystem::path, WriteResult>> failed;

    explicit operator bool() const { return folderMade && failed.empty(); }
};
// Copies the shipped files of `from` into `to` (links as links; programs
// and the atlas, which the program only reads where it was shipped, left
// out), each through a temporary file so that a full disk leaves no
// empty or cut file behind. A file `to` already holds is kept, unless it is
// empty while the shipped one is not, or it is a file the program only
// reads (help and interpretation texts, tables, OPTIONS.MST ...) whose size
// differs from the shipped one: those are repaired.
CopyReport CopyProgramData(const std::filesystem::path& from, const std::filesystem::path& to);

// The message for each file a copy could not make.
Messages CopyProblems(const CopyReport& report, const std::filesystem::path& to);

struct ProgramDirectory {
    std::filesystem::path path;
    Messages messages; // what the user is told (files that could not be copied)
};

// The folder the data files were shipped in: the executable's folder or
// ../share/kaltrova beside it, the first that holds them.
std::optional<std::filesystem::path> ShippedDataDir(const std::filesystem::path& exeDir);

// The atlas file: the program directory's, else that of the folder the data
// was shipped in (a read-only install, whose user copy has none). Empty
// when neither has one.
std::filesystem::path FindAtlasFile(const std::filesystem::path& appPath,
                                    const std::filesystem::path& shippedDir);

// The program directory: the first of the executable's folder and
// ../share/kaltrova beside it that holds the data. When that folder is not
// writable, the user's data folder ($XDG_DATA_HOME/kaltrova, or
// $HOME/.local/share/kaltrova) receives the shipped files it lacks (or
// holds damaged) and is used instead. Nothing when no data folder is found.
// `writable` decides whether a folder can be written (IsWritableDir).
std::optional<ProgramDirectory>
ResolveAppPath(const std::filesystem::path& exeDir, const char* xdgDataHome, const char* home,
               const std::function<bool(const std::filesystem::path&)>& writable = IsWritableDir);

} // namespace kal
