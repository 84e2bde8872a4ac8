"""Each window by the keyboard alone, as a screen reader tells of it."""

import unittest

from gi.repository import GLib

from case import WindowCase


class Access(WindowCase):
    UNNAMED = {"scroll bar", "menu bar", "panel", "filler", "separator", "table cell", "column header", "split pane"}

    def talk(self, *lines):
        portico = self.connect(self.simulator().name)
        portico.run(*lines)
        return portico

    def stops(self, portico, window):
        """What Tab leads to, from where the focus is at first until it is there again."""

        def focused():
            # A list's cell says that it has the focus wherever the focus is.
            try:
                return next((n.name for n in window.descendants() if n.role != "table cell" and n.focused), None)
            except GLib.Error:
                return None

        stops = [portico.wait(focused, "the focus in the window")]
        while True:
            portico.key("Tab")
            before = stops[-1]
            stop = portico.wait(lambda: focused() != before and focused(), "the focus to move on")
            if stop == stops[0]:
                return stops
            self.assertNotIn(stop, stops, "the focus goes in a smaller circle")
            stops.append(stop)

    def visit(self, portico, keys, title, stops):
        portico.key(*keys)
        window = portico.window(title)
        place = window.extents()
        for end, side in zip((place.x + place.width, place.y + place.height), self.desktop.size):
            self.assertLessEqual(end * self.scale, side, f"{title} goes beyond the screen")
        for node in window.descendants():
            if node.showing and node.role not in self.UNNAMED:
                self.assertTrue(node.name, f"a {node.role} of {title} has no name")
        self.assertEqual(self.stops(portico, window), stops)
        portico.key("Escape")
        portico.wait_until_closed(title)
        portico.window("Tolvane Portico")

    def test_dialogs(self):
        portico = self.talk("NONSENSE", "MEAS:VOLT:DC?")
        portico.type("*IDN?")
        self.visit(portico, ("alt+v", "s"), "Errors", ["Errors of the conversation:", "Go To", "Cancel"])
        self.visit(portico, ("alt+v", "t"), "Timing", ["Times of all queries:", "Begin Anew", "Close"])
        self.visit(portico, ("ctrl+r",), "Search Sent Lines",
                   ["Text:", "Lines that were sent, the newest first:", "Bring", "Cancel"])
        self.visit(portico, ("alt+d", "r"), "Repeat",
                   ["Turns:", "Until stopped", "Seconds from start to start:", "Repeat", "Cancel"])
        self.visit(portico, ("alt+d", "t"), "Time-out", ["Time-out of each write and read:", "OK", "Cancel"])
        self.visit(portico, ("alt+d", "f"), "Fetch Answer", ["Query:", "OK", "Cancel"])
        self.assertEqual(portico.commands, "*IDN?")

    def test_the_plot(self):
        portico = self.talk("MEAS:VOLT:DC?", "MEAS:VOLT:DC?")
        self.visit(portico, ("alt+v", "l"), "Plot", ["Queries", "Plot", "What is seen of the curves"])

    def test_escape_leaves_the_menu_bar_before_it_closes_the_plot(self):
        portico = self.talk("MEAS:VOLT:DC?")
        portico.key("alt+v", "l")
        window = portico.window("Plot")
        file = portico.find("File", "menu item", within=window)
        portico.key("alt+f")
        portico.wait(lambda: portico.find("Print...", "menu item", within=window).showing, "the menu")
        self.desktop.xdotool("key", "Escape")
        portico.wait(lambda: not portico.find("Print...", "menu item", within=window).showing, "the menu to close")
        self.desktop.xdotool("key", "Escape")
        portico.wait(lambda: not file.focused and portico.find("Queries", "table", within=window).focused,
                     "the focus to be back")
        portico.key("Escape")
        portico.wait_until_closed("Plot")


class AccessAtDoubleScale(Access):
    scale = 2


if __name__ == "__main__":
    unittest.main()
