"""The options of both protocols, and the protocol itself."""

import unittest

from case import WindowCase

TITLE = "Tolvane Portico Options"


class Options(WindowCase):
    def open_options(self, portico):
        portico.choose("Tools", "Options...")
        return portico.window(TITLE)

    def press(self, portico, dialog, caption):
        portico.click(portico.find(caption, "push button", within=dialog))
        portico.wait_until_closed(TITLE)

    def test_what_is_chosen_is_how_the_next_line_is_sent(self):
        portico = self.open(self.simulator().name)
        dialog = self.open_options(portico)
        opc = portico.find("Wait for OPC", "check box", within=dialog)
        status = portico.find("Get instrument status after every command", "check box", within=dialog)
        self.assertTrue(opc.checked)
        self.assertTrue(status.checked)
        portico.click(opc)
        portico.click(status)
        self.press(portico, dialog, "OK")
        portico.type_lines("*IDN?")
        portico.key("F5")
        portico.wait_for_history("*IDN?\nTOLVANE")
        portico.wait_until_idle()
        self.assertEqual(portico.history.count("\n"), 3, portico.history)

    def test_automatic_reading_cannot_be_unchecked_under_its_reasons(self):
        portico = self.open()
        dialog = self.open_options(portico)
        reading = portico.find("Automatically read after query", "check box", within=dialog)
        portico.click(reading)
        portico.click(portico.find("Wait for OPC", "check box", within=dialog))
        self.assertTrue(reading.checked)
        self.press(portico, dialog, "Cancel")

    def test_cancel_stores_nothing(self):
        portico = self.open()
        dialog = self.open_options(portico)
        portico.click(portico.find("Wait for OPC", "check box", within=dialog))
        self.press(portico, dialog, "Cancel")
        dialog = self.open_options(portico)
        self.assertTrue(portico.find("Wait for OPC", "check box", within=dialog).checked)

    def test_the_dialog_opens_on_the_protocol_in_force(self):
        portico = self.open()
        portico.choose("Tools", "Communication Protocol", "Other")
        portico.wait(lambda: portico.panels()[1] == "Other", "the protocol in the status bar")
        dialog = self.open_options(portico)
        self.assertTrue(portico.find("Other", "page tab", within=dialog).focused)
        portico.key("ctrl+Tab")
        portico.wait(lambda: portico.find("SCPI", "page tab", within=dialog).focused, "the first tab")
        self.press(portico, dialog, "OK")
        self.assertEqual(portico.panels()[1], "Other")
        self.assertTrue(portico.item("Other").checked)
        portico.choose("Tools", "Communication Protocol", "SCPI")
        portico.wait(lambda: portico.item("SCPI").checked, "the check mark")


if __name__ == "__main__":
    unittest.main()
