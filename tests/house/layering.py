#!/usr/bin/env python3
"""Fails on an #include that runs upwards between the rooms, or on Qt outside shell/qt."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]

# Each room and the rooms that its files may include.
BELOW = {
    "core": [],
    "entry": ["core"],
    "pdf": ["core"],
    "records": ["core", "entry"],
    "documents": ["core", "entry", "records", "pdf"],
    "pension": ["core", "entry", "records", "pdf"],
    "calendar": ["core", "entry", "records"],
    "reports": ["core", "entry", "records", "documents", "pension", "calendar", "pdf"],
    "connections": ["core", "entry", "records", "documents", "pension", "calendar", "pdf"],
}
BELOW["shell"] = list(BELOW)
BELOW["shell/qt"] = list(BELOW)
BELOW["cli"] = [room for room in BELOW if room != "shell/qt"]

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)
QT = re.compile(r"^(Qt\w+/|Q[A-Z]\w*$|ui_)")


def room_of(path):
    """The room of a file: its folder, or the room that the folder stands in."""
    for folder in (path.parent.as_posix(), path.parts[0] if path.parts else ""):
        if folder in BELOW:
            return folder
    return None


def faults():
    for room in BELOW:
        for path in sorted((ROOT / room).rglob("*")):
            if path.suffix not in (".h", ".cpp", ".mm") or room_of(path.relative_to(ROOT)) != room:
                continue
            for kind, name in INCLUDE.findall(path.read_text(encoding="utf-8")):
                where = f"{path.relative_to(ROOT)}: {name}"
                if QT.match(name) and room != "shell/qt":
                    yield f"{where} is Qt"
                target = room_of(pathlib.PurePosixPath(name))
                if target and target != room and target not in BELOW[room]:
                    yield f"{where} runs upwards"
                if kind == '"' and not target and not QT.match(name):
                    yield f"{where} is not named from the root"


found = list(faults())
print("\n".join(found) or "includes run downwards only")
sys.exit(1 if found else 0)
