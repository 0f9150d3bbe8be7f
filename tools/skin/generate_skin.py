#!/usr/bin/env python3
"""Writes the Orvane skin (SVG) into resources/skin."""
import math, os, sys

OUT = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "resources", "skin")

ACC = "#4ccff5"; ACC_LIGHT = "#b2eeff"; ACC_DARK = "#1b8fc0"
ICON = "#dfe5ec"; ICON_DIM = "#7f8a96"
EDGE = "#07080a"
LCD_TOP = "#05090d"; LCD_BOTTOM = "#0c141b"

def svg(w, h, body, defs=""):
    d = f"  <defs>\n{defs}  </defs>\n" if defs else ""
    return (f'<?xml version="1.0" encoding="UTF-8"?>\n'
            f'<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny" '
            f'width="{w}" height="{h}" viewBox="0 0 {w} {h}">\n{d}{body}</svg>\n')

def vgrad(gid, stops, y1=None, y2=None):
    if y1 is None:
        attrs = 'x1="0" y1="0" x2="0" y2="1"'
    else:
        attrs = f'gradientUnits="userSpaceOnUse" x1="0" y1="{y1}" x2="0" y2="{y2}"'
    s = "".join(f'      <stop offset="{o}" stop-color="{c}"' + (f' stop-opacity="{a}"' if a is not None else "") + '/>\n'
                for o, c, a in stops)
    return f'    <linearGradient id="{gid}" {attrs}>\n{s}    </linearGradient>\n'

def hgrad(gid, stops):
    s = "".join(f'      <stop offset="{o}" stop-color="{c}"' + (f' stop-opacity="{a}"' if a is not None else "") + '/>\n'
                for o, c, a in stops)
    return f'    <linearGradient id="{gid}" x1="0" y1="0" x2="1" y2="0">\n{s}    </linearGradient>\n'

def write(name, text):
    with open(os.path.join(OUT, name + ".svg"), "w") as f:
        f.write(text)

# ---------------------------------------------------------------- icons
# Each icon is drawn in a 16 x 16 box; "fill" shapes use the icon colour,
# "stroke" shapes are outlines of the given width.

def gear(cx=8, cy=8, teeth=8, r_out=7.0, r_in=5.2, r_hole=2.3):
    pts = []
    n = teeth * 4
    for i in range(n):
        a = 2 * math.pi * i / n - math.pi / 2 + math.pi / n
        r = r_out if (i % 4) in (1, 2) else r_in
        pts.append((cx + r * math.cos(a), cy + r * math.sin(a)))
    d = "M" + " L".join(f"{x:.2f},{y:.2f}" for x, y in pts) + " Z"
    k = 0.5523 * r_hole
    d += (f" M{cx},{cy - r_hole} C{cx - k:.2f},{cy - r_hole} {cx - r_hole},{cy - k:.2f} {cx - r_hole},{cy}"
          f" C{cx - r_hole},{cy + k:.2f} {cx - k:.2f},{cy + r_hole} {cx},{cy + r_hole}"
          f" C{cx + k:.2f},{cy + r_hole} {cx + r_hole},{cy + k:.2f} {cx + r_hole},{cy}"
          f" C{cx + r_hole},{cy - k:.2f} {cx + k:.2f},{cy - r_hole} {cx},{cy - r_hole} Z")
    return [("fill", f'<path fill-rule="evenodd" d="{d}"/>')]

SPEAKER = '<path d="M1,6 H4 L8,2.5 V13.5 L4,10 H1 Z"/>'
SUB_ICON = [("fill", '<path fill-rule="evenodd" d="M4.5,3 H11.5 A2.5,2.5 0 0 1 14,5.5 V10.5 A2.5,2.5 0 0 1 11.5,13 H4.5 '
                     'A2.5,2.5 0 0 1 2,10.5 V5.5 A2.5,2.5 0 0 1 4.5,3 Z M4.8,4.5 H11.2 A1.3,1.3 0 0 1 12.5,5.8 V10.2 '
                     'A1.3,1.3 0 0 1 11.2,11.5 H4.8 A1.3,1.3 0 0 1 3.5,10.2 V5.8 A1.3,1.3 0 0 1 4.8,4.5 Z"/>'),
            ("fill", '<rect x="5" y="6.5" width="3" height="1.5"/>'),
            ("fill", '<rect x="9" y="6.5" width="2" height="1.5"/>'),
            ("fill", '<rect x="5" y="9" width="2" height="1.5"/>'),
            ("fill", '<rect x="8" y="9" width="3" height="1.5"/>')]

