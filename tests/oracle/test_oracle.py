#!/usr/bin/env python3
"""Checks of the oracle's own arithmetic on hand-made charts (no swetest)."""

import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

import oracle  # noqa: E402
from oracle import f32, fmt, single  # noqa: E402


def chart(lon, cusps=None, speed=None, hsys='P'):
    """A chart from body longitudes {body: degrees} and house cusps 1..12."""
    c = oracle.Chart()
    c.hsys = hsys
    c.name, c.day, c.month, c.year = 'Test', 1, 1, 2000
    c.time, c.tz, c.ampm = single(10.3), single(0), 'A.M.'
    c.long, c.ew, c.lat, c.ns = single(0), 'West', single(0), 'North'
    longs = [0.0] * 12
    for body, value in lon.items():
        longs[body] = value
    speeds = [0.0] + [1.0] * 11
    for body, value in (speed or {}).items():
        speeds[body] = value
    cusps = cusps or [None] + [30.0 * (h - 1) for h in range(1, 13)]
    return oracle.fill_chart(c, longs, speeds, cusps)


ORB_DIR = tempfile.TemporaryDirectory()
with open(os.path.join(ORB_DIR.name, 'Dravik_Natal_Orbs.ORB'), 'w') as _fh:
    _fh.write(''.join('%s\r\n' % v for v in
                      [6, 4, 6, 6, 6, 1, 1.5, 1.5, 1.5, 2, 1, 1, 1.5, 1, 1.5, 1]))


def career_lines(c):
    """The career rules on c, with a career orb file of 6, 4, 6, 6, 6 ... 1.5."""
    page = oracle.Page()
    return page, oracle.Career(page, c, ORB_DIR.name)


class NumberText(unittest.TestCase):
    def test_patterns_round_half_away_from_zero(self):
        self.assertEqual(fmt(2, '00'), '02')
        self.assertEqual(fmt(59.99999, '#0'), '60')
        self.assertEqual(fmt(single(5.25), '##0.0'), '5.3')
        self.assertEqual(fmt(single(-5.25), '##0.0'), '-5.3')
        self.assertEqual(fmt(single(-0.6667), '##0.0'), '-0.7')
        self.assertEqual(fmt(single(9.05), '#0.00'), '9.05')
        self.assertEqual(fmt(single(40.3), '##0.00'), '40.30')
        self.assertEqual(fmt(2.5, '##0'), '3')
        self.assertEqual(fmt(-2.5, '##0'), '-3')
        self.assertEqual(fmt(0, '0'), '0')

    def test_coordinates_and_general_text(self):
        self.assertEqual(oracle.fmt_coord(single(-40.3), 'East'), '40e30')
        self.assertEqual(oracle.fmt_coord(single(51.05), 'North'), '51n05')
        self.assertEqual(oracle.fmt_coord(single(0), 'West'), '0w00')
        self.assertEqual(oracle.gen_text(5), ' 5')
        self.assertEqual(oracle.gen_text(-1), '-1')

    def test_numbers_at_line_start(self):
        self.assertEqual(oracle.val('  -1.5  text'), -1.5)
        self.assertEqual(oracle.val('abc'), 0)
        self.assertEqual(oracle.val('1234567890'[:7]), 1234567)
        self.assertEqual(oracle.val('.5x'), 0.5)

    def test_numbered_file_stops_at_empty_line_and_keeps_old_values(self):
        with tempfile.NamedTemporaryFile('w', suffix='.ORB', delete=False) as fh:
            fh.write('8.0    conjunct\r\n6.0\r\n\r\n9.0\r\n')
        try:
            values = oracle.read_numbered(fh.name, 16, [0.0] + [7.0] * 16)
        finally:
            os.unlink(fh.name)
        self.assertEqual(values[1:5], [8.0, 6.0, 7.0, 7.0])


