#!/usr/bin/env python3
"""Draws the bitmaps and cursors of TavKit.dll and writes them into tavkit/resources/ (plain Python, no packages).

    tools/art/make_resources.py [DIRECTORY]

The pictures are committed; run this only to change them.
"""

import math
import os
import struct
import sys

MAGENTA = (255, 0, 255)  # transparent in the image strips
SAMPLES = 4  # per axis and pixel, where edges are smoothed


class Canvas:
    """RGB pixels, the upper row first."""

    def __init__(self, width, height, color):
        self.width, self.height = width, height
        self.rows = [[color] * width for _ in range(height)]

    def put(self, x, y, color):
        if 0 <= x < self.width and 0 <= y < self.height:
            self.rows[y][x] = color

    def fill(self, inside, color, hard=False):
        """Paints where inside(x, y) holds. color is a colour or a function of the place; hard edges aren't blended."""
        for y in range(self.height):
            for x in range(self.width):
                hits = sum(
                    inside(x + (i + 0.5) / SAMPLES, y + (j + 0.5) / SAMPLES)
                    for i in range(SAMPLES)
                    for j in range(SAMPLES)
                )
                share = hits / SAMPLES**2
                if hard:
                    share = 1 if share >= 0.5 else 0
                if share:
                    new = color(x + 0.5, y + 0.5) if callable(color) else color
                    old = self.rows[y][x]
                    self.rows[y][x] = tuple(round(o + (n - o) * share) for o, n in zip(old, new))

    def art(self, left, top, lines, colors):
        """Paints a picture given as text, one letter a pixel; letters without a colour leave the pixel."""
        for dy, line in enumerate(lines):
            for dx, letter in enumerate(line):
                if letter in colors:
                    self.put(left + dx, top + dy, colors[letter])


def box(left, top, right, bottom, radius=0):
    def inside(x, y):
        dx = max(left + radius - x, x - (right - radius), 0)
        dy = max(top + radius - y, y - (bottom - radius), 0)
        return dx * dx + dy * dy <= radius * radius if radius else left <= x < right and top <= y < bottom

    return inside


def disc(cx, cy, radius):
    return lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= radius * radius


def polygon(*points):
    def inside(x, y):
        odd = False
        for (x1, y1), (x2, y2) in zip(points, points[1:] + points[:1]):
            if (y1 > y) != (y2 > y) and x < (x2 - x1) * (y - y1) / (y2 - y1) + x1:
                odd = not odd
        return odd

    return inside


def vertical(top, bottom, start, end):
    def color(_, y):
        t = min(max((y - top) / (bottom - top), 0), 1)
        return tuple(round(a + (b - a) * t) for a, b in zip(start, end))

    return color


def write_bmp24(path, canvas):
    stride = (canvas.width * 3 + 3) // 4 * 4
    body = b""
    for row in reversed(canvas.rows):
        line = b"".join(bytes((b, g, r)) for r, g, b in row)
        body += line + bytes(stride - len(line))
    info = struct.pack("<IiiHHIIiiII", 40, canvas.width, canvas.height, 1, 24, 0, len(body), 2835, 2835, 0, 0)
    with open(path, "wb") as file:
        file.write(struct.pack("<2sIHHI", b"BM", 14 + len(info) + len(body), 0, 0, 14 + len(info)) + info + body)


def write_bmp8(path, canvas):
    palette = sorted({pixel for row in canvas.rows for pixel in row})
    stride = (canvas.width + 3) // 4 * 4
    body = b""
    for row in reversed(canvas.rows):
        line = bytes(palette.index(pixel) for pixel in row)
        body += line + bytes(stride - len(line))
    table = b"".join(bytes((b, g, r, 0)) for r, g, b in palette) + bytes(4 * (256 - len(palette)))
    info = struct.pack("<IiiHHIIiiII", 40, canvas.width, canvas.height, 1, 8, 0, len(body), 2835, 2835, 256, 0)
    offset = 14 + len(info) + len(table)
    with open(path, "wb") as file:
        file.write(struct.pack("<2sIHHI", b"BM", offset + len(body), 0, 0, offset) + info + table + body)


CURSOR_SIZE = 32


def write_cursor(path, lines, hot):
    """One 32 by 32 image of two colours: "#" black, "o" white, anything else transparent."""
    rows = [line.ljust(CURSOR_SIZE)[:CURSOR_SIZE] for line in lines]
    rows += [" " * CURSOR_SIZE] * (CURSOR_SIZE - len(rows))

    def mask(letters):
        return b"".join(
            struct.pack(">I", sum((row[x] in letters) << (31 - x) for x in range(CURSOR_SIZE)))
            for row in reversed(rows)
        )

    transparent = "".join({c for row in rows for c in row} - set("#o"))
    info = struct.pack("<IiiHHIIiiII", 40, CURSOR_SIZE, 2 * CURSOR_SIZE, 1, 1, 0, 0, 0, 0, 2, 0)
    image = info + bytes((0, 0, 0, 0, 255, 255, 255, 0)) + mask("o") + mask(transparent)
    header = struct.pack("<HHH", 0, 2, 1)
    entry = struct.pack("<BBBBHHII", CURSOR_SIZE, CURSOR_SIZE, 2, 0, hot[0], hot[1], len(image), 6 + 16)
    with open(path, "wb") as file:
        file.write(header + entry + image)


