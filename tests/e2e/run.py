"""Runs the end-to-end tests and prints one line per test, "ok", "not ok" or "skip", for the test command to count."""

import pathlib
import sys
import unittest

from desktop import Desktop

HERE = pathlib.Path(__file__).resolve().parent


class LineResult(unittest.TestResult):
    def __init__(self):
        super().__init__()
        self.good = True

    @staticmethod
    def _title(test):
        return test.id().removeprefix("test_").replace(".test_", ": ").replace("_", " ")

    def addSuccess(self, test):
        print("ok", self._title(test), flush=True)

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self._report(test, self.failures[-1][1])

    def addError(self, test, err):
        super().addError(test, err)
        self._report(test, self.errors[-1][1])

    def addSkip(self, test, reason):
        print(f"skip {self._title(test)}: {reason}", flush=True)

    def _report(self, test, why):
        self.good = False
        print("not ok", self._title(test))
        print("".join(f"    {line}\n" for line in why.splitlines()), flush=True)


def main():
    result = LineResult()
    pattern = f"test_*{sys.argv[1]}*.py" if len(sys.argv) > 1 else "test_*.py"
    # One that lasts over all tests, as the session of a person does: without it, the system's own desktop would end
    # after each test, at the very moment when the next one begins.
    with Desktop() as session:
        session.windows()
        unittest.TestLoader().discover(str(HERE), pattern, str(HERE)).run(result)
    return 0 if result.good else 1


if __name__ == "__main__":
    sys.exit(main())
