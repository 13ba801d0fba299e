#!/usr/bin/env python3
"""Second, independent rendering of the chart listings.

Given one names-file record, a house-system letter and a program directory
(for OPTIONS.OPT, NATAL.ORB and Dravik_Natal_Orbs.ORB), this casts the chart
with the `swetest` command-line tool and prints one listing page exactly as
it would stand in reports/LASTPAGE.TXT (LF line ends):

    oracle.py --dir APPDIR --houses P natal --record "Name,12 May 1959,10.43,A,6,75.23,39.45,x"

Pages: natal, aspects, cosmic, career, page.  Standard library only.
"""

import argparse
import math
import os
import re
import struct
import subprocess
import sys
from decimal import Decimal, ROUND_HALF_UP

# ---------------------------------------------------------------------------
# Numeric helpers


def f32(x):
    """Round a value to single precision."""
    return struct.unpack('f', struct.pack('f', x))[0]


def shortest32(x):
    """Shortest decimal text that reads back as the same single."""
    for p in range(1, 10):
        s = '%.*g' % (p, x)
        if f32(float(s)) == x:
            return s
    return repr(x)


class Single(float):
    """A float that stands for a 32-bit variable; it formats by its own digits."""


def single(x):
    return Single(f32(x))


def decimal_of(x):
    if isinstance(x, Single):
        return Decimal(shortest32(float(x)))
    if isinstance(x, int):
        return Decimal(x)
    return Decimal(repr(float(x)))


def fmt(x, pattern):
    """Number pattern: '0' forces a digit, '#' shows one only when needed.

    Rounds half away from zero on the decimal value.  Handles the patterns
    the listings use: "0", "00", "000", "#0", "##0", "#0.00", "##0.0",
    "##0.00".
    """
    if '.' in pattern:
        ipat, fpat = pattern.split('.')
    else:
        ipat, fpat = pattern, ''
    nfrac = len(fpat)
    d = decimal_of(x)
    q = Decimal(1).scaleb(-nfrac)
    r = d.quantize(q, rounding=ROUND_HALF_UP)
    neg = r < 0
    r = abs(r)
    txt = format(r, 'f')
    if '.' in txt:
        ip, fp = txt.split('.')
    else:
        ip, fp = txt, ''
    min_int = ipat.count('0')
    ip = ip.lstrip('0')
    if len(ip) < min_int:
        ip = '0' * (min_int - len(ip)) + ip
    out = ip + ('.' + fp if nfrac else '')
    if neg:
        out = '-' + out
    return out


def vb_int(x):
    """Int(): the largest whole number not above x."""
    return math.floor(x)


def gen_text(x):
    """General number-to-text form: a leading blank for values >= 0."""
    if x == int(x):
        t = str(int(x))
    else:
        t = repr(float(x))
    return t if x < 0 else ' ' + t


_num_re = re.compile(r'\s*([+-]?(?:\d+\.?\d*|\.\d+))')


def val(text):
    """Number at the start of a text; 0 when it does not start with one."""
    m = _num_re.match(text)
    return float(m.group(1)) if m else 0.0


# ---------------------------------------------------------------------------
# Tables

PLANET_NAME = [None, 'Sun', 'Mercury', 'Venus', 'Mars', 'Jupiter', 'Saturn',
               'Uranus', 'Neptune', 'Pluto', 'Moon', 'N. Node', 'Asc', 'MC ']
PLANET_NAMES10 = [None] + [n.strip().ljust(10) for n in PLANET_NAME[1:]]
PLANET_NAME9 = [None, 'Sun      ', 'Mercury  ', 'Venus    ', 'Mars     ',
                'Jupiter  ', 'Saturn   ', 'Uranus   ', 'Neptune  ', 'Pluto    ',
                'Moon     ', 'NN       ', 'Ascendant', '', '']
PLANET_KEY = [None, 'Sun', 'Moon', 'Mercury', 'Venus', 'Mars', 'Jupiter',
              'Saturn', 'Uranus', 'Neptune', 'Pluto', 'N_Node', 'Asc', 'M_Heaven']
KEY_BODY = [None, 1, 10, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13]
SIGN_NAME = [None, 'Aries', 'Taurus', 'Gemini', 'Cancer', 'Leo', 'Virgo',
             'Libra', 'Scorpio', 'Sagittarius', 'Capricorn', 'Aquarius', 'Pisces']
SIGN_ABBR = 'AriTauGemCanLeoVirLibScoSagCprAquPis'
HOUSE_LABELS = '10TH11TH12TH 1ST 2ND 3RD 4TH 5TH 6TH 7TH 8TH 9TH    '
ASPECT_ANGLE = [None, 0, 0, 60, 90, 120, 180, 0, 30, 45, 135, 150, 36, 40, 72,
                108, 144, 165]
HOUSE_NAMES = {'P': 'Placidus', 'K': 'Koch', 'R': 'Regiomontanus',
               'C': 'Campanus', 'O': 'Porphyry', 'B': 'Alcabitus',
               'T': 'Topocentric'}
MONTH_ABBR = ['Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul', 'Aug', 'Sep',
              'Oct', 'Nov', 'Dec']

