"""What the comparisons with other programs share: fields, checks and the report."""

import hashlib
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

PROGRAM = os.environ["TAGWRIGHT_PROGRAM"]
FIELDS = "title artist album year track genres bpm lyrics compilation".split()

LATIN = dict(title="Hafenlichter bei Süd", artist="Nila Öster", album="Sea Songs", year="2007",
             track="3/12", genres="Folk", bpm="96", lyrics="erste Zeile\nzweite Zeile")
UNICODE = dict(LATIN, title="Φώτα 🎵", artist="Νίλα Ωστερ", album="夜の海", genres="Ρεμπέτικο",
               lyrics="πρώτη γραμμή\nδεύτερη")
LONG = dict(LATIN, title="t" * 300, lyrics="Zeile\n" * 40)

failures, checks = [], 0


def check(what, got, expected):
    global checks
    checks += 1
    if got != expected:
        if isinstance(got, dict):  # of many entries only those that differ
            keys = [key for key in got | expected if got.get(key) != expected.get(key)]
            got, expected = ({key: seen.get(key) for key in keys} for seen in (got, expected))
        failures.append(f"{what}: {got!r} instead of {expected!r}")


def run(*command):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True).stdout


def make_sound(*arguments):
    run("ffmpeg", "-v", "error", "-f", "lavfi", "-i", *arguments)


def sha1(data):
    return hashlib.sha1(data).hexdigest()


def named(names):
    """The names that another program has for our fields, and ours by them."""
    theirs = names.split(",")
    return dict(zip(FIELDS, theirs)), dict(zip(theirs, FIELDS))


def report_of(check_in, tools):
    """Runs the checks in a folder of their own, and ends the program with what came out."""
    if missing := [tool for tool in tools if not shutil.which(tool)]:
        sys.exit(f"not installed: {', '.join(missing)}")
    with tempfile.TemporaryDirectory() as name:
        os.environ.update(HOME=name, LC_ALL="C.UTF-8", QT_QPA_PLATFORM="offscreen")
        check_in(Path(name))
    print(*failures, f"{checks} checks, {len(failures)} failed", sep="\n")
    sys.exit(1 if failures else 0)
