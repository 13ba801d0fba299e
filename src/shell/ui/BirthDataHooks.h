// Every place where the main window reaches the birth-data windows
// (InputD, Names, NameEdit, Geograph, LongLat, TimeZone). The bodies live in
// BirthDataHooks.cpp, beside those windows' owners.
#pragma once

namespace kal::ui {

class AppContext;

// Registers the birth-data windows with the context (start-up, before the
// main window opens).
void RegisterBirthDataWindows(AppContext& ctx);

// Start-up step 16: KeepInputOnReload = 1, show InputD, give the focus to
// Names. (The flags KeepInputOnReload, ListLocked and LockSync are cleared
// here too; start-up does nothing with them in between.)
void StartupBirthDataWindows(AppContext& ctx);

// The Input command after its first step (UpdateMode, AllLines and the
// output file name are already reset): clear KeepInputOnReload unless the
// chart's name is "Now"; unload Wheels, CWAspect, MEANINGS and OutputD1;
// show InputD; unload, load and show Names; fill the date and time from the
// clock when the name field holds "Now".
void InputCommandWindows(AppContext& ctx);

// House-system toggle step 2: hide InputD, Names and Geograph; unload
// TimeZone and frmTip.
void HouseToggleHideWindows(AppContext& ctx);

// Moves what the input window shows into Session::input before a
// calculation from the data last entered (house-system toggle step 4).
void CollectInputFields(AppContext& ctx);

// File > "&Make new .FIL file".
void MakeNewNamesFile(AppContext& ctx);

} // namespace kal::ui
