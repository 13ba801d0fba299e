#include "base/FileStamp.h"

namespace kal {

std::optional<FileStamp> StampFile(const std::filesystem::path& file) {
    std::error_code ec;
    FileStamp s;
    s.size = std::filesystem::file_size(file, ec);
    if (ec) return std::nullopt;
    s.time = std::filesystem::last_write_time(file, ec);
    if (ec) return std::nullopt;
    s.settled = s.time + StampMargin < std::filesystem::file_time_type::clock::now();
    return s;
}

bool Unchanged(const FileStamp& read, const FileStamp& now) {
    return read.settled && read.size == now.size && read.time == now.time;
}

} // namespace kal
