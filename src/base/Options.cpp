#include "base/Options.h"

#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

float LeadingValue(std::string_view line) {
    return static_cast<float>(Val(line.substr(0, 7)));
}

namespace {
// Option n from line n: stops at the first empty line or after the last
// option. Returns whether to go on.
bool ReadOptionLine(Options& o, int& n, std::string_view line) {
    if (line.empty() || n == Options::Count) return false;
    o.OptionValues[static_cast<size_t>(++n)] = LeadingValue(line);
    return true;
}
} // namespace

void Options::ReadOptionLines(const std::vector<std::string>& lines) {
    int n = 0;
    for (const auto& line : lines)
        if (!ReadOptionLine(*this, n, line)) break;
}

bool Options::ReadOptions(const std::filesystem::path& file) {
    if (std::error_code ec; std::filesystem::is_directory(file, ec)) return false;
    const auto bytes = ReadFileBytes(file);
    if (!bytes) return false;
    int n = 0;
    ForEachLine(*bytes, [&](std::string_view line) { return ReadOptionLine(*this, n, line); });
    return true;
}

} // namespace kal
