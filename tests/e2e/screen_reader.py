"""Reads the program of PID over the accessibility bus, as a screen reader does.

  screen_reader.py PID tree         every node: role|name|text|states|description
  screen_reader.py PID press NAME   presses the push button NAME by its action and
                                    prints each text the program announces (waits up to 5 s
                                    for the first)
"""
import sys

import pyatspi
from gi.repository import GLib


def application(pid):
    for app in pyatspi.Registry.getDesktop(0):
        try:
            if app is not None and app.get_process_id() == pid:
                return app
        except Exception:  # an application that went away meanwhile
            pass
    sys.exit("no application of process %d on the bus" % pid)


def nodes(node):
    yield node
    for child in node:
        yield from nodes(child)


def text_of(node):
    try:
        return node.queryText().getText(0, -1)
    except NotImplementedError:
        return ""


def states(node):
    state = node.getState()
    return ",".join(mark for mark, on in [("invisible", not state.contains(pyatspi.STATE_VISIBLE)),
                                          ("read-only", state.contains(pyatspi.STATE_READ_ONLY))] if on)


pid, command = int(sys.argv[1]), sys.argv[2]
app = application(pid)
if command == "tree":
    for node in nodes(app):
        print("|".join([node.getRoleName(), node.name, text_of(node), states(node),
                        node.description]))
elif command == "press":
    def heard(event):
        if event.host_application.get_process_id() == pid:
            print(event.any_data, flush=True)
            # A second announcement of one press would come at once.
            GLib.timeout_add(500, pyatspi.Registry.stop)
    pyatspi.Registry.registerEventListener(heard, "object:text-changed:insert")
    button = next(n for n in nodes(app)
                  if n.getRoleName() == "push button" and n.name == sys.argv[3])
    button.queryAction().doAction(0)
    GLib.timeout_add(5000, pyatspi.Registry.stop)
    pyatspi.Registry.start()
