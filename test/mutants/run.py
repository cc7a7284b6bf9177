"""Changes a copy of the sources, one mutant at a time, and runs the tests on each. See
scripts/mutants."""

import argparse
import collections
import contextlib
import dataclasses
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

import mutations

PROJECT = Path(__file__).resolve().parent.parent.parent
GOAL = 97  # percent

TABLE_ROWS = "*CommandLine.*"  # of the table of command lines, in cli_test and tune_test
LONG_TESTS = "*FailingCalls*:*Apply*:*AnyState*:*TwoHundred*"  # the same few runs a thousand times


@dataclasses.dataclass(frozen=True)
class Test:
    target: str  # what the build has to make before it
    command: tuple  # in the build folder


def google_test(name, rows=None):
    flags = ("--gtest_fail_fast", "--gtest_brief=1")
    rows_flag = (f"--gtest_filter={rows}",) if rows else ()
    return Test(name, (f"test/{name}", *flags, *rows_flag))


def fast_tests(tree):
    """Those that start no other program, and take less than a second each."""
    names = re.findall(r"brisel_test\((\w+)\n", (tree / "test/CMakeLists.txt").read_text())
    slow = ("cli_test", "sim_test", "tune_test")
    return [google_test(name) for name in names if name not in slow]


def slow_tests(path):
    """Those that run the program that a source is for, in the order in which they get slower."""
    is_tune = path.startswith("src/tune/")
    program = "brisel-tune" if is_tune else "brisel"
    program_test = "tune_test" if is_tune else "cli_test"
    return [
        google_test(program_test, rows=TABLE_ROWS),
        google_test(program_test, rows=f"-{TABLE_ROWS}:{LONG_TESTS}"),
        google_test(program_test, rows=f"{LONG_TESTS}-{TABLE_ROWS}"),
        Test("all", ("ctest", "-R", f"^all_freed_of_{program}$", "--no-tests=error")),
    ]


def update_file(path, data):
    """Writes a file unless it holds that already, so that nothing is built anew without a cause."""
    if not path.is_file() or path.read_bytes() != data:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)


def copy_project(tree):
    listed = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        cwd=PROJECT, check=True, capture_output=True, text=True,
    ).stdout.split("\0")
    wanted = {name for name in listed if name and (PROJECT / name).is_file()}
    for name in wanted:
        update_file(tree / name, (PROJECT / name).read_bytes())
        shutil.copymode(PROJECT / name, tree / name)
    for path in tree.rglob("*"):
        if path.is_file() and str(path.relative_to(tree)) not in wanted:
            path.unlink()


class Workshop:
    """A copy of the project and its build, in which one source file at a time is changed."""

    def __init__(self, folder):
        self.tree = folder / "tree"
        self.build_folder = folder / "build"
        self.temporary = folder / "tmp"
        copy_project(self.tree)
        self.fast_tests = fast_tests(self.tree)
        self.limits = collections.defaultdict(lambda: 600)  # seconds, by test

    def configure(self):
        subprocess.run(
            ["cmake", "-S", self.tree, "-B", self.build_folder, "-G", "Ninja",
             "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -w", "-DBUILD_TESTING=ON",
             "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld",
             "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"],
            check=True, stdout=subprocess.DEVNULL,
        )

    def build(self, target):
        command = ["ninja", "-C", self.build_folder, "-j", str(os.cpu_count()), target]
        return subprocess.run(command, capture_output=True).returncode == 0

    def passes(self, test):
        """Runs a test that is built. One that takes far longer than it should fails."""
        shutil.rmtree(self.temporary, ignore_errors=True)
        self.temporary.mkdir()
        process = subprocess.Popen(
            test.command, cwd=self.build_folder, start_new_session=True,
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            env={**os.environ, "TMPDIR": str(self.temporary)},
        )
        try:
            return process.wait(self.limits[test]) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGKILL)  # what it left running
            process.wait()

    def prove_tests(self, paths):
        """Sees the tests of these sources pass as they are, and measures how long each takes."""
        slow = [test for path in paths for test in slow_tests(path)]
        for test in dict.fromkeys(self.fast_tests + slow):
            if not self.build(test.target):
                sys.exit(f"{test.target} does not build from the sources as they are")
            began = time.monotonic()
            if not self.passes(test):
                sys.exit(f"this fails on the sources as they are: {' '.join(test.command)}")
            self.limits[test] = 10 + 5 * (time.monotonic() - began)

    def judge(self, mutant, fast):
        """"killed", "survived", or "unbuilt" for a mutant that is no program at all. Of the fast
        tests, the one that kills it moves to the front."""
        path = self.tree / mutant.path
        source = path.read_text()
        path.write_text(source[: mutant.start] + mutant.replacement + source[mutant.end :])
        try:
            for test in fast + slow_tests(mutant.path):
                if not self.build(test.target):
                    return "unbuilt"
                if not self.passes(test):
                    if test in fast:
                        fast.remove(test)
                        fast.insert(0, test)
                    return "killed"
            return "survived"
        finally:
            path.write_text(source)


def all_mutants(tree):
    """Every mutant of the sources in the copy, by file."""
    sources = {
        str(path.relative_to(tree)): path.read_text()
        for path in sorted((tree / "src").rglob("*.?pp"))
    }
    enumerations = {}
    for source in sources.values():
        enumerations.update(mutations.enumerations_of(source))
    found = []
    for path, source in sources.items():
        found += mutations.mutants_of(path, source, enumerations)
    return found


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutants")
    parser.add_argument("-n", dest="count", type=int)
    parser.add_argument("files", nargs="*", metavar="FILE")
    return parser.parse_args()


def chosen(mutants, options):
    """The mutants that this run is to judge."""
    if options.files:
        mutants = [m for m in mutants if any(part in m.path for part in options.files)]
    if options.count is not None and options.count < len(mutants):
        drawn = random.Random(1).sample(range(len(mutants)), options.count)
        mutants = [mutants[i] for i in sorted(drawn)]
    return mutants


def judge_all(workshop, mutants):
    """Counts the results, and prints every mutant that survives."""
    began = time.monotonic()
    results = collections.Counter()
    fast_tests_of = collections.defaultdict(lambda: list(workshop.fast_tests))
    for number, mutant in enumerate(mutants, 1):
        result = workshop.judge(mutant, fast_tests_of[mutant.path])
        results[result] += 1
        if result == "survived":
            print(f"survived: {mutant}", flush=True)
        if number % 50 == 0:
            minutes = (time.monotonic() - began) / 60
            print(f"{number} of {len(mutants)} in {minutes:.0f} minutes", flush=True)
    return results


def main():
    options = arguments()
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    workshop = Workshop(PROJECT / "build-mutants")
    mutants = chosen(all_mutants(workshop.tree), options)

    print("building the tests and running them on the sources as they are", flush=True)
    workshop.configure()
    workshop.prove_tests({mutant.path for mutant in mutants})
    results = judge_all(workshop, mutants)

    killed, counted = results["killed"], results["killed"] + results["survived"]
    percent = 100 * killed / counted if counted else 0
    print(f"{killed} of {counted} killed, {percent:.1f} %; {results['unbuilt']} do not compile")
    sys.exit(0 if percent >= GOAL else 1)


if __name__ == "__main__":
    main()
