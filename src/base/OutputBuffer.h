// The data window's two line lists. AllLines keeps every line since the last
// clear, PageLines the current page. Each holds its lines and one spare empty
// element after them, so after n appends it has n + 1 elements.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Message.h"

namespace kal {

struct OutputBuffer {
    std::string OutLine;
    std::vector<std::string> AllLines{""};
    std::vector<std::string> PageLines{""};

    size_t AllCount() const { return AllLines.size() - 1; }
    size_t PageCount() const { return PageLines.size() - 1; }

    // Appends OutLine to both lists.
    void AppendOutLine();
    // Appends an empty line to both lists.
    void AppendBlankLine();
    // Appends a line composed elsewhere to both lists, as AppendOutLine
    // would from OutLine (OutLine itself is left as it was).
    void Append(std::string line);
    // Appends the line made of `parts` (anything a string_view is made
    // from), composed in place in the lines' own storage; no part may be a
    // view of the buffer's own lines.
    template <class... Parts> void AppendJoined(const Parts&... parts) {
        std::string& line = PageLines.back();
        line.clear();
        (line.append(std::string_view(parts)), ...);
        AllLines.back() = line;
        NextAllLine();
        NextPageLine();
    }
    // Empties the current page.
    void ClearDataPage();
    // Empties AllLines ("Clear all data").
    void ClearAllLines();

  private:
    // The next spare element of AllLines: a line emptied by the last clear,
    // so that copying a line into it reuses that line's storage.
    void NextAllLine();
    // The same for PageLines.
    void NextPageLine();
    std::vector<std::string> emptied_, emptiedPage_;
};

// The page file the data window shows.
std::filesystem::path LastPagePath(const std::filesystem::path& appPath);

// What ShowDataPage did.
struct ShownPage {
    bool shown = false; // the page is complete and in reports/LASTPAGE.TXT
    // The page is complete but the file could not take it (the file keeps
    // the page before, whole): the message to show.
    std::optional<Message> notWritten;

    explicit operator bool() const { return shown; }
};

// Shows the page: when AllLines holds anything, appends the closing blank line
// and writes PageLines (spare element included) to reports/LASTPAGE.TXT with
// CR LF. A minimised data window, or an empty buffer, shows nothing.
ShownPage ShowDataPage(OutputBuffer& out, const std::filesystem::path& appPath,
                       bool minimised = false);
// The message for a page that could not be written to its file.
Message PageNotWrittenMessage(const std::filesystem::path& file, const std::string& reason);

// The text ShowDataPage writes, with the given line end.
std::string PageText(const OutputBuffer& out, const std::string& eol);

} // namespace kal
