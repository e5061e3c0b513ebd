#!/usr/bin/env python3
"""Writes the seeds of fuzz/images_fuzzer.cpp: a small file of each kind that the readers know.

Usage: make-image-corpus.py [FOLDER], fuzz/corpus/images beside this script's folder by default.
"""

import pathlib
import struct
import sys
import zlib

PALETTE = bytes([0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255])


def png(bits, colour_type, rows, chunks=()):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", 4, 2, bits, colour_type, 0, 0, 0)
    parts = [(b"IHDR", header), *chunks, (b"IDAT", zlib.compress(rows)), (b"IEND", b"")]
    return b"\x89PNG\r\n\x1a\n" + b"".join(chunk(*part) for part in parts)


def jpeg(frame, components, adobe=False):
    """8 x 8 points of mid-gray: each block is two codes of one bit."""

    def segment(marker, data):
        return struct.pack(">BBH", 0xFF, marker, len(data) + 2) + data

    one_code = bytes([1]) + bytes(16)
    out = b"\xff\xd8"
    if adobe:
        out += segment(0xEE, b"Adobe" + bytes([0, 100, 0, 0, 0, 0, 0]))
    out += segment(0xDB, b"\0" + b"\1" * 64)
    parts = b"".join(bytes([i + 1, 0x11, 0]) for i in range(components))
    out += segment(frame, struct.pack(">BHHB", 8, 8, 8, components) + parts)
    out += segment(0xC4, b"\x00" + one_code) + segment(0xC4, b"\x10" + one_code)
    scan = b"".join(bytes([i + 1, 0]) for i in range(components))
    out += segment(0xDA, bytes([components]) + scan + bytes([0, 63, 0]))
    return out + bytes([0xFF >> (2 * components)]) + b"\xff\xd9"


def bmp(width, height, bits, compression, palette, rows):
    offset = 54 + len(palette)
    head = struct.pack("<2sIII", b"BM", offset + len(rows), 0, offset)
    colours = 0 if compression == 3 else len(palette) // 4
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, compression, 0, 0, 0, colours, 0)
    return head + info + palette + rows


def bmp_os2(rows):
    head = struct.pack("<2sIII", b"BM", 32 + len(rows), 0, 32)
    return head + struct.pack("<IHHHH", 12, 3, 1, 1, 1) + bytes([255, 0, 0, 0, 255, 0]) + rows


