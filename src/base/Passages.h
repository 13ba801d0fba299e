// Passages of the interpretation and lesson texts. A keyed text file holds
// any number of passages; a passage starts at a heading line whose text,
// after its leading blanks, begins with the key (compared without regard to
// case over the key's length; the rest of the heading is free) and runs to
// the next line that, after its leading blanks, is exactly "*" or "[]". The
// heading belongs to the passage, the end line does not. The natal report,
// the meanings window and the keyword lessons all read their texts here.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Message.h"

namespace kal {

// A line that after its leading blanks is exactly "*" or "[]".
bool IsPassageEnd(std::string_view line);

// A line that after its leading blanks begins with `key`, without regard to
// case. An empty key matches every line.
bool IsPassageHeading(std::string_view line, std::string_view key);

// The search stops at this many consecutive empty lines (lines of no
// characters): a passage is only found before such a run.
inline constexpr int PassageSearchEmptyLimit = 10;

struct Passage {
    size_t heading = 0;             // the heading's line number, from 0
    std::vector<std::string> lines; // the heading and the lines after it
    bool ended = false;             // closed by an end line, not by the end of the file
};

// The passage of `lines` under `key`: nothing when no heading is found before
// the end of the lines or before a run of ten empty lines. A passage whose
// end line is missing runs to the end of the lines.
std::optional<Passage> FindPassage(const std::vector<std::string>& lines, std::string_view key);

// An interpretation or lesson file of the program directory, found by name
// without regard to case. The meanings window names Capricorn by the first
// three letters of its caption ("SIGN_Cap.TXT") where the files, as the
// report names them, carry the sign's abbreviation "Cpr"; either name finds
// the file. A leading "\" or "/" is ignored. When nothing matches, the path
// is dir / name as given (for the missing-file message), Capricorn's under
// the name the file ships as.
std::filesystem::path FindTextFile(const std::filesystem::path& dir, std::string_view name);

// The message of a text file that cannot be opened: "Cannot find the file
// called <path>.", caption "Warning!", critical-stop icon.
Message CannotFindFileMessage(const std::filesystem::path& file);

} // namespace kal
