"""The manual and the About box."""

import unittest

from case import WindowCase


class Help(WindowCase):
    def test_the_manual_opens_from_the_menu(self):
        portico = self.open()
        portico.choose("Help", "Help Topics")
        portico.window("Help")

    def test_f1_opens_the_manual_and_escape_closes_it(self):
        portico = self.open()
        for box in ("txtFuture", "txtPast"):
            with self.subTest(box):
                portico.click(portico.find(box, "text"))
                portico.key("F1")
                manual = portico.window("Tolvane Portico Help")
                portico.find("Contents", within=manual)
                portico.key("Escape")
                portico.wait_until_closed("Tolvane Portico Help")

    def test_the_manual_opens_beside_a_dialog(self):
        portico = self.open()
        portico.key("ctrl+n")
        dialog = portico.window("Open an Instrument")
        portico.click(portico.find("Help", "push button", within=dialog))
        portico.window("Help")

    def test_about_tells_the_drivers_version(self):
        portico = self.open()
        portico.choose("Help", "About Tolvane Portico...")
        box = portico.window("About Tolvane Portico")
        portico.find("Version 1.0.5", "label", within=box)
        portico.find("Tolvane Portico", "label", within=box)
        portico.click(portico.find("OK", "push button", within=box))
        portico.wait_until_closed("About Tolvane Portico")


if __name__ == "__main__":
    unittest.main()
