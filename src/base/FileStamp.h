// What tells, without reading a file again, that it has not been written
// since it was read: its size and modification time, taken just before
// the read.
//
// A write within the same tick of the filesystem's clock as the one before
// it leaves the modification time as it was (a few milliseconds here, one
// or two seconds on some filesystems), and a write of the same length
// leaves the size. So a stamp whose time was that close to the clock when
// it was taken never vouches for the file: the file is read again the next
// time, until its time lies safely in the past.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace kal {

struct FileStamp {
    std::uintmax_t size = 0;
    std::filesystem::file_time_type time{};
    // The time was older than the clock by more than any filesystem's tick
    // when the stamp was taken.
    bool settled = false;
};

// How far in the past a modification time must lie to be trusted.
inline constexpr std::chrono::seconds StampMargin{5};

// The stamp of a regular file now; nothing when there is none (missing, a
// folder, unreadable metadata).
std::optional<FileStamp> StampFile(const std::filesystem::path& file);

// Whether a file stamped `now` is still what was read under `read`.
bool Unchanged(const FileStamp& read, const FileStamp& now);

} // namespace kal
