"""Whatever stands beside a run, the run is the same."""

import struct
import unittest

from conversation import NO_ERROR, ConversationCase, Listener

UNDEFINED = '-113,"Undefined header"'
WIDTH, HEIGHT = 2, 1


def picture():
    """A block that holds a bitmap."""
    pixels = b"\x20\x40\x60\x80\xa0\xc0\x01\x01"
    bitmap = struct.pack("<2sIHHIIiiHHIIiiII", b"BM", 54 + len(pixels), 0, 0, 54, 40, WIDTH, HEIGHT, 1, 24, 0,
                         len(pixels), 0, 0, 0, 0) + pixels
    return f"#2{len(bitmap)}{bitmap.decode('latin-1')}"


class Instrument(Listener):
    """Knows a measurement and a picture, and nothing that is called nonsense."""

    def __init__(self):
        super().__init__(self.reply)
        self.measured = 0

    def reply(self, line):
        if line == "MEAS?":
            self.measured += 1
            return f"{self.measured}.5"
        if line == "PICT?":
            return picture()
        if line == "*OPC?":
            return "1"
        return UNDEFINED if "NONSENSE" in self.lines[-2] else NO_ERROR


class Everything(ConversationCase):
    BEFORE = ("PICT?", "MEAS?")
    FIRST = ("*CLS", "REM a remark", "MEAS?", "NONSENSE 5", "MEAS?")
    SECOND = ("MEAS?", "*WAI", "NONSENSE 6")

    def run_until(self, portico, *last):
        """The run's last lines tell that it is over."""
        portico.key("F5")
        portico.wait(lambda: portico.history.endswith("".join(line + "\n" for line in last)), f"{last!r} at the end")
        portico.wait_until_idle()
        self.expect(portico, "")

    def write(self, portico, lines):
        for line in lines:
            self.type(portico, line)
            portico.key("Return")

    def begin(self, portico):
        portico.click(portico.find("txtFuture", "text"))
        self.write(portico, self.BEFORE)
        portico.key("F5")
        portico.wait_for_history("PICT?\n#2")  # what follows the first NUL is not told
        portico.wait_until_idle()
        self.expect(portico, "")

    def clear_history(self, portico):
        portico.choose("Edit", "Clear History Window")
        portico.wait(lambda: portico.history == "", "the history to be empty")
        portico.click(portico.find("txtFuture", "text"))

    def without(self, portico):
        portico.choose("Data", "Keep Sent Lines")
        self.begin(portico)
        self.clear_history(portico)
        self.write(portico, self.FIRST)
        self.type(portico, "stat:oper:")
        self.run_until(portico, "stat:oper:", ":SYST:ERR?", NO_ERROR)
        for _ in range(2):
            self.write(portico, self.SECOND)
            self.run_until(portico, "NONSENSE 6", ":SYST:ERR?", UNDEFINED)

    def beside(self, portico, *captions):
        """Opens a window beside the main one, which gets the keys back."""
        portico.choose(*captions)
        window = portico.window(captions[-1].removesuffix("...").removeprefix("Show "))
        self.move(window, self.desktop.SIZE[0] // 2)
        self.to_main(portico)
        return window

    def move(self, window, left):
        self.desktop.xdotool("search", "--onlyvisible", "--name", f"^{window.name}$", "windowmove", left, 0)

    def to_main(self, portico):
        self.desktop.xdotool("search", "--name", f"^{portico.main.name}$", "windowactivate", "--sync")
        portico.main = portico.window(portico.main.name)

    def plotted(self, portico, plot, count):
        told = f"MEAS?: {count} values, minimum 1.5, maximum {count}.5."
        drawing = portico.find("Plot", "filler", within=plot)
        portico.wait(lambda: drawing.description == told, told)

    def timed(self, portico, times, count):
        portico.wait(lambda: ["MEAS?", str(count)] in [row[:2] for row in portico.times(times)],
                     f"{count} measurements that were timed")

    def with_everything(self, portico):
        history = portico.find("txtPast", "text")
        self.move(portico.main, 0)
        self.begin(portico)
        portico.click(history)
        portico.key("ctrl+Home", "Down", "Down", "Down")
        portico.wait(lambda: portico.item("Show Picture").enabled, "the picture to be offered")
        pictured = self.beside(portico, "View", "Show Picture")
        plot = self.beside(portico, "View", "Plot...")
        times = self.beside(portico, "View", "Timing...")
        self.clear_history(portico)

        self.write(portico, self.FIRST)
        self.type(portico, "stat:oper:")
        portico.key("ctrl+space")
        self.wait_for_list(portico)
        self.run_until(portico, "stat:oper:", ":SYST:ERR?", NO_ERROR)
        self.wait_until_closed(portico)
        portico.wait_for_marks(1)
        self.plotted(portico, plot, 3)
        self.timed(portico, times, 3)

        portico.choose("View", "Errors...")
        portico.window("Errors")
        portico.key("Return")
        portico.wait_until_closed("Errors")
        portico.wait(lambda: history.selection[1].endswith(UNDEFINED), "the error to be selected")

        portico.choose("Data", "Stop at Errors")
        portico.click(portico.find("txtFuture", "text"))
        self.type(portico, "me")
        portico.key("alt+Up")
        self.expect(portico, "MEAS?")
        portico.key("Return")
        self.write(portico, self.SECOND[1:])
        self.run_until(portico, "NONSENSE 6", ":SYST:ERR?", UNDEFINED)
        portico.choose("Data", "Put Back Last Run")
        self.expect(portico, "".join(line + "\n" for line in self.SECOND))
        portico.key("ctrl+End", "ctrl+space")
        self.wait_for_list(portico)
        self.run_until(portico, "NONSENSE 6", ":SYST:ERR?", UNDEFINED)
        portico.wait_for_marks(3)
        self.plotted(portico, plot, 5)
        self.timed(portico, times, 5)
        for window in (plot, times, pictured):
            self.assertTrue(window.showing, window.name)

    def test_a_run_is_the_same_with_every_window_and_list_and_without(self):
        plain = self.record("without", self.without, Instrument())
        first = [("*CLS",), ("REM a remark",), ("MEAS?", "2.5"), ("NONSENSE 5",), ("MEAS?", "3.5"), ("stat:oper:",)]
        later = [[("MEAS?", f"{number}.5"), ("*WAI",), ("NONSENSE 6",)] for number in (4, 5)]
        run = [*first, *later[0], *later[1]]
        sent = [line for line in (*self.BEFORE, *(line for line, *_ in run)) if not line.startswith("REM")]
        self.assertEqual(plain["wire"], [f"{each}\r\n" for line in sent for each in ("*OPC?", line, ":SYST:ERR?")])
        self.assertEqual(plain["history"].splitlines(), [shown for exchange in run for shown in self.shown(*exchange)])
        self.assert_same(self.record("with", self.with_everything, Instrument()), plain)

    @staticmethod
    def shown(line, *answers):
        if line.startswith("REM"):
            return [line]
        return ["*OPC?", "1", line, *answers, ":SYST:ERR?", UNDEFINED if "NONSENSE" in line else NO_ERROR]


if __name__ == "__main__":
    unittest.main()