# Career rules: one ruler per sign (Scorpio to Pluto, Aquarius to Uranus,
# Pisces to Neptune).
SIGN_RULER = [None, 4, 3, 2, 10, 1, 2, 3, 9, 5, 6, 7, 8]

# Cosmic state: traditional rulers.
DOMICILE = [None, 4, 3, 2, 10, 1, 2, 3, 4, 5, 6, 6, 5]
EXALTATION = [None, 1, 10, 0, 5, 0, 2, 6, 0, 0, 4, 0, 3]
TRIP_DAY = [None, 1, 3, 6, 4, 1, 3, 6, 4, 1, 3, 6, 4]
TRIP_NIGHT = [None, 5, 10, 2, 4, 5, 10, 2, 4, 5, 10, 2, 4]
SUN, MER, VEN, MAR, JUP, SAT, URA, NEP, PLU, MOON = range(1, 11)
TERMS = [
    (0, 6, JUP), (6, 14, VEN), (14, 21, MER), (21, 26, MAR), (26, 30, SAT),
    (30, 38, VEN), (38, 45, MER), (45, 52, JUP), (52, 56, SAT), (56, 60, MAR),
    (60, 67, MER), (67, 74, JUP), (74, 81, VEN), (81, 85, SAT), (85, 90, MAR),
    (90, 96, MAR), (96, 103, JUP), (103, 110, MER), (110, 117, VEN), (117, 120, SAT),
    (120, 126, SAT), (126, 133, MER), (133, 139, VEN), (139, 145, JUP), (145, 150, MAR),
    (150, 157, MER), (157, 163, VEN), (163, 168, JUP), (168, 174, SAT), (174, 180, MAR),
    (180, 186, SAT), (186, 191, VEN), (191, 199, JUP), (199, 204, MER), (204, 210, MAR),
    (210, 216, MAR), (216, 224, JUP), (224, 231, VEN), (231, 237, MER), (237, 240, SAT),
    (240, 248, JUP), (248, 254, VEN), (254, 259, MER), (259, 265, SAT), (265, 270, MAR),
    (270, 276, VEN), (276, 282, MER), (282, 289, JUP), (289, 295, MAR), (295, 300, SAT),
    (300, 306, SAT), (306, 312, MER), (312, 320, VEN), (320, 325, JUP), (325, 330, MAR),
    (330, 338, VEN), (338, 344, JUP), (344, 350, MER), (350, 356, MAR), (356, 360, SAT),
]
FACES = [MAR, SUN, VEN, MER, MOON, SAT, JUP]
DETRIMENT = {SUN: [(300, 330)], MOON: [(270, 300)], MER: [(240, 270), (330, 360)],
             VEN: [(0, 30), (210, 240)], MAR: [(30, 60), (180, 210)],
             JUP: [(60, 90), (150, 180)], SAT: [(90, 150)]}
FALL = {SUN: [(180, 210)], MOON: [(210, 240)], MER: [(330, 360)],
        VEN: [(150, 180)], MAR: [(90, 120)], JUP: [(270, 300)], SAT: [(0, 30)]}
MEAN_MOTION = {SUN: 0.9856103, MER: 0.9856103, VEN: 0.9856103, MAR: 0.524344,
               JUP: 0.083251, SAT: 0.033697, MOON: 13.176541}
DOMICILES = {SUN: [5], MOON: [4], MER: [3, 6], VEN: [2, 7], MAR: [1, 8],
             JUP: [9, 12], SAT: [10, 11], URA: [11], NEP: [12], PLU: [8]}
EXALT_SIGN = {SUN: 1, MOON: 2, MER: 6, VEN: 12, MAR: 10, JUP: 4, SAT: 7}
COSMIC_ORDER = [SUN, MOON, MER, VEN, MAR, JUP, SAT]


def sign_of(lon):
    return vb_int(lon / 30) + 1


def separation(a, b):
    d = abs(a - b)
    if d > 180:
        d = 360 - d
    return d


def midpoint(a, b):
    m = (a + b) / 2
    if not (f32(abs(m - a)) <= 90 and f32(abs(m - b)) <= 90):
        m = m + 180
    if m >= 360:
        m = m - 360
    return m


def within(d, angle, orb):
    """Inclusive orb test in single precision."""
    d = f32(d)
    orb = f32(orb)
    return f32(angle - orb) <= d <= f32(angle + orb)


# ---------------------------------------------------------------------------
# Files of the program directory


def find_file(folder, name):
    try:
        for entry in os.listdir(folder):
            if entry.lower() == name.lower():
                return os.path.join(folder, entry)
    except OSError:
        pass
    return None


def read_lines(path):
    with open(path, 'rb') as fh:
        data = fh.read().decode('latin-1')
    lines = data.split('\n')
    if lines and lines[-1] == '':
        lines.pop()
    return [ln[:-1] if ln.endswith('\r') else ln for ln in lines]


def read_numbered(path, limit, values=None):
    """Values of a numbered file (options or orbs), index 1..limit.

    Reading stops at the first empty line; entries the file does not reach
    keep their earlier value.
    """
    if values is None:
        values = [0.0] * (limit + 1)
    if path is None:
        return values
    n = 0
    for ln in read_lines(path):
        if ln == '':
            break
        n += 1
        if n > limit:
            break
        values[n] = f32(val(ln[:7]))
    return values