# --- the pictures ----------------------------------------------------------------------------------------------------

FOLDER_CLOSED = [
    "                ",
    "                ",
    "  ddddd         ",
    " dyyyyyd        ",
    " dyyyyyydddddd  ",
    " dwwwwwwwwwwwwd ",
    " dwyyyyyyyyyyyd ",
    " dwyyyyyyyyyyyd ",
    " dwyyyyyyyyyyyd ",
    " dwyyyyyyyyyyyd ",
    " dwyyyyyyyyyyyd ",
    " dwyyyyyyyyyyod ",
    " dwooooooooooed ",
    " dddddddddddddd ",
    "                ",
    "                ",
]
FOLDER_OPEN = [
    "                ",
    "                ",
    "  ddddd         ",
    " dyyyyyd        ",
    " dyyyyyyddddd   ",
    " dyyyyyyyyyyyd  ",
    " dyyyyyyyyyyyd  ",
    " dyyyddddddddddd",
    " dyydwwwwwwwwwwd",
    " dydwyyyyyyyyyod",
    " dydwyyyyyyyyod ",
    " ddwyyyyyyyyyod ",
    " ddwooooooooood ",
    " dddddddddddddd ",
    "                ",
    "                ",
]
RASTER = [
    "                ",
    " kkkkkkkkkkkkkk ",
    " kssssssssssssk ",
    " kssssssssYYssk ",
    " ksssssssYYYYsk ",
    " ksssssssYYYYsk ",
    " kssssssssYYssk ",
    " kssssmssssssmk ",
    " ksssmmmsssmmmk ",
    " kssmmmmmmmmmmk ",
    " ksmmmmmmmmmmmk ",
    " kggggggggggggk ",
    " kggGGggggGGggk ",
    " kkkkkkkkkkkkkk ",
    "                ",
    "                ",
]
TABLE = [
    "                ",
    " kkkkkkkkkkkkkk ",
    " khhhhkhhhhkhhk ",
    " khhhhkhhhhkhhk ",
    " kkkkkkkkkkkkkk ",
    " kwwwwlwwwwlwwk ",
    " kwwwwlwwwwlwwk ",
    " kllllllllllllk ",
    " kwwwwlwwwwlwwk ",
    " kwwwwlwwwwlwwk ",
    " kllllllllllllk ",
    " kwwwwlwwwwlwwk ",
    " kwwwwlwwwwlwwk ",
    " kkkkkkkkkkkkkk ",
    "                ",
    "                ",
]
VECTOR = [
    "                ",
    "       kkk      ",
    "       krk      ",
    "      bkkk      ",
    "      b   b     ",
    "     bfffffb    ",
    "     bffffffb   ",
    "    bfffffffb   ",
    "    bffffffffb  ",
    " kkkfffffffffb  ",
    " krkbbffffffffkkk",
    " kkkffbbffffffkrk",
    "    fffffbbffbkkk",
    "         kkkb   ",
    "         krk    ",
    "         kkk    ",
]
ICON_COLORS = {
    "d": (140, 100, 20), "y": (255, 214, 107), "w": (255, 246, 214), "o": (232, 180, 66), "e": (190, 140, 44),
}
RASTER_COLORS = {
    "k": (70, 80, 96), "s": (168, 208, 240), "Y": (255, 224, 96), "m": (104, 128, 152), "g": (96, 160, 84),
    "G": (64, 124, 60),
}
TABLE_COLORS = {"k": (70, 80, 96), "h": (120, 160, 208), "w": (255, 255, 255), "l": (196, 204, 214)}
VECTOR_COLORS = {"k": (70, 80, 96), "r": (232, 72, 56), "b": (40, 96, 176), "f": (196, 216, 240)}


def selector_strip():
    """Closed and open container, raster, attribute table, vector: five images of 16 pixels."""
    strip = Canvas(80, 16, MAGENTA)
    icons = (
        (FOLDER_CLOSED, ICON_COLORS),
        (FOLDER_OPEN, ICON_COLORS),
        (RASTER, RASTER_COLORS),
        (TABLE, TABLE_COLORS),
        (VECTOR, VECTOR_COLORS),
    )
    for index, (lines, colors) in enumerate(icons):
        strip.art(16 * index, 0, [line[:16] for line in lines], colors)
    return strip


ARROW_DOWN = [
    "         ",
    "ddddddddd",
    "dlllllllm",
    " dlllllm ",
    "  dlllm  ",
    "   dlm   ",
    "    m    ",
    "         ",
]


def arrow_strip():
    """Six arrows of 9 by 8: three down, three up; normal and hot look are the same, the pressed one is shaded."""
    looks = [{"d": (102, 102, 102), "l": (227, 227, 227), "m": (192, 192, 192)}] * 2
    looks.append({"d": (102, 102, 102), "l": (204, 204, 204), "m": (227, 227, 227)})
    strip = Canvas(54, 8, MAGENTA)
    for index, colors in enumerate(looks):
        strip.art(9 * index, 0, ARROW_DOWN, colors)
        strip.art(9 * (index + 3), 0, ARROW_DOWN[::-1], colors)
    return strip