ICONS = {
    "play":   [("fill", '<path d="M5,2.5 L13.5,8 L5,13.5 Z"/>')],
    "pause":  [("fill", '<rect x="4" y="3" width="3" height="10" rx="0.6"/>'),
               ("fill", '<rect x="9" y="3" width="3" height="10" rx="0.6"/>')],
    "stop":   [("fill", '<rect x="3.5" y="3.5" width="9" height="9" rx="1.2"/>')],
    "next":   [("fill", '<path d="M3,3 L10.5,8 L3,13 Z"/>'),
               ("fill", '<rect x="11" y="3" width="2.2" height="10" rx="0.5"/>')],
    "previous": [("fill", '<path d="M13,3 L5.5,8 L13,13 Z"/>'),
               ("fill", '<rect x="2.8" y="3" width="2.2" height="10" rx="0.5"/>')],
    "open":   [("fill", '<path d="M8,3 L13.5,9 H2.5 Z"/>'),
               ("fill", '<rect x="2.5" y="10.5" width="11" height="2.2" rx="0.5"/>')],
    "audio":  [("stroke", '<path stroke-width="1.5" stroke-linejoin="round" d="M3.5,2.5 H12.5 A2,2 0 0 1 14.5,4.5 V9.5 '
                          'A2,2 0 0 1 12.5,11.5 H7.5 L4.5,14 V11.5 H3.5 A2,2 0 0 1 1.5,9.5 V4.5 A2,2 0 0 1 3.5,2.5 Z"/>'),
               ("fill", '<rect x="4.6" y="6" width="1.6" height="2.5" rx="0.5"/>'),
               ("fill", '<rect x="7.2" y="4.6" width="1.6" height="5.3" rx="0.5"/>'),
               ("fill", '<rect x="9.8" y="6" width="1.6" height="2.5" rx="0.5"/>')],
    "fullscreen": [("stroke", '<path stroke-width="2" stroke-linecap="square" d="M3,6 V3 H6 M10,3 H13 V6 M13,10 V13 H10 M6,13 H3 V10"/>')],
    "subtitles": SUB_ICON,
    "config": gear(),
    "playlist": [("fill", '<rect x="1.5" y="3" width="9" height="2" rx="0.5"/>'),
                 ("fill", '<rect x="1.5" y="7" width="9" height="2" rx="0.5"/>'),
                 ("fill", '<rect x="1.5" y="11" width="5.5" height="2" rx="0.5"/>'),
                 ("fill", '<path d="M9.5,9.5 L15,12.25 L9.5,15 Z"/>')],
    "volume_up": [("fill", SPEAKER),
                  ("fill", '<rect x="10" y="7" width="5" height="2"/>'),
                  ("fill", '<rect x="11.5" y="5.5" width="2" height="5"/>')],
    "volume_down": [("fill", SPEAKER),
                    ("fill", '<rect x="10" y="7" width="5" height="2"/>')],
    "add":    [("fill", '<rect x="3" y="7" width="10" height="2" rx="0.4"/>'),
               ("fill", '<rect x="7" y="3" width="2" height="10" rx="0.4"/>')],
    "remove": [("fill", '<rect x="3" y="7" width="10" height="2" rx="0.4"/>')],
    "open_list": [("fill", '<path d="M1.5,4 A1,1 0 0 1 2.5,3 H6.2 L7.7,4.5 H13.5 A1,1 0 0 1 14.5,5.5 V6.5 H1.5 Z"/>'),
                  ("fill", '<path d="M1.5,7.5 H14.5 V12 A1,1 0 0 1 13.5,13 H2.5 A1,1 0 0 1 1.5,12 Z"/>')],
    "save_list": [("stroke", '<path stroke-width="2" stroke-linecap="round" d="M8,2.5 V9"/>'),
                  ("stroke", '<path stroke-width="2" stroke-linecap="round" stroke-linejoin="round" d="M4.8,6.2 L8,9.4 L11.2,6.2"/>'),
                  ("stroke", '<path stroke-width="2" stroke-linecap="round" stroke-linejoin="round" d="M2.5,10.5 V13 H13.5 V10.5"/>')],
    "delay_up":   [("stroke", '<path stroke-width="2" stroke-linecap="round" stroke-linejoin="round" d="M4.5,10 L8,6.5 L11.5,10"/>')],
    "delay_down": [("stroke", '<path stroke-width="2" stroke-linecap="round" stroke-linejoin="round" d="M4.5,6 L8,9.5 L11.5,6"/>')],
    "close":  [("stroke", '<path stroke-width="1.8" stroke-linecap="round" d="M5,5 L11,11 M11,5 L5,11"/>')],
    "note":   [("fill", '<ellipse cx="5.3" cy="12" rx="2.6" ry="2.1"/>'),
               ("fill", '<rect x="6.4" y="2.5" width="1.6" height="9.5"/>'),
               ("fill", '<path d="M8,2.5 C10.5,3 12.5,4.2 12.5,7.2 C11.4,5.8 9.8,5.6 8,5.6 Z"/>')],
}

def icon(name, x, y, color=ICON, shadow=True, glow=None, scale=1.0):
    """The icon's 16-unit box placed at (x, y)."""
    import re
    parts = ICONS[name]
    def layer(col, opacity=None, dy=0.0, widen=0.0):
        out = []
        for kind, shape in parts:
            if kind == "fill":
                attrs = f'fill="{col}"'
                if widen:
                    attrs += f' stroke="{col}" stroke-width="{widen}" stroke-linejoin="round"'
            else:
                attrs = f'fill="none" stroke="{col}"'
                if widen:
                    shape = re.sub(r'stroke-width="([0-9.]+)"',
                                   lambda m: f'stroke-width="{float(m.group(1)) + widen:g}"', shape)
            if opacity is not None:
                attrs += f' opacity="{opacity}"'
            tag = shape.split()[0]
            out.append(shape.replace(tag + " ", f"{tag} {attrs} ", 1))
        t = f'translate({x:g},{y + dy:g})' + (f' scale({scale:g})' if scale != 1.0 else "")
        return f'  <g transform="{t}">\n' + "".join("    " + o + "\n" for o in out) + '  </g>\n'
    body = ""
    if glow:
        body += layer(glow, opacity=0.25, widen=2.5)
    if shadow:
        body += layer("#000000", opacity=0.55, dy=1.0)
    body += layer(color)
    return body

