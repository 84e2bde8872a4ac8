"""A program that somebody else has written, pyvisa-py, converses with portico-sim through portico-tap, over raw TCP and
VXI-11. To be run by own_network.sh, since VXI-11 is looked for at port 111.
"""

import os
import subprocess
import tempfile
import unittest

PORTICO_LOG = os.environ["PORTICO_LOG"]
PORTICO_SIM = os.environ["PORTICO_SIM"]
PORTICO_TAP = os.environ["PORTICO_TAP"]
PATIENCE = 60  # seconds; long, because a loaded machine is slow
IDENTITY = "TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0"
POINTS = 200000


class Tap(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.start_simulator()

    def start_simulator(self, *options):
        self.raw, self.vxi11 = self.start(2, PORTICO_SIM, "--port", "0", "--vxi11", "0", *options)

    def start(self, listeners, *command):
        """The ports that it listens on."""
        return self.run_program(listeners, *command)[0]

    def run_program(self, listeners, *command):
        """Those ports, and the program."""
        program = subprocess.Popen(command, text=True, stdout=subprocess.PIPE)
        self.addCleanup(self.end, program)
        lines = [program.stdout.readline() for _ in range(listeners)]
        for line in lines:
            self.assertRegex(line, r"^listening on 127\.0\.0\.1:\d+( vxi11)?\n$")
        return [line.split()[2].rsplit(":", 1)[1] for line in lines], program

    def end(self, program):
        if program.poll() is None:
            program.terminate()
        self.assertEqual(program.wait(PATIENCE), 0)
        program.stdout.close()

    def log(self, name):
        return os.path.join(self.folder, name)

    def converse(self, name, **options):
        import pyvisa
        manager = pyvisa.ResourceManager("@py")
        instrument = manager.open_resource(name, timeout=PATIENCE * 1000, write_termination="\r\n", **options)
        self.assertEqual(instrument.query("*IDN?").rstrip("\n"), IDENTITY)
        instrument.write(f"TRAC:POIN {POINTS}")
        data = instrument.query_binary_values("TRAC:DATA?", datatype="B", container=bytes)
        self.assertEqual(len(data), POINTS)
        self.assertIn(b"\n", data)
        self.assertEqual(instrument.query("SYST:ERR?").rstrip("\n"), '0,"No error"')
        instrument.close()
        manager.close()

    def shown(self, log):
        """The instructions, and the answers without the long one."""
        done = subprocess.run([PORTICO_LOG, "export", "--format", "csv", self.log(log)], capture_output=True, text=True,
                              encoding="utf-8", timeout=PATIENCE)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def diff(self, first, second):
        done = subprocess.run([PORTICO_LOG, "diff", self.log(first), self.log(second)], capture_output=True, text=True,
                              encoding="latin-1", timeout=PATIENCE)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def check(self, log):
        shown = self.shown(log)
        for text in ("*IDN?", IDENTITY, f"TRAC:POIN {POINTS}", "TRAC:DATA?", "SYST:ERR?"):
            self.assertIn(text, shown)

    def converse_raw(self, log):
        instrument = f"TCPIP::127.0.0.1::{self.raw}::SOCKET"
        (port,), tap = self.run_program(1, PORTICO_TAP, "--listen", "0", "--log", self.log(log), instrument)
        self.converse(f"TCPIP::127.0.0.1::{port}::SOCKET", read_termination="\n")
        self.end(tap)

    def converse_vxi11(self, log, instrument=None):
        # Where no portmapper runs, the tap is it.
        instrument = instrument or f"TCPIP::127.0.0.1,{self.vxi11}::inst0::INSTR"
        _, tap = self.run_program(1, PORTICO_TAP, "--vxi11", "111", "--log", self.log(log), instrument)
        self.converse("TCPIP::127.0.0.1::inst0::INSTR")
        self.end(tap)

    def test_raw(self):
        self.converse_raw("a.log")
        self.check("a.log")

    def test_vxi11(self):
        self.converse_vxi11("a.log")
        self.check("a.log")

    def test_same_conversation_over_both(self):
        self.converse_raw("a.log")
        self.start_simulator()  # whose noise begins anew
        self.converse_vxi11("b.log")
        self.diff("a.log", "b.log")

    def test_vxi11_before_a_raw_socket(self):
        self.converse_raw("a.log")
        self.start_simulator()
        self.converse_vxi11("b.log", f"TCPIP::127.0.0.1::{self.raw}::SOCKET")
        self.diff("a.log", "b.log")

    def test_raw_replayed(self):
        self.converse_raw("a.log")
        self.start_simulator("--replay", self.log("a.log"))
        self.converse_raw("b.log")
        self.check("b.log")
        self.diff("a.log", "b.log")

    def test_vxi11_replayed(self):
        self.converse_vxi11("a.log")
        self.start_simulator("--replay", self.log("a.log"))
        self.converse_vxi11("b.log")
        self.check("b.log")
        self.diff("a.log", "b.log")

    def test_vxi11_calls_before_a_raw_socket(self):
        import pyvisa
        self.start(1, PORTICO_TAP, "--vxi11", "111", f"TCPIP::127.0.0.1::{self.raw}::SOCKET")
        manager = pyvisa.ResourceManager("@py")
        self.addCleanup(manager.close)
        instrument = manager.open_resource("TCPIP::127.0.0.1::INSTR", timeout=PATIENCE * 1000, write_termination="\r\n")
        instrument.write("INIT;*OPC?")
        instrument.clear()
        self.assertEqual(instrument.query("*ESE 5;*ESE?").rstrip("\n"), "5")
        with self.assertRaises(Exception):
            manager.open_resource("TCPIP::127.0.0.1::INSTR")
        instrument.write("SIM:SIL ON")
        instrument.timeout = 200
        with self.assertRaises(pyvisa.errors.VisaIOError) as raised:
            instrument.query("*ESE?")
        self.assertEqual(raised.exception.error_code, pyvisa.constants.StatusCode.error_timeout)
        instrument.close()

    def test_vxi11_calls(self):
        import pyvisa
        self.start(1, PORTICO_TAP, "--vxi11", "111", f"TCPIP::127.0.0.1,{self.vxi11}::inst0::INSTR")
        manager = pyvisa.ResourceManager("@py")
        self.addCleanup(manager.close)
        instrument = manager.open_resource("TCPIP::127.0.0.1::INSTR", timeout=PATIENCE * 1000, write_termination="\r\n")
        instrument.write("*SRE 16;*ESE?")
        self.assertEqual(instrument.read_stb(), 16 + 64)
        instrument.clear()
        self.assertEqual(instrument.read_stb(), 0)
        with self.assertRaises(Exception):
            manager.open_resource("TCPIP::127.0.0.1::INSTR")
        self.assertEqual(instrument.query("*OPC?").rstrip("\n"), "1")
        instrument.close()


if __name__ == "__main__":
    unittest.main()
