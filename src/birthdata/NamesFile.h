// Names files (*.FIL): reading the list of birth records.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/Message.h"
#include "base/TextFile.h"
#include "birthdata/ListFile.h"
#include "birthdata/Record.h"

namespace kal {

struct NamesList {
    bool opened = false;                        // false: the file could not be read
    std::vector<BirthRecord> records;           // in file order
    Messages errors;                            // one per line that is not a record
    ListLines lines;                            // the line numbers of both
    TextEncoding encoding = TextEncoding::Utf8; // the file's, for writing it back
};

// The error shown for a line of a names file that cannot be read.
Message NamesFileLineError();

// Reads a names file: one record per line; a line whose first field is
// empty ends the list; a line that is not a whole record is reported and
// skipped.
NamesList LoadNamesFile(const std::filesystem::path& file);

// The first record whose name equals `name` exactly, or -1.
int FindRecord(const std::vector<BirthRecord>& records, const std::string& name);

// The names window's state that outlives the window.
struct NamesListState {
    short CurrentRecord = 0;     // record last moved into the input window
    short ListLocked = 0;        // "Lock list" is checked
    short LockedIndex = 0;       // list position re-selected on a reload
    short LockSync = 0;          // the check box is being set by the program
    short KeepInputOnReload = 0; // a reload leaves the input window alone
};

// What a reload of the list selects.
struct ReloadSelection {
    bool select = false; // pick entry `index` (moving it into the input window)
    int index = 0;
    int topRow = 0;      // first visible row of the list
    int lockedIndex = 0; // LockedIndex after the reload
};

// A locked list re-selects its locked position, brought inside the records
// read, and scrolls so that the entry is the thirteenth row; an unlocked
// list, or one reloaded with KeepInputOnReload set, selects nothing.
ReloadSelection LockedReload(bool locked, bool keepInput, int lockedIndex, int count);

} // namespace kal
