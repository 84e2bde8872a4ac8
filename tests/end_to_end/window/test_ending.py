"""How the program ends, whatever it is doing, and what it remembers."""

import os
import signal
import socket
import threading
import unittest
from xml.etree import ElementTree

from case import WindowCase
from desktop import wait_for


class SlowInstrument:
    """Takes all that comes by its socket, one connection after the other, and has an answer to none in time."""

    def __init__(self):
        self._listener = socket.create_server(("127.0.0.1", 0))
        self.name = f"TCPIP::127.0.0.1::{self._listener.getsockname()[1]}::SOCKET"
        self.received = b""
        self.awaited = False  # to the end: somebody was there just before the driver gives a read up, after 5 s
        threading.Thread(target=self._serve, daemon=True).start()

    def _serve(self):
        while True:
            connection, _ = self._listener.accept()
            while piece := connection.recv(4096):
                self.received += piece
                end = threading.Timer(4.5, self._note_awaited)
                end.start()
            end.cancel()

    def _note_awaited(self):
        self.awaited = True

    def all_received(self):
        """Once nobody has it open any more."""
        with socket.create_connection(self._listener.getsockname()) as last:
            last.sendall(b"END")
        wait_for(lambda: self.received.endswith(b"END"), "the end of what was sent")
        return self.received[:-3]


class Ending(WindowCase):
    def slow(self):
        """Open, with an interval of a minute between the instructions."""
        portico = self.open(self.simulator().name)
        portico.choose("Tools", "Options...")
        options = portico.window("Tolvane Portico Options")
        portico.click(portico.find("Timed Interval:", "check box", within=options))
        portico.key("Tab")
        portico.key("ctrl+a")
        portico.type("60000")
        portico.click(portico.find("OK", "push button", within=options))
        portico.wait_until_closed("Tolvane Portico Options")
        return portico

    def test_exit_from_the_menu(self):
        portico = self.open(self.simulator().name)
        portico.choose("File", "Exit")
        self.assertEqual(portico.wait_until_ended(), 0)

    def test_the_close_box_ends_an_idle_program(self):
        portico = self.open()
        portico.press_close_box()
        self.assertEqual(portico.wait_until_ended(), 0)

    def test_the_close_box_ends_a_wait_at_once(self):
        portico = self.slow()
        portico.type_lines("*IDN?", "*OPT?")
        portico.key("F5")
        portico.wait(lambda: portico.button("Stop").enabled, "the run to wait")
        portico.key("alt+F4")  # what the window manager makes of it is what its close box does
        self.assertEqual(portico.wait_until_ended(), 0)

    def test_signals_end_it_with_a_dialog_open(self):
        for number in (signal.SIGTERM, signal.SIGINT):
            with self.subTest(number):
                portico = self.open()
                portico.key("ctrl+n")
                portico.window("Open an Instrument")
                portico.process.send_signal(number)
                self.assertEqual(portico.wait_until_ended(), 0)

    def test_a_signal_ends_it_with_a_message_box_open(self):
        portico = self.open(self.simulator().name)
        portico.type_lines("*IDN?")
        portico.key("ctrl+a")
        portico.choose("Edit", "Cut                          Ctrl+X")
        portico.message("Can't perform cut operation.")
        portico.process.send_signal(signal.SIGTERM)
        self.assertEqual(portico.wait_until_ended(), 0)

    def test_a_signal_ends_a_read_and_the_program_comes_down_in_order(self):
        for number in (signal.SIGTERM, signal.SIGINT):
            with self.subTest(number):
                path = os.path.join(self.desktop.home, f"ended-by-{int(number)}.log")
                instrument = SlowInstrument()
                portico = self.open(instrument.name)
                portico.choose("File", "New Log...")
                portico.window("Open a log file")
                portico.key("ctrl+a")
                portico.type(path)
                portico.key("Return")
                portico.wait_until_closed("Open a log file")
                portico.type_lines("*IDN?", "*RST")
                portico.key("F5")
                wait_for(lambda: instrument.received == b"*OPC?\r\n", "the first query")
                portico.process.send_signal(number)
                self.assertEqual(portico.wait_until_ended(), 0)
                self.assertEqual(instrument.all_received(), b"*OPC?\r\n")
                self.assertFalse(instrument.awaited)
                sessions = ElementTree.parse(path).getroot().findall("Session")
                self.assertEqual(len(sessions), 1)
                self.assertTrue(sessions[0].get("SessionCloseTimeStamp"))

    def test_settings_that_cannot_be_saved_are_told_once(self):
        settings = self.desktop.environment["XDG_CONFIG_HOME"]
        with open(settings, "w", encoding="utf-8"):  # where a folder is wanted
            pass
        portico = self.open()
        portico.choose("Tools", "Communication Protocol", "Other")
        portico.choose("File", "Exit")
        self.assertEqual(portico.wait_until_ended(), 0)
        told = [line for line in portico.process.stderr.read().decode().splitlines() if "settings" in line]
        self.assertEqual(told, [f"portico: the settings cannot be saved in {settings}/Tolvane Portico/"
                                "Tolvane Portico.conf"])

    def test_place_and_options_are_there_again(self):
        portico = self.open()
        window = self.desktop.xdotool("search", "--pid", portico.process.pid, "--name", "Tolvane Portico$").split()[0]
        self.desktop.xdotool("windowsize", "--sync", window, 700, 600)
        self.desktop.xdotool("windowmove", "--sync", window, 200, 150)
        portico.wait(lambda: portico.main.extents().width == 700, "the new size")
        portico.choose("Tools", "Communication Protocol", "Other")
        portico.wait(lambda: portico.panels()[1] == "Other", "the protocol in the status bar")
        place = portico.main.extents()
        portico.choose("File", "Exit")
        self.assertEqual(portico.wait_until_ended(), 0)

        again = self.open()
        restored = again.wait(lambda: again.main.extents() if again.main.extents().x == place.x else None,
                              "the window at its place")
        self.assertEqual((restored.x, restored.y, restored.width, restored.height),
                         (place.x, place.y, place.width, place.height))
        self.assertEqual(again.panels()[1], "Other")


if __name__ == "__main__":
    unittest.main()
