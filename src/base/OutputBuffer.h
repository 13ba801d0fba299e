// The data window's two line lists. AllLines keeps every line since the last
// clear, PageLines the current page. Each holds its lines and one spare empty
// element after them, so after n appends it has n + 1 elements.
#pragma once

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Message.h"

namespace kal {

// A list of lines whose strings outlive a clear: clearing only forgets how
// many are in use, so the lines appended after it are written into storage
// the list already has instead of being allocated again. It reads like a
// vector of strings (indexing, iteration, comparison, conversion).
class LineList {
  public:
    using value_type = std::string;
    using iterator = const std::string*;
    using const_iterator = const std::string*;
    using size_type = size_t;

    LineList() = default;
    LineList(std::initializer_list<std::string> lines) : store_(lines), size_(store_.size()) {}

    size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    const std::string* data() const { return store_.data(); }
    const std::string* begin() const { return store_.data(); }
    const std::string* end() const { return store_.data() + size_; }
    const std::string& operator[](size_t i) const { return store_[i]; }
    std::string& operator[](size_t i) { return store_[i]; }
    const std::string& front() const { return store_.front(); }
    const std::string& back() const { return store_[size_ - 1]; }
    std::string& back() { return store_[size_ - 1]; }

    // Adds an empty line at the end and gives it.
    std::string& AddEmpty() {
        if (size_ == store_.size()) store_.emplace_back();
        std::string& line = store_[size_++];
        line.clear();
        return line;
    }
    // Forgets the last line.
    void RemoveLast() { --size_; }
    // Forgets the lines, keeping the storage of at most `kept` of them for
    // the lines that follow (a long session's lines are let go).
    void Clear(size_t kept) {
        if (store_.size() > kept) store_.resize(kept);
        size_ = 0;
    }

    operator std::vector<std::string>() const { return {begin(), end()}; }
    friend bool operator==(const LineList& a, const LineList& b) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }
    friend bool operator==(const LineList& a, const std::vector<std::string>& b) {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

  private:
    std::vector<std::string> store_;
    size_t size_ = 0;
};

struct OutputBuffer {
    std::string OutLine;
    LineList AllLines{""};
    LineList PageLines{""};

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
        std::string& line = BeginLine();
        (line.append(std::string_view(parts)), ...);
        EndLine();
    }
    // The line to compose in place, empty: the page's spare element, taken
    // by EndLine. Nothing may be appended between the two.
    std::string& BeginLine() { return PageLines.back(); }
    // Appends the line composed since BeginLine to both lists.
    void EndLine() {
        AllLines.back() = PageLines.back();
        AllLines.AddEmpty();
        PageLines.AddEmpty();
    }
    // Empties the current page.
    void ClearDataPage();
    // Empties AllLines ("Clear all data").
    void ClearAllLines();
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
