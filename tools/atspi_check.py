#!/usr/bin/python3
"""Drives a running Orvane as a screen reader sees it, over AT-SPI.

Start the player with QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 in the same D-Bus
session, then:
  atspi_check.py list              the player bar's push buttons, by name
  atspi_check.py press NAME        presses the button NAME by its action
  atspi_check.py wait-text OLD     waits until the time display leaves OLD
"""
import sys
import time

import pyatspi


def orvane(deadline=20.0):
    end = time.time() + deadline
    while time.time() < end:
        desktop = pyatspi.Registry.getDesktop(0)
        for app in desktop:
            if app is not None and app.name.lower().startswith("orvane"):
                return app
        time.sleep(0.2)
    sys.exit("no Orvane application on the accessibility bus")


def walk(node):
    yield node
    for i in range(node.childCount):
        child = node.getChildAtIndex(i)
        if child is not None:
            yield from walk(child)


def player_window(app):
    # The player bar is the window holding the time display.
    for window in app:
        for node in walk(window):
            if node.getRoleName() == "slider":
                return window
    sys.exit("no player window")


def buttons(window):
    return [n for n in walk(window) if n.getRole() == pyatspi.ROLE_PUSH_BUTTON]


def main():
    app = orvane()
    window = player_window(app)
    command = sys.argv[1] if len(sys.argv) > 1 else "list"
    if command == "list":
        print("window: %s (%s)" % (window.name, window.getRoleName()))
        for node in walk(window):
            role = node.getRoleName()
            if role in ("push button", "label", "slider", "progress bar"):
                extra = ""
                try:
                    extra = " value=%s" % node.queryValue().currentValue
                except NotImplementedError:
                    pass
                print("  %-12s %s%s" % (role, node.name, extra))
    elif command == "press":
        name = sys.argv[2]
        found = [b for b in buttons(window) if b.name == name]
        if len(found) != 1:
            sys.exit("%d buttons named %r" % (len(found), name))
        action = found[0].queryAction()
        names = [action.getName(i) for i in range(action.nActions)]
        print("actions of %r: %s" % (name, names))
        action.doAction(names.index("Press"))
        print("pressed %r" % name)
    elif command == "wait-text":
        old = sys.argv[2]
        end = time.time() + 10
        while time.time() < end:
            labels = [n.name for n in walk(window) if n.getRoleName() == "label"]
            times = [t for t in labels if len(t) == 8 and t[2] == ":" and t[5] == ":"]
            if times and times[0] != old:
                print("time display now %s" % times[0])
                return
            time.sleep(0.2)
        sys.exit("time display stayed at %s" % old)


main()
