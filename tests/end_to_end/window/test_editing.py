"""Cut, copy, paste, clear and print, by menu, popup, toolbar and key."""

import os
import unittest

from case import WindowCase

class Editing(WindowCase):
    def talk(self, *lines):
        portico = self.open(self.simulator().name)
        portico.type_lines(*lines)
        portico.key("F5")
        portico.wait_for_history(lines[-1] + "\n")
        portico.wait_until_idle()
        return portico

    def test_a_pasted_conversation_runs_as_it_was_typed(self):
        portico = self.talk("*IDN?", "MEAS:VOLT:DC?")
        portico.click(portico.find("txtPast", "text"))
        portico.key("ctrl+a")
        portico.choose("Edit", "Copy                       Ctrl+C")
        portico.click(portico.find("txtFuture", "text"))
        portico.key("ctrl+v")
        portico.wait(lambda: portico.commands.count("*OPC?") == 2, "the conversation in the command window")
        before = portico.history
        portico.key("F5")
        # The automatic lines and the answers are passed over: only the two instructions go out again.
        portico.wait(lambda: portico.history.count("*IDN?") == 2 and portico.history.count("MEAS:VOLT:DC?") == 2,
                     "the conversation again")
        portico.wait_until_idle()
        self.assertTrue(portico.history.startswith(before))
        self.assertEqual(portico.history.count("*OPC?"), 4)

    def test_cut_in_the_menu_fails_and_its_keys_cut(self):
        portico = self.open(self.simulator().name)
        portico.type_lines("*IDN?")
        portico.key("ctrl+a")
        portico.choose("Edit", "Cut                          Ctrl+X")
        portico.message("Can't perform cut operation.")
        portico.key("Return")
        portico.wait_until_message_closed()
        self.assertIn("*IDN?", portico.commands)
        portico.click(portico.button("Cut"))
        portico.message("Can't perform Cut operation.")
        portico.key("Return")
        portico.wait_until_message_closed()
        portico.key("ctrl+x")
        portico.wait(lambda: portico.commands == "", "the text to be cut")
        portico.click(portico.button("Paste"))
        portico.wait(lambda: "*IDN?" in portico.commands, "the text to be back")

    def test_copy_and_paste_by_button_menu_and_popup(self):
        portico = self.talk("*IDN?")
        portico.click(portico.find("txtPast", "text"))
        portico.key("ctrl+a")
        portico.click(portico.button("Copy"))
        portico.click(portico.find("txtFuture", "text"))  # while the history has the focus, nothing can be pasted
        portico.choose("Edit", "Paste                       Ctrl+V")
        portico.wait(lambda: portico.commands.count("*IDN?") == 1, "the conversation in the command window")
        portico.popup("txtFuture", *["Down"] * 1, "Return")  # Paste: there is nothing selected to cut or to copy
        portico.wait(lambda: portico.commands.count("*IDN?") == 2, "the conversation once more")
        portico.click(portico.find("txtPast", "text"))
        portico.key("ctrl+a")
        portico.popup("txtPast", "Down", "Return")  # Copy
        portico.click(portico.find("txtFuture", "text"))
        portico.key("ctrl+a")
        portico.popup("txtFuture", "Down", "Down", "Down", "Return")  # Cut, Copy, Paste
        portico.wait(lambda: portico.commands.count("*IDN?") == 1, "the conversation in place of what was selected")

    def test_a_text_is_looked_for_by_menu_and_keys(self):
        portico = self.talk("*IDN?", "MEAS:VOLT:DC?")
        box = portico.find("txtPast", "text")
        portico.click(box)
        portico.key("ctrl+Home")
        portico.choose("View", "Find...")
        portico.wait(lambda: portico.find("Find", "text").focused, "the field")
        portico.type("*opc")
        portico.wait(lambda: box.selection[1] == "*OPC", "what was looked for")
        first = box.selection[0]
        portico.key("Escape")
        portico.wait(lambda: box.focused, "the focus to be back")
        portico.choose("View", "Find Next")
        portico.wait(lambda: box.selection[0] > first and box.selection[1] == "*OPC", "the next one")
        portico.key("ctrl+shift+g")
        portico.wait(lambda: box.selection[0] == first, "the first one")
        portico.key("ctrl+g")
        portico.wait(lambda: box.selection[0] > first, "the next one again")

    def test_the_text_is_made_larger_by_menu_and_keys(self):
        portico = self.talk("*IDN?")
        box = portico.find("txtPast", "text")
        portico.click(box)
        height = box.line_height()
        portico.choose("View", "Zoom In")
        portico.wait(lambda: box.line_height() > height, "larger text")
        portico.key("ctrl+0")
        portico.wait(lambda: box.line_height() == height, "text of its own size")
        portico.key("ctrl+minus")
        portico.wait(lambda: box.line_height() < height, "smaller text")
        portico.choose("View", "Actual Size")
        portico.wait(lambda: box.line_height() == height, "text of its own size again")

    def test_typing_can_be_undone(self):
        portico = self.open(self.simulator().name)
        portico.type_lines("*IDN?")
        portico.key("ctrl+z")
        portico.wait(lambda: "*IDN?" not in portico.commands or not portico.commands.endswith("*IDN?\n"),
                     "the last of the typing to be undone")

    def test_the_page_setup_opens_and_cancels_quietly(self):
        portico = self.open(self.simulator().name)
        portico.choose("File", "Print Setup...")
        portico.window("Print Setup")
        portico.key("Escape")
        portico.wait_until_closed("Print Setup")
        self.assertTrue(portico.item("Close Instrument").enabled)

    def test_the_windows_are_cleared(self):
        portico = self.talk("*IDN?")
        portico.type_lines("*RST")
        portico.choose("Edit", "Clear Command Window")
        portico.wait(lambda: portico.commands == "", "an empty command window")
        portico.choose("Edit", "Clear History Window")
        portico.wait(lambda: portico.history == "", "an empty history")
        portico.type_lines("*IDN?")
        portico.popup("txtFuture", "Down", "Return")
        portico.wait(lambda: portico.commands == "", "an empty command window")

    def test_the_history_is_cleared_from_its_popup(self):
        portico = self.talk("*IDN?")
        portico.popup("txtPast", "Up", "Return")
        portico.wait(lambda: portico.history == "", "an empty history")

    def test_the_history_cannot_be_typed_into(self):
        portico = self.talk("*IDN?")
        before = portico.history
        portico.click(portico.find("txtPast", "text"))
        portico.type("nothing")
        portico.key("BackSpace", "ctrl+x", "Delete")
        portico.wait(lambda: not portico.button("Run to Cursor").enabled, "the history to have the focus")
        self.assertEqual(portico.history, before)

    def test_the_history_is_printed_to_a_file(self):
        portico = self.talk("*IDN?")
        path = os.path.join(self.desktop.home, "history.pdf")
        portico.key("ctrl+p")
        dialog = portico.window("Print")
        field = portico.find_text_field(dialog)
        portico.click(field)
        portico.key("ctrl+a")
        portico.type(path)
        portico.click(portico.find("Print", "push button", within=dialog))
        portico.wait(lambda: os.path.exists(path) and open(path, "rb").read().rstrip().endswith(b"%%EOF"),
                     "the printed file")

    def test_the_print_dialog_offers_no_pages(self):
        portico = self.talk("*IDN?")
        portico.key("ctrl+p")
        dialog = portico.window("Print")
        portico.click(portico.find("Options >>", "push button", within=dialog))
        portico.wait(lambda: portico.find("Print all", "radio button", within=dialog).showing, "the options")
        radio = [node.name for node in dialog.descendants()
                 if node.role == "radio button" and node.showing and node.enabled]
        self.assertEqual(radio, ["Print all"])
        spin = [node for node in dialog.descendants() if node.role == "spin button" and node.showing and node.enabled]
        self.assertEqual(len(spin), 1)  # the number of copies

    def test_a_cancelled_print_is_told(self):
        portico = self.talk("*IDN?")
        portico.click(portico.button("Print"))
        portico.window("Print")
        portico.key("Escape")
        self.assertIn("32755", portico.message("Can't perform print operation."))


if __name__ == "__main__":
    unittest.main()
