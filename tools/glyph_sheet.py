#!/usr/bin/python3
"""Renders a check sheet of the glyph font to a PNG.

Every code the program prints in Glyphix gets a cell: its number, what it
stands for, the glyph at a screen size and at a large size. The large glyph
stands in a frame drawn from the font's own metrics (the advance width
across, the line's ascent and descent up and down, the baseline in grey), so
a glyph that overhangs its advance or the line shows at a glance; a code
missing at its Windows-1252 or its private-use code point (U+F000 + code)
is marked MISSING in red. A last row
sets a line of the aspects window's text.

    /usr/bin/python3 tools/glyph_sheet.py [FONT] [OUTPUT]
        (default data/glyphix.ttf, glyph_sheet.png in the temporary folder)

Needs python3-fontforge (for the metrics) and ImageMagick (for the text,
read from the font file itself).
"""

import os
import subprocess
import sys
import tempfile

import fontforge

CODES = [(156, "retrograde"), (160, "no aspect")] + [
    (159 + code, name) for code, name in [
        (2, "conjunction"), (3, "sextile"), (4, "square"), (5, "trine"),
        (6, "opposition"), (7, "parallel"), (8, "semi-sextile"), (9, "semi-square"),
        (10, "sesquiquadr."), (11, "quincunx"), (12, "semi-quintile"), (13, "nonagen"),
        (14, "quintile"), (15, "trecile"), (16, "bi-quintile"), (17, "165 deg.")]
] + [(177, "165 deg.")] + [
    (191 + s, name) for s, name in enumerate(
        ["Aries", "Taurus", "Gemini", "Cancer", "Leo", "Virgo", "Libra", "Scorpio",
         "Sagittarius", "Capricorn", "Aquarius", "Pisces"], 1)
] + [(211, "MC (separate)")] + [
    (223 + b, name) for b, name in enumerate(
        ["Sun", "Mercury", "Venus", "Mars", "Jupiter", "Saturn", "Uranus", "Neptune",
         "Pluto", "Moon", "North Node", "Ascendant", "Midheaven", "Asc (aspects)",
         "MC (aspects)"], 1)
]

COLUMNS = 8
CELL_W, CELL_H = 190, 230
SMALL, LARGE = 19, 96  # pixel sizes of the em: 14 pt on a 96 dpi screen, and a close-up
LABEL_FONT = "DejaVu-Sans"


def char(code):
    return bytes([code]).decode("cp1252")


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    font_path = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "data", "glyphix.ttf")
    out = sys.argv[2] if len(sys.argv) > 2 else os.path.join(tempfile.gettempdir(),
                                                              "glyph_sheet.png")
    font = fontforge.open(font_path)
    em = font.em
    ascent, descent = font.hhea_ascent, -font.hhea_descent

    rows = (len(CODES) + COLUMNS - 1) // COLUMNS
    width, height = COLUMNS * CELL_W, rows * CELL_H + 120
    args = ["convert", "-size", "%dx%d" % (width, height), "xc:white", "-fill", "black"]
    draw = []
    for i, (code, label) in enumerate(CODES):
        x0, y0 = (i % COLUMNS) * CELL_W, (i // COLUMNS) * CELL_H
        u = ord(char(code))
        glyph = font[u] if u in font else None
        # The private-use copy at U+F000 + code must be the same glyph.
        if glyph is not None and (0xF000 + code not in font
                                  or font[0xF000 + code].glyphname != glyph.glyphname):
            glyph = None
        advance = glyph.width if glyph else 0
        # Cell frame, then the frame of the large glyph from the metrics.
        draw += ["-stroke", "gray80", "-fill", "none",
                 "-draw", "rectangle %d,%d %d,%d" % (x0, y0, x0 + CELL_W - 1, y0 + CELL_H - 1)]
        bx, base = x0 + 20, y0 + 70 + round(ascent * LARGE / em)
        top, bottom = base - ascent * LARGE / em, base + descent * LARGE / em
        right = bx + advance * LARGE / em
        draw += ["-stroke", "#3070ff",
                 "-draw", "rectangle %.1f,%.1f %.1f,%.1f" % (bx, top, right, bottom),
                 "-stroke", "gray70", "-draw", "line %d,%d %.1f,%d" % (bx, base, right, base),
                 "-stroke", "none", "-fill", "black"]
        draw += ["-font", LABEL_FONT, "-pointsize", "15",
                 "-annotate", "+%d+%d" % (x0 + 8, y0 + 20), "%d  U+%04X U+%04X" % (code, u, 0xF000 + code),
                 "-pointsize", "13", "-annotate", "+%d+%d" % (x0 + 8, y0 + 38), label]
        if glyph is None:
            draw += ["-fill", "red", "-pointsize", "15",
                     "-annotate", "+%d+%d" % (x0 + 8, y0 + 60), "MISSING", "-fill", "black"]
            continue
        draw += ["-pointsize", "11", "-annotate", "+%d+%d" % (x0 + 8, y0 + 54),
                 "advance %d" % advance]
        draw += ["-font", font_path, "-pointsize", str(SMALL),
                 "-annotate", "+%d+%d" % (x0 + CELL_W - 40, y0 + 58), char(code),
                 "-pointsize", str(LARGE),
                 "-annotate", "+%d+%d" % (bx, base), char(code)]
    # A line as the aspects window writes it: glyph, space, symbol, space, glyph.
    sample = "  ".join(char(223 + a) + " " + char(159 + c) + " " + char(223 + b)
                       for a, c, b in [(1, 2, 10), (1, 5, 4), (3, 3, 6), (5, 14, 7),
                                       (12, 6, 13), (9, 4, 2), (8, 11, 11)])
    sample += "   " + char(236) + " qd " + char(233)
    draw += ["-font", font_path, "-pointsize", "26",
             "-annotate", "+20+%d" % (rows * CELL_H + 45), sample,
             "-annotate", "+20+%d" % (rows * CELL_H + 95),
             "".join(char(c) for c in range(192, 204)) + "  " +
             "".join(char(c) for c in range(224, 237)) + "  " + char(156) + char(211)]
    subprocess.run(args + draw + [out], check=True)
    print("wrote", out)


if __name__ == "__main__":
    main()
