#!/usr/bin/env python3
"""Draws the package's 16 by 16 pictures into bitmaps/. Run it after changing a picture; the build takes the files."""
import math, pathlib, struct, zlib

HERE = pathlib.Path(__file__).resolve().parent / "bitmaps"
SIZE, SCALE = 16, 8
BLUE, DARK, GREEN, RED = (46, 110, 190), (70, 80, 95), (60, 150, 80), (200, 60, 55)
AMBER, GREY, WHITE, PALE = (230, 165, 40), (150, 155, 160), (255, 255, 255), (214, 228, 245)


class Canvas:
    def __init__(self, size=SIZE):
        self.size = size
        n = size * SCALE
        self.n, self.px = n, [[(0, 0, 0, 0)] * n for _ in range(n)]

    def paint(self, inside, colour):
        for y in range(self.n):
            for x in range(self.n):
                if inside((x + .5) / SCALE, (y + .5) / SCALE):
                    self.px[y][x] = (*colour, 255)
        return self

    def rect(self, x0, y0, x1, y1, colour):
        return self.paint(lambda x, y: x0 <= x < x1 and y0 <= y < y1, colour)

    def frame(self, x0, y0, x1, y1, colour, fill=None, width=1):
        self.rect(x0, y0, x1, y1, colour)
        return self.rect(x0 + width, y0 + width, x1 - width, y1 - width, fill or WHITE)

    def disc(self, cx, cy, r, colour):
        return self.paint(lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= r * r, colour)

    def ring(self, cx, cy, r, width, colour, start=0., end=360.):
        def inside(x, y):
            d = math.hypot(x - cx, y - cy)
            a = math.degrees(math.atan2(y - cy, x - cx)) % 360
            return r - width <= d <= r and start <= a <= end
        return self.paint(inside, colour)

    def line(self, x0, y0, x1, y1, width, colour):
        length = math.hypot(x1 - x0, y1 - y0)
        def inside(x, y):
            t = max(0., min(1., ((x - x0) * (x1 - x0) + (y - y0) * (y1 - y0)) / (length * length)))
            return math.hypot(x - x0 - t * (x1 - x0), y - y0 - t * (y1 - y0)) <= width / 2
        return self.paint(inside, colour)

    def polygon(self, points, colour):
        def inside(x, y):
            hit = False
            for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
                if (ay > y) != (by > y) and x < (bx - ax) * (y - ay) / (by - ay) + ax:
                    hit = not hit
            return hit
        return self.paint(inside, colour)

    def ellipse(self, cx, cy, rx, ry, colour):
        return self.paint(lambda x, y: ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1, colour)

    def save(self, name):
        rows = b""
        for y in range(self.size):
            rows += b"\0"
            for x in range(self.size):
                cells = [self.px[y * SCALE + j][x * SCALE + i] for j in range(SCALE) for i in range(SCALE)]
                alpha = sum(c[3] for c in cells)
                rgb = [round(sum(c[k] * c[3] for c in cells) / alpha) if alpha else 0 for k in range(3)]
                rows += bytes(rgb + [round(alpha / len(cells))])
        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
        header = struct.pack(">IIBBBBB", self.size, self.size, 8, 6, 0, 0, 0)
        png = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b"")
        (HERE / f"{name.replace(chr(35), str())}.png").write_bytes(png)


def cylinder(c, cx, top, bottom, rx, colour, lid=PALE):
    c.ellipse(cx, bottom, rx, 1.8, colour).rect(cx - rx, top, cx + rx, bottom, colour)
    return c.ellipse(cx, top, rx, 1.8, lid)


def form(c, x0=1, y0=2, x1=15, y1=14):
    return c.frame(x0, y0, x1, y1, DARK).rect(x0, y0, x1, y0 + 3, BLUE)


def table(c, colour=BLUE):
    c.frame(1, 2, 15, 14, DARK).rect(1, 2, 15, 5, colour)
    for y in (8, 11):
        c.rect(1, y, 15, y + .7, GREY)
    return c.rect(7.6, 5, 8.3, 14, GREY)


