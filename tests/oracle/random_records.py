#!/usr/bin/env python3
"""Random birth records in names-file form for the listing comparison.

The same seed always gives the same records.  Every record passes the
input checks in all seven house systems: latitudes stay at or below
66 degrees 00 minutes, and a West longitude never has a zone below -2.
"""

import calendar
import random

MONTHS = ['Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul', 'Aug', 'Sep',
          'Oct', 'Nov', 'Dec']


def zone_text(z):
    if z == int(z):
        return str(int(z))
    return ('%.2f' % z).rstrip('0')


def pick(rng, edges, usual):
    """An edge value one time in ten, otherwise the usual one."""
    return rng.choice(edges) if rng.random() < 0.1 else usual


def one_record(rng, n):
    year = rng.randint(1900, 2050)
    month = rng.randint(1, 12)
    day = rng.randint(1, calendar.monthrange(year, month)[1])
    hour = rng.randint(1, 12)
    minute = pick(rng, [0, 59], rng.randint(0, 59))
    half = rng.choice('AP')

    # Longitude: West positive, degrees 0..180 (180 only with 00 minutes).
    deg = pick(rng, [0, 180], rng.randint(0, 179))
    mins = 0 if deg == 180 else rng.randint(0, 59)
    west = rng.random() < 0.5
    lon = '%s%03d.%02d' % ('' if west else '-', deg, mins)

    lat_deg = pick(rng, [0, 66], rng.randint(0, 65))
    lat_min = 0 if lat_deg == 66 else rng.randint(0, 59)
    south = rng.random() < 0.4
    lat = '%s%02d.%02d' % ('-' if south else '', lat_deg, lat_min)

    # Zone: mostly near the longitude's own, sometimes anywhere allowed;
    # whole, half and quarter hours.
    if rng.random() < 0.6:
        z = round((deg + mins / 60) / 15 * (1 if west else -1))
    else:
        z = rng.randint(-12, 12)
    z += rng.choice([0, 0, 0, 0.5, -0.5, 0.25, -0.75])
    z = max(-12, min(12, z))
    if west and z < -2:
        z = -2 + rng.choice([0, 0.5, 1])
    name = 'Rec%04d %s' % (n, rng.choice(['A', 'B', 'Smith', 'van Dyk']))
    return '%s,%02d %s %04d,%d.%02d,%s,%s,%s,%s,rec%d@example.org' % (
        name, day, MONTHS[month - 1], year, hour, minute, half, zone_text(z),
        lon, lat, n)


# Ways to break one input check: (field index, replacement text).
BREAKS = [
    (6, '67.00'),     # too far north for Placidus and Koch
    (6, '-66.01'),    # too far south for Placidus and Koch
    (4, '-3'),        # West longitude with a zone below -2 (with field 5 West)
    (4, '12.5'),      # zone above 12
    (4, '-13.5'),     # zone below -13
    (1, '01 Jan 2100'),  # year above 2099
    (2, '10.60'),     # minute above 59
    (5, '181.00'),    # longitude degrees above 180
    (5, '075.60'),    # longitude minutes above 59
    (6, '45.60'),     # latitude minutes above 59
]


def refused_records(count, seed):
    """Records that each break at least one input check in some system."""
    rng = random.Random(seed)
    out = []
    for n in range(count):
        fields = one_record(rng, n + 1).split(',')
        idx, text = BREAKS[n % len(BREAKS)]
        fields[idx] = text
        if text == '-3':
            fields[5] = fields[5].lstrip('-')
        out.append(','.join(fields))
    return out


def records(count, seed):
    rng = random.Random(seed)
    return [one_record(rng, n + 1) for n in range(count)]