# ---------------------------------------------------------------- keys

KEY_FACE = [(0, "#5b626c", None), (0.45, "#3e444c", None), (1, "#2f333a", None)]
KEY_RIM = [(0, "#ffffff", 0.30), (0.5, "#ffffff", 0.04), (1, "#ffffff", 0.0)]

def key_defs():
    return vgrad("face", KEY_FACE) + vgrad("rim", KEY_RIM)

def rect_key(w, h, r, icon_name, accent=False, icon_scale=1.0):
    body = (f'  <rect x="0" y="0" width="{w}" height="{h}" rx="{r}" fill="{EDGE}"/>\n'
            f'  <rect x="1" y="1" width="{w - 2}" height="{h - 2}" rx="{r - 1}" fill="url(#face)"/>\n'
            f'  <rect x="1.5" y="1.5" width="{w - 3}" height="{h - 3}" rx="{r - 1.5}" fill="none" stroke="url(#rim)" stroke-width="1"/>\n')
    size = 16 * icon_scale
    ix = (w - size) / 2; iy = (h - size) / 2
    body += icon(icon_name, ix, iy, color=ACC if accent else ICON, glow=ACC if accent else None, scale=icon_scale)
    return svg(w, h, body, key_defs())

def round_key(d, icon_name, accent=False, icon_scale=1.0):
    c = d / 2
    body = (f'  <circle cx="{c}" cy="{c}" r="{c}" fill="{EDGE}"/>\n'
            f'  <circle cx="{c}" cy="{c}" r="{c - 1}" fill="url(#face)"/>\n'
            f'  <circle cx="{c}" cy="{c}" r="{c - 1.5}" fill="none" stroke="url(#rim)" stroke-width="1"/>\n')
    size = 16 * icon_scale
    body += icon(icon_name, c - size / 2, c - size / 2, color=ACC if accent else ICON,
                 glow=ACC if accent else None, scale=icon_scale)
    return svg(d, d, body, key_defs())

# ---------------------------------------------------------------- wordmark

def letter_paths(ch, w):
    if ch == "O":
        return [f"M{w/2},0 A{w/2},0.5 0 1 1 {w/2},1 A{w/2},0.5 0 1 1 {w/2},0 Z"]
    if ch == "R":
        return [f"M0,1 V0 H{w*0.55} A{w*0.45},0.25 0 0 1 {w*0.55},0.5 H0", f"M{w*0.5},0.5 L{w},1"]
    if ch == "V":
        return [f"M0,0 L{w/2},1 L{w},0"]
    if ch == "A":
        return [f"M0,1 L{w/2},0 L{w},1", f"M{w*0.24},0.64 H{w*0.76}"]
    if ch == "N":
        return [f"M0,1 V0 L{w},1 V0"]
    if ch == "E":
        return [f"M{w},0 H0 V1 H{w}", f"M0,0.5 H{w*0.82}"]
    raise ValueError(ch)

WIDTHS = {"O": 0.92, "R": 0.72, "V": 0.84, "A": 0.84, "N": 0.76, "E": 0.64}

def wordmark_width(height, spacing=0.42):
    return height * (sum(WIDTHS[c] for c in "ORVANE") + spacing * 5)

def wordmark(x, y, height, color, stroke, spacing=0.42, opacity=None):
    """ORVANE in geometric stroked capitals; (x, y) is the top left."""
    out = ""
    cx = x
    for ch in "ORVANE":
        w = WIDTHS[ch]
        for d in letter_paths(ch, w):
            # scale the unit letter
            out += f'    <path transform="translate({cx:.2f},{y}) scale({height})" d="{d}"/>\n'
        cx += (w + spacing) * height
    op = f' opacity="{opacity}"' if opacity is not None else ""
    return (f'  <g fill="none" stroke="{color}" stroke-width="{stroke / height:.4f}" stroke-linecap="round" '
            f'stroke-linejoin="round"{op}>\n{out}  </g>\n')

def logo(cx, cy, r, stroke, color=ACC, glow=True):
    out = ""
    if glow:
        out += f'  <circle cx="{cx}" cy="{cy}" r="{r}" fill="none" stroke="{color}" stroke-width="{stroke * 3.2}" opacity="0.10"/>\n'
        out += f'  <circle cx="{cx}" cy="{cy}" r="{r}" fill="none" stroke="{color}" stroke-width="{stroke * 1.9}" opacity="0.16"/>\n'
    out += f'  <circle cx="{cx}" cy="{cy}" r="{r}" fill="none" stroke="{color}" stroke-width="{stroke}"/>\n'
    t = r * 0.42
    out += (f'  <path fill="{color}" stroke="{color}" stroke-width="{stroke * 0.35}" stroke-linejoin="round" '
            f'd="M{cx - t * 0.7:.2f},{cy - t:.2f} L{cx + t * 1.05:.2f},{cy:.2f} L{cx - t * 0.7:.2f},{cy + t:.2f} Z"/>\n')
    return out

