"""When scripts/bench --check takes a figure for worse, and what it reads from the page."""
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
                made.add(what, '1 ms', '2 ms', value, bound, unit)
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
        self.assertEqual(self.check([('a', 1.0, 1.2, '')], [('a', 1.24, 1.2, '')])[0], 0)
        result, output = self.check([('a', 1.0, 1.2, ''), ('b', 1.0, None, '')], [('a', 1.26, 1.2, ''), ('b', 1, None, '')])
        self.assertEqual(result, 1)
        self.assertRegex(output, r'WORSE  1.26 \(1 written\)  a\nok +1 \(1 written\)  b')

    def test_a_row_that_misses_its_bound_is_compared_too(self):
        self.assertEqual(self.check([('a', 3.0, 1.5, '')], [('a', 3.8, 1.5, '')])[0], 1)

    def test_within_half_of_its_bound_a_row_is_safe(self):
        self.assertEqual(self.check([('a', 1e-5, 1e-3, '')], [('a', 4e-5, 1e-3, '')])[0], 0)
        self.assertEqual(self.check([('a', 1e-5, 1e-3, '')], [('a', 6e-4, 1e-3, '')])[0], 1)
        self.assertEqual(self.check([('a', 0.19, 0.5, '')], [('a', 0.249, 0.5, '')])[0], 0)
        self.assertEqual(self.check([('a', 0.19, 0.5, '')], [('a', 0.26, 0.5, '')])[0], 1)

    def test_without_a_bound_ten_times_as_fast_is_safe(self):
        self.assertEqual(self.check([('a', 0.01, None, '')], [('a', 0.09, None, '')])[0], 0)
        self.assertEqual(self.check([('a', 0.01, None, '')], [('a', 0.11, None, '')])[0], 1)
        self.assertEqual(self.check([('a', 1.0, None, '')], [('a', 1.3, None, '')])[0], 1)

    def test_figures_with_a_unit_are_compared_but_for_milliseconds(self):
        self.assertEqual(self.check([('a', 3, 6, ' wake-ups')], [('a', 7, 6, ' wake-ups')])[0], 1)
        self.assertEqual(self.check([('a', 3, 16, ' ms')], [('a', 70, 16, ' ms')])[0], 0)

    def test_a_row_that_was_not_measured_fails(self):
        result, output = self.check([('a', 1.0, None, ''), ('b', 1.0, None, '')], [('a', 1.0, None, '')])
        self.assertEqual(result, 1)
        self.assertIn('MISSING  b', output)


if __name__ == '__main__':
    unittest.main()