# ---------------------------------------------------------------------------
# Record and input fields


def parse_date(text):
    parts = text.split()
    day = int(parts[0])
    mon = [m.upper() for m in MONTH_ABBR].index(parts[1][:3].upper()) + 1
    year = int(parts[2])
    return day, mon, year


def transfer(record):
    """Fill the input fields from a names-file line as a pick does."""
    fields = [f.lstrip(' ') for f in record.split(',')]
    while len(fields) < 8:
        fields.append('')
    inp = {'name': fields[0]}
    day, mon, year = parse_date(fields[1])
    inp['month'], inp['day'], inp['year'] = str(mon), str(day), str(year)
    t = val(fields[2])
    # Writing the hour field runs the input window's birth-hour check, as
    # every change of that field does: 0 becomes 12, and an hour above 12 is
    # lowered by 12 (the half of the day is then set from the record).
    hour = int(t)
    while hour == 0 or hour > 12:
        hour = 12 if hour == 0 else hour - 12
    inp['hour'] = str(hour)
    inp['minute'] = fmt((t - int(t)) * 100, '#0')
    inp['am'] = fields[3].upper() == 'A'
    inp['tz'] = fields[4]
    lon = val(fields[5])
    inp['longdeg'] = str(int(abs(lon)))
    inp['west'] = lon >= 0
    inp['longmin'] = fmt((abs(lon) - int(abs(lon))) * 100, '#0')
    lat = val(fields[6])
    inp['latdeg'] = str(int(abs(lat)))
    inp['north'] = lat >= 0
    inp['latmin'] = fmt((abs(lat) - int(abs(lat))) * 100, '#0')
    return inp


def input_checks(inp, hsys):
    """Messages of the failing presence, latitude and range checks."""
    errors = []
    bad = 'Error in natal input data section. Please correct.'
    if val(inp['month']) == 0 or val(inp['day']) == 0 or val(inp['year']) == 0:
        errors.append(bad)
    if '' in (inp['month'], inp['day'], inp['year']):
        errors.append(bad)
    if '' in (inp['hour'], inp['minute'], inp['tz']):
        errors.append(bad)
    if '' in (inp['longdeg'], inp['longmin']):
        errors.append(bad)
    if '' in (inp['latdeg'], inp['latmin']):
        errors.append(bad)
    if val(inp['tz']) < -2 and inp['west']:
        errors.append(bad)
    if hsys in ('P', 'K'):
        if val(inp['latdeg']) * 60 + val(inp['latmin']) > 66 * 60:
            errors.append('Your latitude is too high. Lower to 66 degrees, '
                          '00 minutes or below OR change house systems.')
    if val(inp['month']) > 12 or val(inp['day']) > 31 or val(inp['year']) > 2099:
        errors.append(bad)
    if val(inp['hour']) > 12 or val(inp['minute']) > 59:
        errors.append(bad)
    if val(inp['tz']) > 12 or val(inp['tz']) < -13:
        errors.append(bad)
    if val(inp['longdeg']) > 180 or val(inp['longmin']) > 59:
        errors.append(bad)
    if val(inp['latmin']) > 59:
        errors.append(bad)
    return errors


# ---------------------------------------------------------------------------
# The chart


def julday(year, month, day, hour):
    """Julian day of a Gregorian date and (possibly out-of-range) UT hour."""
    y, m = year, month
    if m < 3:
        y -= 1
        m += 12
    a = y // 100
    b = 2 - a + a // 4
    return (math.floor(365.25 * (y + 4716)) + math.floor(30.6001 * (m + 1))
            + day + b - 1524.5 + hour / 24.0)


class Chart:
    pass


def swetest(jd, geolong, geolat, hsys, ephe):
    """Bodies Sun..Pluto and the mean node with speeds, then the cusps."""
    cmd = ['swetest', '-edir' + ephe, '-bj%.10f' % jd, '-ut',
           '-p0123456789m', '-fPls', '-head', '-ep',
           '-house%r,%r,%s' % (geolong, geolat, hsys)]
    out = subprocess.run(cmd, capture_output=True, text=True, check=True).stdout
    rows = []
    for ln in out.splitlines():
        m = re.match(r'^(.*?)\s+(-?\d+\.\d+)\s+(-?\d+\.\d+)\s*$', ln)
        if m:
            rows.append((m.group(1).strip(), float(m.group(2)), float(m.group(3))))
    names = [r[0] for r in rows]
    if len(rows) < 23 or names[0] != 'Sun' or names[11] != 'house  1':
        raise RuntimeError('unexpected swetest output:\n' + out)
    return rows


