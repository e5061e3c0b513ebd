#!/usr/bin/env python3
"""What the user guide sets in italics is a caption of the program, word for word.

"*File, New, Practice*" is three of them. Captions are the texts of the .ui files and the literals of the
sources, without the Alt letter's mark, a colon or dots at the end.
"""
import re
import sys
from html import unescape
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
ROOMS = ["core", "entry", "records", "documents", "pension", "calendar", "reports", "connections", "shell"]


def plain(caption):
    return re.sub(r"(\.\.\.|:)$", "", caption.strip().replace("&&", "\0").replace("&", "").replace("\0", "&"))


def captions():
    found = set()
    for room in ROOMS:
        for path in (ROOT / room).rglob("*"):
            if path.suffix in (".cpp", ".h"):
                found.update(re.findall(r'"((?:[^"\\\n]|\\.)*)"', path.read_text(encoding="utf-8")))
            elif path.suffix == ".ui":
                texts = re.findall(r"<string>([^<]*)</string>", path.read_text(encoding="utf-8"))
                found.update(unescape(text) for text in texts)
    found.update(path.stem for path in (ROOT / "data/templates").iterdir())
    return {plain(text) for text in found}


def named(guide):
    guide = re.sub(r"```.*?```", "", guide, flags=re.S)
    guide = re.sub(r"`[^`\n]*`|!\[[^\]]*\]|\*\*.*?\*\*", "", guide, flags=re.S)
    for words in re.findall(r"\*(\S[^*]*?)\*", guide):
        yield " ".join(words.split())


def main():
    known = captions()
    guide = (ROOT / "docs/user-guide.md").read_text(encoding="utf-8")
    wrong = [words for words in named(guide)
             if words not in known and not all(plain(part) in known for part in words.split(", "))]
    for words in wrong:
        print(f"docs/user-guide.md: no caption of the program: {words}")
    if re.search(r"\boption \d", guide):
        print("docs/user-guide.md: options go by their names there, not by numbers")
        return 1
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
