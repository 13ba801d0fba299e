#!/usr/bin/python3
"""Builds data/glyphix.ttf, the astrological glyph font "Glyphix" of the wheel.

The wheel, the aspects window and the printed page print one character per
glyph and name it by its Windows-1252 byte: the font maps the Unicode code
point of that byte (byte 156 is U+0153, 192 is U+00C0, ...). Each symbol that
has an astrological code point of its own is mapped there too, so that text
copied out of an SVG export still reads as the symbol. And each is mapped at
U+F000 + its code, the way symbol fonts are: Qt's text layout never draws some
of the Windows-1252 code points (the soft hyphen U+00AD, code 173, is the
quintile), so the program should draw QChar(0xF000 + code).

    156          retrograde mark
    160          no aspect (a blank as wide as an aspect symbol)
    161..175     aspect symbols, 159 + aspect code: 161 conjunction, 162
                 sextile, 163 square, 164 trine, 165 opposition, 166 parallel,
                 167 semi-sextile, 168 semi-square, 169 sesquiquadrate, 170
                 quincunx, 171 semi-quintile, 172 nonagen, 173 quintile, 174
                 trecile, 175 bi-quintile
    176, 177     the 165-degree aspect (177 is its code; 176 = 159 + 17 shows
                 the same symbol)
    192..203     signs, 191 + sign: Aries .. Pisces
    211          the separate Midheaven glyph
    224..236     bodies, 223 + body: Sun, Mercury, Venus, Mars, Jupiter,
                 Saturn, Uranus, Neptune, Pluto, Moon, North Node, Ascendant,
                 Midheaven
    237, 238     Ascendant and Midheaven of the aspects window (the same
                 glyphs as 235 and 236)
    32..126      printable ASCII, for the text the printed page header and the
                 aspects window write in this font

Sources (Debian packages fonts-dejavu-core and fonts-noto-core):
  DejaVu Sans               signs, planets, node, retrograde mark,
                            conjunction, opposition, square, trine,
                            semi-square, parallel, the letters
  DejaVu Sans Condensed     the letters of the composed glyphs
  Noto Sans Symbols         sextile, semi-sextile, quincunx, sesquiquadrate
The quintile family, the nonagen, the 165-degree aspect and the angles have
no symbol in any of them; they are set from DejaVu Sans Condensed letters
(Q, sQ, tQ, bQ, N, Qd, AC, MC) at one size and brought to the stroke weight
of the symbols, as is every symbol that has to be scaled, and the heavier
retrograde mark.

Run with Debian's python3-fontforge:

    /usr/bin/python3 tools/make_glyph_font.py [OUTPUT]     (default data/glyphix.ttf)

The output depends only on the source fonts and the FontForge version
(20230101 in Debian 12): running it again gives the same file byte for byte.
"""

import math
import os
import sys

# Fixed time stamps in the head table; FontForge reads this when it writes.
os.environ["SOURCE_DATE_EPOCH"] = "1704067200"  # 2024-01-01 00:00 UTC

import fontforge  # noqa: E402
import psMat  # noqa: E402

DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
DEJAVU_CONDENSED = "/usr/share/fonts/truetype/dejavu/DejaVuSansCondensed.ttf"
NOTO_SYMBOLS = "/usr/share/fonts/truetype/noto/NotoSansSymbols-Regular.ttf"

EM = 2048
CAP = 1493  # cap height of DejaVu Sans; the symbols stand on the baseline up to it
MIDDLE = CAP / 2  # symbols and letter glyphs are centred on this height
ADVANCE = 1836  # advance width of every symbol, that of DejaVu Sans' symbols
MARGIN = 80  # least side bearing of a scaled symbol
LETTER_MARGIN = 60  # least side bearing of a composed glyph
STROKE = 150  # stroke weight of scaled symbols, that of DejaVu Sans' planets
LETTER_STROKE = 132  # letters look heavier than open symbols of the same stroke
LETTER_SCALE = 0.70  # size of the composed glyphs' letters: cap height 1045
ASCENT, DESCENT = 1901, 483  # line metrics of DejaVu Sans

