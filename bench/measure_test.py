"""Which figures fail scripts/bench --check, and how it reads the page."""
import contextlib
import io
import pathlib
import tempfile
import unittest

import measure


class Check(unittest.TestCase):
    def check(self, page_rows, run_rows):
        """Each row: what, ratio, bound, unit."""
        def table(rows):
            made = measure.Table()
            for what, value, bound, unit in rows:
                made.add(what, f'{value:.3g} ms', '2 ms', value, bound, unit)
            return made
        with tempfile.TemporaryDirectory() as folder:
            page = pathlib.Path(folder) / 'performance.md'
            page.write_text(table(page_rows).text())
            old, measure.PAGE = measure.PAGE, page
            try:
                with contextlib.redirect_stdout(io.StringIO()) as output:
                    return measure.check(table(run_rows)), output.getvalue()
            finally:
                measure.PAGE = old

    def test_a_quarter_worse_fails_and_less_does_not(self):
        self.assertEqual(self.check([('a', 1.0, 2, '')], [('a', 1.24, 2, '')])[0], 0)
        page = [('a', 1.0, 2, ''), ('b', 1.0, None, '')]
        result, output = self.check(page, [('a', 1.26, 2, ''), ('b', 1, None, '')])
        self.assertEqual(result, 1)
        self.assertRegex(output, r'WORSE  1.26 \(1 written\)  a\nok +1 \(1 written\)  b')

    def test_a_row_that_misses_its_bound_is_compared_too(self):
        self.assertEqual(self.check([('a', 3.0, 1.5, '')], [('a', 3.8, 1.5, '')])[0], 1)

    def test_far_within_its_bound_or_without_one_a_row_is_compared_like_any_other(self):
        self.assertEqual(self.check([('a', 0.1, 0.5, '')], [('a', 0.124, 0.5, '')])[0], 0)
        self.assertEqual(self.check([('a', 0.1, 0.5, '')], [('a', 0.126, 0.5, '')])[0], 1)
        self.assertEqual(self.check([('a', 0.04, None, '')], [('a', 0.06, None, '')])[0], 1)
        self.assertEqual(self.check([('a', 0.6, 1, ' MB')], [('a', 0.8, 1, ' MB')])[0], 1)

    def test_below_a_hundredth_both_ratios_are_noise(self):
        self.assertEqual(self.check([('a', 1e-5, 1e-3, '')], [('a', 9e-4, 1e-3, '')])[0], 0)
        self.assertEqual(self.check([('a', 1e-5, None, '')], [('a', 9e-3, None, '')])[0], 0)
        self.assertEqual(self.check([('a', 9e-3, None, '')], [('a', 0.02, None, '')])[0], 1)

    def test_a_bound_that_was_reached_must_be_reached_again(self):
        result, output = self.check([('a', 1.15, 1.2, '')], [('a', 1.21, 1.2, '')])
        self.assertEqual(result, 1)
        self.assertIn('PAST ITS BOUND  1.21 (1.15 written)  a', output)
        self.assertEqual(self.check([('a', 1.21, 1.2, '')], [('a', 1.22, 1.2, '')])[0], 0)
        self.assertEqual(self.check([('a', 1e-5, 1e-3, '')], [('a', 2e-3, 1e-3, '')])[0], 1)

    def test_milliseconds_and_wake_ups_are_held_against_their_bound_only(self):
        for unit in measure.ABSOLUTE:
            self.assertEqual(self.check([('a', 3, 16, unit)], [('a', 15, 16, unit)])[0], 0)
            self.assertEqual(self.check([('a', 3, 16, unit)], [('a', 17, 16, unit)])[0], 1)
            self.assertEqual(self.check([('a', 3, None, unit)], [('a', 30, None, unit)])[0], 0)

    def test_past_their_bound_they_are_held_against_the_written_figure(self):
        for unit in measure.ABSOLUTE:
            self.assertEqual(self.check([('a', 20, 16, unit)], [('a', 24, 16, unit)])[0], 0)
            self.assertEqual(self.check([('a', 20, 16, unit)], [('a', 26, 16, unit)])[0], 1)

    def test_the_written_figure_of_a_time_is_read_in_its_unit(self):
        self.assertEqual(measure.written_value('385 µs', ''), 0.385)
        self.assertEqual(measure.written_value('1.5 s', ''), 1500)
        self.assertEqual(measure.written_value('646 KB', '0.63 MB'), 0.63)

    def test_a_row_that_the_page_does_not_have_fails(self):
        result, output = self.check([('a', 1.0, None, '')], [('a', 1.0, None, ''), ('b', 1.0, None, '')])
        self.assertEqual(result, 1)
        self.assertIn('NOT ON THE PAGE  1  b', output)

    def test_a_row_that_was_not_measured_fails(self):
        result, output = self.check([('a', 1.0, None, ''), ('b', 1.0, None, '')], [('a', 1.0, None, '')])
        self.assertEqual(result, 1)
        self.assertIn('NOT MEASURED  b', output)


if __name__ == '__main__':
    unittest.main()
