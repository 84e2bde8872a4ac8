"""What the tests of the window share."""

import os
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

    def simulator(self, device="dmm", interface=None):
        from portico import Simulator

        return Simulator(self.desktop, device, interface)

    def remember(self, section, **settings):
        """What the window finds in its settings, before it is opened."""
        folder = f"{self.desktop.environment['XDG_CONFIG_HOME']}/Tolvane Portico"
        os.makedirs(folder)
        with open(f"{folder}/Tolvane Portico.conf", "w", encoding="utf-8") as file:
            file.write(f"[{section}]\n" + "".join(f'{key}="{value}"\n' for key, value in settings.items()))
