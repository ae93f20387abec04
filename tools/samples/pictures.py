"""The pictures of the sample forms, drawn from signed distances, so that every edge is smooth without a library."""

import math
import struct
import zlib

WHITE, NAVY, TEAL, AMBER = (255, 255, 255), (31, 58, 95), (24, 104, 108), (214, 142, 32)
STEEL, DARK, PALE, MAROON = (188, 196, 204), (52, 58, 66), (236, 240, 244), (122, 38, 54)


def circle(x, y, radius):
    return (x - radius, y - radius, x + radius, y + radius), lambda px, py: math.hypot(px - x, py - y) - radius


def ring(x, y, radius, thickness):
    box, distance = circle(x, y, radius)
    half = thickness / 2
    return _grown(box, half), lambda px, py: abs(distance(px, py)) - half


def box(left, top, right, bottom, corner=0):
    x, y, half_width, half_height = (left + right) / 2, (top + bottom) / 2, (right - left) / 2, (bottom - top) / 2

    def distance(px, py):
        across, down = abs(px - x) - half_width + corner, abs(py - y) - half_height + corner
        return math.hypot(max(across, 0), max(down, 0)) + min(max(across, down), 0) - corner

    return (left, top, right, bottom), distance


def stroke(points, thickness):
    """A line of round ends through the points."""
    half = thickness / 2
    parts = list(zip(points, points[1:]))
    return _grown(_bounds(points), half), lambda px, py: min(_to_segment(px, py, *part) for part in parts) - half


def polygon(points):
    sides = list(zip(points, points[1:] + points[:1]))

    def distance(px, py):
        inside = False
        for (ax, ay), (bx, by) in sides:
            if (ay > py) != (by > py) and px < (bx - ax) * (py - ay) / (by - ay) + ax:
                inside = not inside
        nearest = min(_to_segment(px, py, *side) for side in sides)
        return -nearest if inside else nearest

    return _bounds(points), distance


def _bounds(points):
    across, down = zip(*points)
    return min(across), min(down), max(across), max(down)


def _grown(bounds, by):
    return bounds[0] - by, bounds[1] - by, bounds[2] + by, bounds[3] + by


def _to_segment(px, py, start, end):
    (ax, ay), (bx, by) = start, end
    length = (bx - ax) ** 2 + (by - ay) ** 2
    along = 0 if length == 0 else max(0, min(1, ((px - ax) * (bx - ax) + (py - ay) * (by - ay)) / length))
    return math.hypot(px - ax - along * (bx - ax), py - ay - along * (by - ay))


class Canvas:
    def __init__(self, width, height, background=WHITE):
        self.width, self.height = width, height
        self.rows = [bytearray(bytes(background) * width) for _ in range(height)]

    def paint(self, shape, color):
        (left, top, right, bottom), distance = shape
        for row in range(max(0, int(top) - 1), min(self.height, int(bottom) + 2)):
            line = self.rows[row]
            for column in range(max(0, int(left) - 1), min(self.width, int(right) + 2)):
                cover = min(1.0, 0.5 - distance(column + 0.5, row + 0.5))
                if cover > 0:
                    for part in range(3):
                        at = column * 3 + part
                        line[at] += int(round((color[part] - line[at]) * cover))
        return self

    def png(self):
        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        raw = b"".join(b"\0" + bytes(row) for row in self.rows)
        return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(raw, 9))
                + chunk(b"IEND", b""))

    def bmp(self):
        padding = b"\0" * (-self.width * 3 % 4)
        pixels = b"".join(_blue_first(row) + padding for row in reversed(self.rows))
        dots_per_metre = 5906
        header = struct.pack("<IiiHHIIiiII", 40, self.width, self.height, 1, 24, 0, len(pixels), dots_per_metre,
                             dots_per_metre, 0, 0)
        return b"BM" + struct.pack("<IHHI", 54 + len(pixels), 0, 0, 54) + header + pixels


def _blue_first(row):
    turned = bytearray(row)
    turned[0::3], turned[2::3] = row[2::3], row[0::3]
    return bytes(turned)


def electrical_emblem():
    """A lightning flash on a disc."""
    bolt = [(132, 34), (70, 128), (110, 128), (88, 206), (170, 100), (124, 100), (152, 34)]
    return (Canvas(240, 240).paint(circle(120, 120, 116), NAVY).paint(ring(120, 120, 103, 4), WHITE)
            .paint(polygon(bolt), AMBER))


def inspection_logo():
    """A house with a tick on a rounded square: what stands where a user has set no logo of their own."""
    roof = [(80, 26), (140, 76), (126, 76), (126, 132), (34, 132), (34, 76), (20, 76)]
    return (Canvas(160, 160).paint(box(2, 2, 158, 158, 22), TEAL).paint(polygon(roof), WHITE)
            .paint(stroke([(54, 96), (74, 116), (110, 72)], 11), AMBER))


def laboratory_emblem(canvas=None, x=120, y=120, radius=110):
    """A graduated dial."""
    canvas = canvas or Canvas(240, 240)
    canvas.paint(ring(x, y, radius * 0.94, radius * 0.1), MAROON)
    for step in range(24):
        angle, inner = math.radians(step * 15), 0.66 if step % 3 == 0 else 0.76
        points = [(x + math.sin(angle) * radius * reach, y - math.cos(angle) * radius * reach)
                  for reach in (inner, 0.84)]
        canvas.paint(stroke(points, radius * 0.035), MAROON)
    canvas.paint(stroke([(x - radius * 0.16, y + radius * 0.28), (x + radius * 0.3, y - radius * 0.52)],
                        radius * 0.06), DARK)
    return canvas.paint(circle(x, y, radius * 0.12), DARK)


