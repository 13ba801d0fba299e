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

// Where the items and the refused lines of a list file stand: line numbers
// from 1, one for each item and one for each error, in file order.
struct ListLines {
    std::vector<int> items;
    std::vector<int> errors;
};

// Appends the items of `file` parsed by `parse` (a line -> optional item) to
// `items`, and one `lineError` per line that does not parse; `where`, when
// given, gets their line numbers. The lines are read as UTF-8, or as
// Windows-1252 when the file is not UTF-8 (names and places written by older
// Windows copies); `encoding`, when given, gets which. False when the file
// cannot be read.
template <class Item, class Parse>
bool ReadListFile(const std::filesystem::path& file, Parse parse, const Message& lineError,
                  std::vector<Item>& items, Messages& errors, TextEncoding* encoding = nullptr,
                  ListLines* where = nullptr) {
    auto lines = ReadTextLines(file, encoding);
    if (!lines) return false;
    int number = 0;
    for (const auto& line : *lines) {
        ++number;
        size_t b = line.find_first_not_of(" \t");
        if (b == std::string::npos || line[b] == ',') break;
        auto item = parse(line);
        if (!item) {
            errors.push_back(lineError);
            if (where) where->errors.push_back(number);
            continue;
        }
        items.push_back(std::move(*item));
        if (where) where->items.push_back(number);
    }
    return true;
}

} // namespace kal
