#include "base/OutputBuffer.h"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>

#include "base/SafeWrite.h"
#include "base/TextFile.h"

namespace kal {

namespace {

// Empties `lines` to their one spare element. The storage of as many lines as
// a few pages need is kept for the appends that follow.
void ClearLines(LineList& lines) {
    constexpr size_t kKept = 2048;
    lines.Clear(kKept);
    lines.AddEmpty();
}

} // namespace

void OutputBuffer::AppendOutLine() {
    AllLines.back() = OutLine;
    AllLines.AddEmpty();
    PageLines.back() = OutLine;
    PageLines.AddEmpty();
}

void OutputBuffer::AppendBlankLine() {
    OutLine.clear();
    AppendOutLine();
}

void OutputBuffer::Append(std::string line) {
    AllLines.back() = line;
    AllLines.AddEmpty();
    PageLines.back() = std::move(line);
    PageLines.AddEmpty();
}

void OutputBuffer::ClearDataPage() {
    ClearLines(PageLines);
}

void OutputBuffer::ClearAllLines() {
    ClearLines(AllLines);
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

Message PageNotWrittenMessage(const std::filesystem::path& file, const std::string& reason) {
    return {"The page could not be written to " + file.string() + " (" + reason +
                "); the file still holds the page before it.",
            "Error!", Icon::Critical};
}

ShownPage ShowDataPage(OutputBuffer& out, const std::filesystem::path& appPath, bool minimised) {
    if (minimised) return {};
    if (out.AllCount() == 0) return {};
    out.AppendBlankLine();
    const std::string text = PageText(out, "\r\n");
    const auto file = LastPagePath(appPath);
    WriteResult w = ReplaceFile(file, text);
    if (!w && w.error == ENOENT) {
        // The program folders are made at start; one removed since is made
        // again.
        std::error_code ec;
        std::filesystem::create_directories(FindFile(appPath, "reports"), ec);
        w = ReplaceFile(file, text);
    }
    if (!w) return {false, PageNotWrittenMessage(file, w.reason)};
    return {true, std::nullopt};
}

} // namespace kal
