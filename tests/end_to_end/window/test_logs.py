"""A log from its beginning to its viewer."""

import os
import re
import subprocess
import unittest

from case import WindowCase


class Logs(WindowCase):
    def test_a_log_answers_as_its_instrument_did(self):
        path = os.path.join(self.desktop.home, "talk of Tuesday.log")
        lines = "MEAS:VOLT:DC?\n*IDN?\nMEAS:VOLT:DC?\n"
        said = subprocess.run([os.environ["PORTICO_RUN"], "--log", path, "SIM::dmm::INSTR"], input=lines, text=True,
                              capture_output=True, check=True).stdout
        readings = re.findall(r"> MEAS:VOLT:DC\?\n< (.*)", said)
        self.assertEqual(len(set(readings)), 2, said)
        portico = self.open(f"SIM::replay:{path}::INSTR")
        portico.type_lines(*lines.split())
        portico.key("F5")
        portico.wait_for_history("MEAS:VOLT:DC?\n" + readings[1] + "\n")
        portico.wait_until_idle()
        shown = portico.history
        told = [line for line in shown[shown.index("MEAS"):].splitlines() if line not in ("", "1", "*OPC?")]
        recorded = [line[2:] for line in said.splitlines() if line not in ("* *OPC?", "< 1")]
        self.assertEqual(told, recorded)

    def test_a_log_from_new_to_viewed(self):
        path = os.path.join(self.desktop.home, "talk.log")
        portico = self.open(self.simulator().name)
        self.assertTrue(portico.item("New Log...").enabled)
        self.assertFalse(portico.item("Close Log").enabled)

        portico.choose("File", "New Log...")
        portico.choose_file("Open a log file", path[: -len(".log")])  # the extension comes by itself
        portico.wait(lambda: portico.main.name == f"{path} - Tolvane Portico", "the log's name in the title")
        self.assertFalse(portico.item("New Log...").enabled)
        self.assertTrue(portico.item("Pause Logging").enabled)
        portico.type_lines("*IDN?")
        portico.key("F5")
        portico.wait_for_history("*IDN?\n")
        portico.wait_until_idle()

        portico.choose("File", "Pause Logging")
        portico.wait(lambda: portico.item("Resume Logging").enabled, "the log to be paused")
        portico.type_lines("MEAS:VOLT:DC?")
        portico.key("F5")
        portico.wait_for_history("MEAS:VOLT:DC?\n")
        portico.wait_until_idle()
        portico.click(portico.button("Resume Logging"))
        portico.wait(lambda: portico.item("Pause Logging").enabled, "the log to go on")
        portico.type_lines("MEAS:CURR:DC?")
        portico.key("F5")
        portico.wait_for_history("MEAS:CURR:DC?\n")
        portico.wait_until_idle()

        portico.choose("File", "Close Log")
        portico.wait(lambda: portico.main.name == "Tolvane Portico", "the title alone")
        self.assertTrue(portico.item("New Log...").enabled)
        with open(path, encoding="utf-8") as log:
            self.assertEqual(log.read().count("<Session"), 2)

        portico.choose("File", "View Log...")
        portico.choose_file("Select a log file", path)
        viewer = portico.window(f"Log Viewer - {path}")
        text = portico.find("txtPast", "text", within=viewer)
        portico.wait(lambda: "MEAS:CURR:DC?" in text.text, "the log in the viewer")
        self.assertIn("*IDN?", text.text)
        self.assertNotIn("MEAS:VOLT:DC?", text.text)

        # A selection is what Copy waits for.
        copy = portico.find("Copy", "push button", within=viewer)
        portico.wait(lambda: not copy.enabled, "Copy not to be offered")  # once the viewer is active
        portico.click(text)
        portico.key("ctrl+a")
        portico.wait(lambda: copy.enabled, "Copy to be offered")
        portico.key("alt+f")
        portico.key("c")  # Close
        portico.wait_until_closed("Log Viewer")

    def test_a_log_of_runs_in_one_second_is_viewed_whole(self):
        path = os.path.join(self.desktop.home, "runs.log")
        for _ in range(40):  # until they have all fallen into one second
            if os.path.exists(path):
                os.remove(path)
            for query in ("*IDN?", "*OPC?", "*STB?", "*ESR?"):
                subprocess.run(
                    [os.environ["PORTICO_RUN"], "--quiet", "--log", path, "SIM::dmm::INSTR"],
                    input=query + "\n", text=True, check=True,
                )
            with open(path, encoding="utf-8") as log:
                seconds = set(re.findall(r'amp="([^".]+)', log.read()))
            if len(seconds) == 1:
                break
        else:
            self.fail("Four runs never fell into one second.")

        portico = self.open(self.simulator().name)
        portico.choose("File", "View Log...")
        portico.choose_file("Select a log file", path)
        viewer = portico.window(f"Log Viewer - {path}")
        text = portico.find("txtPast", "text", within=viewer)
        portico.wait(lambda: "*ESR?" in text.text, "the log in the viewer")
        for query in ("*IDN?", "*STB?", "*ESR?"):
            self.assertEqual(text.text.count(query), 1, query)

    def test_sessions_and_stamps_are_shown_beside_the_text(self):
        path = os.path.join(self.desktop.home, "two.log")
        for query in ("*IDN?", "*OPT?"):
            subprocess.run(
                [os.environ["PORTICO_RUN"], "--quiet", "--log", path, "SIM::dmm::INSTR"],
                input=query + "\n", text=True, check=True,
            )
        with open(path, encoding="utf-8") as log:
            stamps = [stamp.replace("T", " ") for stamp in re.findall(r' Timestamp="([^".]+)', log.read())]
        portico = self.open(self.simulator().name)
        text = self.view(portico, path)
        whole = text.text
        self.assertEqual(text.description, "")
        portico.key("ctrl+Home")
        portico.key("alt+v")
        portico.key("k")  # Session Marks
        portico.wait(lambda: text.description.startswith("Session 1, opened "), "the session of the first line")
        portico.key("alt+v")
        portico.key("m")  # Time Stamps
        portico.wait(lambda: text.description.endswith("; " + stamps[0]), "the stamp of the first line")
        for _ in range(whole[: whole.index("*OPT?")].count("\n")):
            portico.key("Down")
        portico.wait(lambda: text.description.startswith("Session 2, opened "), "the other session")
        self.assertEqual(text.text, whole)
        portico.key("alt+f")
        portico.key("c")
        portico.wait_until_closed("Log Viewer")

        text = self.view(portico, path)  # another viewer shows what this one showed
        portico.key("ctrl+Home")
        portico.wait(lambda: text.description.startswith("Session "), "the session of the caret's line")
        portico.key("alt+v")
        portico.key("k")
        portico.wait(lambda: text.description == stamps[0], "the stamp alone")
        portico.key("alt+v")
        portico.key("m")
        portico.wait(lambda: text.description == "", "nothing beside the text")

    def view(self, portico, path):
        portico.choose("File", "View Log...")
        portico.choose_file("Select a log file", path)
        viewer = portico.window(f"Log Viewer - {path}")
        text = portico.find("txtPast", "text", within=viewer)
        portico.wait(lambda: "*OPT?" in text.text, "the log in the viewer")
        return text

    def test_a_file_that_is_no_log_is_refused(self):
        path = os.path.join(self.desktop.home, "notes.log")
        with open(path, "w", encoding="utf-8") as notes:
            notes.write("no log\n")
        portico = self.open(self.simulator().name)
        portico.click(portico.button("New Log File..."))
        portico.choose_file("Open a log file", path)
        portico.message(f"Do you want to erase {path}?")
        portico.key("alt+n")
        self.assertIn(" is not a valid data store.", portico.message("Can't perform Logger operation."))
        portico.key("Return")
        portico.wait(lambda: portico.main.name == "Tolvane Portico", "the title alone")
        with open(path, encoding="utf-8") as notes:
            self.assertEqual(notes.read(), "no log\n")

    def test_a_cancelled_dialog_changes_nothing(self):
        portico = self.open(self.simulator().name)
        portico.choose("File", "New Log...")
        portico.window("Open a log file")
        portico.key("Escape")
        portico.wait_until_closed("Open a log file")
        self.assertTrue(portico.item("New Log...").enabled)


class LogsAtDoubleScale(Logs):
    scale = 2


if __name__ == "__main__":
    unittest.main()