def product(size=16):
    c = Canvas(size)
    k = size / 16
    c.ellipse(8 * k, 12.4 * k, 6 * k, 2.2 * k, BLUE).rect(2 * k, 4 * k, 14 * k, 12.4 * k, BLUE)
    c.ellipse(8 * k, 4 * k, 6 * k, 2.2 * k, PALE)
    for x0, x1 in ((4.2, 4.2), (11.8, 11.8)):
        c.line(x0 * k, 7.2 * k, x1 * k, 12 * k, 1.5 * k, WHITE)
    c.line(4.2 * k, 7.2 * k, 8 * k, 10.4 * k, 1.5 * k, WHITE)
    return c.line(8 * k, 10.4 * k, 11.8 * k, 7.2 * k, 1.5 * k, WHITE)


def gear(c, cx=8, cy=8):
    for i in range(8):
        a = math.radians(i * 45)
        c.line(cx, cy, cx + 6 * math.cos(a), cy + 6 * math.sin(a), 2.2, DARK)
    return c.disc(cx, cy, 4.4, DARK).disc(cx, cy, 2, WHITE)


def plain(text_colour=DARK):
    c = Canvas()
    for y in (3.5, 7.5, 11.5):
        c.disc(3, y + .5, 1.2, BLUE).rect(6, y, 14, y + 1.2, text_colour)
    return c


PICTURES = {
    "#101": lambda: Canvas().polygon([(3, 5.5), (13, 5.5), (8, 11.5)], DARK),
    "#102": lambda: product(32),
    "#103": lambda: Canvas().ring(8, 8, 6.2, 1.6, RED).line(4, 12, 12, 4, 1.6, RED),
    "#104": lambda: Canvas().frame(1, 2, 15, 6, DARK).frame(1, 9, 15, 13, DARK).rect(3, 3.6, 9, 4.4, BLUE).rect(3, 10.6, 9, 11.4, BLUE),
    "#105": lambda: Canvas().frame(2, 4, 14, 12, DARK, PALE).rect(4, 7.5, 10, 8.5, BLUE),
    "#106": lambda: product(),
    "toolwindow0": lambda: cylinder(Canvas(), 8, 4, 12, 5, GREY),
    "toolwindow1": lambda: Canvas().polygon([(1, 3), (6, 3), (8, 5), (15, 5), (15, 14), (1, 14)], AMBER).rect(2.5, 7, 13.5, 12.6, WHITE),
    "toolwindow2": lambda: Canvas().ring(8, 8, 6, 2, GREEN, 40, 330).polygon([(10.5, 3.5), (15.5, 3), (13.5, 8)], GREEN),
    "toolwindow3": lambda: table(Canvas()),
    "toolwindow4": lambda: Canvas().frame(2, 4, 14, 12, DARK, PALE),
    "toolwindow5": lambda: Canvas().frame(2, 5, 14, 11, GREY, (235, 235, 235)).rect(4, 7.6, 10, 8.4, GREY),
    "toolwindow6": lambda: Canvas().frame(1, 2, 7, 6, DARK, PALE).frame(9, 9, 15, 13, DARK, PALE).line(4, 6, 4, 11, 1, DARK).line(4, 11, 9, 11, 1, DARK),
    "toolwindow7": lambda: gear(Canvas()),
    "toolwindow8": lambda: table(Canvas(), GREEN).ring(11, 10, 3.6, 1.3, DARK).line(13.2, 12.4, 15, 14.6, 1.8, DARK),
    "toolwindow9": lambda: Canvas().line(4, 4, 12, 12, 2.4, RED).line(12, 4, 4, 12, 2.4, RED),
    "toolwindow10": lambda: form(Canvas()).rect(3, 7, 8, 8.5, GREY).rect(3, 10, 11, 11.5, GREY),
    "toolwindow11": lambda: cylinder(Canvas(), 6, 4, 11, 4.5, BLUE).line(10, 9, 14, 13, 1.4, DARK).disc(14, 13, 1.6, AMBER),
    "toolwindow12": lambda: plain(),
    "toolwindow13": lambda: form(Canvas(), 3, 4, 15, 14).frame(1, 1, 8, 6, DARK, PALE),
    "toolwindow14": lambda: form(Canvas(), 1, 1, 9, 8).ring(9, 9, 4.4, 1.5, DARK).line(12, 12, 15, 15, 2, DARK),
}

if __name__ == "__main__":
    HERE.mkdir(exist_ok=True)
    for name, draw in PICTURES.items():
        draw().save(name)
