// The wheel's two tables read at start-up: HCDATA.DAT, the places of the
// cusp labels, and RADIUS.DAT, the radius of the planet glyphs by angle.
// Both are whole numbers read one after another (separated by commas or
// line ends) into consecutive elements from element 0.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string_view>

#include "base/Message.h"

namespace kal {

struct WheelTables {
    // Twelve blocks of ten, block k (k = 1..12, the cusp of CuspTable index
    // k) holding five (x, y) places: degree tens, degree units, sign glyph,
    // minute tens, minute units. The last element is not used.
    std::array<short, 121> CuspLabelPos{};
    // Element a: the radius at which a glyph whose angle rounds to a degrees
    // is printed.
    std::array<short, 361> GlyphRadius{};

    // The place of character j (0..4) of the label of cusp index k.
    double LabelX(int k, int j) const {
        return CuspLabelPos[static_cast<size_t>(10 * (k - 1) + 2 * j)];
    }
    double LabelY(int k, int j) const {
        return CuspLabelPos[static_cast<size_t>(10 * (k - 1) + 2 * j + 1)];
    }
};

// Reads the numbers of a table text into `elements` from element 0, until
// the text or the array ends. Returns how many elements were read; elements
// not read keep their values.
template <size_t N> size_t ReadWheelTable(std::string_view text, std::array<short, N>& elements);
size_t ReadWheelNumbers(std::string_view text, short* elements, size_t capacity);

template <size_t N> size_t ReadWheelTable(std::string_view text, std::array<short, N>& elements) {
    return ReadWheelNumbers(text, elements.data(), N);
}

// Reads AppPath/HCDATA.DAT and AppPath/RADIUS.DAT. A missing file, or one
// that fills fewer elements than the table holds, gives a message; what was
// read is kept and the rest stays 0.
std::optional<Message> LoadWheelTables(const std::filesystem::path& appPath, WheelTables& tables);

} // namespace kal
