#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Lists the skipped tests and why they were skipped, and fails if one of them should have run.

usage: skipped.py RESULT...

The results come from `ctest --output-junit`, with the whole output of each test. A test may be skipped if the machine
forbids what it does, or if it does not apply; but not because a program is missing, since packages/test.txt names it.
"""
import collections
import re
import sys
import xml.etree.ElementTree as xml

NO_REASON = "without a reason"


def skips(case):
    """Why a test, or tests in a test program, were skipped: the name and the reason of each."""
    output = case.findtext("system-out") or ""
    inside = re.findall(r"^[^\n]*: Skipped\n(.*?)\n+(?:.*\n)*?\[  SKIPPED \] (\S+)", output, re.MULTILINE)
    inside += [(reason, name) for name, reason in re.findall(r"^skipped: (.*?): (.*)$", output, re.MULTILINE)]
    if inside:
        return [(name, reason.strip()) for reason, name in inside]
    if case.find("skipped") is not None:
        lines = [line for line in output.strip().splitlines() if line]
        return [(case.get("name"), lines[-1] if lines else NO_REASON)]
    return []


def main():
    by_reason = collections.defaultdict(list)
    tests = 0
    for result in sys.argv[1:]:
        for case in xml.parse(result).iter("testcase"):
            tests += 1
            for name, reason in skips(case):
                by_reason[reason].append(name)
    if not tests:
        print("no test was run")
        return 1
    print(f"{sum(map(len, by_reason.values()))} skipped")
    code = 0
    for reason, names in sorted(by_reason.items()):
        fault = "not installed" in reason or reason == NO_REASON
        code |= fault
        print(f"  {'NOT TO BE SKIPPED: ' if fault else ''}{reason} ({len(names)}: {', '.join(sorted(set(names))[:3])} ...)")
    return code


if __name__ == "__main__":
    sys.exit(main())
