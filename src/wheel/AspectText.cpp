#include "wheel/AspectText.h"

#include "wheel/Canvas.h"
#include "wheel/Glyphs.h"

namespace kal {

int AspectsWindowGlyph(int body) {
    if (body == Asc) return AspectsWindowAscGlyph;
    if (body == MC) return AspectsWindowMCGlyph;
    return BodyGlyph(body);
}

std::vector<std::string> AspectWindowLines(const BodyArray& wheelLong, const OrbTable& wheelOrbs) {
    std::vector<std::string> lines{""};
    for (int a : AspectsWindowOrder) {
        for (int b : AspectsWindowOrder) {
            if (a == b) continue;
            int code = FindAspect(wheelLong[static_cast<size_t>(a)],
                                  wheelLong[static_cast<size_t>(b)], wheelOrbs)
                           .code;
            if (code == 1) continue;
            std::string middle =
                code == 17 ? std::string(" qd ") : " " + GlyphText(AspectGlyph(code)) + " ";
            lines.push_back("  " + GlyphText(AspectsWindowGlyph(a)) + middle +
                            GlyphText(AspectsWindowGlyph(b)));
        }
    }
    return lines;
}

} // namespace kal
