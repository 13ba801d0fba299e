#include "report/NatalReport.h"

#include "analyses/NatalData.h"
#include "base/Passages.h"
#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

namespace fs = std::filesystem;

void ReportLines::Append(std::string line) {
    blocks_[BlockOf(count_)].push_back(std::move(line));
    ++count_;
}

void ReportLines::Clear() {
    for (auto& b : blocks_) {
        b.clear();
        b.shrink_to_fit();
    }
    count_ = 0;
}

const std::string& ReportLines::At(size_t n) const {
    return blocks_.at(BlockOf(n)).at(PlaceOf(n));
}

void NatalReport::AppendReportLine() {
    Lines.Append(OutLine);
}

void NatalReport::AppendReportBlank() {
    OutLine.clear();
    AppendReportLine();
}

void NatalReport::AppendReportFile(const fs::path& file) {
    auto lines = ReadLines(file);
    if (!lines) return;
    for (auto& line : *lines) Lines.Append(std::move(line));
}

void NatalReport::AppendReportSection(std::string_view key, const fs::path& file) {
    auto lines = ReadLines(file);
    if (!lines) return;
    auto passage = FindPassage(*lines, key);
    if (!passage) return;
    for (auto& line : passage->lines) Lines.Append(std::move(line));
    if (passage->ended) AppendReportBlank();
}

Messages NatalReportListing(const Chart& c, ListingTables& t, OutputBuffer& out) {
    Messages msgs = NatalDataListing(c, t, out);
    Messages aspects = NatalAspectsListing(c, t, out);
    msgs.insert(msgs.end(), aspects.begin(), aspects.end());
    return msgs;
}

std::vector<std::string> ReadPersonalLines(const fs::path& appPath) {
    return ReadLines(FindFile(appPath, "PERSONAL.NAM")).value_or(std::vector<std::string>{});
}

std::string Centred(std::string_view text, int centre) {
    int pad = centre - static_cast<int>(text.size() / 2);
    return std::string(pad > 0 ? static_cast<size_t>(pad) : 0, ' ') + std::string(text);
}

std::string ReportAspectWord(int a, const Options& options) {
    switch (a) {
    case 3:
        return options[140] == 0 ? "harmonizing with" : "sextile";
    case 4:
        return options[141] == 0 ? "discordant to" : "square";
    case 5:
        return options[140] == 0 ? "harmonizing with" : "trine";
    case 6:
        return options[141] == 0 ? "discordant to" : "opposite";
    default:
        return "blending with";
    }
}

std::string RisingKey(int sign) {
    return Upper(SignName.at(static_cast<size_t>(sign))) + " rising";
}

std::string PlanetInKey(int body) {
    return PlanetName.at(static_cast<size_t>(body)) + " in";
}

std::string SignFileName(int sign) {
    return "SIGN_" + std::string(SignAbbrOf(sign)) + ".TXT";
}

std::string HouseFileName(int house) {
    return "HOUSE_" + std::to_string(house) + ".TXT";
}

std::string AspectFileName(int i) {
    return PlanetKey.at(static_cast<size_t>(i)) + ".TXT";
}

std::string AspectKey(int i, int j, int a, const Options& options) {
    return PlanetKey.at(static_cast<size_t>(i)) + " " + ReportAspectWord(a, options) + " " +
           PlanetKey.at(static_cast<size_t>(j));
}

