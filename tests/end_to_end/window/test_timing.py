"""The window of what queries took."""

import unittest

from case import WindowCase


class Timing(WindowCase):
    def label(self, portico, dialog, beginning):
        return portico.wait(lambda: next((node.name for node in dialog.descendants()
                                          if node.role == "label" and node.name.startswith(beginning)), None),
                            f"a text that begins {beginning!r}")

    def test_it_follows_the_conversation_and_can_be_copied(self):
        portico = self.open(self.simulator().name)
        portico.wait(lambda: "REM" in portico.commands, "the instrument to be open")
        portico.type_lines("SIM:DEL 0.2;ECHO? 4711", "*CLS", "SIM:DEL 0.2;ECHO? 4711")
        portico.choose("View", "Timing...")
        dialog = portico.window("Timing")
        self.label(portico, dialog, "No query has been answered yet.")
        portico.choose("Execution", "Run")
        portico.wait(lambda: portico.commands == "", "the lines to be taken")
        portico.wait_until_idle()
        portico.wait(lambda: "SIM:DEL 0.2;ECHO? 4711" in (row[0] for row in portico.times(dialog)),
                     "the query in the table")
        self.label(portico, dialog, "The last exchange took ")
        portico.wait(lambda: ":SYST:ERR?" in (row[0] for row in portico.times(dialog)), "what Portico asks by itself")
        cells = portico.wait(lambda: next((row for row in portico.times(dialog)
                                           if row[:2] == ["SIM:DEL 0.2;ECHO? 4711", "2"]), None), "two of them")
        self.assertGreaterEqual(float(cells[4]), 200, "milliseconds")
        self.assertNotIn("200.", portico.history)

        portico.click(portico.find("Times of all queries:", "table", within=dialog))
        portico.key("ctrl+c")
        portico.key("Escape")
        portico.wait_until_closed("Timing")
        portico.click(portico.find("txtFuture", "text"))
        portico.key("ctrl+v")
        portico.wait(lambda: "SIM:DEL 0.2;ECHO? 4711\t2\t" in portico.commands, "the copied table")
        self.assertIn("Query\tCount\tMedian ms\t99 % ms\tMaximum ms\n", portico.commands)

    def test_return_closes_and_forgets_nothing(self):
        portico = self.open(self.simulator().name)
        portico.wait(lambda: "REM" in portico.commands, "the instrument to be open")
        portico.type_lines("*IDN?")
        portico.choose("Execution", "Run")
        portico.wait(lambda: portico.commands == "", "the lines to be taken")
        portico.wait_until_idle()
        portico.choose("View", "Timing...")
        dialog = portico.window("Timing")
        portico.wait(lambda: "*IDN?" in (row[0] for row in portico.times(dialog)), "the query in the table")
        portico.key("Return")
        portico.wait_until_closed("Timing")
        portico.choose("View", "Timing...")
        dialog = portico.window("Timing")
        portico.wait(lambda: "*IDN?" in (row[0] for row in portico.times(dialog)), "the query in the table")

    def test_the_program_ends_with_the_window_open(self):
        portico = self.open(self.simulator().name)
        portico.choose("View", "Timing...")
        portico.window("Timing")
        portico.choose("File", "Exit")
        self.assertEqual(portico.wait_until_ended(), 0)


if __name__ == "__main__":
    unittest.main()
