// Whole-file text reading and writing. Files are read with CR LF or LF line
// ends and written with CR LF; data files are found by name without regard
// to case.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/SafeWrite.h"

namespace kal {

// The lines of a file (without their line ends), or nothing when the file
// cannot be opened. A final line without a line end is kept; the empty text
// after a final line end is not a line.
std::optional<std::vector<std::string>> ReadLines(const std::filesystem::path& file);

// The largest file ReadFileBytes reads.
inline constexpr std::uintmax_t MaxReadBytes = 64u << 20;

// The whole file as bytes, or nothing when it cannot be opened, is not a
// regular file (a folder, a device, a pipe) or is larger than `limit`.
std::optional<std::string> ReadFileBytes(const std::filesystem::path& file,
                                         std::uintmax_t limit = MaxReadBytes);

// The encodings of the text files the program reads and writes back: its
// own UTF-8, and the Windows-1252 of files written by older Windows copies.
enum class TextEncoding { Utf8, Windows1252 };

// True when the bytes are well-formed UTF-8.
bool IsUtf8(std::string_view bytes);

// Text as the program holds it (UTF-8) with the encoding its file had:
// bytes that are not UTF-8 are read as Windows-1252.
struct DecodedText {
    std::string text;
    TextEncoding encoding = TextEncoding::Utf8;
};
DecodedText DecodeText(std::string_view bytes);

// UTF-8 text as bytes of `encoding`; nothing when a character has no place
// in it.
std::optional<std::string> EncodeText(std::string_view utf8, TextEncoding encoding);
// UTF-8 text as bytes of `encoding` where every character has a place in
// it, else as UTF-8 (nothing is lost); `used` gets the encoding written.
std::string EncodeTextOrUtf8(std::string_view utf8, TextEncoding encoding,
                             TextEncoding* used = nullptr);

// The lines of a text file decoded to UTF-8 (DecodeText), or nothing when
// it cannot be read; `encoding` gets the file's encoding.
std::optional<std::vector<std::string>> ReadTextLines(const std::filesystem::path& file,
                                                      TextEncoding* encoding = nullptr);

// Splits text into lines at CR LF, LF or a lone CR.
std::vector<std::string> SplitLines(std::string_view text);

// Calls f with each line of text as SplitLines would give it, without
// copying, until f returns false.
template <class F> void ForEachLine(std::string_view text, F f) {
    size_t start = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c != '\r' && c != '\n') continue;
        if (!f(text.substr(start, i - start))) return;
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        start = i + 1;
    }
    if (start < text.size()) f(text.substr(start));
}

// Writes each line followed by `eol`, replacing the file through a flushed
// temporary file (ReplaceFile): on failure the old file is left whole.
WriteResult WriteLines(const std::filesystem::path& file, const std::vector<std::string>& lines,
                       std::string_view eol = "\r\n");

// The entry of `dir` whose name equals `name` without regard to case; when
// none exists, dir / name (so that a new file gets the name as given).
std::filesystem::path FindFile(const std::filesystem::path& dir, std::string_view name);

} // namespace kal