def gif(indices, flags=0, transparent=None, local=b""):
    """Codes of three bits, with a clear code before the width would grow."""
    bits = held = 0
    packed = bytearray()
    for place, index in enumerate(indices):
        for code in [4, index] if place % 2 == 0 else [index]:
            bits |= code << held
            held += 3
    bits |= 5 << held
    packed += bits.to_bytes((held + 10) // 8, "little")
    out = b"GIF89a" + struct.pack("<HHBBB", 3, 2, 0x81, 0, 0) + PALETTE
    if transparent is not None:
        out += bytes([0x21, 0xF9, 4, 1, 0, 0, transparent, 0])
    out += b"," + struct.pack("<HHHHB", 0, 0, 3, 2, flags | (0x81 if local else 0)) + local
    return out + bytes([2, len(packed)]) + bytes(packed) + b"\0;"


def tga(kind, width, height, bits, corner, data, palette=b""):
    head = struct.pack("<BBBHHB", 0, 1 if palette else 0, kind, 0, len(palette) // 3, 24 if palette else 0)
    return head + struct.pack("<HHHHBB", 0, 0, width, height, bits, corner) + palette + data


def eps(body):
    return b"%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 100 50\n%%EndProlog\n" + body + b"\nshowpage\n%%EOF\n"


def wmf(*records, placeable=False):
    def record(function, *values):
        return struct.pack("<IH", 3 + len(values), function) + struct.pack(f"<{len(values)}h", *values)

    out = b""
    if placeable:
        out += struct.pack("<IHhhhhHIH", 0x9AC6CDD7, 0, 0, 0, 100, 50, 72, 0, 0)
    out += struct.pack("<HHHIHIH", 1, 9, 0x300, 0, 4, 0, 0)
    return out + b"".join(record(*each) for each in [*records, (0,)])


WINDOW = [(0x020B, 0, 0), (0x020C, 50, 100)]
PEN = [(0x02FA, 1, 2, 0, 255, 0), (0x02FC, 0, 255, 0, 0), (0x012D, 0), (0x012D, 1)]

SEEDS = {
    "gray1.png": png(1, 0, bytes([0, 0x50, 0, 0xA0]), [(b"tRNS", b"\0\1")]),
    "gray16.png": png(16, 0, bytes(18)),
    "rgb8.png": png(8, 2, bytes([1] + [9] * 12 + [2] + [3] * 12), [(b"tRNS", bytes(6))]),
    "indexed2.png": png(2, 3, bytes([0, 0x1B, 0, 0xE4]), [(b"PLTE", PALETTE), (b"tRNS", b"\xff\0\0")]),
    "gray.jpg": jpeg(0xC0, 1),
    "rgb.jpg": jpeg(0xC2, 3),
    "cmyk.jpg": jpeg(0xC0, 4, adobe=True),
    "bits1.bmp": bmp(3, 2, 1, 0, bytes(8), bytes([0x20, 0, 0, 0, 0xA0, 0, 0, 0])),
    "bits8.bmp": bmp(3, -2, 8, 0, bytes(8), bytes([0, 0, 1, 0, 1, 0, 1, 0])),
    "bits24.bmp": bmp(2, 1, 24, 0, b"", bytes(range(8))),
    "fields.bmp": bmp(2, 1, 16, 3, struct.pack("<III", 0xF800, 0x7E0, 0x1F), bytes(range(4))),
    "rle8.bmp": bmp(3, 2, 8, 1, bytes(8), bytes([2, 0, 0, 2, 1, 0, 0, 0, 0, 3, 1, 0, 1, 0, 0, 1])),
    "rle4.bmp": bmp(3, 2, 4, 2, bytes(8), bytes([3, 0x10, 0, 0, 0, 3, 0, 0x10, 0, 1])),
    "os2.bmp": bmp_os2(bytes([0xA0, 0, 0, 0])),
    "plain.gif": gif([0, 1, 2, 3, 3, 3]),
    "interlaced.gif": gif([0, 1, 2, 3, 3, 3], 0x40, 2, PALETTE[::-1]),
    "colours.tga": tga(2, 2, 1, 24, 0x20, bytes(range(6))),
    "runs.tga": tga(9, 3, 2, 8, 0x10, bytes([0x82, 1, 2, 0, 1, 2]), PALETTE),
    "gray.tga": tga(3, 2, 1, 8, 0, b"ab"),
    "drawing.eps": eps(b"q 1 0 0 rg [3 1] 0 d 2 w 10 40 m 20 30 l 1 2 3 4 5 6 c s Q\n0 0 9 9 re W n 1 1 9 9 re f"),
    "names.eps": eps(b"gsave 90 rotate 2 2 scale 0.5 setgray 1 1 moveto 2 2 lineto closepath fill grestore"),
    "lines.wmf": wmf(*WINDOW, *PEN, (0x0214, 1, 2), (0x0213, 30, 40), (0x0325, 2, 1, 2, 3, 4)),
    "shapes.wmf": wmf(*WINDOW, (0x001E,), *PEN, (0x041B, 40, 30, 20, 10), (0x0418, 40, 30, 20, 10), (0x0127, -1),
                      (0x081A, 20, 20, 30, 30, 40, 30, 20, 10), (0x0538, 2, 2, 2, 1, 2, 3, 4, 5, 6, 7, 8),
                      placeable=True),
}


def main():
    default = pathlib.Path(__file__).resolve().parent.parent / "fuzz" / "corpus" / "images"
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else default
    folder.mkdir(parents=True, exist_ok=True)
    for name, seed in SEEDS.items():
        (folder / name).write_bytes(seed)


if __name__ == "__main__":
    main()
