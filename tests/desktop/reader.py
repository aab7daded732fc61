#!/usr/bin/python3
"""What a screen reader finds of the real program, over the real bus: names, roles, states, relations and the
news of changes.

    dbus-run-session -- reader.py PROGRAM

starts the program on a screen of its own, uses it by keys and mouse, and ends with 1 and a line for each thing
that a reader would miss."""
import os
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Gio, GLib

here = os.path.dirname(os.path.abspath(__file__))
work = tempfile.TemporaryDirectory()
missed = []


def screen():
    """A screen with a window manager."""
    get, give = os.pipe()
    log = open(os.path.join(work.name, "log"), "w")
    xvfb = subprocess.Popen(
        ["Xvfb", "-displayfd", str(give), "-screen", "0", "1280x1024x24"],
        pass_fds=[give], stderr=log)
    os.close(give)
    os.environ["DISPLAY"] = ":" + os.fdopen(get).readline().strip()
    return [xvfb, subprocess.Popen(["openbox"], stderr=log)]


def wake_readers():
    """Says on the bus that somebody reads, as a screen reader does when it starts."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    # What the bus starts needs the screen of this script, not the one of whoever called it.
    bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                  "UpdateActivationEnvironment", GLib.Variant("(a{ss})", ({"DISPLAY": os.environ["DISPLAY"]},)),
                  None, Gio.DBusCallFlags.NONE, -1, None)
    for what in ("IsEnabled", "ScreenReaderEnabled"):
        bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
                      GLib.Variant("(ssv)", ("org.a11y.Status", what, GLib.Variant("b", True))),
                      None, Gio.DBusCallFlags.NONE, -1, None)


os.environ.update(HOME=work.name, XDG_CONFIG_HOME=work.name, XDG_STATE_HOME=work.name, QT_QPA_PLATFORM="xcb")
processes = screen()
wake_readers()
from gi.repository import Atspi  # asks for a screen when it comes in

news = []


def settle(seconds=0.3):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.01)


def until(find, what):
    """What `find` finds within some seconds; None, and noted as missed, if nothing."""
    end = time.monotonic() + 15
    while time.monotonic() < end:
        try:
            if found := find():
                return found
        except GLib.Error:
            pass  # gone while it was looked at
        settle(0.1)
    expect(False, what)
    return None


def expect(holds, what):
    if not holds:
        missed.append(what)
        print("missed:", what)


def everything(node):
    yield node
    for i in range(node.get_child_count()):
        if child := node.get_child_at_index(i):
            yield from everything(child)


def has(node, state):
    return node.get_state_set().contains(state)


def shown(node):
    return has(node, Atspi.StateType.SHOWING)


def find(inside, role, name, state=Atspi.StateType.SHOWING):
    """The one that shows, of a role and a name."""
    for node in everything(inside):
        if node.get_role_name() == role and node.get_name() == name and shown(node) and has(node, state):
            return node
    return None


def row(window, caption):
    return find(window, "text", caption, Atspi.StateType.FOCUSABLE)


def captions(node):
    return [relation.get_target(i).get_name()
            for relation in node.get_relation_set()
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
            for i in range(relation.get_n_targets())]


def hand(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True)
    settle()


def middle(node):
    place = node.get_extents(Atspi.CoordType.SCREEN)
    return place.x + place.width // 2, place.y + place.height // 2


def click(node):
    hand("mousemove", *middle(node), "click", 1)


def told(kind, name):
    return until(lambda: any(event == (kind, name) for event in news), f"{kind} told of {name}")


def note(event):
    try:
        news.append((event.type, event.source.get_name()))
    except GLib.Error:
        pass


def look_at_main_window(window):
    expect("Kehystin" in window.get_name(), "name of the main window: " + window.get_name())
    nameless = [node.get_role_name() for node in everything(window)
                if has(node, Atspi.StateType.FOCUSABLE) and shown(node) and not node.get_name().strip()]
    expect(not nameless, f"names of {nameless}")
    for icon in ("Uusi", "Avaa", "Kenttämääritykset", "Ohje"):
        expect(find(window, "push button", icon), "icon " + icon)
    for button in ("Lisää otsikko", "Lisää kuvakenttä"):
        expect(find(window, "push button", button), "button " + button)
    for caption in ("Nimi", "Leveys", "Korkeus", "Läpinäkyvä"):
        editor = row(window, caption)
        expect(editor and captions(editor) == [caption], f"row {caption} with its caption")


def look_at_toggles(window):
    grid = find(window, "check box", "Ruudukko")
    expect(has(grid, Atspi.StateType.CHECKED), "the grid is on")
    click(grid)
    until(lambda: not has(grid, Atspi.StateType.CHECKED), "the grid goes off")
    told("object:state-changed:checked", "Ruudukko")


def look_at_card(window):
    card = until(lambda: next((node for node in everything(window) if node.get_role_name() == "canvas"), None),
                 "the card")
    expect(card.get_name().strip(), "name of the card")
    fields = [card.get_child_at_index(i) for i in range(card.get_child_count())]
    kinds = [field.get_description() for field in fields]
    expect(sorted(kinds) == ["otsikko", "tekstikenttä"], f"kinds of fields: {kinds}")
    for field in fields:
        found = card.get_accessible_at_point(*middle(field), Atspi.CoordType.SCREEN)
        expect(found == field, "by its place: " + field.get_name())
    title = next(field for field in fields if field.get_description() == "otsikko")
    name = title.get_name()
    expect(not has(title, Atspi.StateType.SELECTED), name + " is not selected")
    click(title)
    until(lambda: has(title, Atspi.StateType.SELECTED), name + " is selected")
    told("object:state-changed:selected", name)
    left = until(lambda: row(window, "Vasemmalta"), "row of the place")
    before = title.get_extents(Atspi.CoordType.SCREEN)
    click(left)
    until(lambda: has(left, Atspi.StateType.FOCUSED), "the row has the keyboard")
    del news[:]
    hand("key", "Up")
    until(lambda: title.get_extents(Atspi.CoordType.SCREEN).x == before.x + 1, name + " has moved")
    click(until(lambda: row(window, "Otsikko"), "row of the caption"))
    hand("type", "Uutta")
    until(lambda: title.get_name() == "Uutta", "the new caption")
    told("object:property-change:accessible-name", "Uutta")
    lock = find(window, "check box", "Lukitse kentät")
    click(lock)
    until(lambda: has(title, Atspi.StateType.READ_ONLY), "the field is locked")
    click(lock)


def look_at_dialogs(program):
    """A box with its whole text, and the number boxes of the settings."""
    hand("key", "ctrl+d")
    box = until(lambda: next((node for node in everything(program) if node.get_role_name() in ("dialog", "alert")
                              and shown(node)), None), "the question")
    if box:
        expect("Poistetaan valitut kentät kortilta?" in box.get_description() + box.get_name(),
               f"the text of the question: {box.get_name()} / {box.get_description()}")
        expect(find(box, "push button", "Peruuta"), "the answers of the question")
    hand("key", "Escape")
    hand("key", "alt+t")
    for _ in range(12):
        hand("key", "Down")
        if any(node.get_name() == "Asetukset..." and has(node, Atspi.StateType.FOCUSED)
               for node in everything(program)):
            break
    hand("key", "Return")
    settings = until(lambda: next((node for node in everything(program) if node.get_role_name() == "dialog"
                                   and node.get_name().strip() == "Asetukset" and shown(node)), None), "settings")
    if settings:
        boxes = [node for node in everything(settings) if node.get_role_name() == "text"]
        expect(len(boxes) == 4, f"number boxes of the settings: {len(boxes)}")
        for box in boxes:
            expect(captions(box) == [box.get_name()], f"caption of {box.get_name()}: {captions(box)}")
        expect(find(settings, "check box", "Tallenna ohjelmaikkunan koko ja paikka"), "switches of the settings")
    hand("key", "Escape")


def main():
    card = os.path.join(work.name, "kortti.krt")
    source = os.path.join(here, "..", "scenarios", "files", "kaksi.krt")
    with open(source, "rb") as given, open(card, "wb") as copy:
        copy.write(given.read())
    # Qt's bridge has no news of places: they are asked for.
    for kind in ("object:state-changed", "object:property-change:accessible-name"):
        Atspi.EventListener.new(note).register(kind)
    processes.append(subprocess.Popen([sys.argv[1], card]))
    desktop = Atspi.get_desktop(0)
    program = until(lambda: next((desktop.get_child_at_index(i) for i in range(desktop.get_child_count())
                                  if desktop.get_child_at_index(i).get_name() == "kehystin"), None), "the program")
    if not program:
        return
    window = until(lambda: next((node for node in everything(program) if node.get_role_name() == "frame"
                                 and shown(node)), None), "the main window")
    until(lambda: row(window, "Nimi"), "the rows of the card")
    click(find(window, "label", "Ominaisuudet"))  # a window that was there before the manager waits for it
    until(lambda: has(window, Atspi.StateType.ACTIVE), "the main window has the keyboard")
    settle(1)
    look_at_main_window(window)
    look_at_toggles(window)
    look_at_card(window)
    look_at_dialogs(program)


try:
    main()
finally:
    for process in reversed(processes):
        process.terminate()
        process.wait()
sys.exit(1 if missed else 0)