def distribution_board():
    """A consumer unit seen from the front."""
    canvas = Canvas(360, 240, PALE).paint(box(16, 16, 344, 224, 10), STEEL).paint(box(22, 22, 338, 218, 8), WHITE)
    canvas.paint(box(38, 66, 322, 174, 4), DARK)
    for way in range(10):
        left = 44 + way * 27.6
        canvas.paint(box(left, 72, left + 24, 168, 3), PALE)
        canvas.paint(box(left + 6, 98 if way != 6 else 122, left + 18, 132 if way != 6 else 150, 2),
                     TEAL if way == 0 else NAVY)
    canvas.paint(box(38, 184, 322, 204, 3), PALE)
    return canvas.paint(circle(180, 44, 8), STEEL)


def process_meter():
    """A handheld meter seen from the front."""
    canvas = Canvas(240, 300, PALE).paint(box(50, 10, 190, 290, 22), AMBER).paint(box(60, 20, 180, 280, 14), DARK)
    canvas.paint(box(72, 34, 168, 92, 5), (204, 220, 200))
    for digit in range(4):
        left = 82 + digit * 20
        canvas.paint(stroke([(left, 46), (left + 12, 46), (left + 12, 80), (left, 80), (left, 46)], 3.5), DARK)
    canvas.paint(circle(120, 160, 42), STEEL).paint(circle(120, 160, 34), DARK)
    canvas.paint(stroke([(120, 160), (142, 136)], 6), WHITE)
    for x, color in ((84, MAROON), (120, STEEL), (156, STEEL)):
        canvas.paint(circle(x, 244, 13), color).paint(circle(x, 244, 7), (20, 22, 26))
    return canvas


def signature(seed):
    """A hand's flourish; each seed gives another."""
    canvas, ink = Canvas(300, 80), (24, 34, 96)
    points = []
    for step in range(141):
        at = step / 140
        height = (18 + 14 * math.cos(seed * 1.7 + at * 5)) * (1 - 0.55 * at)
        x = 18 + at * 225 + 9 * math.sin(at * (26 + seed * 3) + seed)
        points.append((x, 42 + height * math.sin(at * (31 + seed * 4) + seed * 2.3)))
    canvas.paint(stroke(points, 2.6), ink)
    return canvas.paint(stroke([(60, 68), (150, 63), (276, 55 + seed)], 2.2), ink)


# Strokes of capitals on a grid 4 wide and 6 high.
_CAPITALS = {
    "A": [[(0, 6), (2, 0), (4, 6)], [(0.7, 4), (3.3, 4)]],
    "B": [[(0, 0), (0, 6), (3, 6), (4, 5.2), (4, 3.8), (3, 3), (0, 3)], [(3, 3), (3.7, 2.3), (3.7, 0.7), (3, 0), (0, 0)]],
    "C": [[(4, 1), (3, 0), (1, 0), (0, 1), (0, 5), (1, 6), (3, 6), (4, 5)]],
    "D": [[(0, 0), (0, 6), (2.6, 6), (4, 4.6), (4, 1.4), (2.6, 0), (0, 0)]],
    "E": [[(4, 0), (0, 0), (0, 6), (4, 6)], [(0, 3), (3.2, 3)]],
    "I": [[(2, 0), (2, 6)]],
    "L": [[(0, 0), (0, 6), (4, 6)]],
    "M": [[(0, 6), (0, 0), (2, 3.4), (4, 0), (4, 6)]],
    "N": [[(0, 6), (0, 0), (4, 6), (4, 0)]],
    "O": [[(1, 0), (3, 0), (4, 1), (4, 5), (3, 6), (1, 6), (0, 5), (0, 1), (1, 0)]],
    "R": [[(0, 6), (0, 0), (3, 0), (4, 0.8), (4, 2.4), (3, 3.2), (0, 3.2)], [(2, 3.2), (4, 6)]],
    "T": [[(0, 0), (4, 0)], [(2, 0), (2, 6)]],
    "W": [[(0, 0), (1, 6), (2, 2.4), (3, 6), (4, 0)]],
    "Y": [[(0, 0), (2, 3), (4, 0)], [(2, 3), (2, 6)]],
}


def _letter(canvas, text, x, y, unit, color):
    for character in text:
        for points in _CAPITALS.get(character, ()):
            canvas.paint(stroke([(x + px * unit, y + py * unit) for px, py in points], unit * 0.75), color)
        x += unit * (5.6 if character != " " else 4)
    return canvas


CERTIFICATE_PAPER_DPI = 100


def certificate_paper():
    """A4 letterhead of the laboratory at 100 dots per inch: what the certificate's paper carries already."""
    canvas = Canvas(827, 1169)
    canvas.paint(box(0, 0, 827, 8), MAROON)
    laboratory_emblem(canvas, 96, 74, 40)
    _letter(canvas, "MERIDALE", 152, 46, 5, MAROON)
    _letter(canvas, "CALIBRATION LABORATORY", 153, 88, 2.4, DARK)
    canvas.paint(box(59, 124, 768, 126), MAROON)
    return canvas.paint(box(0, 1161, 827, 1169), MAROON)
