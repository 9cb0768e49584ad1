"""The runner of the tests: what it counts, what it tells of a failure, and that none is lost."""

import os
import re
import subprocess
import tempfile
import time
import unittest

RUNNER = os.path.abspath(os.environ["RUNNER"])
SAMPLE = os.path.abspath(os.environ["SAMPLE"])


class RunTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.checks = []

    def add(self, name, *command, **properties):
        """Registers a check as a build does."""
        words = " ".join(f"[==[{word}]==]" for word in command)
        self.checks.append(f"add_test([==[{name}]==] {words})\n")
        for key, value in properties.items():
            self.checks.append(f"set_tests_properties([==[{name}]==] PROPERTIES {key} \"{value}\")\n")

    def add_sample(self, cases, name="sample"):
        self.add(name, SAMPLE, f"--gtest_filter={cases}", LABELS="cases", TIMEOUT=2)

    def run_all(self, *arguments, **environment):
        """Runs what is registered; gives the exit code, the output, and its last line."""
        with open(os.path.join(self.folder, "CTestTestfile.cmake"), "w", encoding="utf-8") as file:
            file.writelines(self.checks)
        done = subprocess.run([RUNNER, self.folder, *arguments], stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, check=False,
                              env={**os.environ, **environment})
        return done.returncode, done.stdout, done.stdout.splitlines()[-1]

    def told_of(self, output, name):
        """What is told of a failed check."""
        parts = re.split(r"^--- FAILED: (.*)\n", output, flags=re.MULTILINE)
        told = dict(zip(parts[1::2], parts[2::2]))
        self.assertIn(name, told)
        return told[name]

    def test_counts_what_passed_and_keeps_its_output_to_itself(self):
        self.add_sample("Sample.Passes*")
        self.add("other", "/bin/echo", "nobody needs to know either")
        code, output, last = self.run_all()
        self.assertEqual((code, last), (0, "3 passed, 0 failed"))
        self.assertNotIn("nobody", output)

    def test_names_a_failed_case_with_its_output(self):
        self.add_sample("Sample.Passes*:Sample.Fails")
        code, output, last = self.run_all()
        self.assertEqual((code, last), (1, "2 passed, 1 failed"))
        told = self.told_of(output, "Sample.Fails")
        self.assertIn("what the failing one prints", told)
        self.assertIn("sample.cpp", told)
        self.assertNotIn("leaves its line open", told)

    def test_takes_a_skipped_case_for_a_failed_one(self):
        self.add_sample("Sample.Skips")
        code, output, last = self.run_all()
        self.assertEqual((code, last), (1, "0 passed, 1 failed"))
        self.assertIn("why it skips", self.told_of(output, "Sample.Skips"))

    def test_counts_a_skipped_case_that_may_skip_by_itself(self):
        self.add_sample("Sample.Passes*:Sample.Skips")
        code, output, last = self.run_all("--may-skip", r"^Sample\.Skips$")
        self.assertEqual((code, last), (0, "2 passed, 0 failed, 1 skipped"))
        self.assertIn("skipped: Sample.Skips", output)
        code, output, last = self.run_all("--may-skip", r"^Sample\.Fails$")
        self.assertEqual((code, last), (1, "2 passed, 1 failed"))

    def test_takes_no_failed_case_for_a_skipped_one(self):
        self.add_sample("Sample.Fails")
        code, output, last = self.run_all("--may-skip", ".")
        self.assertEqual((code, last), (1, "0 passed, 1 failed"))

    def test_loses_no_case_behind_one_that_crashes(self):
        self.add_sample("Sample.Passes*:Sample.Crashes:Sample.Leaves")
        for seed in range(1, 7):
            code, output, last = self.run_all("--seed", str(seed))
            self.assertEqual((code, last), (1, "2 passed, 2 failed"), output)
            told = self.told_of(output, "Sample.Crashes")
            self.assertIn("what the crashing one prints", told)
            self.assertIn("SIGABRT", told)
            self.assertIn("it ended with 0", self.told_of(output, "Sample.Leaves"))

    def test_ends_a_case_that_hangs_and_runs_the_others(self):
        self.add_sample("Sample.Passes*:Sample.Hangs:Sample.Fails")
        begun = time.monotonic()
        code, output, last = self.run_all()
        self.assertLess(time.monotonic() - begun, 60)
        self.assertEqual((code, last), (1, "2 passed, 2 failed"))
        told = self.told_of(output, "Sample.Hangs")
        self.assertIn("what the hanging one prints", told)
        self.assertIn("took too long", told)

    def test_ends_a_check_that_hangs_and_what_it_started(self):
        begun = time.monotonic()
        self.add("other", "/bin/sh", "-c", "echo before; sleep 1000 & sleep 1000", TIMEOUT=1)
        _, output, last = self.run_all()
        self.assertLess(time.monotonic() - begun, 60)
        self.assertEqual(last, "0 passed, 1 failed")
        self.assertIn("before", self.told_of(output, "other"))

    def test_tells_of_a_program_that_fails_outside_its_cases(self):
        self.add_sample("BadEnd.*:Sample.Passes")
        code, output, last = self.run_all()
        self.assertEqual((code, last), (1, "2 passed, 1 failed"))
        told = self.told_of(output, "sample, outside its cases")
        self.assertIn("what the end prints", told)
        self.assertIn("it ended with 23", told)

    def test_loses_no_case_that_can_not_even_start(self):
        self.add_sample("Some/BadStart.*:Sample.Passes*")
        for seed in range(1, 7):
            code, output, last = self.run_all("--seed", str(seed))
            self.assertEqual(code, 1)
            for case in ["Some/BadStart.NeverRuns/0", "Some/BadStart.NeverRuns/1"]:
                self.assertIn("SIGABRT", self.told_of(output, case))
            # The others share the fate of a program that did not come as far as to them.
            passed = int(last.split()[0])
            self.assertEqual(passed + output.count("failed: Sample.Passes"), 2, output)

    def test_fails_for_a_program_that_is_not_there(self):
        self.add("sample", os.path.join(self.folder, "none"), LABELS="cases")
        self.add("other", os.path.join(self.folder, "none"))
        self.assertEqual(self.run_all()[2], "0 passed, 2 failed")

    def test_names_another_check_that_failed_with_its_output(self):
        self.add("other", "/bin/sh", "-c", "echo printed; echo said >&2; exit 3")
        code, output, last = self.run_all()
        self.assertEqual((code, last), (1, "0 passed, 1 failed"))
        self.assertIn("printed\nsaid\nit ended with 3", self.told_of(output, "other"))

    def test_runs_a_check_after_what_sets_it_up(self):
        mark = os.path.join(self.folder, "mark")
        self.add("second", "/usr/bin/test", "-e", mark, FIXTURES_REQUIRED="mark")
        self.add("first", "/bin/sh", "-c", f"sleep 1; touch {mark}", FIXTURES_SETUP="mark")
        self.assertEqual(self.run_all("-R", "second")[2], "2 passed, 0 failed")

    def test_fails_a_check_of_which_the_set_up_failed(self):
        self.add("first", "/bin/false", FIXTURES_SETUP="mark")
        self.add("second", "/bin/true", FIXTURES_REQUIRED="mark")
        self.assertEqual(self.run_all()[2], "0 passed, 2 failed")

    def test_refuses_a_property_that_it_does_not_keep(self):
        self.add("other", "/bin/false", WILL_FAIL="ON")
        code, output, _ = self.run_all()
        self.assertEqual(code, 1)
        self.assertIn("WILL_FAIL", output)

    def test_runs_only_what_a_filter_names(self):
        self.add_sample("Sample.Passes*:Sample.Fails")
        self.add("other", "/bin/false")
        self.assertEqual(self.run_all("-R", "AsWell")[2], "1 passed, 0 failed")
        code, _, last = self.run_all("-R", "no such thing")
        self.assertEqual((code, last), (1, "0 passed, 0 failed"))

    def test_tells_apart_the_cases_of_a_program_that_runs_twice(self):
        self.add_sample("Sample.Fails")
        self.add_sample("Sample.Fails", "sample at 200 %")
        _, output, last = self.run_all()
        self.assertEqual(last, "0 passed, 2 failed")
        self.told_of(output, "Sample.Fails")
        self.told_of(output, "Sample.Fails at 200 %")

    def test_gives_each_process_a_folder_that_goes_with_it(self):
        seen = os.path.join(self.folder, "seen")
        self.add("other", "/bin/sh", "-c", f"touch \"$TMPDIR/left\" && echo \"$TMPDIR\" > {seen}")
        self.assertEqual(self.run_all()[2], "1 passed, 0 failed")
        with open(seen, encoding="utf-8") as file:
            self.assertFalse(os.path.exists(file.read().strip()))

    def test_puts_temporary_files_where_it_is_told(self):
        seen = os.path.join(self.folder, "seen")
        self.add("other", "/bin/sh", "-c", f"echo \"$TMPDIR\" > {seen}")
        self.assertEqual(self.run_all(TMPDIR=self.folder)[2], "1 passed, 0 failed")
        with open(seen, encoding="utf-8") as file:
            self.assertEqual(os.path.dirname(file.read().strip()), self.folder)

    def test_keeps_the_order_of_a_seed(self):
        self.add_sample("Sample.Fails:Sample.Skips:Sample.Passes*")
        orders = {}
        for seed in [1, 2, 3, 4, 5, 6, 1, 2]:
            _, output, _ = self.run_all("--seed", str(seed))
            order = tuple(re.findall(r"^--- FAILED: (.*)", output, flags=re.MULTILINE))
            self.assertEqual(orders.setdefault(seed, order), order)
        self.assertGreater(len(set(orders.values())), 1)


if __name__ == "__main__":
    unittest.main()