class Positions(unittest.TestCase):
    def test_cusp_minutes_round_but_never_carry(self):
        self.assertEqual(oracle.cusp_text(29 + 59.7 / 60), '29 Ari 59')
        self.assertEqual(oracle.cusp_text(45 + 23.6 / 60), '15 Tau 24')
        self.assertEqual(oracle.cusp_text(45 + 23.4 / 60), '15 Tau 23')

    def test_body_seconds_truncate(self):
        self.assertEqual(oracle.body_text(29 + 59 / 60 + 59.9 / 3600), '29 Ari 59m 59s')
        self.assertEqual(oracle.body_text(60.0), '00 Gem 00m 00s')
        self.assertEqual(oracle.body_text(30.0), '00 Tau 00m 00s')
        self.assertEqual(oracle.body_text(359.99), '29 Pis 59m 24s')

    def test_midpoint_takes_the_shorter_arc(self):
        self.assertEqual(oracle.midpoint(350, 10), 0)
        self.assertEqual(oracle.midpoint(10, 350), 0)
        self.assertEqual(oracle.midpoint(0, 180), 90)
        self.assertEqual(oracle.midpoint(100, 300), 20)

    def test_house_placement_at_cusps_and_across_aries(self):
        cusps = [None, 350, 20, 50, 80, 110, 140, 170, 200, 230, 260, 290, 320]
        c = chart({1: 20.0, 2: 19.99999, 3: 359.5, 4: 0.5, 5: 19.9}, cusps)
        self.assertEqual(oracle.house_field(c, 1), ' 2ND HOUSE')  # on the cusp
        self.assertEqual(oracle.house_field(c, 2), ' 2ND HOUSE')  # 0.036" before
        self.assertEqual(oracle.house_field(c, 3), ' 1ST HOUSE')
        self.assertEqual(oracle.house_field(c, 4), ' 1ST HOUSE')
        self.assertEqual(oracle.house_field(c, 5), ' 1ST HOUSE')
        self.assertEqual(oracle.house_field(c, 12), ' 1ST HOUSE')
        self.assertEqual(oracle.house_field(c, 13), '10TH HOUSE')
        self.assertEqual(oracle.house_number(c, 13), 10)


class Aspects(unittest.TestCase):
    ORBS = [0.0, 8, 6, 8, 8, 8, 1, 25, 2, 2, 3, 1, 1, 2, 1, 2, 1]

    def test_opposition_bound_is_inclusive(self):
        self.assertEqual(oracle.find_aspect(172.0, self.ORBS), (6, -8.0))
        self.assertEqual(oracle.find_aspect(171.9, self.ORBS)[0], 1)
        self.assertEqual(oracle.find_aspect(180.0, self.ORBS)[0], 6)

    def test_conjunction_wins_overlapping_orbs(self):
        self.assertEqual(oracle.find_aspect(6.0, self.ORBS)[0], 2)
        self.assertEqual(oracle.find_aspect(9.0, self.ORBS)[0], 8)

    def test_single_precision_bounds(self):
        # 60 - 4.1 is 55.9; in single precision the bound and the separation
        # round to the same value, so the sextile holds.
        orbs = list(self.ORBS)
        orbs[2] = f32(4.1)
        self.assertEqual(oracle.find_aspect(55.9, orbs)[0], 3)

    def test_detail_rounds_minutes_and_truncates_degrees(self):
        c = chart({1: 0.0, 10: 59.99})
        page = oracle.Page()
        oracle.natal_aspects(page, c, self.ORBS)
        detail = page.lines[-1].split('\r\n')
        self.assertIn('  Sun        Moon        59d 59m          0d 01m', detail)
        c = chart({1: 0.0, 10: 59.9999})
        page = oracle.Page()
        oracle.natal_aspects(page, c, self.ORBS)
        self.assertIn('  Sun        Moon        59d 60m          0d 00m',
                      page.lines[-1].split('\r\n'))

    def test_asc_mc_pair_in_grid_only(self):
        cusps = [None, 100, 130, 160, 190, 220, 250, 280, 310, 340, 10, 40, 70]
        c = chart({}, cusps)
        page = oracle.Page()
        oracle.natal_aspects(page, c, self.ORBS)
        asc_row = [ln for ln in page.lines if ln.startswith('  Asc  ')][0]
        self.assertEqual(asc_row, '  Asc   90  ')
        self.assertNotIn('  Asc        M_Heaven', page.lines[-1])


