#include "base/TextFile.h"

#include <unistd.h>

#include <cctype>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>

#include "base/VbText.h"

namespace kal {

namespace fs = std::filesystem;

std::optional<std::string> ReadFileBytes(const fs::path& file, std::uintmax_t limit) {
    // A device or a pipe would never end (or never start): regular files
    // only, and none larger than the limit.
    std::error_code ec;
    if (!fs::is_regular_file(file, ec)) return std::nullopt;
    const std::uintmax_t size = fs::file_size(file, ec);
    if (ec || size > limit) return std::nullopt;
    std::ifstream in(file, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream ss;
    ss << in.rdbuf();
    if (in.bad()) return std::nullopt;
    return ss.str();
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    ForEachLine(text, [&](std::string_view line) {
        lines.emplace_back(line);
        return true;
    });
    return lines;
}

std::optional<std::vector<std::string>> ReadLines(const fs::path& file) {
    if (std::error_code ec; fs::is_directory(file, ec)) return std::nullopt;
    auto bytes = ReadFileBytes(file);
    if (!bytes) return std::nullopt;
    return SplitLines(*bytes);
}

bool WriteFileBytes(const fs::path& file, std::string_view bytes) {
    return ReplaceFile(file, bytes).ok;
}

bool ReplaceFileBytes(const fs::path& file, std::string_view bytes) {
    return ReplaceFile(file, bytes).ok;
}

WriteResult WriteLines(const fs::path& file, const std::vector<std::string>& lines,
                       std::string_view eol) {
    std::string text;
    for (const auto& l : lines) {
        text += l;
        text += eol;
    }
    return ReplaceFile(file, text);
}

fs::path FindFile(const fs::path& dir, std::string_view name) {
    fs::path exact = dir / std::string(name);
    std::error_code ec;
    if (fs::exists(exact, ec)) return exact;
    auto sameName = [name](std::string_view entry) {
        if (entry.size() != name.size()) return false;
        for (size_t i = 0; i < name.size(); ++i)
            if (std::toupper(static_cast<unsigned char>(entry[i])) !=
                std::toupper(static_cast<unsigned char>(name[i])))
                return false;
        return true;
    };
    for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string& entry = it->path().native();
        const size_t slash = entry.rfind('/');
        if (sameName(std::string_view(entry).substr(slash == std::string::npos ? 0 : slash + 1)))
            return it->path();
    }
    return exact;
}

} // namespace kal
