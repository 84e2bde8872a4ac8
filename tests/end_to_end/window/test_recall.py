"""What was sent, brought back and put back."""

import os
import stat
import unittest

from case import WindowCase


class Recall(WindowCase):
    def talk(self, *lines):
        portico = self.open(self.simulator().name)
        portico.wait(lambda: "REM" in portico.commands, "the instrument to be open")
        self.send(portico, *lines)
        return portico

    def send(self, portico, *lines):
        portico.run(*lines)
        portico.wait_for_history(lines[-1] + "\n")

    def bring(self, portico, key, expected):
        portico.key(key)
        portico.wait(lambda: portico.commands == expected, f"{expected!r} in the command window")

    def close(self, portico):
        portico.choose("File", "Exit")
        self.assertEqual(portico.wait_until_ended(), 0)

    @property
    def kept(self):
        return f"{self.desktop.environment['XDG_STATE_HOME']}/portico/sent-lines"

    def test_earlier_lines_are_brought_by_keys_also_after_a_new_start(self):
        portico = self.talk("*CLS", "MEAS:VOLT:DC?", "REM a remark", "*OPC")
        self.bring(portico, "alt+Up", "*OPC")
        self.bring(portico, "alt+Up", "MEAS:VOLT:DC?")
        self.bring(portico, "alt+Down", "*OPC")
        self.bring(portico, "alt+Down", "")
        self.close(portico)
        self.assertEqual(stat.S_IMODE(os.stat(self.kept).st_mode), 0o600)
        with open(self.kept, encoding="utf-8") as file:
            self.assertEqual(file.read().splitlines()[1:], ["*CLS", "MEAS:VOLT:DC?", "*OPC"])

        portico = self.talk("*WAI")
        portico.type("meas")
        self.bring(portico, "alt+Up", "MEAS:VOLT:DC?")
        self.bring(portico, "ctrl+z", "meas")
        portico.choose("Data", "Earlier Line")
        portico.wait(lambda: portico.commands == "MEAS:VOLT:DC?", "the line by the menu")
        portico.key("F5")
        portico.wait_for_history("MEAS:VOLT:DC?\n")
        portico.wait_until_idle()

    def test_what_is_forgotten_does_not_come_back(self):
        portico = self.talk("*CLS")
        portico.choose("Data", "Forget Sent Lines")
        portico.choose("Data", "Keep Sent Lines")
        self.send(portico, "*WAI")
        self.bring(portico, "alt+Up", "*WAI")
        portico.key("alt+Up", "Home", "X")
        portico.wait(lambda: portico.commands == "X*WAI", "nothing before it")
        self.close(portico)
        if os.path.exists(self.kept):
            with open(self.kept, encoding="utf-8") as file:
                self.assertNotIn("*", file.read())

    def test_the_lines_of_a_run_are_put_back_and_run_again(self):
        portico = self.talk("*CLS", "MEAS:VOLT:DC?")
        portico.choose("Data", "Put Back Last Run")
        portico.wait(lambda: portico.commands == "*CLS\nMEAS:VOLT:DC?\n", "the lines to be back")
        self.bring(portico, "ctrl+z", "")
        self.bring(portico, "ctrl+shift+z", "*CLS\nMEAS:VOLT:DC?\n")
        portico.key("F5")
        portico.wait(lambda: portico.history.count("MEAS:VOLT:DC?\n") == 2, "the lines to be sent again")
        portico.wait_until_idle()

    def test_another_file_is_left_alone(self):
        os.makedirs(os.path.dirname(self.kept))
        with open(self.kept, "w", encoding="utf-8") as file:
            file.write("my own notes\n")
        portico = self.talk("*CLS")
        portico.key("alt+Up")
        text = portico.message("The lines that were sent before cannot be read from ")
        self.assertEqual(text, f"The lines that were sent before cannot be read from {self.kept}: it is something else.")
        portico.key("Return")
        portico.wait_until_message_closed()
        portico.wait(lambda: portico.commands == "*CLS", "the line of this session")
        self.close(portico)
        with open(self.kept, encoding="utf-8") as file:
            self.assertEqual(file.read(), "my own notes\n")


if __name__ == "__main__":
    unittest.main()
