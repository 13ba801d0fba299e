// Help texts: a help file from the program directory copied unchanged into
// the data page.
#pragma once

#include <filesystem>
#include <string>

#include "base/Message.h"
#include "base/OutputBuffer.h"

namespace kal {

// Empties the page and fills it with a help file ("\OUTPUTD1.HLP" or
// "OUTPUTD1.HLP", found in `appPath` without regard to case): every line
// unchanged, then one blank line. A missing file gives "Cannot find the file
// called <path>." and leaves the page empty.
Messages HelpTextPage(const std::filesystem::path& appPath, const std::string& helpFileName,
                      OutputBuffer& out);

} // namespace kal
