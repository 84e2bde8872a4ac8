"""Answers that go into files: one of the history, and one that is fetched, of any size."""

import os
import subprocess
import unittest

from case import WindowCase


def block_bytes(length):
    """What SIM:BLOC? sends."""
    return (bytes(range(251)) * (length // 251 + 1))[:length]


class Answers(WindowCase):
    def path(self, name):
        return os.path.join(self.desktop.home, name)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def run_line(self, portico, line):
        portico.type_lines(line)
        portico.key("F5")
        portico.wait(lambda: portico.commands == "", "the command window to be empty")
        portico.wait_until_idle()

    def fetch(self, portico, query, path):
        portico.choose("Data", "Fetch Answer to File...")
        field = portico.find_text_field(portico.window("Fetch Answer"))
        portico.click(field)
        portico.key("ctrl+a")
        portico.type(query)
        portico.wait(lambda: field.text == query, "the query to be typed")
        portico.key("Return")
        if path:
            portico.choose_file("Fetch Answer to File", path)

    def wait_for_file(self, portico, name, length):
        portico.wait(lambda: os.path.exists(self.path(name)) and os.path.getsize(self.path(name)) == length, name)
        portico.wait(lambda: portico.item("Fetch Answer to File...").enabled, "the fetch to be over")

    def block(self):
        """The same answer as a program gets it; as a text, which a screen reader can tell."""
        path = self.path("expected.bin")
        subprocess.run([os.environ["PORTICO_RUN"], "SIM::scope::INSTR", "--quiet", "--get", "SYST:HELP:HEAD?", path],
                       check=True)
        with open(path, "rb") as file:
            return file.read()

    @staticmethod
    def cancel_button(portico):
        """Of the window that shows how far the fetch has come."""
        def look():
            dialogs = [node for node in portico.application_node().children() if node.role == "dialog" and node.showing]
            return next((node for dialog in dialogs for node in dialog.descendants()
                         if node.name == "Cancel" and node.role == "push button"), None)

        return portico.wait(look, "the button that cancels")

    def left(self):
        return [name for name in os.listdir(self.desktop.home) if "answer" in name]

    def test_the_answer_under_the_caret_is_saved(self):
        portico = self.open(self.simulator("scope").name)
        self.assertFalse(portico.item("Save Answer...").enabled)
        self.run_line(portico, "SYST:HELP:HEAD?")
        portico.key("F4")
        portico.wait_for_history("No error")
        history = portico.find("txtPast", "text")
        portico.click(history)
        portico.key("ctrl+End")
        portico.wait(lambda: portico.item("Save Answer...").enabled, "an answer to be under the caret")
        portico.choose("Data", "Save Answer...")
        portico.choose_file("Save Answer", self.path("answer.txt"))
        portico.wait(lambda: os.path.exists(self.path("answer.txt")), "the answer")
        self.assertEqual(self.read("answer.txt"), b'0,"No error"')
        # Up from the end: the answer, the query, and so on to the block.
        for _ in range(20):
            portico.key("Up")
            if portico.item("Save Answer...").enabled:
                portico.choose("Data", "Save Answer...")
                portico.choose_file("Save Answer", self.path("answer.bin"))
                portico.wait(lambda: os.path.exists(self.path("answer.bin")), "the answer")
                if self.read("answer.bin") == self.block():
                    return
                os.remove(self.path("answer.bin"))
        self.fail("the block was not found")

    def test_an_answer_that_no_read_could_hold_is_fetched(self):
        portico = self.open(self.simulator("scope").name)
        portico.type("SIM:BLOC? 5000000")
        portico.wait(lambda: "5000000" in portico.commands, "the query to be typed")
        typed = portico.commands
        portico.choose("Data", "Fetch Answer to File...")
        field = portico.find_text_field(portico.window("Fetch Answer"))
        self.assertEqual(field.text, "SIM:BLOC? 5000000", "the caret's line is offered")
        portico.key("Return")
        portico.choose_file("Fetch Answer to File", self.path("answer.bin"))
        self.wait_for_file(portico, "answer.bin", 5000000)
        self.assertEqual(self.read("answer.bin"), block_bytes(5000000))
        self.assertTrue(portico.history.endswith("SIM:BLOC? 5000000\n"), portico.history[-200:])
        self.assertEqual(portico.commands, typed)
        self.fetch(portico, "*ESE?", self.path("answer.txt"))
        self.wait_for_file(portico, "answer.txt", 1)
        portico.wait_for_history("*ESE?\n")
        portico.wait(lambda: portico.history.endswith("0\n"), "the short answer in the history")

    def test_a_fetch_is_given_up_and_the_next_query_gets_its_own_answer(self):
        portico = self.open(self.simulator().name)
        self.fetch(portico, "SIM:ENDL?", self.path("answer.bin"))
        portico.click(self.cancel_button(portico))
        portico.wait_for_history("The answer was given up")
        portico.wait(lambda: portico.item("Fetch Answer to File...").enabled, "the fetch to be over")
        self.assertEqual(self.left(), [])
        self.fetch(portico, "SIM:ECHO? 4711", self.path("answer.txt"))
        self.wait_for_file(portico, "answer.txt", 4)
        self.assertEqual(self.read("answer.txt"), b"4711")

    def test_a_full_disk_is_one_sentence(self):
        portico = self.open(self.simulator().name)
        self.fetch(portico, "SIM:BLOC? 3000000", None)
        portico.name_file("Fetch Answer to File", "/dev/full")
        portico.message("full already exists")
        portico.key("alt+y")
        told = portico.message("/dev/full")
        self.assertEqual(told, "/dev/full cannot be written: No space left on device.")
        portico.key("Return")
        portico.wait_until_message_closed()

    def test_an_instrument_that_dies_leaves_no_file(self):
        simulator = self.simulator()
        portico = self.open(simulator.name)
        self.fetch(portico, "SIM:ENDL?", self.path("answer.bin"))
        self.cancel_button(portico)
        simulator.process.kill()
        told = portico.message("The ")
        self.assertIn("connection", told)
        portico.key("Return")
        portico.wait_until_message_closed()
        self.assertEqual(self.left(), [])


if __name__ == "__main__":
    unittest.main()
