"""A driver library that the user names."""

import unittest

from case import WindowCase

MISSING = "/no/such/driver.so"
REASON = f"{MISSING}: cannot open shared object file: No such file or directory."


class DriverLibrary(WindowCase):
    def test_one_that_is_missing_is_told_in_a_box_and_the_program_goes_on(self):
        self.desktop.environment["PORTICO_DRIVER"] = MISSING
        portico = self.open("BENCH 7")
        told = portico.message("The driver library")
        self.assertEqual(told, f"The driver library that PORTICO_DRIVER names could not be loaded: {REASON} "
                               "Until that is put right, only simulated instruments open.")
        portico.key("Return")
        portico.wait_until_message_closed()
        self.assertIn(f"The driver library could not be loaded: {REASON}", portico.history)
        self.assertEqual(portico.commands, "OPEN AN INSTRUMENT!")
        portico.choose("File", "Exit")
        self.assertEqual(portico.wait_until_ended(), 0)

    def test_simulated_instruments_open_still(self):
        self.desktop.environment["PORTICO_DRIVER"] = MISSING
        portico = self.open("SIM::dmm::INSTR")
        portico.message("The driver library")
        portico.key("Return")
        portico.wait_until_message_closed()
        portico.type_lines("*IDN?")
        portico.key("F5")
        portico.wait_for_history("*IDN?\n")
        portico.wait_until_idle()
        self.assertIn(":SYST:ERR?\n0,\"No error\"\n", portico.history)


if __name__ == "__main__":
    unittest.main()
