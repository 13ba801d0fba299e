#include "shell/DataFile.h"

#include "base/TextFile.h"

namespace kal {

namespace {

// A buffer line with its own breaks (the aspect detail table) written with
// CR LF throughout.
void AppendLine(std::string& out, std::string_view line) {
    for (char c : line) {
        if (c == '\r') continue;
        if (c == '\n')
            out += "\r\n";
        else
            out += c;
    }
    out += "\r\n";
}

} // namespace

PageLayout DataSaveLayout(float linesPerPage) {
    PageLayout layout;
    layout.firstCount = 1;
    // Option 45, held within a page's bound.
    layout.pageEndAt = PageLinesWithin(linesPerPage);
    layout.textFormFeedsRestart = true;
    layout.end = PageLayout::End::FormFeedUnlessTextHadOne;
    return layout;
}

std::string SavedDataBytes(const std::vector<std::string>& lines, float linesPerPage) {
    std::string out;
    for (const auto& line : PagedLines(lines, DataSaveLayout(linesPerPage))) AppendLine(out, line);
    return out;
}

WriteResult SaveDataFile(const std::filesystem::path& file, const std::vector<std::string>& lines,
                         float linesPerPage) {
    return ReplaceFile(file, SavedDataBytes(lines, linesPerPage));
}

std::string ProposedFileName(std::string_view chartName) {
    auto blank = chartName.find(' ');
    std::string_view stem;
    if (blank != std::string_view::npos && blank + 1 < 9)
        stem = chartName.substr(0, blank);
    else
        stem = chartName.substr(0, 8);
    return std::string(stem) + ".txt";
}

std::filesystem::path PrintFilePath(const std::filesystem::path& appPath) {
    return FindFile(appPath, "PRNTFILE.XXX");
}

WriteResult WritePrintFile(const std::filesystem::path& appPath,
                           const std::vector<std::string>& lines) {
    std::string bytes;
    for (const auto& l : lines) AppendLine(bytes, l);
    return ReplaceFile(PrintFilePath(appPath), bytes);
}

int PrintWidthClass(const std::vector<std::string>& lines, float opt117, float opt118) {
    int cls = 0;
    for (const auto& line : lines) {
        auto len = static_cast<float>(line.size());
        if (len > opt117) {
            cls = 1;
            if (len > opt118) cls = 2;
        }
    }
    return cls;
}

int PrintFontSize(int widthClass) {
    switch (widthClass) {
    case 1:
        return 10;
    case 2:
        return 8;
    default:
        return 12;
    }
}

std::vector<std::vector<std::string>> PrintPages(const std::vector<std::string>& lines,
                                                 float linesPerPage) {
    // Option 30, held within a page's bound.
    linesPerPage = PageLinesWithin(linesPerPage);
    std::vector<std::vector<std::string>> pages(1);
    int counter = 1;
    for (const auto& line : lines) {
        if (IsFormFeedLine(line)) {
            pages.emplace_back();
            counter = 1;
            continue;
        }
        pages.back().push_back(line);
        if (static_cast<float>(counter) != linesPerPage) {
            ++counter;
        } else {
            pages.emplace_back();
            counter = 1;
        }
    }
    if (pages.size() > 1 && pages.back().empty()) pages.pop_back();
    return pages;
}

double FontStep(double wheelScale) {
    return wheelScale / 2;
}

bool IncreaseFontSize(double& size, double wheelScale) {
    if (!CanIncreaseFont(size)) return false;
    size += FontStep(wheelScale);
    return true;
}

bool DecreaseFontSize(double& size, double wheelScale) {
    if (!CanDecreaseFont(size)) return false;
    size -= FontStep(wheelScale);
    return true;
}

Message NoDataToWriteMessage() {
    return {"No data to write to file.", "Information", Icon::Exclamation};
}
Message NoDataToPrintMessage() {
    return {"No data to print.", "Information", Icon::Exclamation};
}
Message AllDataClearedMessage() {
    return {"All data cleared from buffer.", "Information!", Icon::Exclamation};
}
Message CourierMissingMessage() {
    return {"You must have the COURIER NEW font installed in Windows. Please add this font through "
            "CONTROL PANEL - FONTS.",
            "Information!", Icon::Exclamation};
}

} // namespace kal