# ---------------------------------------------------------------- recessed display

def recess(x, y, w, h, r, gid="lcd"):
    return (f'  <rect x="{x}" y="{y + 1}" width="{w}" height="{h}" rx="{r}" fill="#ffffff" opacity="0.07"/>\n'
            f'  <rect x="{x}" y="{y}" width="{w}" height="{h}" rx="{r}" fill="#030405"/>\n'
            f'  <rect x="{x + 1}" y="{y + 1}" width="{w - 2}" height="{h - 2}" rx="{r - 1}" fill="url(#{gid})"/>\n'
            f'  <rect x="{x + 1.5}" y="{y + 1.5}" width="{w - 3}" height="{min(h - 3, 40) * 0.6:.1f}" rx="{r - 1.5}" fill="url(#glass)"/>\n')

GLASS_DEFS = vgrad("glass", [(0, "#ffffff", 0.05), (1, "#ffffff", 0.0)])
LCD_DEFS = vgrad("lcd", [(0, LCD_TOP, None), (1, LCD_BOTTOM, None)]) + GLASS_DEFS

# ---------------------------------------------------------------- player bar

def player_background():
    W, H = 600, 260
    defs = (vgrad("body", [(0, "#4a505a", None), (0.1, "#3d424a", None), (0.55, "#30343b", None), (1, "#25282e", None)], 0, 133)
            + vgrad("lower", [(0, "#2a2d33", None), (1, "#1a1c20", None)], 152, 260)
            + vgrad("rimv", [(0, "#ffffff", 0.34), (0.12, "#ffffff", 0.10), (0.5, "#ffffff", 0.02), (1, "#ffffff", 0.0)], 0, 260)
            + vgrad("strip", [(0, "#0c0e11", None), (1, "#15181c", None)], 133, 152)
            + LCD_DEFS + key_defs())
    b = ""
    b += f'  <rect x="0" y="0" width="{W}" height="{H}" rx="31" fill="{EDGE}"/>\n'
    b += f'  <rect x="1" y="1" width="{W - 2}" height="{H - 2}" rx="30" fill="url(#lower)"/>\n'
    # the bar
    b += '  <path fill="url(#body)" d="M1,31 A30,30 0 0 1 31,1 H569 A30,30 0 0 1 599,31 V133 H1 Z"/>\n'
    # a fine brushed grain on the bar
    for i, yy in enumerate(range(4, 132, 3)):
        op = 0.018 if i % 2 else 0.03
        b += f'  <rect x="1" y="{yy}" width="598" height="1" fill="#ffffff" opacity="{op}"/>\n'
    b += '  <rect x="1.5" y="1.5" width="597" height="257" rx="29.5" fill="none" stroke="url(#rimv)" stroke-width="1"/>\n'

    # time and title display
    b += recess(24, 9, 476, 41, 8)
    b += f'  <rect x="152" y="15" width="1" height="29" fill="{ACC}" opacity="0.22"/>\n'
    b += f'  <rect x="26" y="10" width="472" height="1" fill="#000000" opacity="0.5"/>\n'

    # quit key: its caption is a label under the symbol
    b += f'  <rect x="510" y="9" width="64" height="41" rx="8" fill="{EDGE}"/>\n'
    b += f'  <rect x="511" y="10" width="62" height="39" rx="7" fill="url(#face)"/>\n'
    b += f'  <rect x="511.5" y="10.5" width="61" height="38" rx="6.5" fill="none" stroke="url(#rim)" stroke-width="1"/>\n'
    for col, op, dy in (("#000000", 0.55, 1), (ICON, None, 0)):
        o = f' opacity="{op}"' if op else ""
        b += (f'  <g fill="none" stroke="{col}" stroke-width="1.8" stroke-linecap="round"{o} transform="translate(0,{dy})">\n'
              f'    <path d="M538.2,17.6 A6,6 0 1 0 545.8,17.6"/>\n'
              f'    <path d="M542,14.5 V21"/>\n  </g>\n')

    # progress track scale
    for k in range(11):
        x = 34 + k * 31
        hgt = 4 if k % 5 == 0 else 2
        b += f'  <rect x="{x - 0.5 if k < 10 else x - 1}" y="79" width="1" height="{hgt}" fill="#ffffff" opacity="{0.16 if k % 5 == 0 else 0.09}"/>\n'

    # groove between the transport and the command cluster
    b += '  <rect x="386" y="58" width="1" height="64" fill="#000000" opacity="0.45"/>\n'
    b += '  <rect x="387" y="58" width="1" height="64" fill="#ffffff" opacity="0.07"/>\n'
    # seats under the key rows: a soft shadow line
    b += '  <rect x="30" y="125" width="318" height="1" fill="#000000" opacity="0.25"/>\n'

    # seam between the bar and the status strip
    b += '  <rect x="1" y="133" width="598" height="19" fill="url(#strip)"/>\n'
    b += '  <rect x="1" y="133" width="598" height="1" fill="#000000" opacity="0.7"/>\n'
    b += '  <rect x="1" y="134" width="598" height="1" fill="#000000" opacity="0.35"/>\n'
    b += '  <rect x="1" y="151" width="598" height="1" fill="#ffffff" opacity="0.08"/>\n'
    b += f'  <rect x="293" y="136" width="1" height="12" fill="#ffffff" opacity="0.08"/>\n'

    # lower panel: vents either side of the wordmark
    for row in range(7):
        y = 178 + row * 8
        for x0, x1 in ((44, 214), (386, 556)):
            b += f'  <rect x="{x0}" y="{y}" width="{x1 - x0}" height="3" rx="1.5" fill="#08090b"/>\n'
            b += f'  <rect x="{x0 + 1}" y="{y + 3}" width="{x1 - x0 - 2}" height="1" fill="#ffffff" opacity="0.06"/>\n'
    mark_h = 14
    ww = wordmark_width(mark_h)
    total = 28 + ww
    x0 = 300 - total / 2
    b += logo(x0 + 9, 202, 9, 2.0, color="#5c6570", glow=False)
    b += wordmark(x0 + 28, 195 + 1, mark_h, "#000000", 2.4, opacity=0.5)
    b += wordmark(x0 + 28, 195, mark_h, "#66707b", 2.4)
    b += f'  <circle cx="{300 + total / 2 + 8:.1f}" cy="202" r="2" fill="{ACC}"/>\n'
    b += f'  <circle cx="{300 + total / 2 + 8:.1f}" cy="202" r="4" fill="{ACC}" opacity="0.18"/>\n'
    return svg(W, H, b, defs)

