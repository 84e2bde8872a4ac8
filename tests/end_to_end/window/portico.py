"""The window as a user has it: real keys and mouse events go in, what a screen reader is told comes out."""

import os
import subprocess

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from desktop import wait_for  # noqa: E402

PORTICO = os.environ["PORTICO"]
SIMULATOR = os.environ["PORTICO_SIM"]


WHITE_MARKS = {0xA9: None, 0xAE: None}


class Node:
    """One accessible object, asked anew at each question."""

    def __init__(self, accessible):
        self.accessible = accessible

    @property
    def name(self):
        return self.accessible.get_name() or ""

    @property
    def role(self):
        return self.accessible.get_role_name()

    def has(self, state):
        return self.accessible.get_state_set().contains(state)

    @property
    def enabled(self):
        return self.has(Atspi.StateType.ENABLED)

    @property
    def showing(self):
        return self.has(Atspi.StateType.SHOWING)

    @property
    def checked(self):
        return self.has(Atspi.StateType.CHECKED)

    @property
    def focused(self):
        return self.has(Atspi.StateType.FOCUSED)

    @property
    def text(self):
        # Qt counts UTF-16 units, and -1 is the end.
        return Atspi.Text.get_text(self.accessible, 0, -1)

    @property
    def selection(self):
        """Where it begins, and what it is."""
        if Atspi.Text.get_n_selections(self.accessible) == 0:
            return None, ""
        chosen = Atspi.Text.get_selection(self.accessible, 0)
        return chosen.start_offset, self.text[chosen.start_offset:chosen.end_offset]

    @property
    def description(self):
        return self.accessible.get_description() or ""

    def children(self):
        for index in range(self.accessible.get_child_count()):
            child = self.accessible.get_child_at_index(index)
            if child is not None:
                yield Node(child)

    def descendants(self):
        for child in self.children():
            yield child
            yield from child.descendants()

    def middle(self):
        box = self.accessible.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return box.x + box.width // 2, box.y + box.height // 2

    def line_height(self):
        """Of the text's first line, in pixels."""
        return Atspi.Text.get_character_extents(self.accessible, 0, Atspi.CoordType.SCREEN).height

    def extents(self):
        return self.accessible.get_component_iface().get_extents(Atspi.CoordType.SCREEN)


