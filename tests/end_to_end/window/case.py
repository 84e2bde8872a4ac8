"""What the tests of the window share."""

import os
import resource
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

    def connect(self, name):
        """The window with that instrument, and with nothing in the command window."""
        portico = self.open(name)
        portico.wait(lambda: "REM" in portico.commands, "the instrument to be open")
        portico.clear()
        return portico

    def simulator(self, device="dmm", interface=None):
        from portico import Simulator

        return Simulator(self.desktop, device, interface)

    def limit_files(self, size):
        """What is started from now on cannot write files of more bytes, as `ulimit -f` has it."""
        limits = resource.getrlimit(resource.RLIMIT_FSIZE)
        self.addCleanup(resource.setrlimit, resource.RLIMIT_FSIZE, limits)
        resource.setrlimit(resource.RLIMIT_FSIZE, (size, limits[1]))

    def remember(self, section, **settings):
        """What the window finds in its settings, before it is opened."""
        folder = f"{self.desktop.environment['XDG_CONFIG_HOME']}/Tolvane Portico"
        os.makedirs(folder)
        with open(f"{folder}/Tolvane Portico.conf", "w", encoding="utf-8") as file:
            file.write(f"[{section}]\n" + "".join(f'{key}="{value}"\n' for key, value in settings.items()))
