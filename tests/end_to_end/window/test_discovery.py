"""Instruments that answer while the open dialog is on the screen. To be run by own_network.sh."""

import os
import socket
import subprocess
import tempfile
import unittest

from case import WindowCase


class Discovery(WindowCase):
    def announce(self, device):
        """A simulator that the network comes to know of now."""
        simulator = self.desktop.start(os.environ["PORTICO_SIM"], "--device", device, "--port", "0", "--announce",
                                       stdout=subprocess.PIPE, text=True)
        port = simulator.stdout.readline().rsplit(":", 1)[1].strip()
        self.assertTrue(simulator.stdout.readline().startswith("announced as "))
        return f"TCPIP0::127.0.0.1::{port}::SOCKET"

    @staticmethod
    def listed(dialog):
        box = next(node for node in dialog.descendants() if node.role == "combo box")
        return [node.name for node in box.descendants() if node.role == "list item"]

    def test_late_answers_join_the_list_and_touch_neither_text_nor_selection(self):
        portico = self.open()
        portico.key("ctrl+n")
        dialog = portico.window("Open an Instrument")
        known = self.listed(dialog)
        self.assertEqual(known[:3], ["SIM::dmm::INSTR", "SIM::psu::INSTR", "SIM::scope::INSTR"])
        self.assertEqual(portico.find_text_field(dialog).text, "SIM::dmm::INSTR")

        first = self.announce("psu")
        portico.wait(lambda: first in self.listed(dialog), "the first answer in the list")
        self.assertEqual(self.listed(dialog)[: len(known)], known)
        self.assertEqual(portico.find_text_field(dialog).text, "SIM::dmm::INSTR")

        portico.key("ctrl+a")
        portico.type("SIM::sc")
        second = self.announce("scope")
        portico.wait(lambda: second in self.listed(dialog), "the second answer in the list")
        self.assertEqual(portico.find_text_field(dialog).text, "SIM::sc")
        portico.type("ope::INSTR")
        portico.key("Return")
        portico.wait(lambda: portico.panels()[0] == "SIM::scope::INSTR ", "what was typed to be open")

    def test_one_that_was_found_is_opened_from_the_list_and_runs(self):
        portico = self.open()
        portico.key("ctrl+n")
        dialog = portico.window("Open an Instrument")
        name = self.announce("psu")
        portico.wait(lambda: name in self.listed(dialog), "the answer in the list")
        for _ in range(self.listed(dialog).index(name)):
            portico.key("Down")
        portico.wait(lambda: portico.find_text_field(dialog).text == name, "the name in the text")
        portico.key("Return")
        portico.wait(lambda: portico.panels()[0] == name + " ", "the instrument to be open")
        portico.type_lines("*IDN?")
        portico.key("F5")
        portico.wait_for_history("TOLVANE INSTRUMENTS,SIM-PSU,SIM0002,1.0")

    def test_a_bus_that_hangs_holds_up_neither_the_window_nor_its_end(self):
        with socket.socket(socket.AF_UNIX) as bus, tempfile.TemporaryDirectory() as folder:
            bus.bind(folder + "/bus")
            bus.listen()  # and nothing more
            self.desktop.environment["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={folder}/bus"
            portico = self.open()
            portico.key("ctrl+n")
            dialog = portico.window("Open an Instrument")
            self.assertEqual(self.listed(dialog)[:3], ["SIM::dmm::INSTR", "SIM::psu::INSTR", "SIM::scope::INSTR"])
            with bus.accept()[0]:  # it is asked, and does not answer
                portico.key("Return")
                portico.wait(lambda: portico.panels()[0] == "SIM::dmm::INSTR ", "the instrument to be open")
                portico.choose("File", "Exit")
                self.assertEqual(portico.wait_until_ended(), 0)


if __name__ == "__main__":
    unittest.main()
