"""Opening, running and stopping, with real keys and mouse clicks."""

import unittest

from case import WindowCase


class Running(WindowCase):
    def test_nothing_is_open_at_the_start(self):
        portico = self.open()
        self.assertEqual(portico.commands, "OPEN AN INSTRUMENT!")
        self.assertEqual(portico.panels()[:2], ["Open an instrument. ", "SCPI"])
        self.assertTrue(portico.item("Open Instrument...").enabled)
        self.assertFalse(portico.item("Close Instrument").enabled)
        self.assertFalse(portico.item("Print History Window...").enabled)
        for tip in ("Step", "Run", "Run to Cursor", "Stop"):
            self.assertFalse(portico.button(tip).enabled, tip)

    def test_a_name_on_the_command_line_is_opened(self):
        name = self.simulator().name
        portico = self.open(name)
        self.assertEqual(portico.commands, "REM Enter commands here.\n")
        self.assertEqual(portico.panels()[0], name + " ")
        self.assertFalse(portico.item("Open Instrument...").enabled)
        self.assertTrue(portico.item("Close Instrument").enabled)

    def test_a_name_that_is_not_utf8_is_not_cut_and_fails_to_open_in_sight(self):
        portico = self.open("SIM::dmm::INSTR\udcff")  # the byte FF
        portico.wait_for_history("The instrument name is not valid")
        self.assertEqual(portico.panels()[0], "Open an instrument. ")
        self.assertEqual(portico.commands, "OPEN AN INSTRUMENT!")

    def test_run_by_key_sends_all_lines(self):
        portico = self.open(self.simulator().name)
        portico.type_lines("*IDN?", "REM a remark", "MEAS:VOLT:DC?")
        portico.key("F5")
        portico.wait_for_history("MEAS:VOLT:DC?\n")
        portico.wait_until_idle()
        portico.wait(lambda: portico.commands == "", "the command window to be empty")
        history = portico.history
        self.assertTrue(history.startswith("REM Enter commands here.\n*OPC?\n1\n*IDN?\n"), history)
        self.assertIn("\n:SYST:ERR?\n0,\"No error\"\nREM a remark\n*OPC?\n1\nMEAS:VOLT:DC?\n", history)
        self.assertTrue(portico.item("Print History Window...").enabled)

    def test_step_by_button_sends_one_instruction(self):
        portico = self.open(self.simulator().name)
        portico.type_lines("*IDN?", "MEAS:VOLT:DC?")
        portico.click(portico.button("Step"))
        portico.wait(lambda: portico.commands == "MEAS:VOLT:DC?\n", "the second line alone")
        portico.wait_for_history(":SYST:ERR?")
        self.assertNotIn("MEAS", portico.history)

    def test_run_to_cursor_by_menu_leaves_the_line_of_the_cursor(self):
        portico = self.open(self.simulator().name)
        portico.type_lines("*IDN?", "MEAS:VOLT:DC?", "*OPT?")
        portico.key("Up")  # from behind the last line onto it
        portico.choose("Execution", "Run to Cursor")
        portico.wait(lambda: portico.commands == "*OPT?\n", "the cursor's line alone")
        portico.wait_for_history("MEAS:VOLT:DC?")

    def test_the_popup_menu_runs_when_it_has_closed(self):
        portico = self.open(self.simulator().name)
        portico.type_lines("*IDN?")
        portico.popup("txtFuture", "Down", "Down", "Down", "Return")  # Clear Command Window, Step, Run
        portico.wait(lambda: portico.commands == "", "the command window to be empty")
        portico.wait_for_history("*IDN?")

    def test_the_popup_menu_steps_and_runs_to_the_cursor(self):
        portico = self.open(self.simulator().name)
        portico.type_lines("*IDN?", "*OPT?", "*ESR?")
        portico.popup("txtFuture", "Down", "Down", "Return")  # Clear Command Window, Step
        portico.wait(lambda: portico.commands == "*OPT?\n*ESR?\n", "the first line to be gone")
        portico.wait_until_idle()
        portico.click(portico.find("txtFuture", "text"))
        portico.key("ctrl+End", "Up")
        portico.click(portico.button("Run to Cursor"))
        portico.wait(lambda: portico.commands == "*ESR?\n", "the cursor's line alone")
        portico.wait_until_idle()
        portico.click(portico.button("Run"))
        portico.wait(lambda: portico.commands == "", "the command window to be empty")
        portico.wait_for_history("*ESR?\n")

    def test_stop_lets_the_current_instruction_finish(self):
        portico = self.open(self.simulator().name)
        portico.choose("Tools", "Options...")
        options = portico.window("Tolvane Portico Options")
        portico.click(portico.find("Timed Interval:", "check box", within=options))
        portico.key("Tab")
        portico.key("ctrl+a")
        portico.type("700")
        portico.click(portico.find("OK", "push button", within=options))
        portico.wait_until_closed("Tolvane Portico Options")
        portico.type_lines(*[f"MEAS:VOLT:DC? {n}" for n in range(1, 9)])
        portico.key("F5")
        portico.wait_for_history("MEAS:VOLT:DC? 2")
        portico.click(portico.button("Stop"))
        portico.wait_until_idle()
        sent = [n for n in range(1, 9) if f"MEAS:VOLT:DC? {n}\n" in portico.history]
        left = [n for n in range(1, 9) if f"MEAS:VOLT:DC? {n}\n" in portico.commands]
        self.assertLess(len(sent), 8)
        # The line that was taken off when Stop was seen is gone.
        self.assertEqual(left, list(range(sent[-1] + 2, 9)))
        self.assertTrue(portico.button("Run").enabled)

    def test_closing_throws_unsent_lines_away_and_opening_again_begins_anew(self):
        simulator = self.simulator()
        portico = self.open(simulator.name)
        portico.type_lines("*IDN?")
        portico.choose("File", "Close Instrument")
        portico.wait(lambda: portico.commands == "OPEN AN INSTRUMENT!", "the placeholder")
        portico.key("ctrl+n")
        dialog = portico.window("Open an Instrument")
        # Opened before, so it is the first of the list.
        portico.click(portico.find("OK", "push button", within=dialog))
        portico.wait(lambda: portico.commands == "REM Enter commands here.\n", "the instrument to be open")
        self.assertEqual(portico.panels()[0], simulator.name + " ")

    def test_a_name_typed_into_the_dialog_is_opened(self):
        name = self.simulator("psu").name
        portico = self.open()
        portico.click(portico.button("Open Instrument"))
        portico.window("Open an Instrument")
        portico.key("ctrl+a")
        portico.type("  " + name + " ")
        portico.key("Return")
        portico.wait(lambda: portico.panels()[0] == name + " ", "the instrument to be open")

    def test_a_cancelled_dialog_opens_nothing(self):
        portico = self.open()
        portico.key("ctrl+n")
        portico.window("Open an Instrument")
        portico.key("Escape")
        portico.wait_until_closed("Open an Instrument")
        self.assertEqual(portico.commands, "OPEN AN INSTRUMENT!")

    def test_the_command_menu_asks_the_instrument(self):
        portico = self.open(self.simulator().name)
        portico.key("F3")
        portico.wait_for_history("*OPC?\n1\n")
        portico.key("F4")
        portico.wait_for_history(":SYST:ERR?\n0,\"No error\"\n")
        portico.choose("Command", "Wait for OPC")
        portico.wait(lambda: portico.history.count("*OPC?") == 2, "a second question")
        self.assertFalse(portico.item("Read Instrument Data").enabled)

    def test_read_is_offered_by_the_other_protocol_alone(self):
        portico = self.open(self.simulator().name)
        portico.key("F12")
        portico.wait(lambda: portico.panels()[1] == "Other", "the protocol in the status bar")
        self.assertTrue(portico.button("Read Data").enabled)
        portico.type_lines("MEAS:VOLT:DC?")
        portico.key("F5")
        portico.wait_for_history("MEAS:VOLT:DC?\n")
        portico.wait_until_idle()
        self.assertTrue(portico.history.endswith("MEAS:VOLT:DC?\n"), portico.history)
        portico.click(portico.button("Read Data"))
        portico.wait_for_history("E+00\n")
        portico.key("F11")
        portico.wait(lambda: portico.panels()[1] == "SCPI", "the protocol in the status bar")
        self.assertFalse(portico.item("Read Instrument Data").enabled)


if __name__ == "__main__":
    unittest.main()