class CosmicState(unittest.TestCase):
    OPT = [0.0] * 245

    def rows(self, c):
        page = oracle.Page()
        oracle.cosmic_state(page, c, self.OPT)
        return page.lines

    def test_sun_in_leo_by_day_and_night(self):
        # Sun at 130 in the 10th house (day chart), then in the 4th (night).
        day = chart({1: 130.0, 10: 10.0},
                    [None] + [(120 + 30 * (h - 10)) % 360 for h in range(1, 13)])
        line = self.rows(day)[3]
        self.assertTrue(line.startswith('  Sun       Sun        ---      Sun       '
                                        'Mercury   Jupiter   '), line)
        self.assertTrue(line.endswith('   8'), line)
        night = chart({1: 130.0, 10: 10.0})
        line = self.rows(night)[3]
        self.assertIn(' ---      Jupiter   Mercury   ', line)
        self.assertTrue(line.endswith('   5'), line)

    def test_speed_classes_and_negative_rate(self):
        c = chart({1: 5.0, 2: 200.0, 3: 100.0}, speed={2: -0.3, 3: 0.005})
        rows = self.rows(c)
        mercury = [r for r in rows if r.startswith('  Mercury ')][0]
        venus = [r for r in rows if r.startswith('  Venus ')][0]
        self.assertIn('SLOW R    -1d 42m', mercury)
        self.assertIn('stat       0d 00m', venus)

    def test_receptions(self):
        # Sun in Scorpio, Mars in Leo: mutual by sign, both gain 5.
        # Mercury in Virgo: mixed reception with itself.
        c = chart({1: 215.0, 4: 130.0, 2: 160.0, 3: 10.0, 5: 10.0, 6: 10.0, 10: 10.0})
        rows = self.rows(c)
        self.assertIn('  Mutual Reception (by sign) - Sun-Mars   ', rows)
        self.assertIn('  Mixed Reception (sign/exaltation) - Mercury-Mercury   ', rows)
        c = chart({1: 215.0, 4: 10.0, 2: 160.0, 3: 10.0, 5: 10.0, 6: 10.0, 10: 10.0})
        self.assertFalse(any(r.startswith('  Mutual Reception (by sign)')
                             for r in self.rows(c)))

    def test_detriment_and_fall_lists(self):
        c = chart({1: 310.0, 10: 215.0, 2: 335.0, 3: 160.0, 4: 100.0, 5: 280.0, 6: 149.9})
        rows = self.rows(c)
        self.assertIn('  Detriment - Sun Mercury Saturn ', rows)
        self.assertIn('  Fall - Moon Mercury Venus Mars Jupiter ', rows)


