#!/usr/bin/env python3
"""Draw the Rigwright application icon (a moving-head stage lamp) as XPM.

The lamp is described once in unit coordinates (0..1, y pointing down) as a
stack of shapes given by signed distance functions, then rendered with
supersampling at each requested size and mapped onto a small palette, so the
32x32 and 256x256 icons always show the same design.

    python3 make_icon.py            # writes rigwright.xpm and rigwright_256.xpm
    python3 make_icon.py 64 out.xpm # any other size

Plain python3, standard library only.
"""

import math
import os
import sys

OUTLINE = (0x1C, 0x1C, 0x1C)
DISPLAY = (0x2A, 0x34, 0x40)
LENS_CENTRE = (0xFF, 0xFF, 0xFF)
LENS_EDGE = (0xF2, 0xDC, 0x78)
LIGHT = (-0.5, -0.6, 0.62)  # from the upper left, towards the viewer


# ----------------------------------------------------------------- geometry

def sd_box(x, y, x0, y0, x1, y1, r=0.0):
    """Signed distance to a rectangle with corners rounded by r."""
    cx, cy = (x0 + x1) / 2, (y0 + y1) / 2
    hx, hy = (x1 - x0) / 2 - r, (y1 - y0) / 2 - r
    qx, qy = abs(x - cx) - hx, abs(y - cy) - hy
    outside = math.hypot(max(qx, 0.0), max(qy, 0.0))
    return outside + min(max(qx, qy), 0.0) - r


def sd_circle(x, y, cx, cy, r):
    return math.hypot(x - cx, y - cy) - r


def grey(v):
    v = max(0, min(255, int(round(v))))
    return (v, v, v)


def mix(a, b, t):
    t = max(0.0, min(1.0, t))
    return tuple(a[i] + (b[i] - a[i]) * t for i in range(3))


def across(u, peak=0.35):
    """Brightness across a cylinder seen side on: u runs 0..1 over its width."""
    return 0.55 + 0.45 * max(0.0, math.cos(math.pi * (u - peak) / 1.3))


def lambert(nx, ny):
    nz = math.sqrt(max(0.0, 1.0 - nx * nx - ny * ny))
    ln = math.sqrt(sum(c * c for c in LIGHT))
    return max(0.0, (nx * LIGHT[0] + ny * LIGHT[1] + nz * LIGHT[2]) / ln)


# -------------------------------------------------------------- the drawing

HEAD_X, HEAD_Y, HEAD_R = 0.5, 0.42, 0.235
BEZEL_R, LENS_R = 0.185, 0.155
ARM_W = 0.12
LEFT_ARM = (0.12, 0.15, 0.12 + ARM_W, 0.76)
RIGHT_ARM = (0.88 - ARM_W, 0.15, 0.88, 0.76)
YOKE_BAR = (0.12, 0.64, 0.88, 0.76)
BASE = (0.13, 0.82, 0.87, 0.97)
NECK = (0.40, 0.73, 0.60, 0.84)


def base_sd(x, y):
    return sd_box(x, y, *BASE, r=0.035)


def base_col(x, y):
    if y < BASE[1] + 0.035:            # top face catches the light
        return grey(0xC4 - (x - 0.13) * 60)
    v = (y - BASE[1]) / (BASE[3] - BASE[1])
    u = (x - BASE[0]) / (BASE[2] - BASE[0])
    return grey((0x98 - 0x30 * v) * (1.05 - 0.25 * u))


def display_sd(x, y):
    return sd_box(x, y, 0.21, 0.875, 0.43, 0.93, r=0.01)


def display_col(x, y):
    return DISPLAY


def neck_sd(x, y):
    return sd_box(x, y, *NECK)


def neck_col(x, y):
    return grey(0x8C * across((x - NECK[0]) / (NECK[2] - NECK[0])))


def yoke_sd(x, y):
    return min(sd_box(x, y, *LEFT_ARM, r=0.06),
               sd_box(x, y, *RIGHT_ARM, r=0.06),
               sd_box(x, y, *YOKE_BAR, r=0.04))