# ---------------------------------------------------------------- gauge, track, lamps

def volume(level):
    W, H = 70, 22
    defs = LCD_DEFS + vgrad("lit", [(0, ACC_LIGHT, None), (1, ACC, None)])
    b = (f'  <rect x="0" y="0" width="{W}" height="{H}" rx="5" fill="#040506"/>\n'
         f'  <rect x="1" y="1" width="{W - 2}" height="{H - 2}" rx="4" fill="url(#lcd)"/>\n')
    for i in range(6):
        x = 5 + i * 10.5
        h = 5 + i * 2.4
        y = 18 - h
        if i < level:
            b += f'  <rect x="{x - 1:.1f}" y="{y - 1:.1f}" width="9" height="{h + 2:.1f}" rx="2" fill="{ACC}" opacity="0.22"/>\n'
            b += f'  <rect x="{x:.1f}" y="{y:.1f}" width="7" height="{h:.1f}" rx="1" fill="url(#lit)"/>\n'
        else:
            b += f'  <rect x="{x:.1f}" y="{y:.1f}" width="7" height="{h:.1f}" rx="1" fill="#212b34"/>\n'
            b += f'  <rect x="{x:.1f}" y="{y:.1f}" width="7" height="1" fill="#ffffff" opacity="0.05"/>\n'
    return svg(W, H, b, defs)

def progress_track():
    b = ('  <rect x="0" y="8" width="310" height="6" rx="3" fill="#ffffff" opacity="0.08"/>\n'
         '  <rect x="0" y="7" width="310" height="6" rx="3" fill="#030405"/>\n'
         '  <rect x="1" y="8" width="308" height="4" rx="2" fill="#10171d"/>\n'
         '  <rect x="2" y="8" width="306" height="1" fill="#000000" opacity="0.6"/>\n')
    return svg(310, 20, b)

def progress_fill():
    defs = vgrad("fill", [(0, ACC_LIGHT, None), (0.5, ACC, None), (1, ACC_DARK, None)])
    b = (f'  <rect x="0" y="5" width="310" height="10" rx="5" fill="{ACC}" opacity="0.12"/>\n'
         f'  <rect x="0" y="6" width="310" height="8" rx="4" fill="{ACC}" opacity="0.14"/>\n'
         '  <rect x="1" y="8" width="308" height="4" rx="2" fill="url(#fill)"/>\n')
    return svg(310, 20, b, defs)

def progress_cursor():
    defs = vgrad("knob", [(0, "#f4f7fa", None), (0.5, "#c9d0d8", None), (1, "#8e98a3", None)])
    b = ('  <rect x="1" y="3" width="12" height="16" rx="4" fill="#000000" opacity="0.35"/>\n'
         f'  <rect x="1" y="2" width="12" height="16" rx="4" fill="{EDGE}"/>\n'
         '  <rect x="2" y="3" width="10" height="14" rx="3" fill="url(#knob)"/>\n'
         '  <rect x="2.5" y="3.5" width="9" height="1" rx="0.5" fill="#ffffff" opacity="0.7"/>\n'
         f'  <rect x="6" y="6" width="2" height="8" rx="1" fill="{ACC_DARK}"/>\n')
    return svg(14, 20, b, defs)

