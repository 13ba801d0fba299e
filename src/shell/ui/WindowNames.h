// The names of the program's windows and of the commands the subsystems'
// window libraries register with the context. A window or command is known
// by one of these constants only: a name written out as text does not
// convert, so a misspelt name does not compile.
#pragma once

#include <QString>

#include <compare>
#include <string_view>

namespace kal::ui {

class WindowName {
  public:
    explicit constexpr WindowName(std::string_view name) : name_(name) {}
    QString text() const { return QString::fromLatin1(name_.data(), qsizetype(name_.size())); }
    constexpr std::string_view view() const { return name_; }
    constexpr auto operator<=>(const WindowName&) const = default;

  private:
    std::string_view name_;
};

class CommandName {
  public:
    explicit constexpr CommandName(std::string_view name) : name_(name) {}
    constexpr std::string_view view() const { return name_; }
    constexpr auto operator<=>(const CommandName&) const = default;

  private:
    std::string_view name_;
};

// Windows, under their documented names (also their objectName).
namespace win {
// The shell: data window, options editor, print window.
inline constexpr WindowName OutputD1{"OutputD1"};
inline constexpr WindowName Options{"Options"};
inline constexpr WindowName PrntFile{"PrntFile"};
// Birth data: input window, names and cities lists with their editors, the
// time-zone list, the atlas lookup.
inline constexpr WindowName InputD{"InputD"};
inline constexpr WindowName Names{"Names"};
inline constexpr WindowName NameEdit{"NameEdit"};
inline constexpr WindowName Geograph{"Geograph"};
inline constexpr WindowName LongLat{"LongLat"};
inline constexpr WindowName TimeZone{"TimeZone"};
inline constexpr WindowName ACS_Atlas{"ACS_Atlas"};
// The chart wheel, its aspects window and the orb file editor.
inline constexpr WindowName Wheels{"Wheels"};
inline constexpr WindowName CWAspect{"CWAspect"};
inline constexpr WindowName OrbsEdit{"OrbsEdit"};
// The browsers.
inline constexpr WindowName MEANINGS{"MEANINGS"};
inline constexpr WindowName Keywords{"Keywords"};
inline constexpr WindowName KEY_WORD{"KEY_WORD"};
// The natal report's viewer and the personal header editor.
inline constexpr WindowName Report{"Report"};
inline constexpr WindowName P_Name{"P_Name"};
// The periphery: about window, tip of the day.
inline constexpr WindowName About{"About"};
inline constexpr WindowName frmTip{"frmTip"};
} // namespace win

// Commands that are not a window of their own.
namespace cmd {
// The natal report (report/ui).
inline constexpr CommandName ReportNatal{"mnuReportNatal"};
// File > "Make new .FIL file" (birthdata/ui).
inline constexpr CommandName NewNamesFile{"mnuFileNewFil"};
// The birth-data windows at start-up, after the Input command's first step
// and at a house-system toggle (birthdata/ui).
inline constexpr CommandName StartupInputWindows{"StartupInputWindows"};
inline constexpr CommandName InputCommandWindows{"InputCommandWindows"};
inline constexpr CommandName HouseToggleWindows{"HouseToggleWindows"};
// The chart wheel drawn again from the chart just calculated (wheel/ui): a
// wheel window that is open starts over in place, as if reopened.
inline constexpr CommandName ReopenWheel{"ReopenWheel"};
} // namespace cmd

} // namespace kal::ui
