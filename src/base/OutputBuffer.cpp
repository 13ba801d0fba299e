#include "base/OutputBuffer.h"

#include <algorithm>
#include <string_view>
#include <system_error>

#include "base/TextFile.h"

namespace kal {

void OutputBuffer::AppendOutLine() {
    AllLines.back() = OutLine;
    AllLines.emplace_back();
    PageLines.back() = OutLine;
    PageLines.emplace_back();
}

void OutputBuffer::AppendBlankLine() {
    OutLine.clear();
    AppendOutLine();
}

void OutputBuffer::Append(std::string line) {
    AllLines.back() = line;
    AllLines.emplace_back();
    PageLines.back() = std::move(line);
    PageLines.emplace_back();
}

void OutputBuffer::ClearDataPage() {
    PageLines.assign(1, std::string());
}

void OutputBuffer::ClearAllLines() {
    AllLines.assign(1, std::string());
}

std::filesystem::path LastPagePath(const std::filesystem::path& appPath) {
    return FindFile(FindFile(appPath, "reports"), "LASTPAGE.TXT");
}

std::string PageText(const OutputBuffer& out, const std::string& eol) {
    size_t size = 0;
    for (const auto& l : out.PageLines) size += l.size() + eol.size();
    std::string text;
    text.reserve(size + size / 8);
    for (const std::string& l : out.PageLines) {
        // A line may carry its own CR LF breaks; they take the same line end.
        // The text between breaks is copied a piece at a time.
        std::string_view rest = l;
        for (;;) {
            const size_t at = std::min(rest.find('\r'), rest.find('\n'));
            if (at == std::string_view::npos) break;
            text.append(rest.substr(0, at));
            if (rest[at] == '\n') text += eol;
            rest.remove_prefix(at + 1);
        }
        text.append(rest);
        text += eol;
    }
    return text;
}

bool ShowDataPage(OutputBuffer& out, const std::filesystem::path& appPath, bool minimised) {
    if (minimised) return false;
    if (out.AllCount() == 0) return false;
    out.AppendBlankLine();
    const std::string text = PageText(out, "\r\n");
    if (WriteFileBytes(LastPagePath(appPath), text)) return true;
    // The program folders are made at start; one removed since is made
    // again.
    std::error_code ec;
    std::filesystem::create_directories(FindFile(appPath, "reports"), ec);
    return WriteFileBytes(LastPagePath(appPath), text);
}

} // namespace kal
