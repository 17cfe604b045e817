#!/usr/bin/env python3
"""Checks the floors: which folder below src/ may include which, and that no chain of includes
comes back to where it began. Exit status 1, with one line for each fault, when it does not hold."""

import re
import sys
from pathlib import Path

BELOW = {
    "base": "",
    "text": "base",
    "tags": "base text",
    "sound": "base",
    "itunes": "base text",
    "songs": "base text tags itunes",
    "gathering": "base text tags songs",
    "sources": "base text gathering",
    "app": "base text tags itunes songs gathering sources",
    "demo": "base text tags itunes songs gathering sources app",
    "cli": "base text tags itunes songs gathering sources app demo",
    "gui": "base text tags itunes songs gathering sources app demo",
    "main": "base text sound cli gui",
}
GUI_MODULE = re.compile(r"#include <(QWidget|QApplication|QGuiApplication|QPixmap|QtWidgets)")
INCLUDE = re.compile(r'^\s*#include "([^"]+)"', re.MULTILINE)


def room_of(path):
    return path.with_suffix("").as_posix()


def floor_of(room):
    return room.split("/")[0] if "/" in room else "main"


def read_rooms(src):
    """Room -> set of rooms that its header or source includes."""
    rooms = {}
    for file in sorted(src.rglob("*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        room = room_of(file.relative_to(src))
        text = file.read_text(encoding="utf-8")
        included = {room_of(Path(name)) for name in INCLUDE.findall(text)}
        rooms.setdefault(room, set()).update(included - {room})
        if GUI_MODULE.search(text) and floor_of(room) not in ("gui", "main"):
            yield_fault(f"{file}: widgets and pixmaps belong in gui/")
    return rooms


FAULTS = []


def yield_fault(line):
    FAULTS.append(line)


def check_floors(rooms):
    for room, included in rooms.items():
        floor = floor_of(room)
        allowed = BELOW[floor].split() + [floor]
        for other in included:
            if floor_of(other) not in allowed:
                yield_fault(f"src/{room}: must not include {other} ({floor} may include: {BELOW[floor]})")


def check_circles(rooms):
    state = {}

    def visit(room, chain):
        state[room] = "open"
        for other in sorted(rooms.get(room, ())):
            if state.get(other) == "open":
                yield_fault("circle: " + " -> ".join(chain[chain.index(other):] + [other]))
            elif other not in state:
                visit(other, chain + [other])
        state[room] = "done"

    for room in sorted(rooms):
        if room not in state:
            visit(room, [room])


def main():
    src = Path(sys.argv[1] if len(sys.argv) > 1 else "src")
    rooms = read_rooms(src)
    check_floors(rooms)
    check_circles(rooms)
    print("\n".join(FAULTS) if FAULTS else f"{len(rooms)} rooms, no forbidden include, no circle")
    return 1 if FAULTS else 0


if __name__ == "__main__":
    sys.exit(main())
