// The interpretation texts and PERSONAL.NAM as a user may leave them: the
// same bytes over every file the natal report reads, then the report of the
// example chart (every point's aspects) and its pages as Save writes them.
#include <variant>

#include "FuzzSupport.h"
#include "base/Passages.h"
#include "report/NatalReport.h"

using namespace kal;

namespace {
std::vector<std::string> ReportFiles() {
    std::vector<std::string> files(ReportChapters.begin(), ReportChapters.end());
    files.push_back("RISING.TXT");
    files.push_back("PERSONAL.NAM");
    for (int k = 1; k <= 12; ++k) {
        files.push_back(SignFileName(k));
        files.push_back(HouseFileName(k));
    }
    for (int i = 1; i <= 13; ++i) files.push_back(AspectFileName(i));
    return files;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::vector<std::string> files = ReportFiles();
    Session& s = fuzz::FuzzSession();
    s.options[145] = 1;
    for (const auto& name : files)
        fuzz::WriteInput(FindTextFile(fuzz::Dir(), name).filename().string(), data, size);
    fuzz::Check(s.CmdNatalReport().empty(), "the report's data page is made");
    auto paged = ReportPagedLines(s.report, s.options);
    fuzz::Check(paged.size() >= s.report.ReportLineCount(), "every report line is paged");
    return 0;
}