# Every program code is mapped a second time at U+F000 + code, as symbol fonts
# are: text layout hides some Windows-1252 characters (U+00AD, the soft hyphen
# at code 173, is never drawn), the private-use copy always draws.
PRIVATE = 0xF000

VERSION = "1.000"
FAMILY = "Glyphix"

# Code points of the bodies in the program's numbering: Sun, Mercury, Venus,
# Mars, Jupiter, Saturn, Uranus, Neptune, Pluto, Moon, North Node.
BODIES = [0x2609, 0x263F, 0x2640, 0x2642, 0x2643, 0x2644, 0x2645, 0x2646, 0x2647,
          0x263D, 0x260A]


def cp1252(byte):
    """The Unicode code point of a Windows-1252 byte."""
    return ord(bytes([byte]).decode("cp1252"))


# ---------------------------------------------------------------- outlines


def flatten(contour, steps=8):
    """The contour as a polygon, its quadratic segments sampled."""
    if not contour.is_quadratic:
        contour = contour.dup()
        contour.is_quadratic = True
    pts = list(contour)
    if not any(p.on_curve for p in pts):
        return []
    start = next(i for i, p in enumerate(pts) if p.on_curve)
    pts = pts[start:] + pts[:start] + [pts[start]]
    poly = [(pts[0].x, pts[0].y)]
    off = []
    for p in pts[1:]:
        if not p.on_curve:
            off.append((p.x, p.y))
            continue
        x0, y0 = poly[-1]
        # Consecutive off-curve points imply on-curve points between them.
        ends = [((a[0] + b[0]) / 2, (a[1] + b[1]) / 2) for a, b in zip(off, off[1:])]
        ends.append((p.x, p.y))
        for (cx, cy), (ex, ey) in zip(off, ends):
            for k in range(1, steps + 1):
                t = k / steps
                poly.append(((1 - t) ** 2 * x0 + 2 * (1 - t) * t * cx + t * t * ex,
                             (1 - t) ** 2 * y0 + 2 * (1 - t) * t * cy + t * t * ey))
            x0, y0 = ex, ey
        if not off:
            poly.append((p.x, p.y))
        off = []
    return poly


def stroke_weight(layer):
    """Mean stroke width of a line-drawn outline: twice its area over its
    perimeter (a stroke of length l and width w has area wl and perimeter
    about 2l)."""
    area = perimeter = 0.0
    for contour in layer:
        poly = flatten(contour)
        a = 0.0
        for (x0, y0), (x1, y1) in zip(poly, poly[1:] + poly[:1]):
            a += x0 * y1 - x1 * y0
            perimeter += math.hypot(x1 - x0, y1 - y0)
        area += a / 2
    return 2 * abs(area) / perimeter if perimeter else 0.0


def bounds(layer):
    return layer.boundingBox()  # (xmin, ymin, xmax, ymax)


class Sources:
    """The source fonts, opened once; glyphs come out as outline layers with
    references resolved."""

    def __init__(self):
        self.fonts = {}

    def layer(self, path, code):
        font = self.fonts.get(path)
        if font is None:
            font = self.fonts[path] = fontforge.open(path)
        glyph = font[code]
        if glyph.references:
            glyph.unlinkRef()
        layer = glyph.foreground
        if font.em != EM:
            layer.transform(psMat.scale(EM / font.em))
        return layer, glyph.width * EM / font.em


def word(src, text, scale):
    """Letters of DejaVu Sans Condensed set side by side with a fixed gap
    between their ink, baseline at 0, scaled."""
    out = fontforge.layer()
    out.is_quadratic = True
    x = None
    for ch in text:
        layer, _ = src.layer(DEJAVU_CONDENSED, ord(ch))
        xmin, _, xmax, _ = bounds(layer)
        x = -xmin if x is None else x + 90 - xmin
        layer.transform(psMat.translate(x, 0))
        out += layer
        x += xmax
    out.transform(psMat.scale(scale))
    return out