def calc_chart(inp, hsys, ephe='/usr/share/libswe/ephe'):
    c = Chart()
    c.hsys = hsys
    c.name = inp['name']
    c.day, c.month, c.year = int(val(inp['day'])), int(val(inp['month'])), int(val(inp['year']))
    c.time = single(val(inp['hour']) + val(inp['minute']) / 100)
    c.tz = single(val(inp['tz']))
    c.ampm = 'A.M.' if inp['am'] else 'P.M.'
    lon = single(val(inp['longdeg']) + val(inp['longmin']) / 100)
    c.long = single(-lon) if not inp['west'] else lon
    c.ew = 'East' if c.long < 0 else 'West'
    lat = single(val(inp['latdeg']) + val(inp['latmin']) / 100)
    c.lat = single(-lat) if not inp['north'] else lat
    c.ns = 'South' if c.lat < 0 else 'North'

    h = val(inp['hour'])
    if inp['am'] and int(h) == 12:
        h -= 12
    if not inp['am'] and int(h) != 12:
        h += 12
    calc_hour = f32(h + c.tz)
    calc_minute = f32(val(inp['minute']))
    geolong = val(inp['longdeg']) + val(inp['longmin']) / 60
    if c.ew.upper() == 'WEST':
        geolong = -geolong
    geolat = val(inp['latdeg']) + val(inp['latmin']) / 60
    if c.ns.upper() == 'SOUTH':
        geolat = -geolat
    ut_hours = calc_minute / 60 + calc_hour
    jd = julday(c.year, c.month, c.day, ut_hours)
    rows = swetest(jd, geolong, geolat, hsys, ephe)

    lon = [0.0] * 14
    speed = [0.0] * 14
    slot = [1, 10, 2, 3, 4, 5, 6, 7, 8, 9, 11]
    for i, k in enumerate(slot):
        lon[k] = rows[i][1]
        speed[k] = rows[i][2]
    house_cusp = [0.0] * 13
    for h in range(1, 13):
        house_cusp[h] = rows[10 + h][1]
    return fill_chart(c, lon, speed, house_cusp)


def fill_chart(c, lon, speed, house_cusp):
    """Cusps by cusp index, angles, retrograde marks, houses and midpoints.

    lon and speed hold bodies 1..11 (index 0 unused), house_cusp the cusps
    by house number 1..12.
    """
    lon = list(lon) + [0.0] * (14 - len(lon))
    cusp = [0.0] * 14
    for h in range(1, 10):
        cusp[h + 3] = house_cusp[h]
    for h in range(10, 13):
        cusp[h - 9] = house_cusp[h]
    lon[12] = cusp[4]
    lon[13] = cusp[1]
    retro = [' '] * 14
    for j in range(1, 12):
        if speed[j] < 0:
            retro[j] = 'R'
    # House placement: a body on a cusp (or a tenth of an arc-second
    # before it) counts in the house that cusp opens.
    house = list('---- --------- -----'.ljust(130))
    for j in range(1, 14):
        house[10 * j - 6:10 * j] = list(' HOUSE')
    for h in range(1, 13):
        nxt = 1 if h == 12 else h + 1
        for j in range(1, 14):
            p = lon[j] + 1 / 36000
            a, b = cusp[h], cusp[nxt]
            if a <= b:
                inside = a <= p < b
            else:
                inside = (a <= p < 360) or (0 <= p < b)
            if inside:
                house[10 * j - 10:10 * j - 6] = list(HOUSE_LABELS[4 * h - 4:4 * h])
    c.lon = lon
    c.speed = list(speed) + [0.0] * (14 - len(speed))
    c.cusp = cusp
    c.retro = retro
    c.planet_house = ''.join(house)
    c.sun_moon_mid = midpoint(lon[10], lon[1])
    c.jup_pluto_mid = midpoint(lon[9], lon[5])
    return c


def house_field(c, j):
    return c.planet_house[10 * j - 10:10 * j]


def house_number(c, j):
    return int(val(c.planet_house[10 * j - 10:10 * j - 8]))


# ---------------------------------------------------------------------------
# Page buffer


class Page:
    def __init__(self):
        self.lines = []

    def add(self, line=''):
        self.lines.append(line)

    def text(self):
        # ShowDataPage's blank line, then the spare empty element.
        body = self.lines + ['', '']
        return ''.join(ln.replace('\r\n', '\n') + '\n' for ln in body)


def fmt_coord(value, direction):
    t = fmt(abs(value), '##0.00')
    return t.replace('.', direction[0].lower(), 1)


def chart_header(page, c):
    page.add('')
    page.add('  ' + c.name)
    date = '%02d %s %04d' % (c.day, MONTH_ABBR[c.month - 1], c.year)
    page.add('  ' + date + '    TZ = ' + fmt(c.tz, '##0.0') + '      '
             + fmt(c.time, '#0.00') + ' ' + c.ampm + '   '
             + fmt_coord(c.long, c.ew) + '    ' + fmt_coord(c.lat, c.ns))


def degree_in_sign(w):
    x = w / 30
    return int(round((x - int(x)) * 30, 2))


def cusp_text(lon):
    w = int(lon)
    s = int(w / 30) + 1
    d = degree_in_sign(w)
    m = int((lon - w) * 60 + 0.5)
    if m == 60:
        m = 59
    return fmt(d, '00') + ' ' + SIGN_ABBR[3 * s - 3:3 * s] + ' ' + fmt(m, '00')