def yoke_col(x, y):
    if y > YOKE_BAR[1] + 0.02 and LEFT_ARM[2] - 0.01 < x < RIGHT_ARM[0] + 0.01:
        v = (y - YOKE_BAR[1]) / (YOKE_BAR[3] - YOKE_BAR[1])
        return grey(0xA8 - 0x38 * v)
    arm = LEFT_ARM if x < 0.5 else RIGHT_ARM
    u = (x - arm[0]) / ARM_W
    side = 1.0 if x < 0.5 else 0.82    # the right arm is turned from the light
    return grey(0xA8 * across(u) * side)


def axle_sd(x, y):
    return sd_box(x, y, LEFT_ARM[2] - 0.01, HEAD_Y - 0.03,
                  RIGHT_ARM[0] + 0.01, HEAD_Y + 0.03)


def axle_col(x, y):
    return grey(0x50 + 0x30 * (1 - abs(y - HEAD_Y) / 0.03))


def hub_sd(x, y):
    cy = HEAD_Y
    return min(sd_circle(x, y, (LEFT_ARM[0] + LEFT_ARM[2]) / 2, cy, 0.04),
               sd_circle(x, y, (RIGHT_ARM[0] + RIGHT_ARM[2]) / 2, cy, 0.04))


def hub_col(x, y):
    cx = (LEFT_ARM[0] + LEFT_ARM[2]) / 2 if x < 0.5 else (RIGHT_ARM[0] + RIGHT_ARM[2]) / 2
    return grey(0x58 + 0x70 * lambert((x - cx) / 0.04, (y - HEAD_Y) / 0.04))


def head_sd(x, y):
    return sd_circle(x, y, HEAD_X, HEAD_Y, HEAD_R)


def head_col(x, y):
    nx, ny = (x - HEAD_X) / HEAD_R, (y - HEAD_Y) / HEAD_R
    light = lambert(nx, ny)
    shine = light ** 12
    return grey(0x44 + 0x88 * light + 0x30 * shine)


def bezel_sd(x, y):
    return sd_circle(x, y, HEAD_X, HEAD_Y, BEZEL_R)


def bezel_col(x, y):
    # a recessed ring: lit on the lower right, shadowed on the upper left
    nx, ny = (x - HEAD_X) / BEZEL_R, (y - HEAD_Y) / BEZEL_R
    return grey(0x30 + 0x40 * lambert(-nx * 0.8, -ny * 0.8))


def lens_sd(x, y):
    return sd_circle(x, y, HEAD_X, HEAD_Y, LENS_R)


def make_lens_col(size):
    def lens_col(x, y):
        r = math.hypot(x - HEAD_X, y - HEAD_Y) / LENS_R
        c = mix(LENS_CENTRE, LENS_EDGE, r ** 1.6)
        # faint fresnel rings, only where there are enough pixels to show them
        if size >= 128 and 0.25 < r < 0.95 and (r * 7) % 1.0 < 0.18:
            c = mix(c, LENS_EDGE, 0.45)
        return c
    return lens_col


def glint_sd(x, y):
    return sd_circle(x, y, HEAD_X - 0.055, HEAD_Y - 0.055, 0.035)


def glint_col(x, y):
    return (0xFF, 0xFF, 0xFF)


def layers(size):
    """(distance, colour, outlined) from back to front."""
    return [
        (base_sd, base_col, True),
        (display_sd, display_col, False),
        (neck_sd, neck_col, True),
        (yoke_sd, yoke_col, True),
        (axle_sd, axle_col, False),
        (hub_sd, hub_col, size >= 64),
        (head_sd, head_col, True),
        (bezel_sd, bezel_col, False),
        (lens_sd, make_lens_col(size), size >= 64),
    ] + ([(glint_sd, glint_col, False)] if size >= 64 else [])


# ---------------------------------------------------------------- rendering

