"""Lines that are run again and again."""

import unittest

from case import WindowCase

LINES = ("REM a turn", "SIM:ECHO? 4711", "*CLS")


class Repeat(WindowCase):
    def prepare(self, *lines):
        portico = self.connect(self.simulator().name)
        portico.type_lines(*lines)
        return portico

    def repeat(self, portico, announced, turns, seconds):
        """By keys alone; no turns: until stopped."""
        portico.choose("Data", "Repeat...")
        dialog = portico.window("Repeat")
        portico.find(announced, "label", within=dialog)
        portico.key("alt+t", "ctrl+a")
        portico.type(turns or "1")
        if not turns:
            portico.key("alt+u")
            forever = portico.find("Until stopped", "check box", within=dialog)
            portico.wait(lambda: forever.checked, "the check mark, which a key sets a moment later")
        portico.key("alt+s", "ctrl+a")
        portico.type(seconds)
        portico.key("Return")
        portico.wait_until_closed("Repeat")

    def wait_for_turns(self, portico, count):
        portico.wait(lambda: portico.history.count("\n4711\n") >= count, f"{count} turns")

    def told(self, portico, beginning):
        text = portico.message(beginning)
        portico.key("Return")
        portico.wait_until_message_closed()
        return text

    def test_three_turns_say_what_three_runs_say_and_leave_the_command_window(self):
        portico = self.prepare(*LINES)
        typed = portico.commands
        self.repeat(portico, "Repeats all 3 lines.", "3", "0")
        self.wait_for_turns(portico, 3)
        portico.wait_until_idle()
        repeated = portico.history
        self.assertEqual(portico.commands, typed)
        portico.choose("Edit", "Clear History Window")
        portico.wait(lambda: portico.history == "", "the history to be empty")
        for turn in range(1, 4):
            if turn > 1:
                portico.choose("Data", "Put Back Last Run")
                portico.wait(lambda: portico.commands == typed, "the lines to be back")
            portico.key("F5")
            self.wait_for_turns(portico, turn)
            portico.wait_until_idle()
        self.assertEqual(portico.history, repeated)
        self.assertEqual(repeated.count("REM a turn\n"), 3)

    def test_the_selected_lines_are_repeated_and_what_was_typed_can_be_undone(self):
        portico = self.prepare("*RST", "SIM:ECHO? 4711", "*WAI")
        portico.type("X")
        portico.wait(lambda: portico.commands.endswith("X"), "the letter")
        portico.key("ctrl+Home", "Down", "Right", "shift+Right", "shift+Right")
        chosen = portico.find("txtFuture", "text").selection
        self.assertEqual(chosen[1], "IM")
        self.repeat(portico, "Repeats the line that the selection touches.", "2", "0.2")
        self.wait_for_turns(portico, 2)
        portico.wait_until_idle()
        self.assertNotIn("*RST\n", portico.history)
        self.assertNotIn("*WAI\n", portico.history)
        self.assertEqual(portico.find("txtFuture", "text").selection, chosen)
        portico.wait(lambda: portico.find("txtFuture", "text").focused, "the focus in the command window")
        portico.key("ctrl+z")
        portico.wait(lambda: not portico.commands.endswith("X"), "the letter to be undone")

    def test_stop_ends_the_wait(self):
        portico = self.prepare(*LINES)
        self.repeat(portico, "Repeats all 3 lines.", None, "3600")
        self.wait_for_turns(portico, 1)
        portico.wait(lambda: portico.history.count('0,"No error"\n') == 2, "the end of the turn")
        self.assertTrue(portico.button("Stop").enabled)
        portico.key("F9")
        self.assertEqual(self.told(portico, "1 turn"), "1 turn has begun.")
        portico.wait_until_idle()
        self.assertEqual(portico.commands, "\n".join(LINES) + "\n")

    def test_closing_the_instrument_ends_the_wait(self):
        portico = self.prepare(*LINES)
        self.repeat(portico, "Repeats all 3 lines.", None, "3600")
        self.wait_for_turns(portico, 1)
        portico.wait(lambda: portico.history.count('0,"No error"\n') == 2, "the end of the turn")
        portico.choose("File", "Close Instrument")
        self.assertEqual(self.told(portico, "1 turn"), "1 turn has begun.")
        portico.wait(lambda: portico.commands == "OPEN AN INSTRUMENT!", "the instrument to be closed")
        self.assertFalse(portico.button("Stop").enabled)

    def test_a_turn_that_comes_too_late_is_skipped(self):
        portico = self.prepare("SIM:DEL 0.5;ECHO? 4711")
        self.repeat(portico, "Repeats the only line.", "2", "0.4")
        self.assertRegex(self.told(portico, "2 turns"),
                         r"^2 turns have begun\. \d+ turns? (was|were) skipped, because the one in front was not over "
                         r"in time\.$")

    def test_the_window_can_be_closed_while_it_waits(self):
        portico = self.prepare(*LINES)
        self.repeat(portico, "Repeats all 3 lines.", None, "3600")
        self.wait_for_turns(portico, 1)
        portico.choose("File", "Exit")
        self.assertEqual(portico.wait_until_ended(), 0)


if __name__ == "__main__":
    unittest.main()
