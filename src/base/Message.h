// A message the core asks the windows to show: the exact text, caption and
// icon of the message box. The core never shows anything itself.
#pragma once

#include <string>
#include <vector>

namespace kal {

enum class Icon { Information, Exclamation, Critical, Question };

struct Message {
    std::string text;
    std::string caption;
    Icon icon = Icon::Information;

    bool operator==(const Message&) const = default;
};

using Messages = std::vector<Message>;

} // namespace kal
