// "Save to disk" of the natal input window: the new record built from the
// input fields and written into a names file, replacing or keeping a record
// of the same name as the caller decides. The file is rewritten through a
// temporary copy and the old file is kept as its ".OLD" backup; when a step
// fails the names file is left as it was.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "base/Message.h"
#include "base/SafeWrite.h"
#include "birthdata/Record.h"
#include "chart/InputFields.h"

namespace kal {

// The warning for a name holding a comma.
Message CommaInNameMessage();
// The question asked when the names file already holds a record of the same
// name (compared without regard to case): Yes replaces it, No keeps both.
Message DuplicateQuestion(const BirthRecord& existing);
// The message for a save that could not be completed.
Message SaveFailedMessage(const std::filesystem::path& target, const std::string& reason);
// The message for input fields whose date cannot be read.
Message SaveDateMessage();

// The record the input fields give: date "dd mmm yyyy" read from the three
// date fields in `dateOrder`, time "##.#0", longitude "#00#.#0" West
// positive, latitude "#0#.#0" North positive, always with a decimal point.
// Nothing when the date fields do not make a date.
std::optional<BirthRecord> RecordFromInput(const InputFields& in, int dateOrder);

// The backup of a names file: its full path with the last three characters
// replaced by "OLD".
std::filesystem::path BackupPath(const std::filesystem::path& target);

// Answers the duplicate question for an existing record: true = replace.
using ReplaceQuestion = std::function<bool(const BirthRecord& existing)>;

struct SaveResult {
    bool saved = false;
    Messages messages; // what to show (empty after a clean save)
};

// Writes `rec` into `target`: the records already there are copied into
// `tempFile` (a record whose name matches the new one is left out when
// `replace` answers true), the new record is added at the end, the copy is
// flushed to the disk, then the old file becomes the backup and the copy
// takes its place. A missing target is created; an existing one keeps its
// encoding (Windows-1252 or UTF-8). On any failure the target keeps its
// content and the reason is reported.
SaveResult SaveRecord(const BirthRecord& rec, const std::filesystem::path& target,
                      const std::filesystem::path& tempFile, const ReplaceQuestion& replace);

// The whole "Save to disk": comma check, record from the fields, SaveRecord
// with the temporary file "wfyert.hyq" of the program directory.
SaveResult SaveInputRecord(const InputFields& in, int dateOrder,
                           const std::filesystem::path& appPath,
                           const std::filesystem::path& target, const ReplaceQuestion& replace);

// The one line of a new names file (with its line end).
std::string NewNamesFileContent();
// Creates (or replaces) a names file holding the example record.
WriteResult WriteNewNamesFile(const std::filesystem::path& file);

} // namespace kal
