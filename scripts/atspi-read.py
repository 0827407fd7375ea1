#!/usr/bin/python3
"""Prints what a screen reader gets of the Rigwright window: the accessible tree, one line
per object, as role, name, then the states that matter (showing, visible, focused).

The wizard and this script must share an accessibility bus. On a bare X server:

    Xvfb :92 -screen 0 1280x1024x24 &
    export DISPLAY=:92
    export DBUS_SESSION_BUS_ADDRESS=$(dbus-daemon --session --fork --print-address)
    /usr/libexec/at-spi-bus-launcher --launch-immediately &
    QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 build/src/rigwright &
    scripts/atspi-read.py --showing

Options:
    --showing      only objects that are on screen now (and what they contain)
    --app NAME     the application's accessible name (default: rigwright)
    --pid PID      which one, when several run on the bus (default: the highest process id)
    --wait SECONDS how long to wait for the application to appear (default: 10)
"""

import argparse
import sys
import time

import pyatspi

STATES = [
    (pyatspi.STATE_SHOWING, "showing"),
    (pyatspi.STATE_VISIBLE, "visible"),
    (pyatspi.STATE_FOCUSED, "focused"),
]


def find_app(name, pid, wait):
    deadline = time.monotonic() + wait
    while True:
        desktop = pyatspi.Registry.getDesktop(0)
        apps = [a for a in desktop if a is not None and a.name.lower() == name.lower()]
        if pid:
            apps = [a for a in apps if a.get_process_id() == pid]
        if apps:
            return max(apps, key=lambda a: a.get_process_id())
        if time.monotonic() > deadline:
            return None
        time.sleep(0.2)


def describe(node):
    states = node.getState()
    shown = [word for state, word in STATES if states.contains(state)]
    return "%s %r [%s]" % (node.getRoleName(), node.name, " ".join(shown))


def walk(node, depth, showing_only, out):
    if showing_only and depth > 0 and not node.getState().contains(pyatspi.STATE_SHOWING):
        return
    out.write("%s%s\n" % ("  " * depth, describe(node)))
    for child in node:
        if child is not None:
            walk(child, depth + 1, showing_only, out)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--showing", action="store_true")
    parser.add_argument("--app", default="rigwright")
    parser.add_argument("--pid", type=int, default=0)
    parser.add_argument("--wait", type=float, default=10.0)
    args = parser.parse_args()
    app = find_app(args.app, args.pid, args.wait)
    if app is None:
        sys.exit("no application %r on the accessibility bus" % args.app)
    walk(app, 0, args.showing, sys.stdout)


if __name__ == "__main__":
    main()
