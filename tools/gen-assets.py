#!/usr/bin/env python3
"""Generates Perchdock's own images, sounds and default theme files into assets/.

Everything here is drawn or synthesised by this script, with the Python standard library only: the
GIF (LZW), ICO, JPEG (baseline, optimised Huffman tables) and WAV writers are our own.  The output is
committed, so a build never has to run this; re-running it reproduces the same bytes.

    python3 tools/gen-assets.py            write every file into assets/
    python3 tools/gen-assets.py --check    regenerate in memory and compare with the files in assets/
    python3 tools/gen-assets.py --out DIR  write into DIR instead of assets/

Every picture also gets a twin at double resolution for screens of two device pixels per logical pixel,
named like "fold@2x.png" beside "fold.gif": the same drawing made at twice the pixel count (shapes are
drawn as vectors, pixel glyphs are doubled with Scale2x so that their diagonals gain detail), written as
PNG with smooth alpha.  The program picks the twin where the screen's ratio is above 1.
"""

import argparse
import io
import math
import os
import struct
import sys
import wave
import zlib

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ASSETS = os.path.join(ROOT, "assets")

# ---------------------------------------------------------------------------------------------------
# GIF89a writer
# ---------------------------------------------------------------------------------------------------


def lzw_compress(indices, min_code_size):
    """GIF's variable-length LZW, codes packed least significant bit first."""
    clear = 1 << min_code_size
    end = clear + 1
    out = bytearray()
    acc = 0
    nbits = 0

    def emit(code, size):
        nonlocal acc, nbits
        acc |= code << nbits
        nbits += size
        while nbits >= 8:
            out.append(acc & 0xFF)
            acc >>= 8
            nbits -= 8

    code_size = min_code_size + 1
    table = {}
    next_code = end + 1
    emit(clear, code_size)
    prefix = indices[0]
    for c in indices[1:]:
        key = (prefix, c)
        found = table.get(key)
        if found is not None:
            prefix = found
            continue
        emit(prefix, code_size)
        if next_code < 4096:
            table[key] = next_code
            next_code += 1
            if next_code > (1 << code_size) and code_size < 12:
                code_size += 1
        else:
            emit(clear, code_size)
            table = {}
            code_size = min_code_size + 1
            next_code = end + 1
        prefix = c
    emit(prefix, code_size)
    emit(end, code_size)
    if nbits:
        out.append(acc & 0xFF)
    return bytes(out)


def encode_gif(width, height, palette, indices, transparent=None):
    """One-frame GIF89a with a global colour table; `transparent` is a palette index or None."""
    bits = max(1, (len(palette) - 1).bit_length())
    size = 1 << bits
    pal = list(palette) + [(0, 0, 0)] * (size - len(palette))
    out = bytearray(b"GIF89a")
    out += struct.pack("<HHBBB", width, height, 0x80 | ((bits - 1) << 4) | (bits - 1), 0, 0)
    for r, g, b in pal:
        out += bytes((r, g, b))
    if transparent is not None:
        out += bytes((0x21, 0xF9, 4, 0x01, 0, 0, transparent, 0))
    out += b"\x2c" + struct.pack("<HHHHB", 0, 0, width, height, 0)
    min_code_size = max(2, bits)
    data = lzw_compress(indices, min_code_size)
    out.append(min_code_size)
    for i in range(0, len(data), 255):
        chunk = data[i:i + 255]
        out.append(len(chunk))
        out += chunk
    out += b"\x00\x3b"
    return bytes(out)


# ---------------------------------------------------------------------------------------------------
# ICO writer (32-bit BMP entries with alpha and an AND mask: read by every ICO reader, Qt's included)
# ---------------------------------------------------------------------------------------------------


def encode_ico(images):
    """images: list of (size, rgba bytes row-major top-down)."""
    entries = []
    blobs = []
    offset = 6 + 16 * len(images)
    for size, rgba in images:
        w = h = size
        xor = bytearray()
        for y in range(h - 1, -1, -1):
            for x in range(w):
                r, g, b, a = rgba[(y * w + x) * 4:(y * w + x) * 4 + 4]
                xor += bytes((b, g, r, a))
        mask_stride = ((w + 31) // 32) * 4
        mask = bytearray()
        for y in range(h - 1, -1, -1):
            row = bytearray(mask_stride)
            for x in range(w):
                if rgba[(y * w + x) * 4 + 3] == 0:
                    row[x // 8] |= 0x80 >> (x % 8)
            mask += row
        header = struct.pack("<IiiHHIIiiII", 40, w, h * 2, 1, 32, 0, len(xor) + len(mask), 0, 0, 0, 0)
        blob = header + bytes(xor) + bytes(mask)
        entries.append(struct.pack("<BBBBHHII", w % 256, h % 256, 0, 0, 1, 32, len(blob), offset))
        blobs.append(blob)
        offset += len(blob)
    return struct.pack("<HHH", 0, 1, len(images)) + b"".join(entries) + b"".join(blobs)


# ---------------------------------------------------------------------------------------------------
# PNG writer (8-bit RGBA, no filtering): the double-resolution twins, which keep smooth alpha edges
# ---------------------------------------------------------------------------------------------------


def encode_png(width, height, rgba):
    """rgba: bytes row-major top-down, 4 bytes a pixel, not premultiplied."""
    stride = width * 4
    raw = b"".join(b"\x00" + rgba[y * stride:(y + 1) * stride] for y in range(height))

    def chunk(tag, data):
        return struct.pack(">I", len(data)) + tag + data + struct.pack(">I", zlib.crc32(tag + data) & 0xFFFFFFFF)

    header = struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(raw, 9)) +
            chunk(b"IEND", b""))


def twin_name(rel, suffix=".png"):
    """The double-resolution twin of an asset: "dir/name.gif" -> "dir/name@2x.png"."""
    return os.path.splitext(rel)[0] + "@2x" + suffix


# ---------------------------------------------------------------------------------------------------
# WAV writer
# ---------------------------------------------------------------------------------------------------

RATE = 22050


def encode_wav(samples):
    """16-bit mono PCM at RATE; samples are floats in -1..1."""
    frames = struct.pack("<%dh" % len(samples), *[int(round(s * 32767)) for s in samples])
    buf = io.BytesIO()
    w = wave.open(buf, "wb")
    w.setnchannels(1)
    w.setsampwidth(2)
    w.setframerate(RATE)
    w.writeframes(frames)
    w.close()
    return buf.getvalue()


# ---------------------------------------------------------------------------------------------------
# Baseline JPEG writer: 4:2:0 YCbCr, standard quantisation tables scaled by quality, Huffman tables
# computed from the image's own symbol counts (two passes).
# ---------------------------------------------------------------------------------------------------

LUMA_Q = [
    16, 11, 10, 16, 24, 40, 51, 61,
    12, 12, 14, 19, 26, 58, 60, 55,
    14, 13, 16, 24, 40, 57, 69, 56,
    14, 17, 22, 29, 51, 87, 80, 62,
    18, 22, 37, 56, 68, 109, 103, 77,
    24, 35, 55, 64, 81, 104, 113, 92,
    49, 64, 78, 87, 103, 121, 120, 101,
    72, 92, 95, 98, 112, 100, 103, 99,
]
CHROMA_Q = [
    17, 18, 24, 47, 99, 99, 99, 99,
    18, 21, 26, 66, 99, 99, 99, 99,
    24, 26, 56, 99, 99, 99, 99, 99,
    47, 66, 99, 99, 99, 99, 99, 99,
] + [99] * 32


