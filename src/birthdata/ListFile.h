// Reading a list file of the birth-data windows (names files, cities files):
// one item per line, the first line whose first field is empty ends the
// list, and a line that is not an item is reported and skipped.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/Message.h"
#include "base/TextFile.h"

namespace kal {

// Appends the items of `file` parsed by `parse` (a line -> optional item) to
// `items`, and one `lineError` per line that does not parse. False when the
// file cannot be read.
template <class Item, class Parse>
bool ReadListFile(const std::filesystem::path& file, Parse parse, const Message& lineError,
                  std::vector<Item>& items, Messages& errors) {
    auto lines = ReadLines(file);
    if (!lines) return false;
    for (const auto& line : *lines) {
        size_t b = line.find_first_not_of(" \t");
        if (b == std::string::npos || line[b] == ',') break;
        auto item = parse(line);
        if (!item) {
            errors.push_back(lineError);
            continue;
        }
        items.push_back(std::move(*item));
    }
    return true;
}

} // namespace kal
