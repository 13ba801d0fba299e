// Paging of text written to a file or a printer: the lines in pages, each
// page ended by a line holding a single form feed, with optional empty lines
// at the top of later pages and a footer line under each page. The data
// window's Save and the natal report's Save and Print page their lines here.
#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kal {

// The most lines a page of a file or a print-out holds. Page lengths come
// from OPTIONS.OPT, where a slip of the hand gives 9999999 or "1E+20": a
// length beyond this is held at it, so that such a value cannot fill a file
// with millions of empty lines or keep the program counting for ever. A
// length of 0 or less means a page that never ends, as before.
constexpr float kMaxPageLines = 1000;
inline float PageLinesWithin(float lines) {
    if (std::isnan(lines)) return 0;
    return std::clamp(lines, -kMaxPageLines, kMaxPageLines);
}

// A line holding a single form feed ends a page.
inline bool IsFormFeedLine(std::string_view line) {
    return line == "\f";
}
inline const std::string FormFeedLine = "\f";

struct PageLayout {
    // A line counter starts at `firstCount`; a page ends after the line
    // written while the counter equals `pageEndAt`. The counter goes up by
    // one after every line.
    int firstCount = 1;
    float pageEndAt = 45;
    // Under each page: `footerGap` empty lines and the footer line of the
    // page number p (1 for the first page) before the form feed. `last` is
    // true for the footer of the last page. No footer: neither is written.
    int footerGap = 0;
    std::function<std::string(int page, bool last)> footer;
    // Empty lines at the top of every page after the first; they count as
    // lines of the page.
    float topLines = 0;
    // A form-feed line in the text ends the page there and restarts the
    // count; otherwise it is a line like any other.
    bool textFormFeedsRestart = false;
    enum class End {
        // One form-feed line at the end, unless the text held one.
        FormFeedUnlessTextHadOne,
        // A last page that holds text is padded to the length of a page
        // and gets its footer; a form-feed line ends the file in any case.
        PadLastPage,
    };
    End end = End::FormFeedUnlessTextHadOne;
};

// The lines as they are written: the text with its page breaks.
std::vector<std::string> PagedLines(const std::vector<std::string>& lines,
                                    const PageLayout& layout);

// The pages of paged lines, split at their form-feed lines (which are
// dropped). A trailing empty page is dropped.
std::vector<std::vector<std::string>> SplitAtFormFeeds(const std::vector<std::string>& lines);

} // namespace kal