def sample(x, y, stack, outline):
    """Colour at one point, or None where nothing is drawn."""
    colour = None
    for sd, col, outlined in stack:
        d = sd(x, y)
        if d <= 0.0:
            colour = col(x, y)
        elif outlined and d <= outline:
            colour = OUTLINE
    return colour


def render(size):
    stack = layers(size)
    sub = 4 if size <= 64 else 2
    outline = 1.5 / size if size <= 64 else 0.012
    pixels = []
    for py in range(size):
        row = []
        for px in range(size):
            got = []
            for sy in range(sub):
                for sx in range(sub):
                    x = (px + (sx + 0.5) / sub) / size
                    y = (py + (sy + 0.5) / sub) / size
                    c = sample(x, y, stack, outline)
                    if c is not None:
                        got.append(c)
            if len(got) * 2 < sub * sub:
                row.append(None)
            else:
                row.append(tuple(sum(c[i] for c in got) / len(got) for i in range(3)))
        pixels.append(row)
    return pixels


def palette(size):
    """The colours an icon of this size may use."""
    if size <= 64:
        greys = [0x22, 0x36, 0x4A, 0x5E, 0x72, 0x86, 0x9A, 0xAE, 0xC2, 0xD6, 0xEA]
        lens = [mix(LENS_CENTRE, LENS_EDGE, t) for t in (0.12, 0.5, 0.9)]
    else:
        greys = list(range(0x10, 0x100, 4))
        lens = [mix(LENS_CENTRE, LENS_EDGE, i / 23) for i in range(24)]
    cols = [grey(g) for g in greys] + [tuple(int(round(v)) for v in c) for c in lens]
    cols.append(DISPLAY)
    return cols


def nearest(c, pal):
    # weight green most, as the eye does
    return min(pal, key=lambda p: 3 * (p[0] - c[0]) ** 2 + 4 * (p[1] - c[1]) ** 2
               + 2 * (p[2] - c[2]) ** 2)


def to_xpm(pixels, name):
    pal = palette(len(pixels))
    cache = {}
    indexed = []
    for row in pixels:
        out = []
        for c in row:
            if c is None:
                out.append(None)
                continue
            key = tuple(int(v) for v in c)
            if key not in cache:
                cache[key] = nearest(key, pal)
            out.append(cache[key])
        indexed.append(out)

    used = sorted({c for row in indexed for c in row if c is not None})
    chars = [chr(i) for i in range(0x23, 0x7F) if chr(i) not in '\\"/*?']
    cpp = 1 if len(used) < len(chars) else 2
    codes = chars if cpp == 1 else [a + b for a in chars for b in chars]
    none = ' ' * cpp
    code = {c: codes[i] for i, c in enumerate(used)}

    h, w = len(indexed), len(indexed[0])
    lines = ['/* XPM */', 'static const char *%s[] = {' % name,
             '"%d %d %d %d",' % (w, h, len(used) + 1, cpp),
             '"%s c None",' % none]
    lines += ['"%s c #%02X%02X%02X",' % (code[c], *c) for c in used]
    rows = [''.join(none if c is None else code[c] for c in row) for row in indexed]
    lines += ['"%s"%s' % (r, ',' if i < h - 1 else '') for i, r in enumerate(rows)]
    lines.append('};')
    return '\n'.join(lines) + '\n'


def write(size, path):
    ident = os.path.splitext(os.path.basename(path))[0].replace('-', '_') + '_xpm'
    with open(path, 'w') as f:
        f.write(to_xpm(render(size), ident))


def main(argv):
    here = os.path.dirname(os.path.abspath(__file__))
    if len(argv) == 3:
        write(int(argv[1]), argv[2])
    elif len(argv) == 1:
        write(32, os.path.join(here, 'rigwright.xpm'))
        write(256, os.path.join(here, 'rigwright_256.xpm'))
    else:
        sys.exit('usage: make_icon.py [SIZE OUT.xpm]')


if __name__ == '__main__':
    main(sys.argv)
