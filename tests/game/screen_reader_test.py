# SPDX-License-Identifier: GPL-2.0-or-later
# The game as a screen reader finds it: fifteen reel images named by their
# symbols, "rolling" while a spin runs (with word of each change), and after
# the spin the names of the symbols the screen shows in each cell; the result
# boxes by their labels. While the reels roll, the sound server lists the
# game's stream with its icon. Runs on an X server whose screen is mirrored in
# an XWD file (Xvfb -fbdir), a D-Bus session and a sound server, set up by
# screen_reader_test.sh.
# Usage: screen_reader_test.py GAME FOLDER REFERENCES SCREEN_FILE
import struct
import subprocess
import sys
import time

import gi
gi.require_version("GdkPixbuf", "2.0")
from gi.repository import GdkPixbuf, GLib  # noqa: E402
import pyatspi  # noqa: E402

game, folder, references, screen_file = sys.argv[1:5]
COLOURS = ["red", "green", "blue", "gold", "purple"]
FIGURES = ["circle", "square", "triangle", "diamond", "hexagon",
           "ring", "cross", "heart", "star", "crown"]
NAMES = [f"{COLOURS[s % 5]} {FIGURES[s // 5]}" for s in range(50)]
CELL = 73


def fail(why):
    print("FAIL:", why)
    sys.exit(1)


def poll(what, seconds, probe):
    """probe() until it gives something true; fails after `seconds`."""
    end = time.monotonic() + seconds
    while True:
        while GLib.MainContext.default().iteration(False):
            pass  # hands the events that came to their listeners
        found = probe()
        if found:
            return found
        if time.monotonic() > end:
            fail(f"{what}: not within {seconds} s")
        time.sleep(0.1)


def rgb_rows(pixbuf):
    step, n, data = pixbuf.get_rowstride(), pixbuf.get_n_channels(), pixbuf.get_pixels()
    return [bytes(b for x in range(pixbuf.get_width()) for b in data[y * step + x * n:y * step + x * n + 3])
            for y in range(pixbuf.get_height())]


def screen_cell(x0, y0):
    """The 73 x 73 pixels at (x0, y0) of the screen, as rows of RGB bytes."""
    with open(screen_file, "rb") as f:
        data = f.read()
    head = struct.unpack(">25I", data[:100])
    header_size, bits, line, order, colours = head[0], head[11], head[12], head[7], head[19]
    if bits != 32 or order != 0:
        fail(f"a screen of {bits} bits per pixel, byte order {order}")
    pixels = header_size + 12 * colours
    rows = []
    for y in range(y0, y0 + CELL):
        start = pixels + y * line + x0 * 4
        bgrx = data[start:start + CELL * 4]
        rows.append(bytes(bgrx[i + k] for i in range(0, len(bgrx), 4) for k in (2, 1, 0)))
    return rows


def likeness(a, b):
    """Pixels alike in two cells, every second row and column."""
    return sum(ra[i:i + 3] == rb[i:i + 3] for ra, rb in zip(a[::2], b[::2]) for i in range(0, len(ra), 6))


refs = [rgb_rows(GdkPixbuf.Pixbuf.new_from_file(f"{references}/{s}.png")) for s in range(50)]
if any(len(r) != CELL or len(r[0]) != CELL * 3 for r in refs):
    fail("the reference pictures are not 73 x 73")

player = subprocess.Popen([game], cwd=folder)
try:
    desktop = pyatspi.Registry.getDesktop(0)

    def main_window():
        for app in desktop:
            for window in app or []:
                if window and window.name == "REELMOOR":
                    return window
        return None

    def find(root, test):
        return pyatspi.utils.findAllDescendants(root, test)

    window = poll("the main window", 30, main_window)
    cells = poll("fifteen reel images", 10,
                 lambda: (lambda c: c if len(c) == 15 else None)(
                     find(window, lambda a: a.getRole() == pyatspi.ROLE_IMAGE)))

    def names():
        return [c.name for c in cells]

    if any(n not in NAMES for n in names()):
        fail(f"the reels before a spin: {names()}")
    if [c.getIndexInParent() for c in cells] != list(range(15)):
        fail(f"the reels stand at {[c.getIndexInParent() for c in cells]} among their surface's children")
    # A screen reader hears of each reel's new name.
    heard = []
    pyatspi.Registry.registerEventListener(lambda e: heard.append((e.source.getRole(), e.source.name)),
                                           "object:property-change:accessible-name")
    spin = find(window, lambda a: a.name == "SPIN" and a.getRole() == pyatspi.ROLE_PUSH_BUTTON)[0]
    spin.queryAction().doAction(0)
    poll("a reel named rolling", 10, lambda: "rolling" in names())
    poll("word of a reel rolling", 5, lambda: (pyatspi.ROLE_IMAGE, "rolling") in heard)

    def stream():
        listed = subprocess.run(["pactl", "list", "sink-inputs"], capture_output=True, text=True).stdout
        return listed if "application.icon_name" in listed else None
    listed = poll("a sound stream with an icon", 5, stream)
    for want in ('application.icon_name = "io.github.reelmoor.Reelmoor"', 'media.name = "Game sounds"'):
        if want not in listed:
            fail(f"the sound stream lacks {want}: {listed}")

    def settled():
        enabled = spin.getState().contains(pyatspi.STATE_SENSITIVE)
        return enabled and all(n in NAMES for n in names())
    poll("the spin's end", 60, settled)

    places = []
    for c in cells:
        e = c.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        if (e.width, e.height) != (CELL, CELL) or not c.getState().contains(pyatspi.STATE_VISIBLE):
            fail(f"a reel image of {e.width} x {e.height}, visible: {c.getState().contains(pyatspi.STATE_VISIBLE)}")
        places.append((e.x, e.y))

    # The screen catches up with the last paint soon after the spin ends.
    def shown():
        return [NAMES[max(range(50), key=lambda s: likeness(screen_cell(x, y), refs[s]))] for x, y in places]
    end = time.monotonic() + 10
    while (grid := shown()) != names():
        if time.monotonic() > end:
            fail(f"the reels are named {names()}, the screen shows {grid}")
    print("the reels read aloud after a spin:", ", ".join(names()))

    # Each result box by its label; the net result's label says gain or loss.
    def box(label):
        found = find(window, lambda a: a.name == label and a.getRole() == pyatspi.ROLE_TEXT)
        if len(found) != 1:
            fail(f"no one box named {label!r}")
        by = [r for r in found[0].getRelationSet() if r.getRelationType() == pyatspi.RELATION_LABELLED_BY]
        if not by or by[0].getTarget(0).name.lower() != label:
            fail(f"the box {label!r} is not labelled by its label")
        return found[0].queryText().getText(0, -1)
    bank = float(box("total credits"))
    box("net loss" if bank < 2500 else "net gain")
    print(f"credits paid {box('credits paid')}, total credits {bank:g}, total bet {box('total bet')}")
finally:
    player.kill()
    player.wait()