def body_text(lon):
    w = int(lon)
    s = int(w / 30) + 1
    d = degree_in_sign(w)
    f = (lon - w) * 60
    m = int(f)
    sec = int((f - m) * 60)
    return (fmt(d, '00') + ' ' + SIGN_ABBR[3 * s - 3:3 * s] + ' ' + fmt(m, '00')
            + 'm ' + fmt(sec, '00') + 's')


def natal_data(page, c):
    page.add('')
    page.add('  HOUSE CUSPS - ' + HOUSE_NAMES[c.hsys])
    line = ''
    for k in range(1, 13):
        line += ('  ' if k % 3 == 1 else ' ')
        line += HOUSE_LABELS[4 * k - 4:4 * k] + ' house = ' + cusp_text(c.cusp[k])
        if k % 3 == 0:
            page.add(line)
            line = ''
    page.add('')
    for j in [1, 10, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13]:
        page.add('  ' + body_text(c.lon[j]) + '   ' + PLANET_NAMES10[j]
                 + c.retro[j] + '    (' + house_field(c, j) + ')    ')


# ---------------------------------------------------------------------------
# Natal aspects


def find_aspect(sep, orbs):
    """Aspect code and deviation; the last passing test wins."""
    code, dev = 1, 0.0
    tests = [(3, 60, 2), (4, 90, 3), (5, 120, 4), (6, 180, 5), (8, 30, 7),
             (9, 45, 8), (10, 135, 9), (11, 150, 10), (12, 36, 11),
             (13, 40, 12), (14, 72, 13), (15, 108, 14), (16, 144, 15),
             (17, 165, 16)]
    s32 = f32(sep)
    for cd, angle, num in tests:
        orb = orbs[num]
        if cd == 6:
            ok = s32 >= f32(180 - orb)
        else:
            ok = within(sep, angle, orb)
        if ok:
            code, dev = cd, sep - angle
    if s32 <= f32(orbs[1]):
        code, dev = 2, sep
    return code, dev


def right3(v, text):
    if v < 10:
        return '  ' + text
    if v < 100:
        return ' ' + text
    return text


def right4(v, text):
    if v < 0:
        if v > -10:
            return '  ' + text
        if v > -100:
            return ' ' + text
        return text
    if v < 10:
        return '   ' + text
    if v < 100:
        return '  ' + text
    if v < 1000:
        return ' ' + text
    return text


def natal_aspects(page, c, orbs):
    p = [None] + [c.lon[KEY_BODY[i]] for i in range(1, 14)]
    detail = '  Planet     Planet    Separation   Degrees from exact\r\n'
    page.add('')
    page.add(' ' * 22 + 'NATAL PLANET ASPECTS TO NATAL PLANETS')
    page.add('')
    page.add(' ' * 8 + 'MC  Asc  N.N  Plu  Nep  Ura  Sat  Jup  Mar  Ven  Mer  Moo')
    for r in range(1, 13):
        label = 'N.N  ' if r == 11 else PLANET_KEY[r][:3] + '  '
        line = '  ' + label
        for k in range(13, r, -1):
            sep = abs(p[r] - p[k])
            if sep > 180:
                sep = 360 - sep
            code, dev = find_aspect(sep, orbs)
            if code == 1:
                line += '---  '
                continue
            angle = ASPECT_ANGLE[code]
            if angle < 10:
                cell = '  ' + fmt(angle, '0')
            elif angle < 100:
                cell = ' ' + fmt(angle, '00')
            else:
                cell = fmt(angle, '000')
            line += cell + '  '
            if r != 12:
                ws = int(sep)
                ad = abs(dev)
                wd = int(ad)
                detail += ('  ' + PLANET_KEY[r].ljust(11) + PLANET_KEY[k].ljust(11)
                           + right3(ws, fmt(ws, '##0')) + 'd '
                           + fmt((sep - ws) * 60, '00') + 'm' + ' ' * 7
                           + right4(wd, fmt(wd, '#0')) + 'd '
                           + fmt((ad - wd) * 60, '00') + 'm\r\n')
        page.add(line)
    page.add('')
    page.add(detail)


# ---------------------------------------------------------------------------
# Cosmic state


def in_ranges(lon, ranges):
    return any(a <= lon < b for a, b in ranges)


