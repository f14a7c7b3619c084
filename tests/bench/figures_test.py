"""The figures of the measurements' table."""

import math
import unittest

from table import figures


class Ratios(unittest.TestCase):
    def test_the_best_peer_is_the_least(self):
        self.assertEqual(figures.ratio(3, [2, 6, None]), 1.5)
        self.assertIsNone(figures.ratio(3, [None]))
        self.assertIsNone(figures.ratio(None, [1]))
        self.assertEqual(figures.ratio(0, [0]), 1.0)
        self.assertEqual(figures.ratio(1, [0]), math.inf)

    def test_the_median_is_one_of_the_values(self):
        self.assertEqual(figures.median([5, 1, 9]), 5)
        self.assertEqual(figures.median([5, 1]), 1)
        self.assertIsNone(figures.median([]))

    def test_the_table_turns_the_ratio_where_more_is_better(self):
        text = figures.table(
            [
                ("CPU", "%", {"ours": 20, "a": 10, "b": "shows nothing"}, False),
                ("pictures", "%", {"ours": 50, "a": 100, "b": 40}, True),
                ("memory", "MB", {"a": 10}, False),
            ],
            ["ours", "a", "b"],
        ).splitlines()
        self.assertEqual(text[2], "| CPU | 20.0 % | 10.0 % | - (shows nothing) | 2.00 × |")
        self.assertEqual(text[3], "| pictures | 50.0 % | 100 % | 40.0 % | 2.00 × |")
        self.assertEqual(figures.ratio_words(math.inf), "more than nothing")
        self.assertEqual(text[4], "| memory | - | 10.0 MB | - | - |")


class Load(unittest.TestCase):
    def test_is_what_is_busy_beside_our_own_processes(self):
        self.assertAlmostEqual(figures.foreign_load(10, busy=6, own=4), 0.2)
        self.assertTrue(figures.is_loaded(figures.foreign_load(10, 6, 4)))
        self.assertFalse(figures.is_loaded(figures.foreign_load(10, 6, 5.5)))
        self.assertEqual(figures.foreign_load(10, busy=3, own=3.1), 0, "clocks of 10 ms")


class Pictures(unittest.TestCase):
    def seen(self, times):
        return [(time, number, 0, 0, 640) for time, number in times]

    def test_lines_of_the_eye(self):
        self.assertEqual(
            figures.code_lines("1.5 -\n2.25 7 10 20 640\n2.3 8 10"),
            [(1.5, None, 0, 0, 0), (2.25, 7, 10, 20, 640)],
        )

    def test_even_pictures_have_no_jitter_and_are_all_seen(self):
        seen = self.seen([(n / 25, n) for n in range(100)])
        self.assertAlmostEqual(figures.jitter(seen, 1, 3, 25), 0, places=6)
        self.assertAlmostEqual(figures.pictures_seen(seen, 1, 3, 25), 100)

    def test_a_picture_left_out_is_missed_and_late_ones_shake(self):
        left_out = self.seen([(n / 25, n) for n in range(100) if n % 2])
        self.assertAlmostEqual(figures.pictures_seen(left_out, 1, 3, 25), 50)
        self.assertAlmostEqual(figures.jitter(left_out, 1, 3, 25), 0, places=6)
        late = self.seen([(n / 25 + 0.004 * (n % 2), n) for n in range(100)])
        self.assertAlmostEqual(figures.jitter(late, 1, 3, 25), 2, places=1)

    def test_what_is_lost_between_two_clips(self):
        def first(number):
            return number < 1000

        def second(number):
            return number >= 1000

        at_once = self.seen([(0.0, None), (1.0, 10), (1.04, 1000)])
        self.assertEqual(figures.lost_between(at_once, first, second), 0)
        black = self.seen([(0.0, None), (1.0, 10), (1.04, None), (1.06, 1000)])
        self.assertAlmostEqual(figures.lost_between(black, first, second), 20)
        stale = self.seen([(1.0, 10), (1.04, None), (1.05, 10), (1.06, None), (1.07, 1000)])
        self.assertAlmostEqual(figures.lost_between(stale, first, second), 20)
        self.assertIsNone(figures.lost_between(self.seen([(1.0, 10)]), first, second))


class Silence(unittest.TestCase):
    def test_is_counted_between_sound_only(self):
        rate = 48000
        tone = [int(8000 * math.sin(2 * math.pi * 440 * n / rate)) for n in range(4800)]
        gap = [0] * 960
        found = figures.silences(gap + tone + gap + tone + gap, rate)
        self.assertEqual(len(found), 1)
        self.assertAlmostEqual(found[0], 20, delta=0.3)
        self.assertEqual(figures.silences(tone, rate), [])

    def test_samples_are_signed_and_a_half_one_is_left_out(self):
        self.assertEqual(list(figures.samples_of(b"\x01\x00\xff\xff\x05")), [1, -1])


if __name__ == "__main__":
    unittest.main()
