// Names files (*.FIL): reading the list of birth records.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "birthdata/Record.h"
#include "shell/Message.h"

namespace kal {

struct NamesList {
    bool opened = false;              // false: the file could not be read
    std::vector<BirthRecord> records; // in file order
    Messages errors;                  // one per line that is not a record
};

// The error shown for a line of a names file that cannot be read.
Message NamesFileLineError();

// Reads a names file: one record per line; a line whose first field is
// empty ends the list; a line that is not a whole record is reported and
// skipped.
NamesList LoadNamesFile(const std::filesystem::path& file);

// The first record whose name equals `name` exactly, or -1.
int FindRecord(const std::vector<BirthRecord>& records, const std::string& name);

} // namespace kal
