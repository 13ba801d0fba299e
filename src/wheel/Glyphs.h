// The characters of the glyph font Glyphix that the wheel, the aspects
// window and the printed page use, by their single-byte codes.
#pragma once

#include <array>

namespace kal {

// The bodies in the order the aspects window and the aspect grid list them:
// Sun, Moon, Mercury .. Pluto, North Node, Ascendant, Midheaven.
inline constexpr std::array<int, 13> AspectsWindowOrder = {1, 10, 2, 3,  4,  5, 6,
                                                           7, 8,  9, 11, 12, 13};

inline constexpr int RetrogradeGlyph = 156;
// The separate Midheaven glyph (option 15 = 1).
inline constexpr int SeparateMCGlyph = 211;
// The Ascendant and Midheaven as the aspects window writes them.
inline constexpr int AspectsWindowAscGlyph = 237;
inline constexpr int AspectsWindowMCGlyph = 238;

// Sign s (1 Aries .. 12 Pisces): 192..203.
inline constexpr int SignGlyph(int sign) {
    return 191 + sign;
}
// Body b (1 Sun .. 13 Midheaven): 224..236.
inline constexpr int BodyGlyph(int body) {
    return 223 + body;
}
// Aspect code n (2 conjunct .. 16 bi-quintile): 159 + n; the 165-degree
// aspect (code 17) is 177.
inline constexpr int AspectGlyph(int code) {
    return code == 17 ? 177 : 159 + code;
}

} // namespace kal
