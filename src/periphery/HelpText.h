// Help texts: a help file from the program directory copied unchanged into
// the data page.
#pragma once

#include <string>

#include "shell/Message.h"

namespace kal {

struct Session;

// The page of a help file ("\OUTPUTD1.HLP" or "OUTPUTD1.HLP", found in
// AppPath without regard to case): every line unchanged, one blank line,
// then the page is shown. A missing file shows "Cannot find the file called
// <path>." and leaves an empty page.
Messages ShowHelpText(Session& session, const std::string& helpFileName);

} // namespace kal
