"""Programs that others have written talk to portico-sim: lxi-tools and pyvisa-py, over raw TCP and VXI-11.

Both ask the portmapper at port 111, so all happens on a network of its own. There the test is the superuser, and so
this is also where the simulator is refused what only the system can refuse.
"""

import os
import socket
import subprocess
import sys
import unittest

PORTICO_SIM = os.environ["PORTICO_SIM"]
PATIENCE = 60  # seconds; long, because a loaded machine is slow
IDENTITY = "TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0"
RAW_PORT = 5025


def waveform(points):
    """What the meter's waveform of so many points is, as a block."""
    return b"#%d%d" % (len(str(points)), points)


class Interoperation(unittest.TestCase):
    def setUp(self):
        self.simulator = subprocess.Popen(
            [PORTICO_SIM, "--port", str(RAW_PORT), "--vxi11", "0", "--portmap"], text=True, stdout=subprocess.PIPE)
        self.addCleanup(self.end_simulator)
        lines = [self.simulator.stdout.readline().rstrip("\n") for _ in range(3)]
        self.assertEqual(lines[0], f"listening on 127.0.0.1:{RAW_PORT}")
        self.assertRegex(lines[1], r"^listening on 127\.0\.0\.1:\d+ vxi11$")
        self.assertEqual(lines[2], "listening on 127.0.0.1:111 portmap")

    def end_simulator(self):
        self.simulator.terminate()
        self.assertEqual(self.simulator.wait(PATIENCE), 0)
        self.simulator.stdout.close()


class Refused(unittest.TestCase):
    def check(self, complaint, *command):
        done = subprocess.run(command, capture_output=True, text=True, timeout=PATIENCE)
        self.assertEqual(done.stderr, f"portico-sim: {complaint}\n")
        self.assertEqual(done.stdout, "")
        self.assertEqual(done.returncode, 2)

    def test_port_of_the_portmapper(self):
        # Nobody answers on 127.0.0.1, and so the simulator would be the portmapper.
        with socket.create_server(("127.0.0.2", 111)):
            self.check("cannot listen on 127.0.0.2:111: Address already in use; "
                       "leave out --portmap, which needs port 111, or give another --bind",
                       PORTICO_SIM, "--bind", "127.0.0.2", "--port", "0", "--vxi11", "0", "--portmap")

    def test_serial_line(self):
        hide = 'mount -t tmpfs tmpfs /dev && exec "$@"'
        self.check("cannot make a pseudo-terminal: No such file or directory; leave out --serial",
                   "unshare", "--mount", "sh", "-c", hide, "sh", PORTICO_SIM, "--port", "0", "--serial")


class Lxi(Interoperation):
    def ask(self, command, *options):
        done = subprocess.run(["lxi", "scpi", "--address", "127.0.0.1", *options, command], capture_output=True,
                              timeout=PATIENCE)
        self.assertEqual(done.stderr, b"")
        self.assertEqual(done.returncode, 0)
        return done.stdout

    def test_raw(self):
        raw = ("--raw", "--port", str(RAW_PORT))
        self.assertEqual(self.ask("*IDN?", *raw).decode().rstrip("\n"), IDENTITY)
        # It takes what comes with the first segment for the whole answer.
        block = self.ask("TRAC:POIN 500;DATA?", *raw)
        self.assertEqual(block[:5], waveform(500))
        self.assertEqual(len(block), 5 + 500 + 1)

    def test_vxi11(self):
        self.assertEqual(self.ask("*IDN?").decode().rstrip("\n"), IDENTITY)
        block = self.ask("TRAC:POIN 50000;DATA?")
        self.assertEqual(block[:7], waveform(50000))
        self.assertEqual(len(block), 7 + 50000 + 1)

    def test_both_meet_one_instrument(self):
        self.ask("*ESE 5", "--raw", "--port", str(RAW_PORT))
        self.assertEqual(self.ask("*ESE?").decode().rstrip("\n"), "5")


class PyVisa(Interoperation):
    def open(self, name, **options):
        import pyvisa
        manager = pyvisa.ResourceManager("@py")
        self.addCleanup(manager.close)
        instrument = manager.open_resource(name, timeout=PATIENCE * 1000, write_termination="\r\n", **options)
        self.addCleanup(instrument.close)
        return instrument

    def check(self, instrument):
        self.assertEqual(instrument.query("*IDN?").rstrip("\n"), IDENTITY)
        instrument.write("TRAC:POIN 200000")
        data = instrument.query_binary_values("TRAC:DATA?", datatype="B", container=bytes)
        self.assertEqual(len(data), 200000)
        self.assertIn(b"\n", data)
        self.assertEqual(instrument.query("SYST:ERR?").rstrip("\n"), '0,"No error"')

    def test_raw(self):
        self.check(self.open(f"TCPIP::127.0.0.1::{RAW_PORT}::SOCKET", read_termination="\n"))

    def test_vxi11(self):
        self.check(self.open("TCPIP::127.0.0.1::inst0::INSTR"))

    def test_vxi11_calls(self):
        instrument = self.open("TCPIP::127.0.0.1::INSTR")
        instrument.write("*SRE 16;*ESE?")
        self.assertEqual(instrument.read_stb(), 16 + 64)
        self.assertEqual(instrument.read_stb(), 16)
        instrument.clear()
        self.assertEqual(instrument.read_stb(), 0)
        instrument.write("TRIG:SOUR BUS;:INIT")
        instrument.assert_trigger()
        self.assertEqual(instrument.query("*OPC?").rstrip("\n"), "1")

    def test_vxi11_read_with_nothing_asked(self):
        import pyvisa
        instrument = self.open("TCPIP::127.0.0.1::INSTR")
        instrument.timeout = 50
        with self.assertRaises(pyvisa.VisaIOError) as failure:
            instrument.read()
        self.assertEqual(failure.exception.error_code, pyvisa.constants.StatusCode.error_timeout)
        instrument.timeout = PATIENCE * 1000
        self.assertEqual(instrument.query("SYST:ERR?").rstrip("\n"), '-420,"Query UNTERMINATED"')

    def test_vxi11_lock(self):
        import pyvisa
        first = self.open("TCPIP::127.0.0.1::INSTR")
        second = self.open("TCPIP::127.0.0.1::INSTR")
        first.lock_excl()
        with self.assertRaises(pyvisa.VisaIOError):
            second.write("*ESE 5")
        first.unlock()
        second.write("*ESE 5")
        self.assertEqual(first.query("*ESE?").rstrip("\n"), "5")


if __name__ == "__main__":
    if "OWN_NETWORK" not in os.environ:
        # Where users may not, as behind a chroot, the superuser still may.
        own = ["unshare", "--user", "--map-root-user", "--net"]
        if subprocess.run([*own, "true"], stderr=subprocess.DEVNULL).returncode != 0:
            own = ["unshare", "--net"]
        if subprocess.run([*own, "true"]).returncode != 0:
            sys.exit("this machine lets no user make a network of his own, which this test needs")
        os.environ["OWN_NETWORK"] = "yes"
        os.execvp(own[0], [*own, sys.executable, *sys.argv])
    subprocess.run(["ip", "link", "set", "lo", "up"], check=True)
    unittest.main()