# ---------------------------------------------------------------- the font


class Builder:
    def __init__(self):
        self.src = Sources()
        f = self.font = fontforge.font()
        f.encoding = "UnicodeFull"
        f.em = EM
        f.ascent, f.descent = 1556, 492
        f.layers["Fore"].is_quadratic = True
        self.made = {}

    def glyph(self, name, program_codes, astro=None):
        """A new glyph for the program's codes (bytes), mapped at their
        Windows-1252 code points and at U+F000 + code, and at its
        astrological code point when it has one."""
        codes = [astro] if astro else []
        codes += [cp1252(c) for c in program_codes] + [PRIVATE + c for c in program_codes]
        g = self.font.createChar(codes[0], name)
        if len(codes) > 1:
            g.altuni = tuple((c, -1, 0) for c in codes[1:])
        self.made[name] = g
        return g

    def place(self, g, layer, advance=ADVANCE, middle=None):
        """Puts the outline into the glyph, centred across the advance and,
        when middle is given, its ink centred on that height."""
        xmin, ymin, xmax, ymax = bounds(layer)
        # Whole-unit moves keep the source outlines exactly as drawn.
        dy = 0 if middle is None else round(middle - (ymin + ymax) / 2)
        layer.transform(psMat.translate(round((advance - (xmax - xmin)) / 2 - xmin), dy))
        g.foreground = layer
        g.width = advance
        g.round()
        if g.selfIntersects():  # rounding a scaled outline can fold a corner
            g.removeOverlap()
            g.round()
        g.correctDirection()

    def fitted(self, layer, height=None, max_width=ADVANCE - 2 * MARGIN):
        """The outline scaled to the given ink height (or left as it is),
        then down to fit the width; a scaled outline is brought back to the
        common stroke weight."""
        xmin, ymin, xmax, ymax = bounds(layer)
        s = 1.0 if height is None else height / (ymax - ymin)
        s = min(s, max_width / ((xmax - xmin) or 1))
        if s == 1.0:
            return layer
        layer.transform(psMat.scale(s))
        return self.weighted(layer)

    def weighted(self, layer, stroke=STROKE):
        """The outline emboldened or thinned to the given stroke weight."""
        tmp = self.font.createChar(-1, "_weight")
        tmp.foreground = layer
        delta = stroke - stroke_weight(layer)
        if abs(delta) > 4:
            tmp.changeWeight(delta, "auto")
        tmp.removeOverlap()
        out = tmp.foreground
        self.font.removeGlyph(tmp)
        return out

    def letters(self, text, middle=MIDDLE, scale=LETTER_SCALE):
        """Letters as one glyph: their cap-height band centred on middle."""
        out = self.weighted(word(self.src, text, scale), LETTER_STROKE)
        out.transform(psMat.translate(0, middle - CAP * scale / 2))
        return out

    def place_letters(self, g, layer):
        """Like place, but keeps the vertical position letters() gave; the
        letters bring side bearings of their own, so less margin will do."""
        xmin, _, xmax, _ = bounds(layer)
        width = max(ADVANCE, xmax - xmin + 2 * LETTER_MARGIN)
        self.place(g, layer, advance=round(width))

    # ---- the glyph groups

    def build(self):
        self.notdef()
        self.ascii()
        self.signs()
        self.bodies()
        self.angles()
        self.retrograde()
        self.aspects()
        self.metrics()
        self.names()

    def notdef(self):
        g = self.font.createChar(-1, ".notdef")
        pen = g.glyphPen()
        for (x0, y0, x1, y1) in ((150, 0, 1050, CAP), (250, 100, 950, CAP - 100)):
            pts = [(x0, y0), (x0, y1), (x1, y1), (x1, y0)]
            if x0 == 250:
                pts.reverse()
            pen.moveTo(pts[0])
            for p in pts[1:]:
                pen.lineTo(p)
            pen.closePath()
        pen = None
        g.width = 1200

    def ascii(self):
        for code in range(0x20, 0x7F):
            layer, width = self.src.layer(DEJAVU, code)
            src_name = self.src.fonts[DEJAVU][code].glyphname
            g = self.font.createChar(code, src_name)
            g.foreground = layer
            g.width = round(width)

    def signs(self):
        for s in range(1, 13):  # Aries U+2648 .. Pisces U+2653
            code = 0x2648 + s - 1
            layer, _ = self.src.layer(DEJAVU, code)
            self.place(self.glyph("uni%04X" % code, [191 + s], code), layer)

    def bodies(self):
        for b, code in enumerate(BODIES, 1):
            layer, _ = self.src.layer(DEJAVU, code)
            self.place(self.glyph("uni%04X" % code, [223 + b], code), layer)

    def angles(self):
        # 235/237 Ascendant, 236/238 Midheaven: letters of the body series.
        self.place_letters(self.glyph("ascendant", [235, 237]),
                           self.letters("AC"))
        self.place_letters(self.glyph("midheaven", [236, 238]),
                           self.letters("MC"))
        # 211: the Midheaven as one sign, a capital M with a small c raised
        # to its top beside the right stem.
        m_scale = 0.86
        m = word(self.src, "M", m_scale)
        c = word(self.src, "c", 0.62)
        _, _, mx, _ = bounds(m)
        cx0, _, _, cy1 = bounds(c)
        c.transform(psMat.translate(mx + 70 - cx0, CAP * m_scale - cy1))
        m += c
        out = self.weighted(m, LETTER_STROKE)
        out.transform(psMat.translate(0, MIDDLE - CAP * m_scale / 2))
        self.place_letters(self.glyph("midheaven.alt", [211]), out)

    def retrograde(self):
        layer, _ = self.src.layer(DEJAVU, 0x211E)
        self.place(self.glyph("uni211E", [156], 0x211E), self.weighted(layer))

    def aspects(self):
        def symbol(path, code, height=None):
            return self.fitted(self.src.layer(path, code)[0], height)

        # Aspect code, its astrological code point, the outline at its height.
        for code, uni, layer in [
                (2, 0x260C, symbol(DEJAVU, 0x260C)),  # conjunction
                (3, 0x26B9, symbol(NOTO_SYMBOLS, 0x26B9, 1250)),  # sextile
                (4, 0x25A1, symbol(DEJAVU, 0x25A1, 1150)),  # square
                (5, 0x25B3, symbol(DEJAVU, 0x25B3, 1250)),  # trine
                (6, 0x260D, symbol(DEJAVU, 0x260D)),  # opposition
                (7, 0x2225, symbol(DEJAVU, 0x2225, 1400)),  # parallel
                (8, 0x26BA, symbol(NOTO_SYMBOLS, 0x26BA, 1100)),  # semi-sextile
                (9, 0x2220, symbol(DEJAVU, 0x2220, 1250)),  # semi-square
                (10, 0x26BC, symbol(NOTO_SYMBOLS, 0x26BC, 1450)),  # sesquiquadrate
                (11, 0x26BB, symbol(NOTO_SYMBOLS, 0x26BB, 1100)),  # quincunx
        ]:
            self.place(self.glyph("uni%04X" % uni, [159 + code], uni), layer,
                       middle=MIDDLE)
        for code, name, text in [(12, "semiquintile", "sQ"), (13, "nonagen", "N"),
                                 (14, "quintile", "Q"), (15, "trecile", "tQ"),
                                 (16, "biquintile", "bQ")]:
            self.place_letters(self.glyph(name, [159 + code]), self.letters(text))
        # Code 17 is printed as 177; 176, where 159 + 17 falls, shows it too.
        self.place_letters(self.glyph("quindecile", [177, 176]),
                           self.letters("Qd"))
        # Aspect code 1 is no aspect: an empty cell of an aspect's width.
        g = self.glyph("noaspect", [160])
        g.width = ADVANCE

    # ---- tables

    def metrics(self):
        f = self.font
        # The wheel measures glyphs and steps its labels by them: every glyph
        # stays inside its advance and inside the line.
        for name, g in self.made.items():
            xmin, ymin, xmax, ymax = g.boundingBox()
            if g.foreground and (xmin < 0 or xmax > g.width or ymax > ASCENT or ymin < -DESCENT):
                raise SystemExit("%s overhangs its box: %s" % (name, g.boundingBox()))
        f.hhea_ascent, f.hhea_descent, f.hhea_linegap = ASCENT, -DESCENT, 0
        f.hhea_ascent_add = f.hhea_descent_add = False
        f.os2_winascent, f.os2_windescent = ASCENT, DESCENT
        f.os2_winascent_add = f.os2_windescent_add = False
        f.os2_typoascent, f.os2_typodescent, f.os2_typolinegap = 1556, -492, 410
        f.os2_typoascent_add = f.os2_typodescent_add = False
        f.os2_capheight = CAP
        f.os2_xheight = 1120
        f.os2_weight = 400
        f.os2_width = 5
        f.os2_fstype = 0  # installable embedding
        f.os2_vendor = "KALT"
        f.os2_version = 4

    def names(self):
        f = self.font
        dejavu = self.src.fonts[DEJAVU]
        noto = self.src.fonts[NOTO_SYMBOLS]

        def name(font, key):
            return next(n[2] for n in font.sfnt_names if n[0] == "English (US)" and n[1] == key)

        f.fontname = FAMILY
        f.familyname = FAMILY
        f.fullname = FAMILY
        f.weight = "Regular"
        f.version = VERSION
        copyright = (
            "Glyphix: astrological glyphs of Kaltrova, composed from DejaVu Sans and "
            "Noto Sans Symbols.\n"
            + name(dejavu, "Copyright").strip() + "\n"
            + "Bitstream Vera is a trademark of Bitstream, Inc.\n"
            + name(noto, "Copyright").strip())
        f.copyright = copyright
        licence = (
            "Glyphix is licensed under the SIL Open Font License, Version 1.1 "
            "(https://openfontlicense.org). It is a Modified Version of Noto Sans "
            "Symbols (SIL Open Font License 1.1, no Reserved Font Name) and of DejaVu "
            "Sans, whose licence follows. The full texts are in NOTICE.TXT beside "
            "the font.\n\n"
            "DejaVu Sans licence:\n\n" + name(dejavu, "License").strip())
        english = "English (US)"
        for key, value in [
                ("Copyright", copyright),
                ("Family", FAMILY),
                ("SubFamily", "Regular"),
                ("UniqueID", "%s %s" % (FAMILY, VERSION)),
                ("Fullname", FAMILY),
                ("Version", "Version " + VERSION),
                ("PostScriptName", FAMILY),
                ("Manufacturer", "Kaltrova"),
                ("Descriptor", "Signs, bodies, aspects and the retrograde mark at "
                               "the Windows-1252 positions the Kaltrova chart wheel prints."),
                ("License", licence),
                ("License URL", "https://openfontlicense.org"),
        ]:
            f.appendSFNTName(english, key, value)


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "data", "glyphix.ttf")
    b = Builder()
    b.build()
    for name, g in b.made.items():
        # 0x2 open contour, 0x4 self-intersection, 0x8 wrong direction
        state = g.validate(True)
        if g.foreground and state & (0x2 | 0x4 | 0x8):
            raise SystemExit("%s: outline problem %#x" % (name, state))
    b.font.generate(out, flags=("omit-instructions", "no-FFTM-table"))
    print("wrote", os.path.normpath(out), sum(1 for _ in b.font.glyphs()), "glyphs")


if __name__ == "__main__":
    main()
