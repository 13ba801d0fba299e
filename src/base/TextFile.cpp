#include "base/TextFile.h"

#include <algorithm>
#include <cctype>
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

namespace {

// Windows-1252 at 0x80..0x9F; the five codes it leaves free stand for the
// control characters of the same number, as Windows reads them.
constexpr char16_t kHigh1252[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// The next code point of well-formed UTF-8 at `i` (advanced past it), or
// nothing at a malformed sequence.
std::optional<char32_t> NextUtf8(std::string_view s, size_t& i) {
    const auto b0 = static_cast<unsigned char>(s[i]);
    int len = b0 < 0x80           ? 1
              : (b0 >> 5) == 0x6  ? 2
              : (b0 >> 4) == 0xE  ? 3
              : (b0 >> 3) == 0x1E ? 4
                                  : 0;
    if (len == 0 || i + static_cast<size_t>(len) > s.size()) return std::nullopt;
    char32_t c = len == 1 ? b0 : len == 2 ? (b0 & 0x1F) : len == 3 ? (b0 & 0x0F) : (b0 & 0x07);
    for (int k = 1; k < len; ++k) {
        const auto b = static_cast<unsigned char>(s[i + static_cast<size_t>(k)]);
        if ((b & 0xC0) != 0x80) return std::nullopt;
        c = (c << 6) | (b & 0x3F);
    }
    // Overlong forms, surrogates and values beyond Unicode are not UTF-8.
    static constexpr char32_t kMin[5] = {0, 0, 0x80, 0x800, 0x10000};
    if (c < kMin[len] || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return std::nullopt;
    i += static_cast<size_t>(len);
    return c;
}

} // namespace

bool IsUtf8(std::string_view bytes) {
    for (size_t i = 0; i < bytes.size();)
        if (!NextUtf8(bytes, i)) return false;
    return true;
}

DecodedText DecodeText(std::string_view bytes) {
    if (IsUtf8(bytes)) return {std::string(bytes), TextEncoding::Utf8};
    DecodedText d{{}, TextEncoding::Windows1252};
    d.text.reserve(bytes.size() + bytes.size() / 4);
    for (char ch : bytes) {
        const auto b = static_cast<unsigned char>(ch);
        AppendUtf8(d.text, b >= 0x80 && b < 0xA0 ? kHigh1252[b - 0x80] : b);
    }
    return d;
}

std::optional<std::string> EncodeText(std::string_view utf8, TextEncoding encoding) {
    if (encoding == TextEncoding::Utf8) return std::string(utf8);
    std::string out;
    out.reserve(utf8.size());
    for (size_t i = 0; i < utf8.size();) {
        auto c = NextUtf8(utf8, i);
        if (!c) return std::nullopt;
        if (*c < 0x80 || (*c >= 0xA0 && *c < 0x100)) {
            out += static_cast<char>(*c);
            continue;
        }
        const char16_t* at = std::find(std::begin(kHigh1252), std::end(kHigh1252), *c);
        if (at == std::end(kHigh1252)) return std::nullopt;
        out += static_cast<char>(0x80 + (at - std::begin(kHigh1252)));
    }
    return out;
}

std::string EncodeTextOrUtf8(std::string_view utf8, TextEncoding encoding, TextEncoding* used) {
    if (auto bytes = EncodeText(utf8, encoding)) {
        if (used) *used = encoding;
        return *bytes;
    }
    if (used) *used = TextEncoding::Utf8;
    return std::string(utf8);
}

std::optional<std::vector<std::string>> ReadTextLines(const fs::path& file,
                                                      TextEncoding* encoding) {
    if (std::error_code ec; fs::is_directory(file, ec)) return std::nullopt;
    auto bytes = ReadFileBytes(file);
    if (!bytes) return std::nullopt;
    DecodedText d = DecodeText(*bytes);
    if (encoding) *encoding = d.encoding;
    return SplitLines(d.text);
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
