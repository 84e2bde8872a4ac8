"""A picture that an instrument sends."""

import os
import struct
import subprocess
import unittest

from case import WindowCase


class Picture(WindowCase):
    def ask(self, query, device="scope"):
        """Asks, and puts the caret into the answer, which stands in the line behind the query."""
        portico = self.open(self.simulator(device).name)
        portico.type_lines("*RST", query)
        portico.key("F5")
        portico.wait_for_history(query + "\n")
        portico.wait_until_idle()
        portico.click(portico.find("txtPast", "text"))
        portico.key("ctrl+Home")
        for _ in range(portico.history[: portico.history.index(query)].count("\n") + 1):
            portico.key("Down")
        portico.key("Home")
        portico.wait(lambda: portico.item("Show Picture").enabled, "the picture to be offered")
        return portico

    def test_the_screen_of_the_scope_is_shown_saved_and_copied(self):
        portico = self.ask("HCOP:SDUM:DATA?")
        portico.choose("View", "Show Picture")
        window = portico.window("Picture - 320 by 200")
        portico.wait(lambda: any("320 by 200 pixels" in node.name for node in window.descendants()), "the picture")
        path = os.path.join(self.desktop.home, "screen.bmp")
        portico.key("ctrl+s")
        portico.choose_file("Save Picture", path[: -len(".bmp")])  # the extension comes by itself
        portico.wait(lambda: os.path.exists(path), "the file")
        with open(path, "rb") as file:
            saved = file.read()
        self.assertEqual(saved[:2], b"BM")
        self.assertEqual(struct.unpack("<I", saved[2:6])[0], len(saved))
        self.assertEqual(struct.unpack("<ii", saved[18:26]), (320, 200))
        portico.key("ctrl+c")
        portico.key("alt+v")
        portico.key("a")  # Actual Size
        portico.key("Escape")
        portico.wait_until_closed("Picture - 320 by 200")

    def test_a_file_that_may_not_grow_is_told_and_the_window_goes_on(self):
        self.limit_files(16384)
        portico = self.ask("HCOP:SDUM:DATA?")
        portico.key("alt+v", "r")
        portico.window("Picture - 320 by 200")
        path = os.path.join(self.desktop.home, "screen.bmp")
        portico.key("ctrl+s")
        portico.choose_file("Save Picture", path)
        self.assertEqual(portico.message(path), f"{path} cannot be written: File too large.")
        portico.key("Return")
        portico.wait_until_message_closed()
        self.assertEqual([name for name in os.listdir(self.desktop.home) if name.startswith("screen")], [])
        self.assertIsNone(portico.process.poll())

    def test_what_is_no_picture_is_told_in_a_sentence(self):
        portico = self.ask("SYST:HELP:HEAD?")
        portico.choose("View", "Show Picture")
        self.assertEqual(
            portico.message("The answer is no picture"),
            "The answer is no picture: it begins neither as PNG nor as BMP, JPEG or GIF.",
        )
        portico.key("Return")
        portico.wait_until_message_closed()

    def test_a_picture_in_a_log_is_shown_from_the_viewer(self):
        path = os.path.join(self.desktop.home, "screen.log")
        subprocess.run(
            [os.environ["PORTICO_RUN"], "--quiet", "--log", path, "SIM::scope::INSTR"],
            input="*RST\nHCOP:SDUM:DATA?\n", text=True, check=True,
        )
        portico = self.open(self.simulator().name)
        portico.choose("File", "View Log...")
        portico.choose_file("Select a log file", path)
        viewer = portico.window(f"Log Viewer - {path}")
        text = portico.find("txtPast", "text", within=viewer)
        portico.wait(lambda: "HCOP:SDUM:DATA?" in text.text, "the log in the viewer")
        portico.key("ctrl+Home")
        for _ in range(text.text[: text.text.index("HCOP")].count("\n") + 1):
            portico.key("Down")
        portico.key("Home")
        item = portico.find("Show Picture", "menu item", within=viewer)
        portico.wait(lambda: item.enabled, "the picture to be offered")
        portico.key("alt+v")
        portico.key("r")
        portico.window("Picture - 320 by 200")


class PictureAtDoubleScale(Picture):
    scale = 2


if __name__ == "__main__":
    unittest.main()
