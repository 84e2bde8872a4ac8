"""What the window offers to complete a command with."""

import os
import stat
import unittest

from conversation import ConversationCase, Listener


class Completion(ConversationCase):
    def lists(self, **files):
        folder = f"{self.desktop.environment['XDG_DATA_HOME']}/portico/commands"
        os.makedirs(folder)
        for name, text in files.items():
            with open(f"{folder}/{name}.txt", "wb") as file:
                file.write(text)

    def test_a_word_is_completed_by_keys(self):
        self.lists(mine=b"MEASure:VOLTage:DC?\nMEASure:VOLume?\n")
        portico = self.connect(self.simulator().name)
        self.type(portico, "meas:vo")
        portico.key("ctrl+space")
        self.assertEqual(self.wait_for_list(portico), ["VOLTage:", "VOLume?"])
        box = portico.find("txtFuture", "text")
        self.assertTrue(box.focused)
        self.assertEqual(portico.commands, "meas:vo")
        portico.wait(lambda: box.description == "VOLTage:, 1 of 2", "the choice to be told")
        portico.key("Down")
        portico.wait(lambda: box.description == "VOLume?, 2 of 2", "the next choice to be told")
        portico.key("Return")
        self.expect(portico, "meas:vol?")
        self.wait_until_closed(portico)
        self.assertTrue(box.focused)
        self.assertNotIn("of 2", box.description)
        portico.key("ctrl+z")
        self.expect(portico, "meas:vo")

    def test_the_list_follows_and_escape_leaves_the_text(self):
        self.lists(mine=b"MEASure:VOLTage:DC?\nMEASure:CURRent:DC?\n")
        portico = self.connect(self.simulator().name)
        self.type(portico, "meas:")
        portico.choose("Data", "Complete")
        self.assertEqual(self.wait_for_list(portico), ["CURRent:", "VOLTage:"])
        portico.type("v")
        portico.wait(lambda: self.offered(portico) == ["VOLTage:"], "the list to follow")
        portico.key("Escape")
        self.wait_until_closed(portico)
        self.expect(portico, "meas:v")
        portico.key("ctrl+space")
        self.wait_for_list(portico)
        portico.key("Tab")
        self.expect(portico, "meas:volt:")
        portico.key("ctrl+space")
        self.wait_for_list(portico)
        portico.click(portico.find("txtPast", "text"))
        self.wait_until_closed(portico)
        self.expect(portico, "meas:volt:")

    def test_the_standards_commands_come_with_the_program(self):
        portico = self.connect(self.simulator().name)
        self.type(portico, "*i")
        portico.key("ctrl+space")
        self.assertIn("*IDN?", self.wait_for_list(portico))
        portico.key("Return")
        self.expect(portico, "*idn?")

    def test_the_instrument_is_asked_and_its_commands_are_kept(self):
        simulator = self.simulator()
        portico = self.connect(simulator.name)
        self.assertNotIn("*IDN?", portico.history)
        self.type(portico, "conf:")
        portico.key("ctrl+space", "Left", "Right")
        self.assertEqual(self.offered(portico), [])
        portico.choose("Data", "Ask the Instrument for Its Commands")
        portico.wait_for_history("SYSTem:HELP:HEADers?\n")
        portico.wait_for_history('0,"No error"')
        self.assertIn("*IDN?\n", portico.history)
        portico.click(portico.find("txtFuture", "text"))
        portico.key("ctrl+End", "ctrl+space")
        self.assertIn("VOLTage:", [text.replace("[:DC]", "") for text in self.wait_for_list(portico)])
        portico.choose("File", "Exit")
        self.assertEqual(portico.wait_until_ended(), 0)
        folder = f"{self.desktop.environment['XDG_STATE_HOME']}/portico/instruments"
        (kept,) = os.listdir(folder)
        self.assertEqual(stat.S_IMODE(os.stat(f"{folder}/{kept}").st_mode), 0o600)

        portico = self.connect(simulator.name)
        self.type(portico, "conf:")
        portico.key("ctrl+space")
        self.wait_for_list(portico)
        self.assertNotIn("*IDN?", portico.history)

    def test_an_instrument_that_tells_nothing_is_told_in_words(self):
        errors = iter(['-113,"Undefined header"'])

        def answer(line):
            if line == "*IDN?":
                return "MAKER,M1,0,1"
            return None if "HELP" in line else next(errors, '0,"No error"')

        instrument = Listener(answer)
        portico = self.connect(instrument.name)
        portico.choose("Data", "Ask the Instrument for Its Commands")
        text = portico.message("The instrument does not tell its commands")
        self.assertEqual(text, 'The instrument does not tell its commands: -113,"Undefined header"')
        portico.key("Return")
        portico.wait_until_message_closed()

    def test_bare_lines_are_read_to_silence_and_the_connection_made_anew(self):
        instrument = Listener(lambda line: {"*IDN?": "MAKER,M1,0,1",
                                            "SYSTem:HELP:HEADers?": ":ROUTe:CLOSe/nquery/\n:ROUTe:STATe?/qonly/",
                                            }.get(line, '0,"No error"'))
        portico = self.connect(instrument.name)
        portico.choose("Data", "Ask the Instrument for Its Commands")
        portico.wait_for_history('0,"No error"')
        portico.click(portico.find("txtFuture", "text"))
        self.type(portico, "rout:")
        portico.key("ctrl+space")
        self.assertEqual(self.wait_for_list(portico), ["CLOSe", "STATe?"])

    def test_a_bad_list_is_told_once_and_the_others_work(self):
        self.lists(bad=b"OK:ONE\n\x00\x01\x02", good=b"GOOD:ONE?\nGOOD:TWO?\n")
        portico = self.connect(self.simulator().name)
        self.type(portico, "good:")
        portico.key("ctrl+space")
        self.assertEqual(portico.message("The command list"), "The command list bad.txt: Line 2 is no text.")
        portico.key("Return")
        portico.wait_until_message_closed()
        portico.key("Escape", "ctrl+space")
        self.assertEqual(self.wait_for_list(portico), ["ONE?", "TWO?"])

    def run_lines(self, list_is_open):
        def talk(portico):
            self.type(portico, "*CLS")
            portico.key("Return")
            self.type(portico, "stat:oper:")
            if list_is_open:
                portico.key("ctrl+space")
                self.wait_for_list(portico)
            portico.key("F5")
            portico.wait_for_history("stat:oper:\n")
            portico.wait_until_idle()
            self.wait_until_closed(portico)

        return self.record("open" if list_is_open else "closed", talk, Listener())

    def test_a_run_with_the_list_open_is_the_same_as_without(self):
        closed = self.run_lines(False)
        self.assert_same(self.run_lines(True), closed)
        self.assertIn("stat:oper:\r\n", closed["wire"])


if __name__ == "__main__":
    unittest.main()
