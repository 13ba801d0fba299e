#!/usr/bin/env python3
"""Checks of the oracle's own arithmetic on hand-made charts (no swetest).

Only what the program's own unit tests do not already pin with the same
values: the model's reading of 32-bit values in number patterns, the
detriment and fall lists, and the midpoint rules that leave a point out.
"""

import os
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

import oracle  # noqa: E402
from oracle import fmt, single  # noqa: E402


def chart(lon):
    """A chart from body longitudes {body: degrees}, equal houses from 0 Aries."""
    c = oracle.Chart()
    c.hsys = 'P'
    longs = [0.0] * 12
    for body, value in lon.items():
        longs[body] = value
    cusps = [None] + [30.0 * (h - 1) for h in range(1, 13)]
    return oracle.fill_chart(c, longs, [0.0] + [1.0] * 11, cusps)


class NumberText(unittest.TestCase):
    def test_patterns_round_half_away_from_zero(self):
        self.assertEqual(fmt(2, '00'), '02')
        self.assertEqual(fmt(59.99999, '#0'), '60')
        self.assertEqual(fmt(single(5.25), '##0.0'), '5.3')
        self.assertEqual(fmt(single(-5.25), '##0.0'), '-5.3')
        self.assertEqual(fmt(single(-0.6667), '##0.0'), '-0.7')
        self.assertEqual(fmt(single(9.05), '#0.00'), '9.05')
        self.assertEqual(fmt(single(40.3), '##0.00'), '40.30')
        self.assertEqual(fmt(-2.5, '##0'), '-3')
        self.assertEqual(fmt(0, '0'), '0')


class Rules(unittest.TestCase):
    def test_detriment_and_fall_lists(self):
        c = chart({1: 310.0, 10: 215.0, 2: 335.0, 3: 160.0, 4: 100.0, 5: 280.0, 6: 149.9})
        page = oracle.Page()
        oracle.cosmic_state(page, c, [0.0] * 245)
        self.assertIn('  Detriment - Sun Mercury Saturn ', page.lines)
        self.assertIn('  Fall - Moon Mercury Venus Mars Jupiter ', page.lines)

    def test_midpoint_rules_leave_their_blank_line_and_skip_members(self):
        c = chart({k: 3.0 + 29 * k for k in range(1, 11)})
        page = oracle.Page()
        career = oracle.Career(page, c, None)
        career.midpoint_pairs(12, 13, lambda m: oracle.separation(m, c.lon[2]),
                              'Mercury is configured with the ', skip=2)
        self.assertGreater(len(page.lines), 1)
        self.assertEqual(page.lines[-1], '')
        self.assertFalse(any('Mercury/' in ln or '/Mercury' in ln for ln in page.lines))


if __name__ == '__main__':
    unittest.main()