def lamp(kind, on=True):
    col = ACC if on else "#59636e"
    if kind == "audio":
        b = ""
        if on:
            b += (f'  <g fill="none" stroke="{col}" stroke-width="3" opacity="0.2" stroke-linecap="round">\n'
                  '    <path d="M10,3.5 A3.5,3.5 0 0 1 10,8.5"/><path d="M12.2,1.5 A6,6 0 0 1 12.2,10.5"/>\n  </g>\n')
        b += f'  <path fill="{col}" d="M1,4.5 H3.5 L7,1.5 V10.5 L3.5,7.5 H1 Z"/>\n'
        b += (f'  <g fill="none" stroke="{col}" stroke-width="1.3" stroke-linecap="round">\n'
              '    <path d="M9.6,3.8 A3,3 0 0 1 9.6,8.2"/><path d="M11.8,1.8 A5.6,5.6 0 0 1 11.8,10.2"/>\n  </g>\n')
        return svg(16, 12, b)
    # subtitles
    b = ""
    if on:
        b += f'  <rect x="0.5" y="0.5" width="15" height="11" rx="3" fill="{col}" opacity="0.2"/>\n'
    b += (f'  <path fill="{col}" fill-rule="evenodd" d="M3,1 H13 A2,2 0 0 1 15,3 V9 A2,2 0 0 1 13,11 H3 A2,2 0 0 1 1,9 V3 A2,2 0 0 1 3,1 Z '
          'M3.2,2.3 H12.8 A0.9,0.9 0 0 1 13.7,3.2 V8.8 A0.9,0.9 0 0 1 12.8,9.7 H3.2 A0.9,0.9 0 0 1 2.3,8.8 V3.2 A0.9,0.9 0 0 1 3.2,2.3 Z"/>\n')
    for x, y, w in ((4, 4.5, 4), (9, 4.5, 3), (4, 7, 2.5), (7.5, 7, 4.5)):
        b += f'  <rect x="{x}" y="{y}" width="{w}" height="1.3" fill="{col}"/>\n'
    return svg(16, 12, b)

# ---------------------------------------------------------------- display window

BAR_DEFS = vgrad("bar", [(0, "#4a505a", None), (0.5, "#363a42", None), (1, "#2a2e35", None)])

def display_piece(kind):
    w = 20 if kind == "middle" else 40
    b = ""
    if kind == "left":
        b += f'  <path fill="{EDGE}" d="M0,20 V8 A8,8 0 0 1 8,0 H40 V20 Z"/>\n'
        b += '  <path fill="url(#bar)" d="M1,20 V8 A7,7 0 0 1 8,1 H40 V19 H1 Z"/>\n'
        b += '  <path fill="none" stroke="#ffffff" stroke-opacity="0.26" stroke-width="1" d="M1.5,19 V8 A6.5,6.5 0 0 1 8,1.5 H40"/>\n'
        b += logo(14, 10, 5, 1.5, glow=False)
    elif kind == "right":
        b += f'  <path fill="{EDGE}" d="M0,0 H32 A8,8 0 0 1 40,8 V20 H0 Z"/>\n'
        b += '  <path fill="url(#bar)" d="M0,1 H32 A7,7 0 0 1 39,8 V19 H0 Z"/>\n'
        b += '  <path fill="none" stroke="#ffffff" stroke-opacity="0.26" stroke-width="1" d="M0,1.5 H32 A6.5,6.5 0 0 1 38.5,8"/>\n'
        for i in range(3):
            x = 14 + i * 5
            b += f'  <circle cx="{x}" cy="11" r="1.2" fill="#000000" opacity="0.6"/>\n'
            b += f'  <circle cx="{x}" cy="10" r="1.2" fill="#8b95a0"/>\n'
    else:
        b += f'  <rect x="0" y="0" width="20" height="20" fill="{EDGE}"/>\n'
        b += '  <rect x="0" y="1" width="20" height="18" fill="url(#bar)"/>\n'
        b += '  <rect x="0" y="1" width="20" height="1" fill="#ffffff" opacity="0.26"/>\n'
    b += f'  <rect x="0" y="19" width="{w}" height="1" fill="#000000"/>\n'
    return svg(w, 20, b, BAR_DEFS)

def display_splash():
    W, H = 350, 260
    defs = ('    <radialGradient id="bg" cx="0.5" cy="0.42" r="0.75">\n'
            '      <stop offset="0" stop-color="#1d232b"/>\n      <stop offset="0.6" stop-color="#0f1216"/>\n'
            '      <stop offset="1" stop-color="#08090b"/>\n    </radialGradient>\n'
            '    <radialGradient id="halo" cx="0.5" cy="0.5" r="0.5">\n'
            f'      <stop offset="0" stop-color="{ACC}" stop-opacity="0.16"/>\n'
            f'      <stop offset="1" stop-color="{ACC}" stop-opacity="0"/>\n    </radialGradient>\n')
    b = f'  <rect x="0" y="0" width="{W}" height="{H}" fill="url(#bg)"/>\n'
    b += '  <circle cx="175" cy="104" r="80" fill="url(#halo)"/>\n'
    b += logo(175, 104, 32, 4.5)
    mh = 18
    ww = wordmark_width(mh, 0.5)
    b += wordmark(175 - ww / 2, 162, mh, "#d3dae2", 2.6, spacing=0.5)
    b += f'  <rect x="155" y="194" width="40" height="2" rx="1" fill="{ACC}" opacity="0.85"/>\n'
    return svg(W, H, b, defs)

def about_picture():
    W, H = 360, 150
    defs = LCD_DEFS + ('    <radialGradient id="halo" cx="0.5" cy="0.5" r="0.5">\n'
                       f'      <stop offset="0" stop-color="{ACC}" stop-opacity="0.18"/>\n'
                       f'      <stop offset="1" stop-color="{ACC}" stop-opacity="0"/>\n    </radialGradient>\n')
    b = recess(20, 20, 320, 118, 12)
    b += '  <circle cx="110" cy="79" r="52" fill="url(#halo)"/>\n'
    b += logo(110, 79, 26, 4)
    mh = 20
    b += wordmark(156, 62, mh, "#d8dfe7", 2.8, spacing=0.42)
    ww = wordmark_width(mh)
    b += f'  <rect x="156" y="94" width="{ww:.0f}" height="1" fill="{ACC}" opacity="0.5"/>\n'
    return svg(W, H, b, defs)