namespace {

void TitlePage(NatalReport& r, const Chart& c, const ReportInputs& in) {
    for (int k = 0; k < 5; ++k) r.AppendReportBlank();
    r.OutLine = r.ReportTitle;
    r.AppendReportLine();
    r.AppendReportBlank();
    r.OutLine = Centred(Upper(c.ChartName));
    r.AppendReportLine();
    r.AppendReportBlank();
    r.AppendReportBlank();
    r.OutLine = Centred(Upper("  " + ChartDataLine(c, in.dateOrder)), 39);
    r.AppendReportLine();
    // The header lines end at the foot of the first page: the page holds
    // option 131 lines less the option 129 lines of its foot, and the fixed
    // part above is 11 lines.
    const int fixedLines = 11;
    // Page options far out of range are held within a page's bound.
    float gap = PageLinesWithin(in.options[131] - static_cast<float>(r.PersonalLines.size()) -
                                static_cast<float>(fixedLines) - in.options[129]);
    for (int k = 1; static_cast<float>(k) <= gap; ++k) r.AppendReportBlank();
    for (const auto& line : r.PersonalLines) {
        r.OutLine = Centred(line);
        r.AppendReportLine();
    }
}

void Aspects(NatalReport& r, const ReportInputs& in, ReportProgress* progress) {
    // With option 145 the node, the Ascendant and the Midheaven take part.
    const bool allPoints = in.options[145] != 0;
    const int lastFirst = allPoints ? 12 : 10;
    const int lastSecond = allPoints ? 13 : 10;
    for (int i = 1; i <= lastFirst; ++i) {
        fs::path file = FindTextFile(in.appPath, AspectFileName(i));
        for (int j = i; j <= lastSecond; ++j) {
            for (int a = 2; a <= 6; ++a) {
                if (in.aspectFound[static_cast<size_t>(a)][static_cast<size_t>(j)]
                                  [static_cast<size_t>(i)] != 1)
                    continue;
                r.AppendReportSection(AspectKey(i, j, a, in.options), file);
            }
        }
        if (progress) progress->Show(i, lastFirst);
    }
}

} // namespace

void BuildNatalReport(NatalReport& r, const Chart& c, const ReportInputs& in,
                      ReportProgress* progress) {
    auto text = [&](std::string_view name) { return FindTextFile(in.appPath, name); };
    auto chapter = [&](size_t k) { r.AppendReportFile(text(ReportChapters.at(k))); };
    r.PersonalLines = ReadPersonalLines(in.appPath);
    r.Lines.Clear();
    r.ReportTitle = Centred("NATAL REPORT FOR");

    TitlePage(r, c, in);
    r.AppendReportBlank();

    r.AppendReportBlank();
    if (progress) progress->Open();
    chapter(0); // the opening chapter
    r.AppendReportBlank();
    chapter(1); // the rising sign
    r.AppendReportBlank();
    r.AppendReportSection(RisingKey(SignOf(c.NatalLong[Asc])), text("RISING.TXT"));
    r.AppendReportBlank();

    chapter(2); // the signs
    r.AppendReportBlank();
    for (int k : ReportPlanetOrder)
        r.AppendReportSection(PlanetInKey(k),
                              text(SignFileName(SignOf(c.NatalLong[static_cast<size_t>(k)]))));

    r.AppendReportBlank();
    chapter(3); // the houses
    r.AppendReportBlank();
    for (int k : ReportPlanetOrder)
        r.AppendReportSection(PlanetInKey(k), text(HouseFileName(c.HouseNumberOf(k))));

    r.AppendReportBlank();
    chapter(4); // the aspects
    r.AppendReportBlank();
    Aspects(r, in, progress);

    if (progress) progress->Close();
    r.AppendReportBlank();
    chapter(5); // the closing chapter
}

PageLayout ReportPageLayout(const Options& options) {
    PageLayout layout;
    layout.firstCount = 0;
    // Options 131 (page length), 129 (lines at its foot) and 132 (empty
    // lines at the top of later pages), each held within a page's bound.
    layout.pageEndAt = PageLinesWithin(options[131] - options[129]);
    layout.footerGap = 4;
    // The first page's footer is an empty line unless it is also the last.
    layout.footer = [](int page, bool last) {
        return page > 1 || last ? std::string(37, ' ') + "Page " + std::to_string(page)
                                : std::string();
    };
    layout.topLines = options[132] > 0 ? PageLinesWithin(options[132]) : 0;
    layout.textFormFeedsRestart = false;
    layout.end = PageLayout::End::PadLastPage;
    return layout;
}

std::vector<std::string> ReportPagedLines(const NatalReport& report, const Options& options) {
    std::vector<std::string> lines;
    lines.reserve(report.ReportLineCount() + 1);
    for (size_t n = 0; n < report.ReportLineCount(); ++n) lines.push_back(report.ReportLineAt(n));
    lines.emplace_back();
    return PagedLines(lines, ReportPageLayout(options));
}

WriteResult SaveReportFile(const fs::path& file, const NatalReport& report,
                           const Options& options) {
    return WriteLines(file, ReportPagedLines(report, options));
}

} // namespace kal