class CareerRules(unittest.TestCase):
    def test_oriental_planet_wraps_round(self):
        lon = {k: 10.0 + 20 * k for k in range(1, 11)}
        lon[1] = 1.0
        page, career = career_lines(chart(lon))
        career.oriental_planet()
        self.assertEqual(page.lines[0], '  Moon is the oriental planet.')

    def test_intercepted_tenth_names_ruler_note_and_aspects(self):
        cusps = [None, 100, 130, 160, 190, 220, 250, 280, 310, 340, 40, 95, 97]
        lon = {k: 99.0 + 2 * k for k in range(1, 11)}
        lon[2] = 70.0
        lon[3] = 130.0
        page, career = career_lines(chart(lon, cusps))
        career.intercepted_tenth()
        self.assertEqual(page.lines[:5], [
            '  Gemini is intercepted in the 10th house and its ruler is Mercury',
            '  (possibly more than 1 kaltrova indicated)',
            '',
            '  Mercury sextiles Venus.',
            ''])
        self.assertEqual(career.focus, 2)

    def test_tenth_with_two_whole_signs_is_silent(self):
        cusps = [None, 100, 130, 160, 190, 220, 250, 280, 310, 340, 40, 130, 160]
        page, career = career_lines(chart({}, cusps))
        career.intercepted_tenth()
        self.assertEqual(page.lines, [])

    def test_aries_point_windows(self):
        lon = {1: 91.5, 2: 88.5, 3: 1.5, 4: 358.5, 5: 181.49, 6: 271.5, 7: 45.0,
               8: 45.0, 9: 45.0, 10: 45.0, 11: 1.51}
        page, career = career_lines(chart(lon, [None] + [45.0] * 12))
        career.aries_point()
        self.assertEqual(page.lines, [
            '  Mercury is at the Aries Point.', '  Venus is at the Aries Point.',
            '  Mars is at the Aries Point.', '  Jupiter is at the Aries Point.', ''])

    def test_mutual_reception_aspect_numbers(self):
        # Venus in Aries, Mars in Libra (opposite, orb 6): code 5.
        page, career = career_lines(chart({3: 10.0, 4: 185.0, 1: 100, 10: 100}))
        career.mutual_receptions()
        self.assertEqual(page.lines[0], '  Venus is in mutual reception with Mars'
                                        ' - these planets are in aspect (5).')
        # Jupiter in Pisces, Neptune in Sagittarius 72 degrees apart: the
        # quintile's number 13.
        lon = {k: 100.0 for k in range(1, 12)}
        lon.update({5: 340.0, 8: 268.0})
        page, career = career_lines(chart(lon))
        career.mutual_receptions()
        self.assertEqual(page.lines, ['  Jupiter is in mutual reception with Neptune'
                                      ' - these planets are in aspect (13).', ''])

    def test_midpoint_rules_leave_their_blank_line_and_skip_members(self):
        lon = {k: 3.0 + 29 * k for k in range(1, 11)}
        page, career = career_lines(chart(lon))
        career.midpoint_pairs(12, 13, lambda m: oracle.separation(m, career.c.lon[2]),
                              'Mercury is configured with the ', skip=2)
        self.assertEqual(page.lines[-1], '')
        self.assertFalse(any('Mercury/' in ln or '/Mercury' in ln for ln in page.lines))

    def test_configuration_bounds(self):
        ok = oracle.Career.configured
        self.assertTrue(ok(2.5))
        self.assertFalse(ok(2.6))
        self.assertTrue(ok(87.5) and ok(167.5) and ok(177.5))
        self.assertFalse(ok(60.0) or ok(120.0) or ok(93.0))


class InputChecks(unittest.TestCase):
    def check(self, record, hsys='P'):
        return oracle.input_checks(oracle.transfer(record), hsys)

    def test_transfer_reads_hour_minutes_and_directions(self):
        inp = oracle.transfer('X,06 May 1856,9.05,P,-1.21,-005.07,-33.52,')
        self.assertEqual((inp['hour'], inp['minute']), ('9', '5'))
        self.assertEqual((inp['longdeg'], inp['longmin'], inp['west']), ('5', '7', False))
        self.assertEqual((inp['latdeg'], inp['latmin'], inp['north']), ('33', '52', False))

    def test_latitude_limit_depends_on_house_system(self):
        self.assertEqual(self.check('X,01 Jan 2000,1.00,A,0,000.00,66.00,'), [])
        self.assertEqual(len(self.check('X,01 Jan 2000,1.00,A,0,000.00,66.01,', 'K')), 1)
        self.assertEqual(self.check('X,01 Jan 2000,1.00,A,0,000.00,-70.00,', 'O'), [])

    def test_zone_below_minus_two_only_in_the_east(self):
        self.assertEqual(len(self.check('X,01 Jan 2000,1.00,A,-3,010.00,10.00,')), 1)
        self.assertEqual(self.check('X,01 Jan 2000,1.00,A,-3,-010.00,10.00,'), [])
        self.assertEqual(len(self.check('X,01 Jan 2000,1.00,A,-13.5,-010.00,10.00,')), 1)


if __name__ == '__main__':
    unittest.main()
