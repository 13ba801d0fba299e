// Writing files so that a full disk, a read-only folder or a crash never
// leaves a file cut short: the new content goes into a temporary file in the
// same folder, is flushed to the disk, and only then takes the file's name.
// When any step fails the file is as it was, the temporary file is gone and
// the caller gets the reason in words to show the user.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "base/Message.h"

namespace kal {

struct WriteResult {
    bool ok = true;
    std::string reason; // why it failed: "the disk is full"
    int error = 0;      // the system's error number of the failure

    explicit operator bool() const { return ok; }
};

// Replaces `file` with `bytes` (or creates it). A file that is a symbolic
// link has its target replaced. The new file keeps the old one's
// permissions; a new file gets the ones the user's umask gives.
WriteResult ReplaceFile(const std::filesystem::path& file, std::string_view bytes);

// Replaces `to` with a copy of the regular file `from`, the same way.
WriteResult ReplaceFileWithCopy(const std::filesystem::path& from, const std::filesystem::path& to);

// Writes `file` where it stands and flushes it to the disk: for a temporary
// file of the caller's own that the caller renames afterwards. On failure
// the half-written file is removed.
WriteResult WriteFileFlushed(const std::filesystem::path& file, std::string_view bytes);

// Renames `from` to `to` (replacing `to`) and flushes the folder entry.
WriteResult RenameFile(const std::filesystem::path& from, const std::filesystem::path& to);

// Gives the file `from` the second name `to` (replacing `to`), so that both
// names hold the same content and `from` never leaves its place; where the
// disk cannot give a file two names (another disk, a FAT stick), `to` gets a
// copy written through a temporary file.
WriteResult LinkFile(const std::filesystem::path& from, const std::filesystem::path& to);

// The message for a file that could not be written: its name, the reason,
// and that the file on the disk was left as it was.
Message WriteFailedMessage(const std::filesystem::path& file, const WriteResult& result);

// The reason in words for a system error number.
std::string WriteErrorReason(int errorNumber);

// --- fault injection -----------------------------------------------------
// The steps of a write at which a fault can be injected.
enum class WriteStep {
    Create, // the temporary (or in-place) file is created
    Write,  // a block of data is written (once per block of up to 64 KiB)
    Sync,   // the data is flushed to the disk
    Rename, // a file takes its new name
    Link,   // a file gets a second name (a backup)
};

// Asked before each step with the step and the file the step works on; a
// nonzero result is the system error number the step then fails with.
using WriteFaultHook = std::function<int(WriteStep step, const std::filesystem::path& file)>;

// Installs a hook for every later write of the process (an empty hook
// removes it) and returns the previous one. Tests use it to prove that a
// failure at any step leaves the old file whole.
WriteFaultHook SetWriteFaultHook(WriteFaultHook hook);

} // namespace kal
