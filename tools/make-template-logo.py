"""make-template-logo.py OUT.png: draws the mark of the Letterhead template, four petals."""
import math, struct, sys, zlib

SIZE, FINE = 480, 3  # pixels, and samples of each along both axes
REACH = 0.76  # the petals just touch the picture's edge
WHITE, TEAL, LIGHT = (255, 255, 255), (14, 110, 110), (122, 188, 182)


def colour(x, y):  # -REACH to REACH from the middle
    for turn, paint in enumerate((TEAL, LIGHT, TEAL, LIGHT)):
        angle = math.radians(45 + 90 * turn)
        along = x * math.cos(angle) + y * math.sin(angle)
        aside = -x * math.sin(angle) + y * math.cos(angle)
        # A petal is what two circles share.
        if math.hypot(along - 0.54, aside - 0.36) < 0.60 and math.hypot(along - 0.54, aside + 0.36) < 0.60:
            return paint
    return WHITE


def pixel(row, column):
    total = [0, 0, 0]
    for i in range(FINE):
        for j in range(FINE):
            x = (column + (j + 0.5) / FINE) / SIZE * 2 * REACH - REACH
            y = (row + (i + 0.5) / FINE) / SIZE * 2 * REACH - REACH
            total = [a + b for a, b in zip(total, colour(x, y))]
    return bytes(round(value / FINE**2) for value in total)


def chunk(name, data):
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))


rows = b"".join(b"\0" + b"".join(pixel(r, c) for c in range(SIZE)) for r in range(SIZE))
with open(sys.argv[1], "wb") as file:
    file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", SIZE, SIZE, 8, 2, 0, 0, 0))
               + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))
