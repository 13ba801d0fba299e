#include "wheel/WheelTables.h"

#include <string>

#include "base/TextFile.h"
#include "base/VbText.h"

namespace kal {

size_t ReadWheelNumbers(std::string_view text, short* elements, size_t capacity) {
    size_t n = 0;
    size_t i = 0;
    auto separator = [](char c) {
        return c == ',' || c == '\n' || c == '\r' || c == ' ' || c == '\t';
    };
    while (i < text.size() && n < capacity) {
        while (i < text.size() && separator(text[i])) ++i;
        if (i >= text.size()) break;
        size_t start = i;
        while (i < text.size() && !separator(text[i])) ++i;
        elements[n++] = RoundToShort(Val(text.substr(start, i - start)));
    }
    return n;
}

namespace {

std::optional<Message> LoadOne(const std::filesystem::path& appPath, const char* name,
                               short* elements, size_t capacity, size_t needed) {
    auto file = FindFile(appPath, name);
    auto bytes = ReadFileBytes(file);
    if (!bytes)
        return Message{"Cannot find the file called " + file.string() +
                           ". The chart wheel cannot place its labels without it.",
                       "Error!", Icon::Critical};
    if (ReadWheelNumbers(*bytes, elements, capacity) < needed)
        return Message{"The file " + file.string() + " is shorter than the " +
                           std::to_string(needed) +
                           " numbers the chart wheel needs; the missing ones are 0.",
                       "Error!", Icon::Critical};
    return std::nullopt;
}

} // namespace

std::optional<Message> LoadWheelTables(const std::filesystem::path& appPath, WheelTables& tables) {
    // HCDATA.DAT's last element belongs to no block.
    auto hc =
        LoadOne(appPath, "HCDATA.DAT", tables.CuspLabelPos.data(), tables.CuspLabelPos.size(), 120);
    auto radius = LoadOne(appPath, "RADIUS.DAT", tables.GlyphRadius.data(),
                          tables.GlyphRadius.size(), tables.GlyphRadius.size());
    return hc ? hc : radius;
}

} // namespace kal
