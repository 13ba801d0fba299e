// The natal report: a title page and a body assembled from the
// interpretation texts of the program directory (chapters copied whole,
// and the passage of a keyed file that fits the chart), kept as a list of
// lines that the report viewer pages, saves and prints.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "analyses/Listings.h"
#include "base/Options.h"
#include "base/Pages.h"
#include "base/SafeWrite.h"
#include "chart/Aspects.h"
#include "chart/Chart.h"

namespace kal {

// The report's lines, appended one at a time and kept in blocks of 100 so
// that each append grows a short list: line n lies in block n / 100 for the
// first 24 blocks, and block 24 holds every line from 2400 on.
class ReportLines {
  public:
    static constexpr size_t BlockSize = 100;
    static constexpr size_t LastBlock = 24;

    void Append(std::string line);
    void Clear();
    size_t Count() const { return count_; }
    // Line n, 0 <= n < Count().
    const std::string& At(size_t n) const;
    // The block that holds line n, and its place there.
    static size_t BlockOf(size_t n) {
        return n / BlockSize < LastBlock ? n / BlockSize : LastBlock;
    }
    static size_t PlaceOf(size_t n) { return n - BlockOf(n) * BlockSize; }
    const std::vector<std::string>& Block(size_t k) const { return blocks_.at(k); }

  private:
    std::array<std::vector<std::string>, LastBlock + 1> blocks_;
    size_t count_ = 0;
};

// How far the report's aspects have got; the windows show it in the
// progress window.
class ReportProgress {
  public:
    virtual ~ReportProgress() = default;
    // Opens the progress window with an empty bar.
    virtual void Open() = 0;
    virtual void Show(int done, int total) = 0;
    virtual void Close() = 0;
};

struct NatalReport {
    ReportLines Lines;
    // The report's data page after its header: the natal data and the natal
    // aspects, which also fill the aspect table the report reads.
    Messages NatalReportListing(const Chart& c, ListingTables& t, OutputBuffer& out);

    // The lines of PERSONAL.NAM, centred at the foot of the title page.
    std::vector<std::string> PersonalLines;
    std::string ReportTitle;
    std::string OutLine;

    size_t ReportLineCount() const { return Lines.Count(); }
    const std::string& ReportLineAt(size_t n) const { return Lines.At(n); }

    // Appends OutLine.
    void AppendReportLine();
    // Appends an empty line.
    void AppendReportBlank();
    // Appends every line of a file unchanged; a file that cannot be read
    // adds nothing.
    void AppendReportFile(const std::filesystem::path& file);
    // Appends the passage of `file` under `key`, then one blank line. A key
    // that is not found, or a file that cannot be read, adds nothing; a
    // passage without an end line runs to the end of the file and gets no
    // blank line.
    void AppendReportSection(std::string_view key, const std::filesystem::path& file);
};

// What the report reads besides the chart.
struct ReportInputs {
    const std::filesystem::path& appPath;
    const Options& options;
    int dateOrder = 0;
    // Filled by the natal aspects listing of the report's data page.
    const AspectFoundTable& aspectFound;
};

// The report's data page after its header: the natal data and the natal
// aspects, which also fill the aspect table the report reads.
Messages NatalReportListing(const Chart& c, ListingTables& t, OutputBuffer& out);

// The lines of PERSONAL.NAM in the program directory; none when it is
// missing.
std::vector<std::string> ReadPersonalLines(const std::filesystem::path& appPath);

// Text centred on a line of 80 columns: preceded by `centre` - Int(Len / 2)
// blanks (none when that is not above 0).
std::string Centred(std::string_view text, int centre = 40);

// The aspect word of aspect index a (2 conjunction .. 6 opposition): the
// sextile and trine harmonize unless option 140 names them, the square and
// opposition are discordant unless option 141 names them.
std::string ReportAspectWord(int a, const Options& options);

// The files and keys of the report's body. Files are named as they lie in
// the program directory (found there without regard to case).
// "CAPRICORN rising" in RISING.TXT for a sign 1..12.
std::string RisingKey(int sign);
// "Sun in" .. "Pluto in" for a body 1..10.
std::string PlanetInKey(int body);
// "SIGN_Ari.TXT" .. "SIGN_Pis.TXT" (Capricorn "SIGN_Cpr.TXT").
std::string SignFileName(int sign);
// "HOUSE_1.TXT" .. "HOUSE_12.TXT".
std::string HouseFileName(int house);
// The file of the aspects of the point at listing position i: "Sun.TXT",
// "Moon.TXT" .. "N_Node.TXT", "Asc.TXT", "M_Heaven.TXT".
std::string AspectFileName(int i);
// "Sun square Saturn": positions i and j, aspect index a (2..6).
std::string AspectKey(int i, int j, int a, const Options& options);
// The planets of the signs and houses in the report's order: the Sun, the
// Moon, then Mercury to Pluto.
inline constexpr std::array<int, 10> ReportPlanetOrder = {Sun,     Moon,   Mercury, Venus,   Mars,
                                                          Jupiter, Saturn, Uranus,  Neptune, Pluto};
// The chapters copied whole, in the report's order.
inline constexpr std::array<std::string_view, 6> ReportChapters = {
    "PHILO.HLP", "ASCSIGN.TXT", "SIGN.TXT", "HOUSE.TXT", "ASPECT.TXT", "CLOSING.TXT"};

// Builds the report anew: reads PERSONAL.NAM, writes the title page, one
// blank line and the body. `progress` may be null.
void BuildNatalReport(NatalReport& report, const Chart& c, const ReportInputs& in,
                      ReportProgress* progress);

// How the report is paged in files and print-outs: option 131 - option 129
// report lines a page (the first page one more), four empty lines and the
// footer "Page p" after 37 blanks (an empty line under the first page), a
// form feed, and option 132 empty lines at the top of every later page. The
// last page is padded and numbered.
PageLayout ReportPageLayout(const Options& options);
// Lines 0 .. ReportLineCount (the last one the empty line after the report)
// with the report's page breaks: what Save writes and Print prints.
std::vector<std::string> ReportPagedLines(const NatalReport& report, const Options& options);
// Writes the paged report with CR LF line ends, replacing the file (the
// old one stays whole when the write fails).
WriteResult SaveReportFile(const std::filesystem::path& file, const NatalReport& report,
                           const Options& options);

} // namespace kal