def picture():
    """A folder before a sheet with a micrograph, for a dialog that asks for a folder."""
    art = Canvas(96, 96, (255, 255, 255))
    art.fill(box(0, 0, 96, 96), vertical(0, 96, (238, 244, 251), (206, 221, 239)))
    art.fill(box(24, 10, 76, 66, 3), (150, 164, 184))
    art.fill(box(25, 11, 75, 65, 2), (252, 253, 255))
    art.fill(box(29, 15, 71, 52), (38, 30, 66))
    for x, y, radius, color in (
        (38, 24, 5.5, (104, 92, 196)), (55, 21, 4, (92, 80, 176)), (63, 33, 6, (128, 108, 220)),
        (46, 36, 5, (112, 96, 204)), (34, 43, 4, (92, 84, 184)), (58, 45, 4.5, (104, 92, 196)),
    ):
        art.fill(disc(x, y, radius), color)
        art.fill(disc(x - radius / 4, y - radius / 4, radius / 2.4), tuple(min(c + 48, 255) for c in color))
    art.fill(polygon((10, 46), (14, 40), (34, 40), (39, 46), (84, 46), (84, 84), (10, 84)), (196, 142, 38))
    art.fill(polygon((11, 47), (14.5, 41), (33.5, 41), (38.5, 47), (83, 47), (83, 83), (11, 83)), (246, 196, 84))
    art.fill(polygon((9, 86), (17, 54), (92, 54), (85, 86)), (180, 128, 30))
    art.fill(
        polygon((10.5, 85), (18, 55), (90.5, 55), (84, 85)), vertical(55, 85, (255, 226, 140), (244, 188, 70))
    )
    art.fill(polygon((18, 55), (90.5, 55), (90.2, 56.4), (17.6, 56.4)), (255, 244, 206))
    return art


HAND_POINTING = [
    "     ##",
    "    #oo#",
    "    #oo#",
    "    #oo#",
    "    #oo#",
    "    #oo###",
    "    #oo#oo###",
    "    #oo#oo#oo##",
    "    #oo#oo#oo#o#",
    " ## #oo#oo#oo#oo#",
    "#oo##oooooooo#oo#",
    "#ooo#ooooooooooo#",
    " #oo#ooooooooooo#",
    "  #oooooooooooo#",
    "  #oooooooooooo#",
    "   #ooooooooooo#",
    "   #oooooooooo#",
    "    #ooooooooo#",
    "    #oooooooo#",
    "     #ooooooo#",
    "     #ooooooo#",
    "     #########",
]

HAND_OPEN = [
    "",
    "",
    "",
    "           ##",
    "        ###oo##",
    "       #oo#oo#o#",
    "       #oo#oo#oo#",
    "        #oo#oo#oo###",
    "        #oo#oo#oo#oo#",
    "     ##  #ooooooo#oo#",
    "    #oo# #oooooooooo#",
    "    #ooo##oooooooooo#",
    "     #oooooooooooooo#",
    "      #ooooooooooooo#",
    "       #ooooooooooo#",
    "        #oooooooooo#",
    "         #ooooooooo#",
    "          #ooooooo#",
    "          #ooooooo#",
    "          #########",
]


def magnifier():
    """A lens around the hot spot (9, 10), with a cross at it."""
    cx, cy = 9.5, 10.5
    lines = []
    for y in range(CURSOR_SIZE):
        line = ""
        for x in range(CURSOR_SIZE):
            distance = math.hypot(x + 0.5 - cx, y + 0.5 - cy)
            along = ((x + 0.5 - cx) + (y + 0.5 - cy)) / math.sqrt(2)
            across = abs((x + 0.5 - cx) - (y + 0.5 - cy)) / math.sqrt(2)
            handle = 8 < along < 21.5 and across < 2.4
            if distance < 5.6:
                cross = (x == 9 and abs(y - 10) <= 3) or (y == 10 and abs(x - 9) <= 3)
                line += "#" if cross else " "
            elif distance < 6.6 or 7.6 <= distance < 8.6:
                line += "#"
            elif distance < 7.6:
                line += "o"
            elif handle:
                line += "o" if across < 1.3 and along < 20.5 else "#"
            else:
                line += " "
        lines.append(line)
    return lines


def main():
    target = sys.argv[1] if len(sys.argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "..", "tavkit", "resources"
    )

    def path(name):
        return os.path.join(target, name)

    write_bmp24(path("picture.bmp"), picture())
    write_bmp24(path("selector.bmp"), selector_strip())
    write_bmp8(path("arrows.bmp"), arrow_strip())
    write_cursor(path("hand.cur"), HAND_POINTING, (5, 0))
    write_cursor(path("grab.cur"), HAND_OPEN, (12, 14))
    write_cursor(path("magnifier.cur"), magnifier(), (9, 10))


if __name__ == "__main__":
    main()
