// The tip of the day: the tips of TIPOFDAY.TXT, one a line, and the number
// of the tip shown, stepped forward and back around the list.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kal {

// The tip file's name in the program directory.
inline constexpr const char* kTipFileName = "TIPOFDAY.TXT";

// What the tip label shows when the file is missing; after "Did you know..."
// the window reads as one sentence.
std::string TipFileMissingText();

class TipList {
  public:
    // Reads the tips (every line that is not blank, in order) and steps to
    // the first one. False, with the list left empty, when the path is empty
    // or the file cannot be read.
    bool LoadTips(const std::filesystem::path& file);

    // One tip on; after the last, the first.
    void NextTip();
    // One tip back; before the first, the last one the file holds (19 in the
    // shipped file, fewer when a user has shortened it).
    void GoBackTip();

    // The tip shown: 1-based, 0 before the first.
    int CurrentTip() const { return current_; }
    int Count() const { return static_cast<int>(tips_.size()); }
    // The text of the current tip; empty when there is none.
    std::string CurrentText() const;

  private:
    std::vector<std::string> tips_;
    int current_ = 0;
};

} // namespace kal
