// The plain-text editors of data files (options, orbs, personal header)
// share one pattern: the file is shown line by line, Save rewrites it with
// the text less its final line break.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/Message.h"
#include "base/SafeWrite.h"

namespace kal {

// The editor's text for the lines of a file: each line followed by "\n".
std::string EditorText(const std::vector<std::string>& lines);
// The bytes Save writes for an editor's text ("\n" line breaks): CR LF
// line ends, every line ended by one, the text's own final line break not
// doubled; an empty text empties the file.
std::string EditorSaveBytes(std::string_view text);

// Copies OPTIONS.MST over OPTIONS.OPT through a temporary file; on failure
// (the master copy missing, the disk full) OPTIONS.OPT is as it was.
WriteResult RestoreDefaultOptions(const std::filesystem::path& appPath);
Message RestoreFailedMessage();
// The main menu's checks that the options and header files can be opened.
Message OptionsFileNotFoundMessage();
Message HeaderFileNotFoundMessage();

} // namespace kal