# ---------------------------------------------------------------- application icon

def app_icon():
    """The desktop's icon: the splash picture's logo in the player's recessed display."""
    S = 128
    defs = LCD_DEFS + ('    <radialGradient id="halo" cx="0.5" cy="0.5" r="0.5">\n'
                       f'      <stop offset="0" stop-color="{ACC}" stop-opacity="0.22"/>\n'
                       f'      <stop offset="1" stop-color="{ACC}" stop-opacity="0"/>\n    </radialGradient>\n')
    b = f'  <rect x="4" y="4" width="120" height="120" rx="26" fill="{EDGE}"/>\n'
    b += recess(8, 8, 112, 112, 22)
    b += '  <circle cx="64" cy="64" r="50" fill="url(#halo)"/>\n'
    b += logo(64, 64, 34, 7)
    return svg(S, S, b, defs)

# ---------------------------------------------------------------- playlist window

def panel_body(W, H, shade_at):
    """The brushed graphite body of a skinned window, its rim and its logo."""
    defs = (vgrad("body", [(0, "#474d57", None), (shade_at, "#3a3f47", None), (0.5, "#2c3036", None), (1, "#202328", None)])
            + vgrad("rimv", [(0, "#ffffff", 0.34), (0.06, "#ffffff", 0.08), (0.4, "#ffffff", 0.02), (1, "#ffffff", 0.0)])
            + LCD_DEFS)
    b = f'  <rect x="0" y="0" width="{W}" height="{H}" rx="15" fill="{EDGE}"/>\n'
    b += f'  <rect x="1" y="1" width="{W - 2}" height="{H - 2}" rx="14" fill="url(#body)"/>\n'
    for i, yy in enumerate(range(4, H - 4, 3)):
        b += f'  <rect x="1" y="{yy}" width="{W - 2}" height="1" fill="#ffffff" opacity="{0.018 if i % 2 else 0.028}"/>\n'
    b += f'  <rect x="1.5" y="1.5" width="{W - 3}" height="{H - 3}" rx="13.5" fill="none" stroke="url(#rimv)" stroke-width="1"/>\n'
    b += logo(22, 17, 7, 1.8, glow=False)
    return defs, b

def playlist_background():
    W, H = 420, 480
    defs, b = panel_body(W, H, 0.08)
    # title strip
    mh = 10
    b += wordmark(38, 12, mh, "#000000", 1.8, opacity=0.5)
    b += wordmark(38, 11.5, mh, "#8e98a3", 1.8)
    b += '  <rect x="12" y="33" width="396" height="1" fill="#000000" opacity="0.45"/>\n'
    b += '  <rect x="12" y="34" width="396" height="1" fill="#ffffff" opacity="0.07"/>\n'
    # list panel under the tabs
    b += recess(14, 68, 392, 342, 8)
    b += '  <rect x="16" y="69" width="388" height="1" fill="#000000" opacity="0.5"/>\n'
    # button bar
    b += '  <rect x="12" y="418" width="396" height="1" fill="#000000" opacity="0.45"/>\n'
    b += '  <rect x="12" y="419" width="396" height="1" fill="#ffffff" opacity="0.07"/>\n'
    return svg(W, H, b, defs)

def tab(icon_name, active):
    W, H = 104, 26
    if active:
        defs = vgrad("face", [(0, "#5a616b", None), (0.5, "#3f454d", None), (1, "#343940", None)]) + vgrad("rim", KEY_RIM)
    else:
        defs = vgrad("face", [(0, "#33373e", None), (1, "#272a2f", None)]) + vgrad("rim", [(0, "#ffffff", 0.12), (1, "#ffffff", 0.0)])
    b = f'  <path fill="{EDGE}" d="M0,26 V6 A6,6 0 0 1 6,0 H98 A6,6 0 0 1 104,6 V26 Z"/>\n'
    b += '  <path fill="url(#face)" d="M1,26 V6 A5,5 0 0 1 6,1 H98 A5,5 0 0 1 103,6 V26 Z"/>\n'
    b += '  <path fill="none" stroke="url(#rim)" stroke-width="1" d="M1.5,26 V6 A4.5,4.5 0 0 1 6,1.5 H98 A4.5,4.5 0 0 1 102.5,6 V26"/>\n'
    if active:
        b += f'  <rect x="8" y="22" width="88" height="2" rx="1" fill="{ACC}"/>\n'
        b += f'  <rect x="6" y="20" width="92" height="5" rx="2.5" fill="{ACC}" opacity="0.15"/>\n'
        b += icon(icon_name, 10, 4, color=ACC, glow=ACC)
    else:
        b += icon(icon_name, 10, 5, color=ICON_DIM)
    return svg(W, H, b, defs)

