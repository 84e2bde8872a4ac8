"""What the menu Data does to the device: its time-out, its clearing, and its front panel."""

import unittest

from case import WindowCase


class Device(WindowCase):
    def set_timeout(self, portico, milliseconds):
        portico.choose("Data", "Time-out...")
        field = portico.find_text_field(portico.window("Time-out"))
        portico.click(field)
        portico.key("ctrl+a")
        portico.type(milliseconds)
        portico.wait(lambda: field.text == milliseconds, "the time-out to be typed")
        portico.key("Return")

    def send(self, portico, line):
        portico.type_lines(line)
        portico.key("F5")
        portico.wait(lambda: portico.commands == "", "the command window to be empty")
        portico.wait_until_idle()

    def clear_over(self, interface):
        simulator = self.simulator(interface=interface)
        portico = self.open(simulator.name)
        portico.choose("Tools", "Communication Protocol", "Other")
        portico.wait(lambda: portico.panels()[1] == "Other", "the protocol in the status bar")
        self.send(portico, "SIM:ECHO? 4711")
        portico.choose("Data", "Clear Device")
        self.send(portico, "SIM:ECHO? 4712")
        portico.key("F2")
        portico.wait_for_history("\n4712\n")
        self.assertNotIn("\n4711\n", portico.history)
        return simulator, portico

    def test_after_clear_device_the_next_query_gets_no_old_answer(self):
        _, portico = self.clear_over("vxi11")
        portico.choose("Data", "Go to Local")
        self.send(portico, "SIM:ECHO? 4713")
        portico.key("F2")
        portico.wait_for_history("\n4713\n")

    def test_a_socket_is_cleared_by_a_fresh_connection_and_has_no_way_to_local(self):
        simulator, portico = self.clear_over(None)
        portico.choose("Data", "Go to Local")
        told = portico.message("This cannot be done")
        self.assertEqual(told, f"This cannot be done: {simulator.name.replace('TCPIP', 'TCPIP0')} has no means for it.")
        portico.key("Return")
        portico.wait_until_message_closed()
        self.assertTrue(portico.item("Go to Local").enabled)

    def test_a_timeout_holds_from_the_next_call_on_and_at_the_next_start(self):
        simulator = self.simulator()
        portico = self.open(simulator.name)
        self.set_timeout(portico, "0")
        self.assertEqual(portico.message("Use"), "Use 1 to 3600000 milliseconds.")
        portico.key("Return")
        portico.wait(lambda: not any(node.showing and node.name.startswith("Use")
                                     for node in portico.application_node().descendants()), "the dialog alone")
        portico.window("Time-out")
        portico.key("Escape")
        portico.wait_until_closed("Time-out")
        self.set_timeout(portico, "1500")
        portico.wait_until_closed("Time-out")
        self.send(portico, "SIM:DEL 4;ECHO? 4711")
        self.assertIn("Timeout expired before the answer was complete", portico.history)
        portico.choose("File", "Exit")
        portico.wait_until_ended()
        portico = self.open(simulator.name)
        self.send(portico, "SIM:DEL 4;ECHO? 4711")
        self.assertIn("Timeout expired before the answer was complete", portico.history)

    def test_what_the_code_page_lacks_stays_in_the_text_and_goes_out_as_a_question_mark(self):
        portico = self.open(self.simulator().name)
        portico.type_lines('DISP:TEXT "5 k"', "DISP:TEXT?")
        portico.key("Up", "Up", "End", "Left")
        portico.key("Greek_omega")
        portico.wait(lambda: 'DISP:TEXT "5 kω"\n' in portico.commands, "the letter to be typed")
        portico.key("F5")
        portico.wait(lambda: portico.commands == "", "the command window to be empty")
        portico.wait_until_idle()
        self.assertIn('DISP:TEXT "5 kω"\n', portico.history)
        self.assertIn('"5 k?"\n', portico.history)


if __name__ == "__main__":
    unittest.main()
