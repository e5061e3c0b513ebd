#!/usr/bin/env python3
"""Writes a colour profile as a table of bytes for a C++ array.

    tools/icc_table.py /usr/share/color/icc/sRGB.icc > pdf/data/srgb.inc
"""
import pathlib
import sys

HEAD = """\
// The bytes of sRGB.icc, a version 2 profile from the Debian package icc-profiles-free
// 2.0.1+dfsg-1.1, unchanged. Made by tools/icc_table.py.
// Copyright Kai-Uwe Behrmann, Marti Maria, Photogamut, Graeme Gill, ColorSolutions. zlib licence:
// anyone may use, alter and redistribute it freely, for any purpose; its origin must not be
// misrepresented, altered versions must be marked as such, and this notice must stay. No warranty.
"""
A_ROW = 24

profile = pathlib.Path(sys.argv[1]).read_bytes()
if profile[36:40] != b"acsp" or int.from_bytes(profile[:4], "big") != len(profile):
    sys.exit(f"{sys.argv[1]} is no colour profile")
sys.stdout.write(HEAD)
for at in range(0, len(profile), A_ROW):
    print("".join(f"{byte}," for byte in profile[at : at + A_ROW]))
