#!/usr/bin/env python3
"""Checks the interpretation texts in data/ against the keys the program forms.

The natal report and the meanings window look up passages by key: a heading
line whose text, after leading blanks, begins with the key (any case), running
to an end line that is exactly "*" or "[]" after leading blanks. This script
walks every key either of them can form and reports

  - a keyed file that is missing, or a key that finds no passage,
  - a key whose first matching line is not the heading of a passage (a body
    line of an earlier passage that happens to begin with the key),
  - a passage without an end line, or a run of ten empty lines before one,
  - lines wider than 76 characters, bytes that are not ASCII, line ends that
    are not CR LF,
  - sentences of eight words or more that occur twice in the passages, the
    report's chapters and the lessons, word for word or with only the names
    of points, signs, houses and aspects changed (the test of the shipped
    texts makes the same comparison).

    python3 tools/check_texts.py [DATADIR] [--only FILE ...]

Exit status 1 when anything is reported.
"""

import argparse
import os
import re
import sys
from collections import defaultdict

SIGNS = [("Aries", "Ari"), ("Taurus", "Tau"), ("Gemini", "Gem"), ("Cancer", "Can"),
         ("Leo", "Leo"), ("Virgo", "Vir"), ("Libra", "Lib"), ("Scorpio", "Sco"),
         ("Sagittarius", "Sag"), ("Capricorn", "Cpr"), ("Aquarius", "Aqu"), ("Pisces", "Pis")]
PLANETS = ["Sun", "Moon", "Mercury", "Venus", "Mars", "Jupiter", "Saturn", "Uranus",
           "Neptune", "Pluto"]
POINT_KEYS = PLANETS + ["N_Node", "Asc", "M_Heaven"]
# The meanings window's planet captions, in its order.
MEANINGS_PLANETS = PLANETS + ["Ascendant"]

# Aspect words of the report: the conjunction always blends; sextile and trine
# harmonize (or are named, option 140); square and opposition are discordant
# (or are named, option 141).
REPORT_WORDS = {
    "conjunct": ["blending with"],
    "sextile": ["harmonizing with", "sextile"],
    "square": ["discordant to", "square"],
    "trine": ["harmonizing with", "trine"],
    "opposite": ["discordant to", "opposite"],
}
# Aspects the shipped orbs can never find: Mercury stays within 28 degrees of
# the Sun, Venus within 47, and the two within about 76 of each other.
IMPOSSIBLE = {
    ("Sun", "Mercury"): {"sextile", "square", "trine", "opposite"},
    ("Sun", "Venus"): {"sextile", "square", "trine", "opposite"},
    ("Mercury", "Venus"): {"square", "trine", "opposite"},
}
MEANINGS_WORDS = ["blending with", "harmonizing with", "discordant to"]
MEANINGS_ALLOWED = {("Sun", "Mercury"): 1, ("Sun", "Venus"): 2, ("Mercury", "Venus"): 2}

# File names the meanings window forms that differ from the report's.
ALIASES = {"SIGN_CAP.TXT": "SIGN_Cpr.TXT"}


def wanted_keys():
    """{file name: set of keys} for every lookup the program can make."""
    keys = defaultdict(set)
    for name, abbr in SIGNS:
        keys["RISING.TXT"].add(name.upper() + " rising")
        for p in PLANETS:
            keys["SIGN_%s.TXT" % abbr].add(p + " in")
    for h in range(1, 13):
        for p in PLANETS:
            keys["HOUSE_%d.TXT" % h].add(p + " in")
    # The report: first point i, second point j after it in listing order.
    for i, a in enumerate(POINT_KEYS[:12]):
        for b in POINT_KEYS[i + 1:]:
            for aspect, words in REPORT_WORDS.items():
                if aspect in IMPOSSIBLE.get((a, b), ()):
                    continue
                for w in words:
                    keys[a + ".TXT"].add("%s %s %s" % (a, w, b))
    # The meanings window: upper-cased captions for signs and houses (the
    # same keys in another case), captions as they stand for aspects.
    for i, a in enumerate(MEANINGS_PLANETS):
        for b in MEANINGS_PLANETS[i + 1:]:
            allowed = MEANINGS_ALLOWED.get((a, b), 3)
            for w in MEANINGS_WORDS[:allowed]:
                keys[a + ".TXT"].add("%s %s %s" % (a, w, b))
    return keys


def find_file(datadir, name):
    """The file of that name in datadir, found without regard to case."""
    name = ALIASES.get(name.upper(), name)
    for entry in os.listdir(datadir):
        if entry.upper() == name.upper():
            return os.path.join(datadir, entry)
    return None


def read_lines(path, problems):
    raw = open(path, "rb").read()
    name = os.path.basename(path)
    try:
        raw.decode("ascii")
    except UnicodeDecodeError as e:
        problems.append("%s: byte %d is not ASCII" % (name, e.start))
    text = raw.decode("latin-1")
    if text and not text.endswith("\r\n"):
        problems.append("%s: the last line does not end with CR LF" % name)
    parts = text.split("\r\n")
    if parts and parts[-1] == "":
        parts.pop()
    for n, line in enumerate(parts, 1):
        if "\n" in line or "\r" in line:
            problems.append("%s:%d: a line end that is not CR LF" % (name, n))
        if len(line) > 76:
            problems.append("%s:%d: %d characters (at most 76)" % (name, n, len(line)))
    return [p.replace("\r", "").replace("\n", "") for p in parts]


