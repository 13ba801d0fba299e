#include "base/Options.h"

#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

float LeadingValue(std::string_view line) {
    return static_cast<float>(Val(line.substr(0, 7)));
}

void Options::ReadOptionLines(const std::vector<std::string>& lines) {
    int n = 0;
    for (const auto& line : lines) {
        if (line.empty()) break;
        if (++n > Count) break;
        OptionValues[static_cast<size_t>(n)] = LeadingValue(line);
    }
}

bool Options::ReadOptions(const std::filesystem::path& file) {
    auto lines = ReadLines(file);
    if (!lines) return false;
    ReadOptionLines(*lines);
    return true;
}

} // namespace kal