def zigzag_order():
    """Natural (row-major) index of each coefficient in zigzag order."""
    order = []
    for s in range(15):
        cells = [(y, s - y) for y in range(8) if 0 <= s - y < 8]
        if s % 2 == 0:
            cells.reverse()  # even diagonals run upwards (y decreasing)
        order += [y * 8 + x for y, x in cells]
    return order


ZIGZAG = zigzag_order()
DCT_COS = [[(math.sqrt(0.5) if u == 0 else 1.0) * 0.5 * math.cos((2 * x + 1) * u * math.pi / 16)
            for x in range(8)] for u in range(8)]


def scaled_table(table, quality):
    scale = 5000 / quality if quality < 50 else 200 - 2 * quality
    return [min(255, max(1, (q * scale + 50) // 100)) for q in table]


def fdct(block):
    tmp = [0.0] * 64
    for y in range(8):
        row = block[y * 8:y * 8 + 8]
        for u in range(8):
            c = DCT_COS[u]
            tmp[y * 8 + u] = (row[0] * c[0] + row[1] * c[1] + row[2] * c[2] + row[3] * c[3]
                              + row[4] * c[4] + row[5] * c[5] + row[6] * c[6] + row[7] * c[7])
    out = [0.0] * 64
    for u in range(8):
        col = tmp[u::8]
        for v in range(8):
            c = DCT_COS[v]
            out[v * 8 + u] = (col[0] * c[0] + col[1] * c[1] + col[2] * c[2] + col[3] * c[3]
                              + col[4] * c[4] + col[5] * c[5] + col[6] * c[6] + col[7] * c[7])
    return out


def huffman_table(freq):
    """Code lengths limited to 16 bits, as the JPEG standard's Annex K builds them.
    Returns (bits[1..16], values) for a DHT segment."""
    freq = list(freq) + [1]  # symbol 256 reserves the all-ones code
    n = len(freq)
    codesize = [0] * n
    others = [-1] * n
    while True:
        v1 = -1
        for i in range(n):
            if freq[i] and (v1 < 0 or freq[i] <= freq[v1]):
                v1 = i
        v2 = -1
        for i in range(n):
            if freq[i] and i != v1 and (v2 < 0 or freq[i] <= freq[v2]):
                v2 = i
        if v2 < 0:
            break
        freq[v1] += freq[v2]
        freq[v2] = 0
        codesize[v1] += 1
        while others[v1] >= 0:
            v1 = others[v1]
            codesize[v1] += 1
        others[v1] = v2
        codesize[v2] += 1
        while others[v2] >= 0:
            v2 = others[v2]
            codesize[v2] += 1
    bits = [0] * 33
    for i in range(n):
        if codesize[i]:
            bits[codesize[i]] += 1
    for i in range(32, 16, -1):
        while bits[i] > 0:
            j = i - 2
            while bits[j] == 0:
                j -= 1
            bits[i] -= 2
            bits[i - 1] += 1
            bits[j + 1] += 2
            bits[j] -= 1
    i = 16
    while bits[i] == 0:
        i -= 1
    bits[i] -= 1  # drop the reserved code
    values = [s for length in range(1, 33) for s in range(n - 1) if codesize[s] == length]
    return bits[1:17], values


def huffman_codes(bits, values):
    codes = {}
    code = 0
    k = 0
    for length in range(1, 17):
        for _ in range(bits[length - 1]):
            codes[values[k]] = (code, length)
            code += 1
            k += 1
        code <<= 1
    return codes


def encode_jpeg(width, height, rgb, quality=90):
    """rgb: function (x, y) -> (r, g, b) floats 0..255. Width and height must be multiples of 16."""
    assert width % 16 == 0 and height % 16 == 0
    ys = [[0.0] * width for _ in range(height)]
    cbs = [[0.0] * width for _ in range(height)]
    crs = [[0.0] * width for _ in range(height)]
    for y in range(height):
        yr, cbr, crr = ys[y], cbs[y], crs[y]
        for x in range(width):
            r, g, b = rgb(x, y)
            yr[x] = 0.299 * r + 0.587 * g + 0.114 * b - 128
            cbr[x] = -0.168736 * r - 0.331264 * g + 0.5 * b
            crr[x] = 0.5 * r - 0.418688 * g - 0.081312 * b
    cw, ch = width // 2, height // 2

    def half(plane):
        return [[(plane[2 * y][2 * x] + plane[2 * y][2 * x + 1] + plane[2 * y + 1][2 * x]
                  + plane[2 * y + 1][2 * x + 1]) * 0.25 for x in range(cw)] for y in range(ch)]

    cbs, crs = half(cbs), half(crs)
    qtabs = [scaled_table(LUMA_Q, quality), scaled_table(CHROMA_Q, quality)]

    def block_symbols(plane, bx, by, qt, prev_dc):
        blk = []
        for y in range(by, by + 8):
            blk += plane[y][bx:bx + 8]
        coef = fdct(blk)
        zz = [int(math.floor(coef[ZIGZAG[k]] / qt[ZIGZAG[k]] + 0.5)) for k in range(64)]
        syms = []
        diff = zz[0] - prev_dc
        size = abs(diff).bit_length()
        syms.append((0, size, diff if diff >= 0 else diff + (1 << size) - 1))
        run = 0
        for k in range(1, 64):
            c = zz[k]
            if c == 0:
                run += 1
                continue
            while run > 15:
                syms.append((1, 0xF0, 0))
                run -= 16
            size = abs(c).bit_length()
            syms.append((1, (run << 4) | size, c if c >= 0 else c + (1 << size) - 1))
            run = 0
        if run:
            syms.append((1, 0x00, 0))
        return syms, zz[0]

    # First pass: all symbols, in stream order, tagged with their table (0 luma, 1 chroma).
    stream = []
    prev = [0, 0, 0]
    for my in range(0, height, 16):
        for mx in range(0, width, 16):
            for dy, dx in ((0, 0), (0, 8), (8, 0), (8, 8)):
                syms, prev[0] = block_symbols(ys, mx + dx, my + dy, qtabs[0], prev[0])
                stream += [(0, s) for s in syms]
            for comp, plane in ((1, cbs), (2, crs)):
                syms, prev[comp] = block_symbols(plane, mx // 2, my // 2, qtabs[1], prev[comp])
                stream += [(1, s) for s in syms]
    freqs = [[[0] * 256, [0] * 256], [[0] * 256, [0] * 256]]  # [table][dc/ac][symbol]
    for t, (ac, sym, _) in stream:
        freqs[t][ac][sym] += 1
    tables = [[huffman_table(freqs[t][ac]) for ac in (0, 1)] for t in (0, 1)]
    codes = [[huffman_codes(*tables[t][ac]) for ac in (0, 1)] for t in (0, 1)]

    # Second pass: the entropy-coded data, with 0xFF bytes stuffed.
    data = bytearray()
    acc = 0
    nbits = 0
    for t, (ac, sym, extra) in stream:
        code, length = codes[t][ac][sym]
        size = sym & 0x0F if ac else sym
        acc = (acc << length) | code
        nbits += length
        if size:
            acc = (acc << size) | extra
            nbits += size
        while nbits >= 8:
            byte = (acc >> (nbits - 8)) & 0xFF
            data.append(byte)
            if byte == 0xFF:
                data.append(0)
            nbits -= 8
        acc &= (1 << nbits) - 1
    if nbits:
        byte = ((acc << (8 - nbits)) | ((1 << (8 - nbits)) - 1)) & 0xFF
        data.append(byte)
        if byte == 0xFF:
            data.append(0)

    def segment(marker, payload):
        return struct.pack(">HH", marker, len(payload) + 2) + payload

    out = bytearray(b"\xff\xd8")
    out += segment(0xFFE0, b"JFIF\x00" + struct.pack(">BBBHHBB", 1, 1, 0, 1, 1, 0, 0))
    for tq, qt in enumerate(qtabs):
        out += segment(0xFFDB, bytes([tq]) + bytes(qt[ZIGZAG[k]] for k in range(64)))
    out += segment(0xFFC0, struct.pack(">BHHB", 8, height, width, 3)
                   + bytes((1, 0x22, 0, 2, 0x11, 1, 3, 0x11, 1)))
    for t in (0, 1):
        for ac in (0, 1):
            bits, values = tables[t][ac]
            out += segment(0xFFC4, bytes([(ac << 4) | t]) + bytes(bits) + bytes(values))
    out += segment(0xFFDA, bytes((3, 1, 0x00, 2, 0x11, 3, 0x11, 0, 63, 0)))
    out += data
    out += b"\xff\xd9"
    return bytes(out)


# ---------------------------------------------------------------------------------------------------
# Drawing: a small RGBA canvas with supersampled shapes, for the pictures that have smooth edges
# ---------------------------------------------------------------------------------------------------


class Canvas:
    def __init__(self, size, ss=4, height=None, scale=1):
        # `size` is the width; a canvas is square unless a height is given.  Shapes are given in the
        # coordinates of a picture `scale` times smaller: a drawing made for 16 pixels fills a canvas of
        # 32 at scale 2.
        self.size = size
        self.height = size if height is None else height
        self.ss = ss
        self.scale = scale
        self.px = [[0.0, 0.0, 0.0, 0.0] for _ in range(size * self.height)]  # premultiplied, 0..1

    def fill(self, inside, color, opacity=1.0):
        """Paints colour (r, g, b) 0..255 where the predicate inside(x, y) holds, x and y in pixels."""
        n = self.ss
        k = self.scale
        r, g, b = (c / 255.0 for c in color)
        for y in range(self.height):
            for x in range(self.size):
                hits = 0
                for sy in range(n):
                    for sx in range(n):
                        if inside((x + (sx + 0.5) / n) / k, (y + (sy + 0.5) / n) / k):
                            hits += 1
                if not hits:
                    continue
                a = opacity * hits / (n * n)
                p = self.px[y * self.size + x]
                p[0] = r * a + p[0] * (1 - a)
                p[1] = g * a + p[1] * (1 - a)
                p[2] = b * a + p[2] * (1 - a)
                p[3] = a + p[3] * (1 - a)

    def fill_gradient(self, inside, top, bottom, y0, y1):
        """Like fill, with a vertical gradient from colour `top` at y0 to `bottom` at y1."""
        k = self.scale
        for row in range(self.height):
            t = min(1.0, max(0.0, ((row + 0.5) / k - y0) / (y1 - y0)))
            color = tuple(a + (b - a) * t for a, b in zip(top, bottom))
            self.fill(lambda x, y, row=row: int(y * k) == row and inside(x, y), color)

    def png(self):
        return encode_png(self.size, self.height, self.rgba())

    def rgba(self):
        out = bytearray()
        for r, g, b, a in self.px:
            if a <= 0:
                out += bytes(4)
                continue
            out += bytes((round(min(1, r / a) * 255), round(min(1, g / a) * 255),
                          round(min(1, b / a) * 255), round(a * 255)))
        return bytes(out)

    def gif(self):
        """Hard-edged GIF: a pixel at least half covered is opaque, in the colour of what covers it."""
        palette = [(0, 0, 0)]
        lookup = {}
        indices = []
        for r, g, b, a in self.px:
            if a < 0.5:
                indices.append(0)
                continue
            color = tuple(round(min(1, c / a) * 255) for c in (r, g, b))
            if color not in lookup:
                lookup[color] = len(palette)
                palette.append(color)
            indices.append(lookup[color])
        if len(palette) > 256:
            raise ValueError("too many colours for a GIF: %d" % len(palette))
        return encode_gif(self.size, self.height, palette, indices, transparent=0)


def circle(cx, cy, r):
    return lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def ring(cx, cy, r0, r1):
    return lambda x, y: r0 * r0 <= (x - cx) ** 2 + (y - cy) ** 2 <= r1 * r1


def rounded_rect(x0, y0, x1, y1, r):
    def inside(x, y):
        if x < x0 or x > x1 or y < y0 or y > y1:
            return False
        dx = max(x0 + r - x, 0, x - (x1 - r))
        dy = max(y0 + r - y, 0, y - (y1 - r))
        return dx * dx + dy * dy <= r * r
    return inside


def segment_shape(ax, ay, bx, by, half_width):
    """A line from a to b with round ends, half_width pixels each side."""
    vx, vy = bx - ax, by - ay
    length2 = vx * vx + vy * vy

    def inside(x, y):
        t = 0.0 if length2 == 0 else max(0.0, min(1.0, ((x - ax) * vx + (y - ay) * vy) / length2))
        dx, dy = x - (ax + t * vx), y - (ay + t * vy)
        return dx * dx + dy * dy <= half_width * half_width
    return inside


def minus(a, b):
    return lambda x, y: a(x, y) and not b(x, y)


def darker(color, f):
    return tuple(round(c * f) for c in color)


# ---------------------------------------------------------------------------------------------------
# The button set "Plain White on Blue": 16x16 GIFs, white glyphs on a blue rounded square
# ---------------------------------------------------------------------------------------------------

BUTTON_SET = "Plain White on Blue"
# Palette: 0 transparent, 1 outline, 2 top highlight, 3-5 body from top to bottom, 6 white, 7 pale blue.
BUTTON_PALETTE = [
    (0x15, 0x48, 0x95),  # transparent (the body colour, for readers that ignore transparency)
    (0x0A, 0x27, 0x5A),  # outline
    (0x4A, 0x80, 0xCE),  # highlight row under the top edge
    (0x26, 0x5D, 0xAE),  # body, upper
    (0x1C, 0x51, 0xA1),  # body, middle
    (0x15, 0x48, 0x95),  # body, lower
    (0xFF, 0xFF, 0xFF),  # glyph
    (0xA8, 0xC4, 0xEC),  # glyph detail
]


def button_background():
    """Indices of the rounded blue square: corners cut, 1-pixel outline, shaded body."""
    px = [0] * 256
    for y in range(16):
        for x in range(16):
            ex = min(x, 15 - x)
            ey = min(y, 15 - y)
            if ex + ey < 2:
                continue  # the three corner pixels of each corner
            if ex == 0 or ey == 0 or (ex + ey == 2):
                px[y * 16 + x] = 1
            elif y == 1 or (y == 2 and ex == 1):
                px[y * 16 + x] = 2
            elif y < 6:
                px[y * 16 + x] = 3
            elif y < 11:
                px[y * 16 + x] = 4
            else:
                px[y * 16 + x] = 5
    return px


# Glyphs, 16 rows of 16: '#' white, '+' pale blue, anything else leaves the background.
GLYPHS = {
    "fold": """
................
................
................
................
................
.......##.......
......####......
.....##..##.....
....##....##....
...##......##...
................
................
................
................
................
................
""",
    "unfold": """
................
................
................
................
................
................
...##......##...
....##....##....
.....##..##.....
......####......
.......##.......
................
................
................
................
................
""",
    "foldall": """
................
................
................
................
.......##.......
......####......
.....##..##.....
....##....##....
.......##.......
......####......
.....##..##.....
....##....##....
................
................
................
................
""",
    "shrinkall": """
................
................
................
...####..####...
...####..####...
...####..####...
...####..####...
................
................
...####..####...
...####..####...
...####..####...
...####..####...
................
................
................
""",
    "shrink": """
................
................
................
............#...
...........##...
.......#..##....
.......#####....
.......###......
.......####.....
...####.........
...####.........
...####.........
...####.........
................
................
................
""",
    "dock": """
................
................
................
...##...........
...##...........
...##...#.......
...##..##.......
...##.#######...
...##.#######...
...##..##.......
...##...#.......
...##...........
...##...........
................
................
................
""",
    "lock": """
................
................
................
......####......
.....######.....
.....##..##.....
.....##..##.....
....########....
....########....
....###..###....
....###..###....
....########....
....########....
................
................
................
""",
    "unlock": """
................
................
.........####...
........######..
........##..##..
........##..##..
........##......
...########.....
...########.....
...###..###.....
...###..###.....
...########.....
...########.....
................
................
................
""",
    "folderoff": """
................
................
................
................
...####.........
...#...######...
...#........#...
...#........#...
...#........#...
...#........#...
...#........#...
...##########...
................
................
................
................
""",
    "folderon": """
................
................
................
................
...####.........
...##########...
...##########...
...##########...
...##########...
...##########...
...##########...
...##########...
................
................
................
................
""",
    "noteshow": """
................
................
................
...#######......
...#.....##.....
...#.....#.#....
...#.....####...
...#.####...#...
...#........#...
...#.######.#...
...#........#...
...#.######.#...
...##########...
................
................
................
""",
    "notehide": """
................
................
..#.............
...#.#####......
....#....##.....
...#.#...#.#....
...#..#..####...
...#.#.#....#...
...#....#...#...
...#.###.#..#...
...#......#.#...
...#.#####.#....
...########.#...
.............#..
................
................
""",
    "rss": """
................
................
................
................
...#####........
...######.......
.......###......
...####..##.....
...#####.###....
......###.##....
.......##.##....
...##..##.##....
...##..##.##....
................
................
................
""",
}


def glyph_rows(name):
    rows = GLYPHS[name].strip("\n").split("\n")
    assert len(rows) == 16 and all(len(r) == 16 for r in rows), name
    return rows


def button(name, palette=None):
    rows = glyph_rows(name)
    px = button_background()
    for y, row in enumerate(rows):
        for x, ch in enumerate(row):
            if ch == "#":
                px[y * 16 + x] = 6
            elif ch == "+":
                px[y * 16 + x] = 7
    return encode_gif(16, 16, palette or BUTTON_PALETTE, px, transparent=0)


def scale2x(rows):
    """Scale2x (EPX) of a character grid: each cell becomes four, and where two neighbours agree across
    a corner that quarter takes their value, so that diagonal strokes come out smooth instead of in
    doubled steps."""
    h, w = len(rows), len(rows[0])
    out = [[" "] * (2 * w) for _ in range(2 * h)]
    for y in range(h):
        for x in range(w):
            p = rows[y][x]
            a = rows[y - 1][x] if y > 0 else p      # above
            b = rows[y][x + 1] if x + 1 < w else p  # right
            c = rows[y][x - 1] if x > 0 else p      # left
            d = rows[y + 1][x] if y + 1 < h else p  # below
            out[2 * y][2 * x] = a if c == a and c != d and a != b else p
            out[2 * y][2 * x + 1] = b if a == b and a != c and b != d else p
            out[2 * y + 1][2 * x] = c if d == c and d != b and c != a else p
            out[2 * y + 1][2 * x + 1] = d if b == d and b != a and d != c else p
    return ["".join(r) for r in out]


_BUTTON_BACK_2X = {}


def button_background_2x(palette):
    """The rounded square of button_background() drawn as a shape at 32 pixels: round anti-aliased
    corners, an outline of one logical pixel, the highlight under the top edge and the three bands of
    the body at the same logical heights."""
    key = tuple(palette)
    if key not in _BUTTON_BACK_2X:
        c = Canvas(32, ss=4, scale=2)
        outer = rounded_rect(0, 0, 16, 16, 3.0)
        inner = rounded_rect(1, 1, 15, 15, 2.0)
        c.fill(outer, palette[1])
        c.fill(lambda x, y: inner(x, y) and y < 6, palette[3])
        c.fill(lambda x, y: inner(x, y) and 6 <= y < 11, palette[4])
        c.fill(lambda x, y: inner(x, y) and y >= 11, palette[5])
        c.fill(lambda x, y: inner(x, y) and y < 2, palette[2])
        _BUTTON_BACK_2X[key] = c
    return _BUTTON_BACK_2X[key]


def button_2x(name, palette=None):
    """The double-resolution twin of button(name, palette), as PNG."""
    palette = palette or BUTTON_PALETTE
    back = button_background_2x(palette)
    c = Canvas(32, ss=1)
    c.px = [list(p) for p in back.px]
    rows = scale2x(glyph_rows(name))
    c.fill(lambda x, y: rows[int(y)][int(x)] == "#", palette[6])
    c.fill(lambda x, y: rows[int(y)][int(x)] == "+", palette[7])
    return c.png()


BUTTON_FILES = ["shrinkall", "foldall", "rss", "lock", "unlock", "dock", "shrink", "folderoff",
                "folderon", "noteshow", "notehide", "fold", "unfold"]


# The six buttons of the shortcut toolbar, in the same blue squares: Zoom In, Zoom Out, Set Size, Toggle
# Bold Font, Sort Ascending, Sort Descending. They belong to the program, not to a button set, and live
# in Skin/Toolbar.
MINI_GLYPHS = {
    "zoomin": """
................
................
................
......###.......
.....#...#......
....#..#..#.....
....#.###.#.....
....#..#..#.....
.....#...#......
......####......
.........##.....
..........##....
...........##...
................
................
................
""",
    "zoomout": """
................
................
................
......###.......
.....#...#......
....#.....#.....
....#.###.#.....
....#.....#.....
.....#...#......
......####......
.........##.....
..........##....
...........##...
................
................
................
""",
    "setsize": """
................
................
................
...##...........
..#..#......#...
..#..#.....###..
..####....#.#.#.
..#..#......#...
..#..#......#...
............#...
..........#.#.#.
...........###..
............#...
................
................
................
""",
    "bold": """
................
................
................
....######......
....###..##.....
....###..##.....
....###..##.....
....######......
....###...##....
....###...##....
....###...##....
....#######.....
................
................
................
................
""",
    "sortaz": """
................
................
...###......#...
..#...#.....#...
..#####.....#...
..#...#.....#...
..#...#.....#...
............#...
..#####.....#...
......#.....#...
.....#....#.#.#.
....#......###..
..#####.....#...
................
................
................
""",
    "sortza": """
................
................
..#####.....#...
......#.....#...
.....#......#...
....#.......#...
..#####.....#...
............#...
...###......#...
..#...#.....#...
..#####...#.#.#.
..#...#....###..
..#...#.....#...
................
................
................
""",
}
GLYPHS.update(MINI_GLYPHS)
TOOLBAR_FILES = list(MINI_GLYPHS)

# The eleven icons of the floating toolbar, in the same blue squares: new container, new note, new
# reminder, new picture, new file shortcut, new folder shortcut, new web address, display properties,
# save, transparency, new feed. Also in Skin/Toolbar, as floating0.gif to floating10.gif.
FLOATING_GLYPHS = [
    # 0 a container: a box with its title bar
    """
................
................
..############..
..############..
..#..........#..
..#..........#..
..#..........#..
..#..........#..
..#..........#..
..#..........#..
..#..........#..
..############..
................
................
................
................
""",
    # 1 a note: a page with lines
    """
................
...#########....
...#.......##...
...#.#####..##..
...#.........#..
...#.######..#..
...#.........#..
...#.######..#..
...#.........#..
...#.####....#..
...#.........#..
...###########..
................
................
................
................
""",
    # 2 a reminder: a clock
    """
................
.....######.....
....#......#....
...#...#....#...
..#....#.....#..
..#....#.....#..
..#....####..#..
..#..........#..
..#..........#..
...#........#...
....#......#....
.....######.....
....##....##....
................
................
................
""",
    # 3 a picture: a frame with a hill and the sun
    """
................
................
..############..
..#..........#..
..#.......##.#..
..#.......##.#..
..#..........#..
..#...#......#..
..#..###..#..#..
..#.#####.##.#..
..############..
................
................
................
................
................
""",
    # 4 a file shortcut: a page with a folded corner
    """
................
...######.......
...#....##......
...#....#.#.....
...#....####....
...#.......#....
...#.......#....
...#.......#....
...#.......#....
...#.......#....
...#.......#....
...#########....
................
................
................
................
""",
    # 5 a folder shortcut
    """
................
................
................
..####..........
..#...#######...
..#.........#...
..###########...
..#.........#...
..#.........#...
..#.........#...
..#.........#...
..###########...
................
................
................
................
""",
    # 6 a web address: a globe
    """
................
.....######.....
....#..##..#....
...#..#..#..#...
..############..
..#..#....#..#..
..#..#....#..#..
..############..
...#..#..#..#...
....#..##..#....
.....######.....
................
................
................
................
................
""",
    # 7 display properties: three sliders
    """
................
................
...#......#.....
..###.....#.....
...#.....###....
...#......#.....
...#......#..#..
...#......#.###.
...#......#..#..
..###.....#..#..
...#......#..#..
...#......#..#..
................
................
................
................
""",
    # 8 save: a disk
    """
................
..###########...
..#..#####..##..
..#..#####...#..
..#..#####...#..
..#..........#..
..#.########.#..
..#.#......#.#..
..#.#......#.#..
..#.#......#.#..
..#.#......#.#..
..############..
................
................
................
................
""",
    # 9 transparency: a square half filled
    """
................
................
..############..
..#.....######..
..#.....######..
..#.....######..
..#.....######..
..#.....######..
..#.....######..
..#.....######..
..#.....######..
..############..
................
................
................
................
""",
    # 10 a feed: a dot and two arcs
    """
................
................
..###...........
.....##.........
.......#........
..##....#.......
....#....#......
.....#...#......
......#...#.....
..##..#...#.....
.###..#...#.....
..##............
................
................
................
................
""",
]
for _n, _rows in enumerate(FLOATING_GLYPHS):
    GLYPHS["floating%d" % _n] = _rows
    TOOLBAR_FILES.append("floating%d" % _n)


# ---------------------------------------------------------------------------------------------------
# The reminder's alarm clock, 90x34, in four colours: a wide desk clock whose case carries the
# reminder's date and time, printed over it in the colour that goes with the case
# ---------------------------------------------------------------------------------------------------

ALARM_COLORS = {
    "alarmclock.gif": (0xFF, 0xC8, 0x1E),    # yellow
    "alarmclockbl.gif": (0x2F, 0x6C, 0xE0),  # blue
    "alarmclockgr.gif": (0x35, 0xB5, 0x3A),  # green
    "alarmclockrd.gif": (0xE2, 0x35, 0x35),  # red
}


def alarm_clock(color, scale=1):
    """The program prints the reminder's date (from the first pixel row) and time (from row 17) centred
    on the icon, so the case spans the whole width and height and the bells peep out at its corners.
    At scale 1 a hard-edged GIF; at scale 2 its twin of twice the pixels, a PNG with smooth edges."""
    w, h = 90, 34
    c = Canvas(w * scale, ss=4, height=h * scale, scale=scale)
    ink = (0x22, 0x22, 0x2A)
    edge = darker(color, 0.45)
    shade = darker(color, 0.86)
    # Feet, behind the case.
    c.fill(segment_shape(15, 29, 11.5, 32.6, 1.3), ink)
    c.fill(segment_shape(75, 29, 78.5, 32.6, 1.3), ink)
    # The two bells at the upper corners, with their hammer pins.
    for bx, px in ((8.0, 13.0), (82.0, 77.0)):
        c.fill(segment_shape(bx, 5.5, px, 1.2, 0.8), ink)
        c.fill(circle(bx, 6.0, 5.8), edge)
        c.fill(circle(bx, 6.0, 4.7), color)
        c.fill(minus(circle(bx, 6.0, 4.7), circle(bx - 1.0, 5.0, 4.7)), shade)
    # The case: a dark outline, the coloured body, a darker band along its bottom and a light line
    # along its top.
    c.fill(rounded_rect(2.5, 2.5, w - 2.5, h - 3.0, 7.0), edge)
    body = rounded_rect(3.7, 3.7, w - 3.7, h - 4.2, 5.8)
    c.fill(body, color)
    c.fill(lambda x, y: body(x, y) and y > h - 9.0, shade)
    c.fill(lambda x, y: body(x, y) and y < 5.0 and 9 < x < w - 9, tuple(min(255, v + 50) for v in color))
    return c.gif() if scale == 1 else c.png()


# ---------------------------------------------------------------------------------------------------
# Icons: the empty container icon and the feed icon
# ---------------------------------------------------------------------------------------------------


def empty_icon(size, scale=1):
    """A faint, empty rounded box; its edges lie on pixel boundaries so that it stays crisp.  `scale` 2
    draws the same box at twice the pixels (the twin)."""
    c = Canvas(size * scale, ss=8, scale=scale)
    m, w, r = (2, 2, 5) if size >= 32 else (1, 1, 3)
    outer = rounded_rect(m, m, size - m, size - m, r)
    inner = rounded_rect(m + w, m + w, size - m - w, size - m - w, r - w)
    c.fill(inner, (0xE8, 0xEE, 0xF6), opacity=0.10)
    c.fill(minus(outer, inner), (0xD8, 0xE0, 0xEC), opacity=0.55)
    return c.rgba() if scale == 1 else c.png()


def rss_icon(size, scale=1):
    """The feed symbol in white on an orange rounded square.  At 16 pixels the symbol is the button
    set's pixel glyph, which stays sharper than a scaled drawing.  `scale` 2 draws the twin: the same
    icon at twice the pixels, the pixel glyph doubled with Scale2x."""
    c = Canvas(size * scale, ss=8, scale=scale)
    r = 6.0 if size >= 32 else 3.5
    c.fill(rounded_rect(0, 0, size, size, r), (0xB8, 0x4E, 0x08))
    inner = rounded_rect(1, 1, size - 1, size - 1, r - 1)
    c.fill_gradient(inner, (0xFF, 0xA8, 0x3C), (0xEE, 0x6E, 0x0E), 1, size - 1)
    white = (0xFF, 0xFF, 0xFF)
    if size < 32:
        rows = glyph_rows("rss") if scale == 1 else scale2x(glyph_rows("rss"))
        c.fill(lambda x, y: rows[int(y * scale)][int(x * scale)] == "#", white)
        return c.rgba() if scale == 1 else c.png()
    s = size / 32.0
    ox, oy = 7.5 * s, size - 7.5 * s  # the centre of the arcs
    c.fill(circle(ox + 0.5 * s, oy - 0.5 * s, 2.9 * s), white)
    for r0, r1 in ((8.4, 12.6), (15.2, 19.4)):
        arc = ring(ox - 1.0 * s, oy + 1.0 * s, r0 * s, r1 * s)
        c.fill(lambda x, y, arc=arc: arc(x, y) and x >= ox - 1.0 * s and y <= oy + 1.0 * s, white)
    return c.rgba() if scale == 1 else c.png()


# ---------------------------------------------------------------------------------------------------
# Sounds
# ---------------------------------------------------------------------------------------------------


def silence(seconds):
    return [0.0] * int(round(seconds * RATE))


def add_tone(buf, start, freq, amp, attack, decay, partials=((1.0, 1.0, 1.0),), glide_to=None,
             length=None):
    """Adds a tone at `start` seconds: raised-cosine attack, exponential decay with time constant
    `decay`; partials are (frequency ratio, amplitude, decay factor).  With glide_to the pitch moves
    exponentially from freq to glide_to over `length` seconds."""
    n0 = int(round(start * RATE))
    n_end = len(buf) if length is None else min(len(buf), n0 + int(round(length * RATE)))
    phases = [0.0] * len(partials)
    for n in range(n0, n_end):
        t = (n - n0) / RATE
        env = 0.5 - 0.5 * math.cos(math.pi * t / attack) if t < attack else 1.0
        f = freq
        if glide_to is not None:
            f = freq * (glide_to / freq) ** min(1.0, t / length)
        v = 0.0
        for k, (ratio, pamp, pdec) in enumerate(partials):
            phases[k] += 2 * math.pi * f * ratio / RATE
            v += pamp * math.exp(-t / (decay * pdec)) * math.sin(phases[k])
        buf[n] += amp * env * v


def finish(buf, peak, fade_in=0.002, fade_out=0.01):
    """Scales to the given peak and fades both ends to exact silence, so that nothing clicks."""
    top = max(abs(v) for v in buf)
    scale = peak / top if top else 0.0
    n = len(buf)
    nin = max(1, int(fade_in * RATE))
    nout = max(1, int(fade_out * RATE))
    out = []
    for i, v in enumerate(buf):
        g = scale
        if i < nin:
            g *= 0.5 - 0.5 * math.cos(math.pi * i / nin)
        if i >= n - nout:
            g *= 0.5 - 0.5 * math.cos(math.pi * (n - 1 - i) / nout)
        out.append(v * g)
    return out


BELL = ((1.0, 1.0, 1.0), (2.0, 0.32, 0.5), (3.0, 0.10, 0.3), (4.2, 0.04, 0.2))
SOFT = ((1.0, 1.0, 1.0), (2.0, 0.15, 0.6))


def sound_alarm():
    buf = silence(1.6)
    ding, dong = 987.77, 783.99  # B5 and G5: a friendly falling third
    for start, freq in ((0.0, ding), (0.32, dong), (0.78, ding), (1.10, dong)):
        add_tone(buf, start, freq, 1.0, 0.004, 0.32, BELL)
    return finish(buf, 0.70, fade_out=0.22)


def sound_click():
    buf = silence(0.05)
    add_tone(buf, 0.0, 2300.0, 0.6, 0.0006, 0.0045, ((1.0, 1.0, 1.0),))
    add_tone(buf, 0.0, 1150.0, 0.5, 0.0008, 0.008, ((1.0, 1.0, 1.0),))
    return finish(buf, 0.35, fade_in=0.0006, fade_out=0.012)


def sound_glide(f0, f1):
    buf = silence(0.14)
    add_tone(buf, 0.0, f0, 1.0, 0.006, 0.06, SOFT, glide_to=f1, length=0.14)
    return finish(buf, 0.40, fade_out=0.03)


def sound_arpeggio(freqs):
    buf = silence(0.38)
    for i, f in enumerate(freqs):
        add_tone(buf, 0.045 * i, f, 1.0, 0.008, 0.11, SOFT)
    return finish(buf, 0.40, fade_out=0.06)


def sound_tap(freq):
    buf = silence(0.05)
    add_tone(buf, 0.0, freq, 1.0, 0.0015, 0.010, SOFT)
    add_tone(buf, 0.0, freq / 2, 0.5, 0.0015, 0.006, ((1.0, 1.0, 1.0),))
    return finish(buf, 0.30, fade_in=0.0015, fade_out=0.015)


C5, E5, G5, C6 = 523.25, 659.26, 783.99, 1046.50

SOUNDS = {
    "alarm.wav": sound_alarm,
    "click.wav": sound_click,
    "fold.wav": lambda: sound_glide(880.0, 587.33),
    "unfold.wav": lambda: sound_glide(587.33, 880.0),
    "expand.wav": lambda: sound_arpeggio((C5, E5, G5, C6)),
    "shrink.wav": lambda: sound_arpeggio((C6, G5, E5, C5)),
    "container_mousedown.wav": lambda: sound_tap(520.0),
    "container_mouseup.wav": lambda: sound_tap(660.0),
}


# ---------------------------------------------------------------------------------------------------
# Default wallpaper and colour files
# ---------------------------------------------------------------------------------------------------


def wallpaper_pixel(x, y, w=1024, h=768):
    top = (0x00, 0x07, 0x29)
    bottom = (0x0B, 0x1F, 0x4F)
    t = y / (h - 1)
    t = t * t * (3 - 2 * t) * 0.6 + t * 0.4  # a little flatter at both ends
    dx = (x + 0.5 - w * 0.5) / (w * 0.5)
    dy = (y + 0.5 - h * 0.42) / (h * 0.5)
    r2 = dx * dx * 0.55 + dy * dy * 0.45
    vignette = 1.0 - 0.42 * min(1.0, r2) ** 1.4
    return tuple((a + (b - a) * t) * vignette for a, b in zip(top, bottom))


def bgr(r, g, b):
    """A colour as the files store it: 0x00BBGGRR."""
    return (b << 16) | (g << 8) | r


def number(v):
    return " %d " % v if v >= 0 else "%d " % v


DEFAULT_COLORS = [
    ("[Background]", bgr(0x00, 0x07, 0x29)),
    ("[PictureBorder]", bgr(0x00, 0x00, 0x80)),
    ("[ContainerFor]", bgr(0x00, 0x07, 0x29)),
    ("[ContainerLabel]", bgr(0xFF, 0xFF, 0xFF)),
    ("[ContainerTextBack]", bgr(0xFF, 0xFD, 0xE1)),
    ("[ContainerTextFor]", bgr(0x00, 0x00, 0x00)),
    ("[Foreground]", bgr(0xFF, 0xFF, 0xFF)),
]
WALLPAPER = "PlainWhiteOnBlue.jpg"


def color_file(theme, colors=None, wallpaper=WALLPAPER, stretch=1, buttons=BUTTON_SET):
    lines = ["[1.01]"]
    for key, value in colors or DEFAULT_COLORS:
        lines += [key, number(value)]
    if theme:
        lines += ["[Wallpaper]", wallpaper, str(stretch), "[Buttons]", buttons]
    return ("\r\n".join(lines) + "\r\n").encode("ascii")


# ---------------------------------------------------------------------------------------------------
# Further themes (colours, a wallpaper and a button set each) and colour schemes
# ---------------------------------------------------------------------------------------------------

COLOR_KEYS = ["[Background]", "[PictureBorder]", "[ContainerFor]", "[ContainerLabel]", "[ContainerTextBack]",
              "[ContainerTextFor]", "[Foreground]"]


def scheme(background, picture_border, container, container_label, note_back, note_text, foreground):
    """The seven colours as (r, g, b), in the order of the files."""
    values = (background, picture_border, container, container_label, note_back, note_text, foreground)
    return [(key, bgr(*rgb)) for key, rgb in zip(COLOR_KEYS, values)]


def mix(a, b, t):
    return tuple(round(x + (y - x) * t) for x, y in zip(a, b))


def button_palette(top, bottom, outline, highlight, glyph, detail):
    """A button set's palette in the order of BUTTON_PALETTE: a body shaded from top to bottom."""
    return [bottom, outline, highlight, top, mix(top, bottom, 0.5), bottom, glyph, detail]


def smoothstep(t):
    t = min(1.0, max(0.0, t))
    return t * t * (3 - 2 * t)


def lattice(ix, iy, seed):
    """A repeatable pseudo-random value in 0..1 for a lattice point."""
    h = (ix * 374761393 + iy * 668265263 + seed * 2147483647) & 0xFFFFFFFF
    h = ((h ^ (h >> 13)) * 1274126177) & 0xFFFFFFFF
    return ((h ^ (h >> 16)) & 0xFFFF) / 65535.0


def value_noise(x, y, cell, seed):
    """Smooth noise in 0..1: lattice values every `cell` pixels, blended."""
    gx, gy = x / cell, y / cell
    ix, iy = int(math.floor(gx)), int(math.floor(gy))
    fx, fy = smoothstep(gx - ix), smoothstep(gy - iy)
    a = lattice(ix, iy, seed) + (lattice(ix + 1, iy, seed) - lattice(ix, iy, seed)) * fx
    b = lattice(ix, iy + 1, seed) + (lattice(ix + 1, iy + 1, seed) - lattice(ix, iy + 1, seed)) * fx
    return a + (b - a) * fy


def vignette(x, y, w, h, strength):
    dx = (x + 0.5 - w * 0.5) / (w * 0.5)
    dy = (y + 0.5 - h * 0.5) / (h * 0.5)
    return 1.0 - strength * min(1.0, dx * dx * 0.5 + dy * dy * 0.5) ** 1.5


def harbour_pixel(x, y, w=1024, h=768):
    """Dusk over still water: a teal sky warming to amber at the horizon, darker water with slow ripples."""
    horizon = h * 0.64
    if y < horizon:
        t = y / horizon
        sky = mix((0x0B, 0x1E, 0x26), (0x2A, 0x52, 0x5A), t ** 1.6)
        glow = math.exp(-((horizon - y) / (h * 0.07)) ** 2) * math.exp(-((x - w * 0.62) / (w * 0.35)) ** 2)
        c = mix(sky, (0x9A, 0x74, 0x48), 0.55 * glow)
    else:
        t = (y - horizon) / (h - horizon)
        water = mix((0x1E, 0x42, 0x4A), (0x0A, 0x1C, 0x22), t ** 0.8)
        ripple = math.sin(y * 0.55 + 2.2 * math.sin(x * 0.012)) * (1 - t) * 0.5 + 0.5
        glint = math.exp(-((x - w * 0.62) / (w * 0.12)) ** 2) * (1 - t) ** 2 * ripple
        c = mix(water, (0x8A, 0x6C, 0x46), 0.35 * glint)
    v = vignette(x, y, w, h, 0.35)
    return tuple(ch * v for ch in c)


def graphite_pixel(x, y, w=1024, h=768):
    """Graphite with a soft diagonal light, a faint dot grid and a mint glow low on the right."""
    t = (x / w) * 0.45 + (y / h) * 0.55
    c = mix((0x2C, 0x2F, 0x33), (0x1C, 0x1E, 0x21), t)
    glow = math.exp(-(((x - w * 0.86) / (w * 0.32)) ** 2 + ((y - h * 0.92) / (h * 0.38)) ** 2))
    c = mix(c, (0x2A, 0x5A, 0x4A), 0.55 * glow)
    gx, gy = (x % 32) - 15.5, (y % 32) - 15.5
    if gx * gx + gy * gy < 2.3:
        c = tuple(ch + 9 for ch in c)
    v = vignette(x, y, w, h, 0.25)
    return tuple(ch * v for ch in c)


def paper_pixel(x, y, w=1024, h=768):
    """Warm paper: a light sheet with soft fibres of tone and darker edges."""
    t = y / h
    c = mix((0xF1, 0xED, 0xE4), (0xE3, 0xDD, 0xD0), t)
    n = value_noise(x, y, 48, 7) * 0.65 + value_noise(x, y, 11, 3) * 0.35
    d = (n - 0.5) * 10
    c = tuple(ch + d for ch in c)
    v = vignette(x, y, w, h, 0.10)
    return tuple(ch * v for ch in c)


# name of the theme (and its button set), its file, wallpaper, stretch, colours, button palette, picture.
THEMES = [
    {
        "name": "Harbour Dusk",
        "wallpaper": "HarbourDusk.jpg",
        "colors": scheme(background=(0x10, 0x2A, 0x32), picture_border=(0xC8, 0x8A, 0x2E),
                         container=(0x1B, 0x3D, 0x47), container_label=(0xFF, 0xF1, 0xD6),
                         note_back=(0xFA, 0xF3, 0xE0), note_text=(0x23, 0x20, 0x1A),
                         foreground=(0xF2, 0xE6, 0xC8)),
        "buttons": button_palette(top=(0x33, 0x72, 0x7D), bottom=(0x1D, 0x4C, 0x56), outline=(0x0A, 0x22, 0x28),
                                  highlight=(0x5F, 0x9C, 0xA6), glyph=(0xFF, 0xDA, 0x8E),
                                  detail=(0xD9, 0xA8, 0x5C)),
        "pixel": harbour_pixel,
    },
    {
        "name": "Graphite Mint",
        "wallpaper": "GraphiteMint.jpg",
        "colors": scheme(background=(0x24, 0x27, 0x2A), picture_border=(0x5C, 0xC9, 0x9B),
                         container=(0x34, 0x38, 0x3D), container_label=(0xA6, 0xF0, 0xCF),
                         note_back=(0xEC, 0xF6, 0xF1), note_text=(0x1C, 0x23, 0x20),
                         foreground=(0xE6, 0xEB, 0xE8)),
        "buttons": button_palette(top=(0x4E, 0x54, 0x5B), bottom=(0x35, 0x39, 0x3E), outline=(0x15, 0x17, 0x19),
                                  highlight=(0x71, 0x78, 0x80), glyph=(0x8E, 0xF0, 0xC4),
                                  detail=(0x4F, 0xB8, 0x8C)),
        "pixel": graphite_pixel,
    },
    {
        "name": "Paper Light",
        "wallpaper": "PaperLight.jpg",
        "colors": scheme(background=(0xEC, 0xE8, 0xDF), picture_border=(0x8A, 0x7F, 0x6E),
                         container=(0xFB, 0xF9, 0xF3), container_label=(0x2C, 0x3E, 0x50),
                         note_back=(0xFF, 0xF4, 0xB8), note_text=(0x33, 0x2B, 0x10),
                         foreground=(0x2B, 0x2D, 0x30)),
        "buttons": button_palette(top=(0xFF, 0xFE, 0xFA), bottom=(0xE2, 0xDC, 0xD0), outline=(0x8F, 0x87, 0x79),
                                  highlight=(0xFF, 0xFF, 0xFF), glyph=(0x2C, 0x3E, 0x50),
                                  detail=(0x7D, 0x8E, 0x9F)),
        "pixel": paper_pixel,
    },
]

# Colour schemes of their own (no wallpaper, no buttons): file name and colours.
SCHEMES = [
    ("midnight orchid", scheme(background=(0x1E, 0x14, 0x2E), picture_border=(0x9B, 0x6B, 0xD6),
                               container=(0x35, 0x23, 0x50), container_label=(0xFF, 0xFF, 0xFF),
                               note_back=(0xF6, 0xEF, 0xFF), note_text=(0x21, 0x14, 0x33),
                               foreground=(0xEE, 0xE4, 0xFF))),
    ("ember glow", scheme(background=(0x2A, 0x12, 0x0C), picture_border=(0xE0, 0x6B, 0x2B),
                          container=(0x5A, 0x22, 0x12), container_label=(0xFF, 0xDC, 0xB0),
                          note_back=(0xFF, 0xF1, 0xE0), note_text=(0x3A, 0x1A, 0x0A),
                          foreground=(0xFF, 0xE9, 0xD6))),
    ("moss and stone", scheme(background=(0x24, 0x2E, 0x22), picture_border=(0x8D, 0xA0, 0x6E),
                              container=(0x3B, 0x4A, 0x35), container_label=(0xF4, 0xF7, 0xEC),
                              note_back=(0xF1, 0xF4, 0xE6), note_text=(0x24, 0x2E, 0x22),
                              foreground=(0xE6, 0xEB, 0xDC))),
    ("arctic morning", scheme(background=(0xDD, 0xE8, 0xF0), picture_border=(0x7A, 0x9C, 0xBF),
                              container=(0xF7, 0xFB, 0xFF), container_label=(0x1D, 0x4E, 0x89),
                              note_back=(0xFF, 0xFF, 0xFF), note_text=(0x1B, 0x2A, 0x3A),
                              foreground=(0x1B, 0x2A, 0x3A))),
    ("high contrast", scheme(background=(0x00, 0x00, 0x00), picture_border=(0xFF, 0xFF, 0x00),
                             container=(0x14, 0x14, 0x14), container_label=(0xFF, 0xFF, 0x00),
                             note_back=(0xFF, 0xFF, 0xFF), note_text=(0x00, 0x00, 0x00),
                             foreground=(0xFF, 0xFF, 0xFF))),
]


# The page that stands for the web browser: web shortcuts show the desktop's icon for an HTML page.
HOME_PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>Perchdock</title>
</head>
<body>
<h1>Perchdock</h1>
<p>A second desk that slides in from the edge of the screen: containers of shortcuts, notes,
news feeds, pictures and reminders, saved at every change as plain text files.</p>
<p>This page ships with the program; its icon is the one web shortcuts show.</p>
</body>
</html>
"""


# ---------------------------------------------------------------------------------------------------


def at_double(pixel):
    """A wallpaper's pixel function for its twin of twice the pixels each way: the centre of each small
    pixel, in the coordinates of the 1024x768 picture (kept inside it: the outer half pixels fall
    outside the plain picture's pixel centres, where some pictures have no value)."""
    return lambda x, y: pixel(min(1023.0, max(0.0, (x + 0.5) / 2 - 0.5)), min(767.0, max(0.0, (y + 0.5) / 2 - 0.5)))


def generate(include_wallpaper=True):
    files = {}
    for name in BUTTON_FILES:
        files["Skin/Buttons/%s/%s.gif" % (BUTTON_SET, name)] = button(name)
        files[twin_name("Skin/Buttons/%s/%s.gif" % (BUTTON_SET, name))] = button_2x(name)
    for name in TOOLBAR_FILES:
        files["Skin/Toolbar/%s.gif" % name] = button(name)
        files[twin_name("Skin/Toolbar/%s.gif" % name)] = button_2x(name)
    for name, color in ALARM_COLORS.items():
        files[name] = alarm_clock(color)
        files[twin_name(name)] = alarm_clock(color, scale=2)
    # An icon file's twin doubles its largest size, the one that the program draws.
    files["emptyicon.ico"] = encode_ico([(32, empty_icon(32)), (16, empty_icon(16))])
    files[twin_name("emptyicon.ico")] = empty_icon(32, scale=2)
    files["rss.ico"] = encode_ico([(32, rss_icon(32)), (16, rss_icon(16))])
    files[twin_name("rss.ico")] = rss_icon(32, scale=2)
    files["rss-small.ico"] = encode_ico([(16, rss_icon(16))])
    files[twin_name("rss-small.ico")] = rss_icon(16, scale=2)
    for name, make in SOUNDS.items():
        files[name] = encode_wav(make())
    files["Skin/Colors/plain white on blue.pkc"] = color_file(theme=False)
    files["Skin/plain white on blue.pkt"] = color_file(theme=True)
    files["Perchdock Home Page.html"] = HOME_PAGE.encode("utf-8")
    for theme in THEMES:
        for name in BUTTON_FILES:
            files["Skin/Buttons/%s/%s.gif" % (theme["name"], name)] = button(name, theme["buttons"])
            files[twin_name("Skin/Buttons/%s/%s.gif" % (theme["name"], name))] = button_2x(name, theme["buttons"])
        files["Skin/%s.pkt" % theme["name"].lower()] = color_file(
            True, theme["colors"], wallpaper=theme["wallpaper"], buttons=theme["name"])
    for name, colors in SCHEMES:
        files["Skin/Colors/%s.pkc" % name] = color_file(False, colors)
    if include_wallpaper:
        files["Skin/Wallpaper/" + WALLPAPER] = encode_jpeg(1024, 768, wallpaper_pixel, quality=92)
        files[twin_name("Skin/Wallpaper/" + WALLPAPER, ".jpg")] = encode_jpeg(
            2048, 1536, at_double(wallpaper_pixel), quality=92)
        for theme in THEMES:
            files["Skin/Wallpaper/" + theme["wallpaper"]] = encode_jpeg(1024, 768, theme["pixel"], quality=90)
            files[twin_name("Skin/Wallpaper/" + theme["wallpaper"], ".jpg")] = encode_jpeg(
                2048, 1536, at_double(theme["pixel"]), quality=90)
    return files


def main():
    ap = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("--check", action="store_true", help="compare with the files in assets/, write nothing")
    ap.add_argument("--out", default=ASSETS, help="output folder (default: assets/)")
    ap.add_argument("--no-wallpaper", action="store_true", help="skip the wallpaper (the slow part)")
    args = ap.parse_args()
    files = generate(include_wallpaper=not args.no_wallpaper)
    if args.check:
        bad = 0
        for rel, data in sorted(files.items()):
            path = os.path.join(args.out, rel)
            old = open(path, "rb").read() if os.path.exists(path) else None
            if old != data:
                print("differs: " + rel)
                bad += 1
        print("%d files checked, %d differ" % (len(files), bad))
        return 1 if bad else 0
    for rel, data in sorted(files.items()):
        path = os.path.join(args.out, rel)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as f:
            f.write(data)
        print("%7d  %s" % (len(data), rel))
    return 0


if __name__ == "__main__":
    sys.exit(main())
