"""Errors of a conversation: their marks, the way to them, their list."""

import os
import unittest

from case import WindowCase


class Errors(WindowCase):
    def talk(self, *lines):
        portico = self.open(self.simulator().name)
        portico.type_lines(*lines)
        portico.key("F5")
        portico.wait_for_history(lines[-1] + "\n")
        portico.wait_until_idle()
        return portico

    def selected(self, portico, text):
        portico.wait(lambda: portico.find("txtPast", "text").selection[1].endswith(text), f"{text!r} to be selected")
        return portico.find("txtPast", "text").selection[0]

    def test_the_keys_lead_from_error_to_error(self):
        portico = self.talk("*CLS", "NONSENSE", "*IDN?", "VOLT:NONSENSE 5", "*RST")
        portico.wait_for_marks(2)
        undefined = '-113,"Undefined header"'
        portico.key("F7")
        first = self.selected(portico, undefined)
        portico.key("F7")
        portico.wait(lambda: portico.find("txtPast", "text").selection[0] != first, "another line to be selected")
        second = self.selected(portico, undefined)
        portico.key("shift+F7")
        portico.wait(lambda: portico.find("txtPast", "text").selection[0] != second, "the line before")
        self.assertEqual(portico.find("txtPast", "text").selection[0], first)
        self.assertTrue(portico.find("txtPast", "text").focused)

    def test_the_list_leads_to_the_chosen_one(self):
        portico = self.talk("NONSENSE", "*IDN?", "MORE:NONSENSE 5", "*RST")
        portico.wait_for_marks(2)
        portico.choose("View", "Errors...")
        dialog = portico.window("Errors")
        cells = [node.name for node in portico.find("Errors of the conversation:", "table", within=dialog).descendants()]
        self.assertIn("NONSENSE", cells)
        self.assertIn("MORE:NONSENSE 5", cells)
        portico.key("ctrl+Home", "Return")
        portico.wait_until_closed("Errors")
        first = self.selected(portico, '-113,"Undefined header"')
        self.assertNotIn("*IDN?", portico.find("txtPast", "text").text[:first])

    def test_clearing_the_history_takes_the_marks_away(self):
        portico = self.talk("NONSENSE", "*RST")
        portico.wait_for_marks(1)
        self.assertTrue(portico.item("Next Error").enabled)
        portico.choose("Edit", "Clear History Window")
        portico.wait(lambda: "marked" not in portico.find("txtPast", "text").description, "the marks to go")
        self.assertFalse(portico.item("Next Error").enabled)
        self.assertFalse(portico.item("Errors...").enabled)

    def test_a_log_is_marked_as_its_conversation_was(self):
        path = os.path.join(self.desktop.home, "talk.log")
        portico = self.open(self.simulator().name)
        portico.choose("File", "New Log...")
        portico.choose_file("Open a log file", path)
        portico.wait(lambda: portico.main.name == f"{path} - Tolvane Portico", "the log's name in the title")
        portico.type_lines("NONSENSE", "*RST")
        portico.key("F5")
        portico.wait_for_history("*RST\n")
        portico.wait_until_idle()
        portico.wait_for_marks(1)
        portico.choose("File", "Close Log")
        portico.wait(lambda: portico.main.name == "Tolvane Portico", "the title alone")
        portico.choose("File", "View Log...")
        portico.choose_file("Select a log file", path)
        viewer = portico.window(f"Log Viewer - {path}")
        text = portico.find("txtPast", "text", within=viewer)
        portico.wait(lambda: text.description == "1 line is marked", "the mark in the viewer")
        portico.key("F7")
        portico.wait(lambda: text.selection[1].endswith('-113,"Undefined header"'), "the error to be selected")


class ErrorsAtDoubleScale(Errors):
    scale = 2


if __name__ == "__main__":
    unittest.main()
