#!/usr/bin/python3
"""Reads the game window from outside, through the AT-SPI accessibility bus, as a screen reader
would: the field's cells row by row, the bomb counter, the clock and the smiley button.

Attach to a running game and print the field once:
    read_field_atspi.py
Start the game, play an Easy game with xdotool (F2, a flag, presses until a loss) and print the
field after the start, after the flag and after the loss, with the cell name changes announced:
    xvfb-run -n 71 dbus-run-session -- tools/read_field_atspi.py --play build/app/velkaro
Needs at-spi2-core, python3-gi, gir1.2-atspi-2.0 and xdotool (Debian packages).
"""

import argparse
import os
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

APPLICATION = "velkaro"
EXPLODED = ("bomba esplosa", "exploded bomb")


def find_application(timeout):
    """The game's accessible application, waiting for it to register."""
    deadline = time.monotonic() + timeout
    while time.monotonic() < deadline:
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            app = desktop.get_child_at_index(i)
            if app is not None and app.get_name() == APPLICATION:
                return app
        time.sleep(0.2)
    sys.exit(f"no accessible application named {APPLICATION!r} on the bus")


def descendants(node):
    """Every object below node, depth first, without entering tables (their cells are many)."""
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is None:
            continue
        yield child
        if child.get_role() != Atspi.Role.TABLE:
            yield from descendants(child)


def find_controls(app, timeout):
    """The field table and the panel's controls by role: counter and clock labels, the button."""
    deadline = time.monotonic() + timeout
    while time.monotonic() < deadline:
        found = list(descendants(app))
        tables = [node for node in found if node.get_role() == Atspi.Role.TABLE]
        if tables:
            valued = [node for node in found if node.get_role() == Atspi.Role.LABEL]
            button = next(node for node in found if node.get_description())
            return tables[0], valued, button
        time.sleep(0.2)
    sys.exit("the game shows no table")


def cell(table, row, column):
    return Atspi.Table.get_accessible_at(table, row, column)


def rows_of_names(table):
    for row in range(Atspi.Table.get_n_rows(table)):
        yield [cell(table, row, column).get_name() for column in range(Atspi.Table.get_n_columns(table))]


def print_field(title, table, valued, button):
    print(f"== {title}: {table.get_name()}")
    for names in rows_of_names(table):
        print(" | ".join(names))
    panel = [f"{node.get_name()} {int(Atspi.Value.get_current_value(node))}" for node in valued]
    print(f"   {'; '.join(panel)}; {button.get_name()}: {button.get_description()}")


class NameChanges:
    """Counts the accessible-name changes announced on the bus."""

    def __init__(self):
        self.count = 0
        self.listener = Atspi.EventListener.new(self.seen)
        self.listener.register("object:property-change:accessible-name")

    def seen(self, event):
        self.count += 1

    def take(self):
        count, self.count = self.count, 0
        return count


def settle(seconds):
    """Lets the game paint and announce, and lets the announcements arrive here."""
    deadline = time.monotonic() + seconds
    context = GLib.MainContext.default()
    while time.monotonic() < deadline:
        while context.pending():
            context.iteration(False)
        time.sleep(0.02)


def point_at(node):
    """Moves the mouse pointer to the middle of an accessible object."""
    box = node.get_extents(Atspi.CoordType.SCREEN)
    x, y = box.x + box.width // 2, box.y + box.height // 2
    subprocess.run(["xdotool", "mousemove", "--sync", str(x), str(y)], check=True)


def click(node, button):
    """A real mouse press and release in the middle of an accessible object."""
    point_at(node)
    subprocess.run(["xdotool", "click", str(button)], check=True)


def play(program):
    env = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    game = subprocess.Popen([program], env=env)
    try:
        app = find_application(20)
        table, valued, button = find_controls(app, 20)
        changes = NameChanges()
        settle(1)
        # Without a window manager nobody hands the window the keyboard focus: take it.
        subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", "--name", "Velkaro",
                        "windowfocus", "--sync"], check=True)
        subprocess.run(["xdotool", "key", "F2"], check=True)
        settle(1)
        changes.take()
        print_field("started", table, valued, button)

        click(cell(table, 0, 0), 3)
        settle(1)
        print_field(f"flagged ({changes.take()} name changes announced)", table, valued, button)

        before = list(rows_of_names(table))
        presses = 0
        # From the far corner back: a corner cell has few neighbours, so it often floods.
        for row in reversed(range(Atspi.Table.get_n_rows(table))):
            for column in reversed(range(Atspi.Table.get_n_columns(table))):
                if cell(table, row, column).get_name() in ("coperta", "covered"):
                    click(cell(table, row, column), 1)
                    settle(0.3)
                    presses += 1
                after = list(rows_of_names(table))
                if any(name in EXPLODED for names in after for name in names):
                    settle(0.5)
                    changed = sum(a != b for old, new in zip(before, after) for a, b in zip(old, new))
                    print_field(f"lost after {presses} presses ({changed} cells changed, "
                                f"{changes.take()} name changes announced)", table, valued, button)
                    return 0
        print("no loss: every covered cell was opened")
        return 1
    finally:
        game.terminate()
        game.wait()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--play", metavar="PROGRAM", help="start this game binary and play an Easy game")
    args = parser.parse_args()
    if args.play:
        return play(args.play)
    table, valued, button = find_controls(find_application(5), 5)
    print_field("field", table, valued, button)
    return 0


if __name__ == "__main__":
    sys.exit(main())