def is_end(line):
    return line.lstrip(" ") in ("*", "[]")


def passages(lines):
    """(heading line number, end line number or None) of each passage: a
    heading is the first non-empty line of the file or after an end line."""
    out = []
    start = None
    for n, line in enumerate(lines):
        if start is None:
            if line.strip() == "":
                continue
            start = n
        elif is_end(line):
            out.append((start, n))
            start = None
    if start is not None:
        out.append((start, None))
    return out


def lookup(lines, key):
    """Line number of the heading the program finds for key, or None; stops
    after ten consecutive empty lines as the program does."""
    empties = 0
    for n, line in enumerate(lines):
        if line == "":
            empties += 1
            if empties >= 10:
                return None
            continue
        empties = 0
        if line.lstrip(" ").lower().startswith(key.lower()):
            return n
    return None


SENTENCE = re.compile(r"[^.!?]+[.!?]")
# Words that change from one passage of a series to the next.
SERIES_WORDS = set("""sun moon mercury venus mars jupiter saturn uranus neptune pluto node nodes
    ascendant descendant midheaven mc ic aries taurus gemini cancer leo virgo libra scorpio
    sagittarius capricorn aquarius pisces first second third fourth fifth sixth seventh eighth
    ninth tenth eleventh twelfth 1st 2nd 3rd 4th 5th 6th 7th 8th 9th 10th 11th 12th conjunct
    conjunction sextile sextiles square squares trine trines opposite opposes opposition
    blending harmonizing discordant""".split())
CHAPTERS = ["PHILO.HLP", "ASCSIGN.TXT", "SIGN.TXT", "HOUSE.TXT", "ASPECT.TXT", "CLOSING.TXT"]
LESSONS = (["INTRO1.TXT", "INTRO2.TXT", "KEY.TXT", "GENERAL.TXT", "EXAMPLE1.TXT",
            "EXAMPLE2.TXT", "ASPECTS.TXT"]
           + [n.upper()[:3] + ".TXT" for n, _ in SIGNS]
           + ["%d.TXT" % h for h in range(1, 13)]
           + ["The_Sun.TXT"] + [p[:3] + ".TXT" for p in PLANETS[1:]])


def add_sentences(sentences, text, where):
    """Files each sentence of eight words or more of text under its shape:
    lower case, "the" left out, the series words replaced by "#"."""
    for s in SENTENCE.findall(" ".join(text.split())):
        words = [re.sub(r"'s$", "", w) for w in re.findall(r"[a-z0-9']+", s.lower())]
        if len(words) >= 8:
            shape = " ".join("#" if w in SERIES_WORDS else w for w in words if w != "the")
            sentences[shape].append(where)


def main():
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("datadir", nargs="?",
                    default=os.path.join(os.path.dirname(__file__), "..", "data"))
    ap.add_argument("--only", nargs="*", help="check these keyed files only")
    args = ap.parse_args()

    problems = []
    sentences = defaultdict(list)
    keys = wanted_keys()
    files = sorted(keys)
    if args.only:
        only = {f.upper() for f in args.only}
        files = [f for f in files if f.upper() in only]
    found_count = 0
    for fname in files:
        path = find_file(args.datadir, fname)
        if path is None:
            problems.append("%s: missing" % fname)
            continue
        lines = read_lines(path, problems)
        ps = passages(lines)
        heads = {start: end for start, end in ps}
        for start, end in ps:
            if end is None:
                problems.append("%s:%d: passage without an end line" % (fname, start + 1))
            add_sentences(sentences, " ".join(lines[start + 1:end]),
                          "%s:%d" % (fname, start + 1))
        used = set()
        for key in sorted(keys[fname]):
            n = lookup(lines, key)
            if n is None:
                problems.append("%s: no passage for %r" % (fname, key))
            elif n not in heads:
                problems.append("%s:%d: %r first matches a line inside a passage"
                                % (fname, n + 1, key))
            else:
                used.add(n)
                found_count += 1
        for start, _ in ps:
            if start not in used:
                problems.append("%s:%d: passage no key finds: %r"
                                % (fname, start + 1, lines[start].strip()))
    if not args.only:
        for fname in CHAPTERS + LESSONS:
            path = find_file(args.datadir, fname)
            if path is None:
                problems.append("%s: missing" % fname)
                continue
            add_sentences(sentences, " ".join(read_lines(path, problems)), fname)
    for s, where in sentences.items():
        if len(where) > 1:
            problems.append("sentence repeated at %s: %r" % (", ".join(where), s[:70]))
    for p in problems:
        print(p)
    print("%d keys found in %d files, %d problems" % (found_count, len(files), len(problems)),
          file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
