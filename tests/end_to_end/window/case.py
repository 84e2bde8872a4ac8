"""What the tests of the window share."""

import unittest

from desktop import Desktop


class WindowCase(unittest.TestCase):
    """Each test has a desktop of its own."""

    scale = 1

    def setUp(self):
        self.desktop = Desktop(self.scale)
        self.addCleanup(self.desktop.close)

    def open(self, *arguments):
        from portico import Portico  # needs the display

        return Portico(self.desktop, *arguments)

    def simulator(self, device="dmm"):
        from portico import Simulator

        return Simulator(self.desktop, device)