def cosmic_state(page, c, opt):
    strength = [0.0] * 16
    has_dignity = [0.0] * 11
    lines = []
    page.add('')
    lines.append('  Planet' + ' ' * 4 + 'Sign' + ' ' * 6 + 'Exlt.' + ' ' * 5
                 + 'Trip.' + ' ' * 5 + 'Term' + ' ' * 6 + 'Face' + ' ' * 6
                 + 'Speed' + ' ' * 6 + 'Rate' + ' ' * 3 + 'Strength')
    lines.append('  ------    ----      -----     -----     ----      ----      '
                 '-----      ----   --------')
    day_chart = house_number(c, SUN) > 6
    rows = []
    for p in COSMIC_ORDER:
        lon = c.lon[p]
        s = sign_of(lon)
        out = '  ' + PLANET_NAME9[p] + ' '

        def ruler(body, points):
            nonlocal out
            out += PLANET_NAME9[body] + ' '
            if body == p:
                has_dignity[p] = 1
                strength[p] += points

        ruler(DOMICILE[s], 5)
        if EXALTATION[s]:
            ruler(EXALTATION[s], 4)
        else:
            out += ' ---      '
        ruler(TRIP_DAY[s] if day_chart else TRIP_NIGHT[s], 3)
        ruler(next(b for lo, hi, b in TERMS if lo <= lon < hi), 2)
        x = lon
        while x >= 70:
            x -= 70
        ruler(FACES[min(int(x // 10), 6)], 1)
        v = c.speed[p]
        if abs(v) < 0.00833333:
            cls = 'stat'
        elif abs(v) > MEAN_MOTION[p]:
            cls = 'FAST'
        elif abs(v) < MEAN_MOTION[p]:
            cls = 'SLOW'
        else:
            cls = 'AVG.'
        out += cls + ' ' + c.retro[p] + ('   ' if p == MOON else '    ')
        iv = vb_int(v)
        out += gen_text(iv) + 'd ' + fmt(vb_int((v - iv) * 60 + 0.5), '00') + 'm'
        if c.retro[p] == 'R':
            strength[p] += opt[7]
        else:
            if p in (MER, VEN, MAR, JUP, SAT):
                strength[p] += opt[6]
            if cls == 'FAST':
                strength[p] += opt[8]
            if cls in ('SLOW', 'stat'):
                strength[p] += opt[9]
        if p != SUN:
            d = c.lon[SUN] - lon
            if d < 0:
                d += 360
            oriental = not d > 180
            if p in (MER, VEN):
                strength[p] += opt[1] if oriental else opt[2]
            elif p in (MAR, JUP, SAT):
                strength[p] += opt[3] if oriental else opt[4]
            elif p == MOON:
                strength[p] += opt[11] if oriental else opt[10]
        lines.append(out)
        rows.append(p)
    lines.append('')
    line = '  Peregrine - '
    for p in (1, 2, 3, 4, 5, 6, 10):
        if has_dignity[p] == 0:
            line += PLANET_NAME[p] + ' '
            strength[p] += opt[5]
    lines.append(line)
    line = '  Detriment - '
    for p in COSMIC_ORDER:
        if in_ranges(c.lon[p], DETRIMENT[p]):
            line += PLANET_NAME[p] + ' '
            strength[p] -= 5
    lines.append(line)
    line = '  Fall - '
    for p in COSMIC_ORDER:
        if in_ranges(c.lon[p], FALL[p]):
            line += PLANET_NAME[p] + ' '
            strength[p] -= 4
    lines.append(line)

    trad = (1, 2, 3, 4, 5, 6, 10)

    def reception_pass(heading, bodies, ruler_of, wanted, ordered, points):
        line = None
        for p in bodies:
            r = ruler_of(sign_of(c.lon[p]))
            if not r:
                continue
            t = sign_of(c.lon[r])
            if t not in wanted(p):
                continue
            if ordered and not r > p:
                continue
            if line is None:
                line = '  ' + heading
            line += PLANET_NAME[p] + '-' + PLANET_NAME[r] + '   '
            strength[p] += points
            strength[r] += points
        if line is not None:
            lines.append(line)

    outer = {8: PLU, 11: URA, 12: NEP}
    reception_pass('Mutual Reception (by sign) - ', trad, lambda s: DOMICILE[s],
                   lambda p: DOMICILES[p], True, 5)
    reception_pass('Mutual Reception (by sign) - ', range(1, 11),
                   lambda s: outer.get(s, 0), lambda p: DOMICILES[p], True, 0)
    reception_pass('Mutual Reception (by exaltation) - ', trad,
                   lambda s: EXALTATION[s], lambda p: [EXALT_SIGN[p]], True, 4)
    reception_pass('Mixed Reception (sign/exaltation) - ', trad,
                   lambda s: EXALTATION[s], lambda p: DOMICILES[p], False, 0)
    for i, ln in enumerate(lines):
        if 2 <= i <= 8:
            v = strength[rows[i - 2]]
            ln += '   ' + right4(v, fmt(v, '##0'))
        page.add(ln)


# ---------------------------------------------------------------------------
# Career factors


class Career:
    def __init__(self, page, c, appdir):
        self.page = page
        self.c = c
        self.appdir = appdir
        self.focus = 0
        self.orbs = [0.0] * 17

    def load_orbs(self):
        path = find_file(self.appdir, 'Dravik_Natal_Orbs.ORB')
        if path is None:
            raise RuntimeError('career orb file missing')
        read_numbered(path, 16, self.orbs)

    def add(self, text=''):
        self.page.add(('  ' + text) if text else '')

    def major(self, d):
        """1 conjunct .. 5 opposite by the first test that holds, else 0."""
        o = self.orbs
        if f32(d) <= f32(o[1]):
            return 1
        if within(d, 60, o[2]):
            return 2
        if within(d, 90, o[3]):
            return 3
        if within(d, 120, o[4]):
            return 4
        if f32(d) >= f32(180 - o[5]):
            return 5
        return 0

    def group(self, lines):
        for ln in lines:
            self.add(ln)
        if lines:
            self.add()

    def mc_sign_and_ruler(self):
        s = sign_of(self.c.cusp[1])
        self.focus = SIGN_RULER[s]
        self.add(SIGN_NAME[s] + ' is the sign on the MC and its ruler is '
                 + PLANET_NAME[self.focus])
        if s in (3, 9, 12):
            self.add('(possibly more than 1 kaltrova indicated)')
        self.add()

    def focus_aspects(self):
        self.load_orbs()
        verbs = [None, ' is conjunct ', ' sextiles ', ' squares ', ' trines ', ' opposes ']
        lon = self.c.lon
        out = []
        for k in range(1, 11):
            if k == self.focus:
                continue
            a = self.major(separation(lon[self.focus], lon[k]))
            if a:
                out.append(PLANET_NAME[self.focus] + verbs[a] + PLANET_NAME[k] + '.')
        self.group(out)

    def intercepted_tenth(self):
        cu = self.c.cusp
        C = [None] + [cu[h + 3] for h in range(1, 10)] + [cu[h - 9] for h in range(10, 13)]
        h = 10
        s1 = sign_of(C[h])
        s2 = sign_of(C[h + 1])
        g = s2 - s1
        if g < 0:
            g += 12
        if g != 2:
            return
        i = s1 + 1
        if i > 12:
            i -= 12
        self.focus = SIGN_RULER[i]
        self.add(SIGN_NAME[i] + ' is intercepted in the 10th house and its ruler is '
                 + PLANET_NAME[self.focus])
        if i in (3, 9, 12):
            self.add('(possibly more than 1 kaltrova indicated)')
        self.add()
        self.focus_aspects()

    def planets_conjunct_mc(self):
        for k in range(1, 11):
            d = separation(self.c.lon[k], self.c.cusp[1])
            if f32(d) <= f32(5):
                self.add(PLANET_NAME[k] + ' is prominent because it is conjunct the MC.')
                self.add()
                self.focus = k
                self.focus_aspects()

    def mc_aspects(self):
        self.load_orbs()
        words = [None, 'MC is conjunct ', 'MC sextiles ', 'MC squares ',
                 'MC trines ', 'MC opposes ']
        for k in range(1, 11):
            a = self.major(separation(self.c.cusp[1], self.c.lon[k]))
            if a:
                self.add(words[a] + PLANET_NAME[k] + '.')
        self.add()

    def final_dispositors(self):
        out = []
        for k in range(1, 11):
            if SIGN_RULER[sign_of(self.c.lon[k])] == k:
                name = {1: 'The Sun', 10: 'The Moon'}.get(k, PLANET_NAME[k])
                out.append(name + ' is in its own sign and is a final dispositor.')
        self.group(out)

    def career_aspect_code(self, a, b):
        self.load_orbs()
        o = self.orbs
        d = separation(self.c.lon[a], self.c.lon[b])
        if f32(d) <= f32(o[1]):
            return 1
        for angle, num in ((60, 2), (72, 13), (90, 3), (120, 4), (165, 16)):
            if within(d, angle, o[num]):
                return num
        if f32(d) >= f32(180 - o[5]):
            return 5
        return 0

    def mutual_receptions(self):
        out = []
        lon = self.c.lon
        for i in range(1, 11):
            r = SIGN_RULER[sign_of(lon[i])]
            if r > i and SIGN_RULER[sign_of(lon[r])] == i:
                n = self.career_aspect_code(i, r)
                if n < 1:
                    clause = ' - no aspect between them.'
                else:
                    clause = ' - these planets are in aspect (' + str(n) + ').'
                out.append(PLANET_NAME[i] + ' is in mutual reception with '
                           + PLANET_NAME[r] + clause)
        self.group(out)

    def oriental_planet(self):
        lst = [None] + [[self.c.lon[k], k] for k in range(1, 11)]
        for i in range(1, 10):
            for j in range(i + 1, 11):
                if lst[j][0] > lst[i][0]:
                    lst[i], lst[j] = lst[j], lst[i]
        lst.append(list(lst[1]))
        p = next(i for i in range(1, 11) if lst[i][1] == 1)
        self.add(PLANET_NAME[lst[p + 1][1]] + ' is the oriental planet.')
        self.add()

    def pairs_rule(self, lo, hi, word):
        out = []
        lon = self.c.lon
        for i in range(1, 13):
            for j in range(i + 1, 14):
                d = f32(separation(lon[i], lon[j]))
                if f32(lo) <= d <= f32(hi):
                    out.append(PLANET_NAME[i] + word + PLANET_NAME[j])
        self.group(out)

    def peregrine(self):
        self.load_orbs()
        lon = self.c.lon
        out = []
        for p in range(1, 11):
            if not any(self.major(separation(lon[p], lon[q]))
                       for q in range(1, 11) if q != p):
                out.append(PLANET_NAME[p] + ' is peregrine.')
        self.group(out)

    def moon_house_and_sign(self):
        s = sign_of(self.c.lon[10])
        text = house_field(self.c, 10).strip(' ')
        self.add('The Moon is in the ' + text + ' - and in the sign (reigning need) of '
                 + SIGN_NAME[s] + '.')
        self.add()

    def aries_point(self):
        out = []
        for k in range(1, 14):
            x = self.c.lon[k]
            if (x <= 1.5 or 88.5 <= x < 91.5 or 178.5 <= x < 181.5
                    or 268.5 <= x < 271.5 or x >= 358.5):
                out.append(PLANET_NAME[k] + ' is at the Aries Point.')
        self.group(out)

    def stelliums(self):
        count = [0] * 13
        for k in range(1, 11):
            h = house_number(self.c, k)
            if 0 <= h <= 12:
                count[h] += 1
        self.group(['House ' + str(h) + ' contains a stellium of planets.'
                    for h in range(1, 13) if count[h] >= 4])

    @staticmethod
    def configured(d):
        d = f32(d)
        return d <= 2.5 or 87.5 <= d <= 92.5 or 162.5 <= d <= 167.5 or d >= 177.5

    def midpoint_rule(self, mid, left_out, text):
        out = []
        for k in range(1, 13):
            if k in left_out:
                continue
            if self.configured(separation(self.c.lon[k], mid)):
                out.append(PLANET_NAME[k] + text)
        self.group(out)

    def midpoint_pairs(self, imax, jmax, target, prefix, skip=None):
        lon = self.c.lon
        for i in range(1, imax + 1):
            for j in range(i + 1, jmax + 1):
                if skip in (i, j):
                    continue
                m = midpoint(lon[i], lon[j])
                if self.configured(target(m)):
                    self.add(prefix + PLANET_NAME[i] + '/' + PLANET_NAME[j] + ' midpoint.')
        self.add()

    def dispositor_sentence(self, k):
        ruler = {1: 'Mars', 2: 'Venus', 7: 'Venus', 3: 'Mercury', 6: 'Mercury',
                 4: 'Moon', 5: 'Sun', 8: 'Pluto', 9: 'Jupiter', 10: 'Saturn',
                 11: 'Uranus', 12: 'Neptune'}[sign_of(self.c.lon[k])]
        return PLANET_NAME[k] + ' is disposited by ' + ruler + '.'

    def run(self):
        """The rules after the header's blank line, in listing order."""
        c = self.c
        self.mc_sign_and_ruler()
        self.focus_aspects()
        self.intercepted_tenth()
        self.planets_conjunct_mc()
        self.mc_aspects()
        self.final_dispositors()
        self.mutual_receptions()
        self.oriental_planet()
        self.pairs_rule(69.5, 74.5, ' is quintile ')
        self.pairs_rule(162.5, 167.5, ' is quindecile ')
        self.peregrine()
        self.moon_house_and_sign()
        self.aries_point()
        self.stelliums()
        self.midpoint_rule(c.sun_moon_mid, (1, 10),
                           ' is configured with the Sun/Moon midpoint.')
        self.midpoint_rule(c.jup_pluto_mid, (5, 9),
                           ' is configured with the Jupiter/Pluto midpoint.')
        for k in range(1, 11):
            self.add(self.dispositor_sentence(k))
        self.add()
        self.midpoint_pairs(12, 13, lambda m: 360 - m if m > 180 else m,
                            'AP is configured with the ')
        self.midpoint_pairs(11, 12, lambda m: separation(m, c.cusp[1]),
                            'MC is configured with the ')
        self.midpoint_pairs(12, 13, lambda m: separation(m, c.lon[2]),
                            'Mercury is configured with the ', skip=2)


# ---------------------------------------------------------------------------


def build_page(kind, c, appdir):
    opt = read_numbered(find_file(appdir, 'OPTIONS.OPT'), 244)
    natal_orbs = read_numbered(find_file(appdir, 'NATAL.ORB'), 16)
    page = Page()
    if kind == 'page':
        page.add('-' * 80)
        chart_header(page, c)
        page.add('')
        Career(page, c, appdir).run()
        page.add('-' * 80)
        natal_aspects(page, c, natal_orbs)
        page.add('-' * 80)
        natal_data(page, c)
        cosmic_state(page, c, opt)
        return page.text()
    chart_header(page, c)
    if kind == 'natal':
        natal_data(page, c)
    elif kind == 'aspects':
        natal_aspects(page, c, natal_orbs)
    elif kind == 'cosmic':
        cosmic_state(page, c, opt)
    elif kind == 'career':
        page.add('')
        Career(page, c, appdir).run()
    else:
        raise SystemExit('unknown page: ' + kind)
    return page.text()


def main(argv=None):
    ap = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    ap.add_argument('--dir', required=True, help='program directory')
    ap.add_argument('--houses', default='P', choices=list('PKRCOBT'))
    ap.add_argument('--ephe', default='/usr/share/libswe/ephe')
    ap.add_argument('kind', choices=['natal', 'aspects', 'cosmic', 'career', 'page'])
    ap.add_argument('--record', required=True)
    a = ap.parse_args(argv)
    inp = transfer(a.record)
    errors = input_checks(inp, a.houses)
    if errors:
        for e in errors:
            print(e, file=sys.stderr)
        return 2
    c = calc_chart(inp, a.houses, a.ephe)
    sys.stdout.write(build_page(a.kind, c, a.dir))
    return 0


if __name__ == '__main__':
    sys.exit(main())
