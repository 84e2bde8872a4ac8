"""The plot of a conversation's numbers, while it goes on and out of a log, and what is saved of it."""

import os
import re
import unittest
import xml.dom.minidom

from case import WindowCase


class Plot(WindowCase):
    QUERY = "MEAS:VOLT:DC?"

    def talk(self, *lines, device="dmm"):
        portico = self.open(self.simulator(device).name)
        self.run_lines(portico, *lines)
        return portico

    def run_lines(self, portico, *lines):
        portico.type_lines(*lines)
        portico.key("F5")
        portico.wait(lambda: portico.commands == "", "the lines to be taken")
        portico.wait_until_idle()

    def plot(self, portico):
        """Opens it, and gives the window and the picture."""
        portico.choose("View", "Plot...")
        window = portico.window("Plot")
        return window, portico.find("Plot", "filler", within=window)

    def answers(self, portico):
        return [float(line) for line in re.findall(r"^[+-]\d\.\d+E[+-]\d+$", portico.history, re.MULTILINE)]

    def seen(self, picture):
        """How many values of the query are told, the smallest and the largest."""
        told = re.fullmatch(rf"{re.escape(self.QUERY)}: (\d+) values?, minimum (\S+), maximum (\S+)\.",
                            picture.description)
        return told and (int(told[1]), float(told[2]), float(told[3]))

    def test_it_shows_what_was_answered_before(self):
        portico = self.talk("*RST", *[self.QUERY] * 3, "*IDN?")
        _, picture = self.plot(portico)
        answers = self.answers(portico)
        self.assertEqual(len(answers), 3)
        portico.wait(lambda: self.seen(picture), "the numbers to be told")
        self.assertEqual(self.seen(picture), (3, min(answers), max(answers)))

    def test_it_follows_a_run(self):
        portico = self.talk(self.QUERY)
        portico.type_lines(*[self.QUERY] * 4)
        _, picture = self.plot(portico)
        portico.wait(lambda: self.seen(picture), "the first number")
        # On a small screen the plot lies over the command window.
        self.desktop.xdotool("search", "--name", "^Tolvane Portico$", "windowactivate", "--sync")
        portico.click(portico.find("txtFuture", "text"))
        portico.key("F5")
        counts = set()

        def all_seen():
            counts.add((self.seen(picture) or [0])[0])
            return 5 in counts

        portico.wait(all_seen, "the numbers to come")
        portico.wait_until_idle()
        self.assertGreater(len(counts - {0, 1, 5}), 0, "they come while the run goes on")
        answers = self.answers(portico)
        self.assertEqual(self.seen(picture), (5, min(answers), max(answers)))

    def test_keys_zoom_and_show_all(self):
        portico = self.talk(*[self.QUERY] * 5)
        _, picture = self.plot(portico)
        portico.wait(lambda: self.seen(picture) and self.seen(picture)[0] == 5, "all numbers")
        portico.click(picture)
        portico.key(*["plus"] * 12)
        portico.wait(lambda: "5 values" not in picture.description, "fewer numbers")
        portico.key("Home")
        portico.wait(lambda: self.seen(picture) and self.seen(picture)[0] == 5, "all numbers again")
        self.desktop.xdotool("click", 4)
        self.assertTrue(picture.showing)

    def save(self, portico, key, name):
        path = os.path.join(self.desktop.home, name)
        portico.key("alt+f", key)
        portico.choose_file("Save the Plot", path)
        portico.wait(lambda: os.path.exists(path), f"the file {name}")
        with open(path, "rb") as file:
            return file.read()

    def test_it_is_saved_in_all_formats(self):
        portico = self.talk(*[self.QUERY] * 2)
        window, _ = self.plot(portico)
        portico.window("Plot")
        csv = self.save(portico, "c", "plot.csv").decode().split("\r\n")
        self.assertEqual(csv[0], 'Curve,"Seconds",Value')
        rows = [line.rsplit(",", 2) for line in csv[1:-1]]
        self.assertEqual([row[0] for row in rows], [f'"{self.QUERY}"'] * 2)
        self.assertEqual([float(row[2]) for row in rows], self.answers(portico))
        self.assertEqual(float(rows[0][1]), 0)
        self.assertGreater(float(rows[1][1]), 0)
        portico.window("Plot")
        self.assertTrue(self.save(portico, "n", "plot.png").startswith(b"\x89PNG\r\n\x1a\n"))
        portico.window("Plot")
        self.assertTrue(self.save(portico, "d", "plot.pdf").startswith(b"%PDF-"))
        portico.window("Plot")
        drawing = xml.dom.minidom.parseString(self.save(portico, "s", "plot.svg"))
        texts = ["".join(node.data for node in text.childNodes) for text in drawing.getElementsByTagName("text")]
        self.assertIn(self.QUERY, [text.strip() for text in texts])
        self.assertTrue(window.showing)

    def test_a_full_disk_is_told_and_nothing_is_lost(self):
        self.limit_files(4096)
        portico = self.talk("AUT", "WAV:DATA?", device="scope")
        _, picture = self.plot(portico)
        portico.key("alt+c", "l")
        portico.wait(lambda: " values, minimum" in picture.description, "the waveform")
        path = os.path.join(self.desktop.home, "plot.csv")
        with open(path, "w", encoding="utf-8") as file:
            file.write("before")
        portico.key("alt+f", "c")
        portico.window("Save the Plot")
        portico.key("ctrl+a")
        portico.type(path)
        portico.key("Return")
        portico.message("plot.csv already exists")
        portico.key("alt+y")
        self.assertIn(f"{path} was not saved: File too large.", portico.message("Can't save the plot."))
        portico.key("Return")
        with open(path, encoding="utf-8") as file:
            self.assertEqual(file.read(), "before")
        self.assertEqual([name for name in os.listdir(self.desktop.home) if name.startswith("plot")], ["plot.csv"])
        self.assertIn(" values, minimum", picture.description)

    def test_the_last_answer_is_drawn_over_its_index(self):
        portico = self.talk("AUT", "WAV:DATA?", device="scope")
        _, picture = self.plot(portico)
        portico.key("alt+c", "l")
        portico.wait(lambda: re.match(r"WAV:DATA\?: \d{3,} values, minimum", picture.description), "the waveform")

    def test_a_log_is_drawn_in_its_viewer(self):
        path = os.path.join(self.desktop.home, "talk.log")
        portico = self.open(self.simulator().name)
        portico.choose("File", "New Log...")
        portico.choose_file("Open a log file", path)
        portico.wait(lambda: portico.main.name == f"{path} - Tolvane Portico", "the log's name in the title")
        self.run_lines(portico, *[self.QUERY] * 2)
        answers = self.answers(portico)
        portico.choose("File", "View Log...")
        portico.choose_file("Select a log file", path)
        viewer = portico.window(f"Log Viewer - {path}")
        text = portico.find("txtPast", "text", within=viewer)
        portico.wait(lambda: text.text.count(self.QUERY) == 2, "the log in the viewer")
        portico.key("alt+v", "l")
        window = portico.window("Plot")
        picture = portico.find("Plot", "filler", within=window)
        portico.wait(lambda: self.seen(picture), "the numbers of the log")
        self.assertEqual(self.seen(picture), (2, min(answers), max(answers)))

    def test_a_plot_of_nothing_says_so(self):
        portico = self.open(self.simulator().name)
        _, picture = self.plot(portico)
        portico.wait(lambda: picture.description == "Nothing is chosen.", "the sentence")


class PlotAtDoubleScale(Plot):
    scale = 2


if __name__ == "__main__":
    unittest.main()
