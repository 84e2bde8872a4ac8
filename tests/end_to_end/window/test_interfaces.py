"""One life with an instrument on each interface that the simulator has: from the open dialog's list to its closing."""

import unittest

from case import WindowCase

BEFORE = """REM Enter commands here.
*OPC?
1
*IDN?
TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0
:SYST:ERR?
0,"No error"
*OPC?
1
SIM:ECHO? 4710
4710
:SYST:ERR?
0,"No error"
"""

LATE = """*OPC?
1
SIM:DEL 6;ECHO? 4711
Timeout expired before the answer was complete: {place}.
:SYST:ERR?
0,"No error"
"""

AFTER = """*OPC?
1
SIM:ECHO? 4712
4712
:SYST:ERR?
0,"No error"
"""

AGAIN = """REM Enter commands here.
*OPC?
1
SIM:ECHO? 4713
4713
:SYST:ERR?
0,"No error"
"""


class Interfaces(WindowCase):
    @staticmethod
    def offered(portico):
        """The dialog is up; the text is what its list has chosen."""
        portico.key("ctrl+n")
        return portico.find_text_field(portico.window("Open an Instrument"))

    @staticmethod
    def accept(portico, name):
        portico.key("Return")
        portico.wait(lambda: portico.panels()[0] == name + " ", "the instrument to be open")

    @staticmethod
    def run_lines(portico, *lines):
        portico.type_lines(*lines)
        portico.key("F5")
        portico.wait(lambda: portico.commands == "", "the command window to be empty")
        portico.wait_until_idle()

    def live_with(self, interface):
        simulator = self.simulator(interface=interface)
        self.remember("OpenedInstruments", Name1="SIM::scope::INSTR", Name2=simulator.name)
        portico = self.open()

        field = self.offered(portico)
        self.assertEqual(field.text, "SIM::scope::INSTR")
        portico.key("Down")
        portico.wait(lambda: field.text == simulator.name, "the second name of the list")
        self.accept(portico, simulator.name)

        self.run_lines(portico, "*IDN?", "SIM:ECHO? 4710")
        self.assertEqual(portico.history, BEFORE)
        self.run_lines(portico, "SIM:DEL 6;ECHO? 4711")  # the window gives it up after 5 s
        late = LATE.format(place=simulator.place)
        self.assertEqual(portico.history, BEFORE + late)
        self.run_lines(portico, "SIM:ECHO? 4712")
        self.assertEqual(portico.history, BEFORE + late + AFTER)

        portico.choose("File", "Close Instrument")
        portico.wait(lambda: portico.commands == "OPEN AN INSTRUMENT!", "the placeholder")
        self.assertEqual(portico.panels()[0], "Open an instrument. ")
        self.assertFalse(portico.item("Close Instrument").enabled)
        self.assertEqual(self.offered(portico).text, simulator.name)
        self.accept(portico, simulator.name)
        self.run_lines(portico, "SIM:ECHO? 4713")
        self.assertTrue(portico.history.endswith(AGAIN), portico.history)
        portico.choose("File", "Exit")
        self.assertEqual(portico.wait_until_ended(), 0)

    def test_vxi11_from_the_list_through_a_timeout_to_the_end(self):
        self.live_with("vxi11")

    def test_hislip_from_the_list_through_a_timeout_to_the_end(self):
        self.live_with("hislip")

    def test_a_serial_line_from_the_list_through_a_timeout_to_the_end(self):
        self.live_with("serial")


if __name__ == "__main__":
    unittest.main()
