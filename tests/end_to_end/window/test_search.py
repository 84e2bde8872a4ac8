"""Searching the lines that were sent."""

import unittest

from case import WindowCase


class Search(WindowCase):
    def talk(self, *lines):
        portico = self.connect(self.simulator().name)
        portico.run(*lines)
        return portico

    def open_search(self, portico, text, rows):
        portico.key("ctrl+r")
        dialog = portico.window("Search Sent Lines")
        portico.type(text)
        portico.wait(lambda: [node.name for node in dialog.descendants() if node.role == "table cell"] == rows,
                     f"{rows} in the list")

    def test_a_line_is_found_and_brought_by_keys_alone(self):
        portico = self.talk("*CLS", "MEAS:VOLT:DC?", "SYST:BEEP", "MEAS:RES?")
        portico.type("X")
        portico.wait(lambda: portico.commands == "X", "the letter")
        self.open_search(portico, "meas", ["MEAS:RES?", "MEAS:VOLT:DC?"])
        portico.key("Down", "Return")
        portico.wait_until_closed("Search Sent Lines")
        portico.wait(lambda: portico.commands == "MEAS:VOLT:DC?", "the line")
        portico.key("ctrl+z")
        portico.wait(lambda: portico.commands == "X", "it to be undone in one step")

        self.open_search(portico, "", ["MEAS:RES?", "SYST:BEEP", "MEAS:VOLT:DC?", "*CLS"])
        portico.key("Tab", "ctrl+End", "Return")
        portico.wait_until_closed("Search Sent Lines")
        portico.wait(lambda: portico.commands == "*CLS", "the oldest line")

    def test_escape_leaves_all_as_it_was(self):
        portico = self.talk("*CLS", "*WAI")
        portico.type("X")
        self.open_search(portico, "wai", ["*WAI"])
        portico.key("Escape")
        portico.wait_until_closed("Search Sent Lines")
        portico.wait(lambda: portico.find("txtFuture", "text").focused, "the focus in the command window")
        self.assertEqual(portico.commands, "X")


if __name__ == "__main__":
    unittest.main()
