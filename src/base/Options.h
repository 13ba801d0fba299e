// The numbered options of OPTIONS.OPT: option n is the number at the start of
// line n (only its first seven characters are read).
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kal {

struct Options {
    static constexpr int Count = 244;
    // Index 0 holds no option; 1..244 are the options.
    std::array<float, Count + 1> OptionValues{};

    float operator[](int n) const { return OptionValues.at(static_cast<size_t>(n)); }
    float& operator[](int n) { return OptionValues.at(static_cast<size_t>(n)); }

    // Reads the options from the lines of a file: stops at the first empty
    // line or after line 244; options not reached keep their values.
    void ReadOptionLines(const std::vector<std::string>& lines);
    // ReadOptionLines on a file; false (and nothing changed) when it cannot
    // be opened.
    bool ReadOptions(const std::filesystem::path& file);
};

// The value at the start of a data-file line: the number read from its first
// seven characters.
float LeadingValue(std::string_view line);

} // namespace kal
