#include "base/OutputBuffer.h"

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
    OutLine = std::move(line);
    AppendOutLine();
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
    std::string text;
    for (const auto& l : out.PageLines) {
        // A line may carry its own CR LF breaks; they take the same line end.
        for (char c : l) {
            if (c == '\r') continue;
            if (c == '\n')
                text += eol;
            else
                text += c;
        }
        text += eol;
    }
    return text;
}

bool ShowDataPage(OutputBuffer& out, const std::filesystem::path& appPath, bool minimised) {
    if (minimised) return false;
    if (out.AllCount() == 0) return false;
    out.AppendBlankLine();
    std::error_code ec;
    std::filesystem::create_directories(FindFile(appPath, "reports"), ec);
    return WriteFileBytes(LastPagePath(appPath), PageText(out, "\r\n"));
}

} // namespace kal
