#include "base/TextFile.h"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>

#include "base/VbText.h"

namespace kal {

namespace fs = std::filesystem;

std::optional<std::string> ReadFileBytes(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream ss;
    ss << in.rdbuf();
    if (in.bad()) return std::nullopt;
    return ss.str();
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    std::string cur;
    for (size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '\r') {
            lines.push_back(cur);
            cur.clear();
            if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
        } else if (c == '\n') {
            lines.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    if (!cur.empty()) lines.push_back(cur);
    return lines;
}

std::optional<std::vector<std::string>> ReadLines(const fs::path& file) {
    if (std::error_code ec; fs::is_directory(file, ec)) return std::nullopt;
    auto bytes = ReadFileBytes(file);
    if (!bytes) return std::nullopt;
    return SplitLines(*bytes);
}

bool WriteFileBytes(const fs::path& file, std::string_view bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return !out.fail();
}

bool ReplaceFileBytes(const fs::path& file, std::string_view bytes) {
    fs::path temp = file;
    temp += ".tmp~";
    std::FILE* out = std::fopen(temp.c_str(), "wb");
    if (!out) return false;
    bool written = std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
    written = std::fflush(out) == 0 && written;
    written = fsync(fileno(out)) == 0 && written;
    written = std::fclose(out) == 0 && written;
    std::error_code ec;
    if (written) fs::rename(temp, file, ec);
    if (!written || ec) {
        fs::remove(temp, ec);
        return false;
    }
    return true;
}

bool WriteLines(const fs::path& file, const std::vector<std::string>& lines, std::string_view eol) {
    std::string text;
    for (const auto& l : lines) {
        text += l;
        text += eol;
    }
    return WriteFileBytes(file, text);
}

fs::path FindFile(const fs::path& dir, std::string_view name) {
    fs::path exact = dir / std::string(name);
    std::error_code ec;
    if (fs::exists(exact, ec)) return exact;
    std::string want = Upper(name);
    for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
        if (Upper(it->path().filename().string()) == want) return it->path();
    }
    return exact;
}

} // namespace kal
