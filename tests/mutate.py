#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Changes the program in one small place at a time and checks whether a test notices.

usage: tests/mutate.py [--count 300] [--seed 1] [--jobs 1] [--go-on] [--list] [--no-headers] [FILE...]

The seed selects the mutants from all that the rules below can make of the files: by default every .cpp and .h of the
folders of the program (--no-headers leaves out the headers, which take longest to build). Each mutant is built in a
copy of the sources in build/mutation. The quick tests of its folder run first, then those of the folders that use it,
each up to the first failure; if all of them pass, the slow tests run, and for what deals with the X server the
program on one. A mutant that does not compile, or that tests/mutants_without_effect.txt lists, is replaced by the
next one. Prints each survivor with its line and, at the end, the score; build/mutation/report.txt lists all mutants,
with the test that caught each. Fails if fewer than 95 % are caught, or if fewer were judged than asked for.
"""
import argparse
import collections
import concurrent.futures
import dataclasses
import hashlib
import os
import pathlib
import queue
import re
import shutil
import subprocess
import sys
import threading

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutation"
TESTS = {  # the tests that may notice a change in a folder, the closest first
    "model": ["model", "analysis", "views", "forms", "commands", "shell"],
    "analysis": ["analysis", "commands", "shell"],
    "views": ["views", "forms", "shell"],
    "forms": ["forms", "shell"],
    "shell": ["shell"],
    "commands": ["commands"],
    "database": ["database"],
    "preview": ["preview"],
}
SLOW = "*AnyTree*:*LittleMemory*:RefusedMemory.*:Rounds.*:*Monkey*:KilledSave*:*TwoGigabytes*:*Million*:LargeFile.*:NavTreeDeepTest.*"
QUICK = "-" + SLOW
ON_X = "*"  # what only a program on an X server notices
PATIENCE = {QUICK: 300, SLOW: 1800, ON_X: 300}  # seconds that a test program may take; a mutant that hangs is caught
SKIPPED = 77  # the exit code where there is no X server
WANTED = 0.95
BUILT = {"WIZARD_LINUX", "WIZARD_X11", "WIZARD_XCB", "__linux__", "SIGXFSZ"}  # what #ifdef finds here


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    line: int  # from 0
    rule: str
    text: tuple  # the lines that replace the line; in a swap also the next one
    old: tuple

    def change(self):
        show = lambda lines: " | ".join(l.strip() for l in lines)
        return f"{self.rule}: {show(self.old)}  ->  {show(self.text) or '(nothing)'}"

    def __str__(self):
        return f"{self.file}:{self.line + 1} {self.change()}"


def without_effect():
    """The mutants that no test can notice, as "FILE CHANGE"; the list gives a reason for each."""
    lines = (ROOT / "tests" / "mutants_without_effect.txt").read_text().splitlines()
    return {line for line in lines if line and not line.startswith("#")}


# Operators: a pattern inside a line, and what replaces it.
SWAPS = [
    (r"==", "!="), (r"!=", "=="), (r" < ", " <= "), (r" > ", " >= "), (r"<=", "<"), (r">=", ">"),
    (r"&&", "||"), (r"\|\|", "&&"), (r" \+ ", " - "), (r" - ", " + "), (r"\+\+", "--"), (r"--", "++"),
    (r"\+=", "-="), (r"-=", "+="), (r" \* ", " / "), (r" / ", " * "), (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"\.first\b", ".second"), (r"\bmin\(", "max("), (r"\bmax\(", "min("),
    (r"\bcontinue;", "break;"), (r"\bbreak;", "continue;"),
]
STATEMENT = re.compile(r"^(\s+)(?!return|case|break|continue|using|constexpr|static|struct|const|auto|if|for|while|else|do|})"
                       r"[\w(*].*;\s*(//.*)?$")
DECLARATION = re.compile(r"^\s+(?=\S)(\[\[nodiscard\]\] )?[\w:<>,&* ]+[\s*&]~?\w+(\[.*\])?(\s*=.*|\{.*\}|\(.*\).*)?;\s*(//.*)?$")
ROW = re.compile(r"^(\s+)\{.*\},\s*(//.*)?$")


def parts(line):
    """The line in pieces: ("code"|"text"|"rest", start, end). Comments are left out."""
    pieces, at = [], 0
    for found in re.finditer(r'//.*|R"\((?:.*?)\)"|"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])+\'', line):
        pieces.append(("code", at, found.start()))
        if found.group().startswith("//"):
            return pieces
        pieces.append(("text" if found.group()[0] == '"' else "rest", found.start(), found.end()))
        at = found.end()
    pieces.append(("code", at, len(line)))
    return pieces


def mutants_of(name):
    lines = (ROOT / name).read_text().split("\n")
    built = True  # false for code for other operating systems
    for n, line in enumerate(lines):
        if line.startswith("#ifdef"):
            built = line.split()[1] in BUILT
        elif line.startswith("#else"):
            built = not built
        elif line.startswith("#endif"):
            built = True
        if not built:
            continue
        if line.lstrip().startswith(("//", "#", "namespace", "static_assert", "template", "///", "*")):
            continue
        if re.search(r"\.[rR]eserve\(", line):
            continue  # affects only the time

        def made(rule, new):
            return Mutant(name, n, rule, (new,), (line,))

        for kind, start, end in parts(line):
            piece = line[start:end]
            if kind == "code":
                for pattern, new in SWAPS:
                    for found in re.finditer(pattern, piece):
                        a, b = start + found.start(), start + found.end()
                        yield made("operator", line[:a] + new + line[b:])
                for found in re.finditer(r"(?<![\w.'])(\d[\d']*)(?![\w.'x])", piece):
                    a, b = start + found.start(), start + found.end()
                    yield made("constant", line[:a] + str(int(found.group().replace("'", "")) + 1) + line[b:])
                found = re.match(r"(\s*(?:\} else )?(?:if|while) \()(.*)", piece) if start == 0 else None
                if found and line.rstrip().endswith((") {", ")")) and line.count("(") == line.count(")") and ";" not in line:
                    head, tail = found.group(1), line[len(found.group(1)):].rstrip()
                    end_of = tail.rindex(")")
                    yield made("condition", f"{head}!({tail[:end_of]}){tail[end_of:]}")
            elif kind == "text" and len(piece) > 2:
                letters = [i for i, c in enumerate(piece) if c.isalpha() and piece[i - 1] != "\\"]
                if letters:
                    i = letters[len(letters) // 2]
                    yield made("text", line[:start] + piece[:i] + piece[i].swapcase() + piece[i + 1:] + line[end:])
                else:
                    yield made("text", line[:start] + '"~' + piece[1:] + line[end:])
            elif kind == "rest" and len(piece) == 3 and piece[1] != "0":
                yield made("text", line[:start] + ("'~'" if piece != "'~'" else "'!'") + line[end:])
        statement = STATEMENT.match(line)
        if statement and not DECLARATION.match(line):
            yield Mutant(name, n, "deleted", (), (line,))
        if n + 1 < len(lines):
            after = lines[n + 1]
            both_rows = ROW.match(line) and ROW.match(after)
            other = STATEMENT.match(after)
            # Only calls: the order of two assignments rarely matters.
            both_statements = (statement and other and statement.group(1) == other.group(1)
                               and not DECLARATION.match(line) and not DECLARATION.match(after)
                               and " = " not in line + after)
            if both_rows or both_statements:
                yield Mutant(name, n, "order", (after, line), (line, after))


class Place:
    """A copy of the sources with a build of its own."""

    def __init__(self, number):
        self.source = WORK / f"source{number}"
        self.build = WORK / f"build{number}"

    def prepare(self):
        # Reuse what an earlier run left behind; it may have been stopped with a mutant in place.
        kept = self.build.with_suffix(".kept")
        if kept.exists():
            shutil.rmtree(self.build, ignore_errors=True)
            kept.rename(self.build)
        files = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, text=True, stdout=subprocess.PIPE).stdout
        for name in files.splitlines():
            copy = self.source / name
            copy.parent.mkdir(parents=True, exist_ok=True)
            if not copy.exists() or copy.read_bytes() != (ROOT / name).read_bytes():
                shutil.copy(ROOT / name, copy)
        subprocess.run(["cmake", "-S", self.source, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=",
                        "-DWIZARD_QUICK_TESTS=OFF",
                        "-DCMAKE_CXX_FLAGS=-O0 -D_GLIBCXX_ASSERTIONS"],
                       check=True, stdout=subprocess.DEVNULL)

    def compiles(self, programs):
        return subprocess.run(["cmake", "--build", self.build, "--target", *programs],
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

    def failure(self, program, tests):
        """The first failure, or nothing."""
        folder = WORK / f"run-{self.source.name}"
        folder.mkdir(mode=0o700, exist_ok=True)
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8", XDG_RUNTIME_DIR=str(folder))
        told = self.build / f"{program}.log"
        server = [self.source / "tests" / "with_x_server.sh", "wm"] if tests == ON_X else []
        try:
            with open(told, "w") as log:
                code = subprocess.run([*server, self.build / "bin" / program, "--gtest_fail_fast", "--gtest_brief=1",
                                       f"--gtest_filter={tests}"], cwd=self.build, env=environment, stdout=log,
                                      stderr=subprocess.STDOUT, timeout=PATIENCE[tests]).returncode
        except subprocess.TimeoutExpired:
            return f"{program}: too slow"
        failed = re.search(r"\[  FAILED  \] ([^\s,]+)", told.read_text(errors="replace"))
        return f"{program}: {failed.group(1) if failed else f'ended with {code}'}" if code not in (0, SKIPPED) else ""

    def judge(self, mutant, runs):
        """Returns "caught", "left" or "does not compile", and the failure. Runs are pairs of program and tests."""
        file = self.source / mutant.file
        original = file.read_text()
        before = file.stat()
        is_header = mutant.file.endswith(".h")
        if is_header:  # almost everything depends on it: keep a copy of the build rather than building again
            kept = self.build.with_suffix(".kept")
            subprocess.run(["cp", "-a", "--reflink=auto", self.build, kept], check=True)
        lines = original.split("\n")
        lines[mutant.line:mutant.line + len(mutant.old)] = mutant.text
        file.write_text("\n".join(lines))
        try:
            for program, tests in runs:
                if not self.compiles([program]):
                    return "does not compile", ""
                failure = self.failure(program, tests)
                if failure:
                    return "caught", failure
            return "left", ""
        finally:
            file.write_text(original)
            if is_header:
                os.utime(file, ns=(before.st_atime_ns, before.st_mtime_ns))
                shutil.rmtree(self.build)
                kept.rename(self.build)


def is_for_windows(file):
    """Whether only the build for Windows compiles the file, so that no test here can notice a change."""
    return "windows" in file.stem.lower() or file.stem in ("FileRequest", "MDialogHook")


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("--count", type=int, default=300)
    arguments.add_argument("--seed", type=int, default=1)
    arguments.add_argument("--jobs", type=int, default=1)
    arguments.add_argument("--no-headers", action="store_true")
    arguments.add_argument("--go-on", action="store_true", help="keep the verdicts of a run that was stopped")
    arguments.add_argument("--list", action="store_true", help="print the drawn mutants only")
    arguments.add_argument("files", nargs="*")
    options = arguments.parse_args()

    files = options.files or sorted(str(f.relative_to(ROOT)) for folder in TESTS
                                    for f in (ROOT / folder).glob("*") if f.suffix in (".cpp", ".h")
                                    if not (options.no_headers and f.suffix == ".h"))
    files = [file for file in files if not is_for_windows(pathlib.Path(file))]
    known = without_effect()
    everything = [mutant for file in files for mutant in mutants_of(file)]
    left_out = [mutant for mutant in everything if f"{mutant.file} {mutant.change()}" in known]
    for stale in sorted(known - {f"{mutant.file} {mutant.change()}" for mutant in left_out}):
        if stale.split(" ")[0] in files:
            print(f"tests/mutants_without_effect.txt lists what matches no line: {stale}")
    everything = [mutant for mutant in everything if mutant not in left_out]
    everything.sort(key=lambda mutant: hashlib.sha256(f"{options.seed} {mutant}".encode()).digest())
    # Those in headers take longest.
    everything[:options.count] = sorted(everything[:options.count], key=lambda mutant: mutant.file.endswith(".h"))
    print(f"{len(everything)} mutants in {len(files)} files, and {len(left_out)} without effect; seed {options.seed}",
          flush=True)
    if options.list:
        for mutant in everything[:options.count]:
            print(mutant)
        return

    WORK.mkdir(parents=True, exist_ok=True)
    places = queue.Queue()
    programs = sorted({f"{t}_tests" for f in files for t in TESTS[f.split("/")[0]]})

    def make_ready(number):
        try:
            place = Place(number)
            place.prepare()
            check(place, QUICK)
        except (OSError, subprocess.SubprocessError) as error:
            give_up(str(error))
        places.put(place)

    def check(place, tests):
        if not place.compiles(programs):
            give_up(f"the program does not compile in {place.source}")
        for program in programs:
            failure = place.failure(program, tests)
            if failure:
                give_up(f"a test fails without a mutant: {failure}; see the logs in {place.build}")

    def give_up(reason):
        print(reason, flush=True)
        os._exit(2)

    for number in range(options.jobs):
        threading.Thread(target=make_ready, args=(number,), daemon=True).start()

    def judge(mutant, runs):
        place = places.get()
        try:
            return mutant, *place.judge(mutant, runs)
        finally:
            places.put(place)

    def programs_of(mutant):
        return [f"{folder}_tests" for folder in TESTS[mutant.file.split("/")[0]]]

    results = collections.Counter()
    left = []
    before = {}
    if options.go_on and (WORK / "report.txt").exists():
        for line in (WORK / "report.txt").read_text().splitlines():
            verdict, told = line.split(": ", 1)
            before[told.rsplit("   [", 1)[0].strip()] = (verdict, told.rsplit("   [", 1)[1][:-1] if told.endswith("]") else "")
    with open(WORK / "report.txt", "w") as report, concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:

        def tell(mutant, verdict, failure):
            print(f"{verdict}: {mutant}", f"   [{failure}]" if failure else "", file=report, flush=True)
            if verdict == "left":
                left.append(mutant)
                print(f"left to the other tests: {mutant}", flush=True)
            else:
                results[verdict] += 1
                results["too slow"] += failure.endswith("too slow")

        for mutant in everything:
            if str(mutant) in before:
                verdict, failure = before[str(mutant)]
                tell(mutant, "left" if verdict == "survived" else verdict, failure)

        # First the quick tests of the folder. The survivors go to all other tests once all mutants have been tried.
        upcoming, running = (mutant for mutant in everything if str(mutant) not in before), set()
        while True:
            free = min(2 * options.jobs, options.count - results["caught"] - len(left)) - len(running)
            running |= {pool.submit(judge, mutant, [(programs_of(mutant)[0], QUICK)])
                        for _, mutant in zip(range(free), upcoming)}
            if not running:
                break
            done, running = concurrent.futures.wait(running, return_when=concurrent.futures.FIRST_COMPLETED)
            for future in done:
                tell(*future.result())
        check(places.queue[0], SLOW)

        def judge_again(mutant):
            on_x = [("shell_held_keys", ON_X)] if pathlib.Path(mutant.file).stem.endswith("_x11") else []
            return judge(mutant, on_x + [(program, tests) for program in programs_of(mutant) for tests in (QUICK, SLOW)])

        for mutant, verdict, failure in pool.map(judge_again, list(left)):
            verdict = "survived" if verdict == "left" else verdict
            tell(mutant, verdict, failure)
            print(f"{verdict}: {mutant} {failure}", flush=True)
    judged = results["caught"] + results["survived"]
    score = results["caught"] / max(1, judged)
    print(f"caught {results['caught']} of {judged}: {score:.1%}; "
          f"{results['does not compile']} more did not compile; "
          f"{results['too slow']} of the caught were only too slow")
    sys.exit(score < WANTED or judged < options.count)


if __name__ == "__main__":
    main()