def option_box():
    b = ('  <rect x="0" y="1" width="14" height="14" rx="3" fill="#ffffff" opacity="0.08"/>\n'
         '  <rect x="0" y="0" width="14" height="14" rx="3" fill="#030405"/>\n'
         f'  <rect x="1" y="1" width="12" height="12" rx="2" fill="url(#lcd)"/>\n'
         '  <rect x="2" y="1" width="10" height="1" fill="#000000" opacity="0.6"/>\n')
    return svg(14, 14, b, LCD_DEFS)

def option_mark():
    b = (f'  <path fill="none" stroke="{ACC}" stroke-width="4" stroke-linecap="round" stroke-linejoin="round" opacity="0.22" d="M3.5,7.2 L6,9.8 L10.5,4.2"/>\n'
         f'  <path fill="none" stroke="{ACC}" stroke-width="2" stroke-linecap="round" stroke-linejoin="round" d="M3.5,7.2 L6,9.8 L10.5,4.2"/>\n')
    return svg(14, 14, b)

# ---------------------------------------------------------------- configuration window

CONFIG_W, CONFIG_H = 520, 346

def config_background():
    W, H = CONFIG_W, CONFIG_H
    defs, b = panel_body(W, H, 0.1)
    b += f'  <rect x="12" y="33" width="{W - 24}" height="1" fill="#000000" opacity="0.45"/>\n'
    b += f'  <rect x="12" y="34" width="{W - 24}" height="1" fill="#ffffff" opacity="0.07"/>\n'
    # the font sample and the language list sit on the display glass
    b += recess(14, 136, 234, 50, 6)
    b += recess(270, 76, 236, 64, 6)
    # the column divider and the button bar
    b += '  <rect x="259" y="44" width="1" height="244" fill="#000000" opacity="0.45"/>\n'
    b += '  <rect x="260" y="44" width="1" height="244" fill="#ffffff" opacity="0.06"/>\n'
    b += f'  <rect x="12" y="296" width="{W - 24}" height="1" fill="#000000" opacity="0.45"/>\n'
    b += f'  <rect x="12" y="297" width="{W - 24}" height="1" fill="#ffffff" opacity="0.07"/>\n'
    return svg(W, H, b, defs)

def caption_key(w, h, r):
    body = (f'  <rect x="0" y="0" width="{w}" height="{h}" rx="{r}" fill="{EDGE}"/>\n'
            f'  <rect x="1" y="1" width="{w - 2}" height="{h - 2}" rx="{r - 1}" fill="url(#face)"/>\n'
            f'  <rect x="1.5" y="1.5" width="{w - 3}" height="{h - 3}" rx="{r - 1.5}" fill="none" stroke="url(#rim)" stroke-width="1"/>\n')
    return svg(w, h, body, key_defs())

# ---------------------------------------------------------------- write all

def main():
    os.makedirs(OUT, exist_ok=True)
    write("player_background", player_background())
    write("button_open", rect_key(36, 30, 7, "open"))
    write("button_play", rect_key(42, 30, 7, "play", accent=True))
    write("button_stop", rect_key(42, 30, 7, "stop"))
    write("button_pause", rect_key(42, 30, 7, "pause"))
    write("button_fullscreen", rect_key(28, 24, 6, "fullscreen"))
    write("button_subtitles", rect_key(28, 24, 6, "subtitles"))
    write("button_config", rect_key(28, 24, 6, "config", icon_scale=0.875))
    write("button_playlist", rect_key(28, 24, 6, "playlist"))
    write("button_volume_up", rect_key(30, 24, 6, "volume_up"))
    write("button_volume_down", rect_key(30, 24, 6, "volume_down"))
    write("button_next", round_key(34, "next"))
    write("button_audio", round_key(34, "audio"))
    write("button_previous", round_key(34, "previous"))
    for level in range(7):
        write(f"volume_{level}", volume(level))
    write("progress_track", progress_track())
    write("progress_fill", progress_fill())
    write("progress_cursor", progress_cursor())
    write("lamp_audio", lamp("audio"))
    write("lamp_subtitles_off", lamp("subtitles", on=False))
    write("lamp_subtitles_on", lamp("subtitles", on=True))
    write("display_top_left", display_piece("left"))
    write("display_top_middle", display_piece("middle"))
    write("display_top_right", display_piece("right"))
    write("display_splash", display_splash())
    write("about_picture", about_picture())
    write("playlist_background", playlist_background())
    for name, ic in (("playlist", "playlist"), ("audio", "note"), ("subtitles", "subtitles")):
        write(f"tab_{name}", tab(ic, False))
        write(f"tab_{name}_active", tab(ic, True))
    write("button_add", rect_key(28, 24, 6, "add"))
    write("button_remove", rect_key(28, 24, 6, "remove"))
    write("button_open_list", rect_key(28, 24, 6, "open_list"))
    write("button_save_list", rect_key(28, 24, 6, "save_list"))
    write("button_delay_up", rect_key(22, 16, 4, "delay_up", icon_scale=0.875))
    write("button_delay_down", rect_key(22, 16, 4, "delay_down", icon_scale=0.875))
    write("option_box", option_box())
    write("option_mark", option_mark())
    write("button_close", round_key(18, "close", icon_scale=0.875))
    write("config_background", config_background())
    write("button_caption", caption_key(90, 28, 7))
    with open(os.path.join(OUT, "..", "org.orvane.Orvane.svg"), "w") as f:
        f.write(app_icon())

main()