class Portico:
    """A running window. The desktop ends it, if nobody has."""

    def __init__(self, desktop, *arguments):
        self.desktop = desktop
        Atspi.get_desktop(0).get_child_count()  # so that the bus is there before the program asks for it
        self.process = desktop.start(PORTICO, *arguments, stderr=subprocess.PIPE)
        self.application = wait_for(self._find_application, "Portico among the accessible programs")
        self.application.set_cache_mask(Atspi.Cache.NONE)
        self._awaited = None  # the window that came last, until the mouse goes elsewhere
        self.main = self.window("Tolvane Portico")

    def _find_application(self):
        if self.process.poll() is not None:
            raise AssertionError(f"Portico has ended: {self.process.stderr.read().decode()}")
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child is not None and child.get_process_id() == self.process.pid:
                return child
        return None

    # --- finding -----------------------------------------------------------------------------------------------------

    def _windows(self):
        return list(Node(self.application).children())

    def window(self, title):
        """A window that is on the screen, by the beginning or the end of its title."""

        def look():
            try:
                for window in self._windows():
                    if window.showing and (window.name.startswith(title) or window.name.endswith(title)):
                        return window
            except GLib.Error:
                return None
            return None

        self._awaited = wait_for(look, f"the window {title!r}")
        return self._awaited

    def wait_until_closed(self, title):
        def closed():
            try:
                return not any(w.showing and w.name.startswith(title) for w in self._windows())
            except GLib.Error:
                return False

        wait_for(closed, f"the window {title!r} to close")

    def find(self, name, role=None, within=None):
        def look():
            try:
                for node in (within or self.main).descendants():
                    if node.name == name and (role is None or node.role == role):
                        return node
            except GLib.Error:
                return None
            return None

        return wait_for(look, f"{role or 'something'} named {name!r}")

    def wait(self, question, what):
        def ask():
            try:
                return question()
            except GLib.Error:
                return None

        return wait_for(ask, what)

    # --- the parts of the main window --------------------------------------------------------------------------------

    def item(self, caption):
        """A menu item, wherever it stands."""
        return self.find(caption, "menu item")

    def button(self, tip):
        """A button of the toolbar, by its tool tip."""

        def look():
            bar = next(node for node in self.main.descendants() if node.role == "tool bar")
            return next((node for node in bar.children() if node.description == tip and node.showing), None)

        return self.wait(look, f"the button {tip!r}")

    @property
    def history(self):
        """What is seen of it: the marks of the kinds of line are white on white."""
        return self.find("txtPast", "text").text.translate(WHITE_MARKS)

    @property
    def commands(self):
        return self.find("txtFuture", "text").text

    def panels(self):
        bar = next(node for node in self.main.descendants() if node.role == "status bar")
        return [node.name for node in bar.children() if node.role == "label"]

    def application_node(self):
        return Node(self.application)

    def message(self, beginning):
        """The text of the message box that is up, once it is the one that begins so."""

        def look():
            for window in self._windows():
                if window.role in ("alert", "dialog") and window.showing:
                    for node in window.descendants():
                        if node.role == "label" and node.name.startswith(beginning):
                            self._awaited = window
                            return node.name
            return None

        return self.wait(look, f"a message that begins {beginning!r}")

    def wait_until_message_closed(self):
        self.wait(lambda: not any(w.role in ("alert", "dialog") and w.showing for w in self._windows()),
                  "the message box to close")

    def find_text_field(self, within):
        return self.wait(lambda: next((n for n in within.descendants() if n.role == "text" and n.showing), None),
                         "a text field")

    # --- acting --------------------------------------------------------------------------------------------------------

    def click(self, node, button=1):
        self.wait(lambda: node.showing and node.enabled, f"{node.role} {node.name!r} to be ready")
        x, y = (part * self.desktop.scale for part in node.middle())  # the screen's dots, of which the mouse knows
        self._awaited = None
        self.desktop.xdotool("mousemove", x, y, "click", button)

    def choose(self, title, *captions):
        """Opens a menu and chooses, with the mouse."""
        self.click(self.find(title, "menu item"))
        for caption in captions:
            item = self.wait(lambda: next((n for n in self._open_items() if n.name == caption), None),
                             f"the menu item {caption!r}")
            self.click(item)

    def _open_items(self):
        return [node for node in self.main.descendants() if node.role == "menu item" and node.showing]

    def popup(self, box, *keys):
        """Chooses from the menu under the right mouse button, with the keyboard, which reaches what can be chosen."""
        windows = len(self._shown_windows())
        self.click(self.find(box, "text"), button=3)
        self.wait(lambda: len(self._shown_windows()) > windows, "the popup menu")
        self.key(*keys)
        self.wait(lambda: len(self._shown_windows()) == windows, "the popup menu to close")

    def _shown_windows(self):
        return self.desktop.xdotool("search", "--onlyvisible", "--pid", self.process.pid, ".").split()

    def key(self, *keys):
        wait_for(self._has_keyboard, "a window to have the keyboard")
        self.desktop.xdotool("key", *keys)

    def press_close_box(self):
        """By the window manager's key for it, which is lost while that still takes hold of the keyboard."""

        def closes():
            if self.process.poll() is not None:
                return True
            try:
                self.key("alt+F4")
                self.process.wait(10)
            except (subprocess.CalledProcessError, subprocess.TimeoutExpired):
                return False
            return True

        wait_for(closes, "the close box to end the program")

    def _has_keyboard(self):
        """A window is on the screen before keys reach it: the window manager and the program have yet to agree on it."""
        try:
            if self._awaited and self._awaited.showing and not self._awaited.has(Atspi.StateType.ACTIVE):
                return False
            active = [window.name for window in self._windows() if window.has(Atspi.StateType.ACTIVE)]
            title = self.desktop.xdotool("getactivewindow", "getwindowname")
        except (GLib.Error, subprocess.CalledProcessError):
            return False
        return any(name in title for name in active)

    def type(self, text):
        wait_for(self._has_keyboard, "a window to have the keyboard")
        self.desktop.xdotool("type", "--delay", 1, text)

    def type_lines(self, *lines):
        """Into the command window, behind what stands there."""
        self.click(self.find("txtFuture", "text"))
        self.key("ctrl+End")
        for line in lines:
            if line:
                self.type(line)
            self.key("Return")
        self.wait(lambda: self.commands.endswith("\n".join(lines) + "\n"), "the lines to be typed")

    def clear(self):
        """The command window, which then has the focus."""
        self.click(self.find("txtFuture", "text"))
        self.key("ctrl+a", "Delete")
        self.wait(lambda: self.commands == "", "the command window to be empty")

    def run(self, *lines):
        """These, and nothing else that stands in the command window."""
        self.clear()
        self.type_lines(*lines)
        self.key("F5")
        self.wait(lambda: self.commands == "", "the lines to be taken")
        self.wait_until_idle()

    def choose_file(self, title, path):
        """Answers the dialog that asks for a file."""
        dialog = self.name_file(title, path)
        self.wait_until_closed(title)
        return dialog

    def name_file(self, title, path):
        """The name comes in at once: while one is typed, the list of what is there already may open and take the
        Return."""
        dialog = self.window(title)
        field = self.find_text_field(dialog)
        Atspi.EditableText.set_text_contents(field.accessible, path)
        self.wait(lambda: field.text == path, "the name of the file")
        self.key("Return")
        return dialog

    def wait_for_history(self, text):
        self.wait(lambda: text in self.history, f"{text!r} in the history")

    def wait_for_marks(self, count):
        """Until so many lines of the history are marked, as a screen reader is told."""
        told = "1 line is marked" if count == 1 else f"{count} lines are marked"
        self.wait(lambda: self.find("txtPast", "text").description == told, told)

    def times(self, dialog):
        """The rows of the table of times."""
        cells = [node.name for node in self.find("Times of all queries:", "table", within=dialog).descendants()
                 if node.role == "table cell"]
        return [cells[i:i + 5] for i in range(0, len(cells), 5)]

    def wait_until_idle(self):
        """A run is over when Stop is no longer offered."""
        self.wait(lambda: not self.button("Stop").enabled, "the end of the run")

    def wait_until_ended(self):
        return self.process.wait(30)


class Simulator:
    """A simulated instrument behind a socket, and, if asked for, behind one more interface, whose name it then has."""

    INTERFACES = {
        None: ((), "TCPIP::127.0.0.1::{}::SOCKET", "127.0.0.1, port {}"),
        "vxi11": (("--vxi11", "0"), "TCPIP0::127.0.0.1,{}::inst0::INSTR", "127.0.0.1, port {}"),
        "hislip": (("--hislip", "0"), "TCPIP0::127.0.0.1::hislip0,{}::INSTR", "127.0.0.1, port {}"),
        "serial": (("--serial",), "ASRL{}::INSTR", "{}"),
    }

    def __init__(self, desktop, device="dmm", interface=None):
        options, name, place = self.INTERFACES[interface]
        self.process = desktop.start(SIMULATOR, "--device", device, "--port", "0", *options, stdout=subprocess.PIPE,
                                     text=True)
        ready = f" {interface}\n" if interface else "\n"
        line = next(line for line in self.process.stdout if line.endswith(ready))
        at = line.removeprefix("listening on ").removesuffix(ready).rpartition(":")[2]
        self.name = name.format(at)
        self.place = place.format(at)  # as messages tell it
