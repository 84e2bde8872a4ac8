"""Programs that others have written meet portico-sim: lxi-tools and pyvisa-py, over raw TCP and VXI-11, and rpcbind, the
portmapper. To be run by own_network.sh, since VXI-11 is looked for at port 111, and since
the superuser of that network can be refused what only the system refuses.
"""

import os
import socket
import subprocess
import tempfile
import threading
import unittest

PORTICO_RUN = os.environ["PORTICO_RUN"]
PORTICO_SIM = os.environ["PORTICO_SIM"]
PATIENCE = 60  # seconds; long, because a loaded machine is slow
IDENTITY = "TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0"
RAW_PORT = 5025


def waveform(points):
    """What the meter's waveform of so many points is, as a block."""
    return b"#%d%d" % (len(str(points)), points)


class Interoperation(unittest.TestCase):
    portmapper = ["listening on 127.0.0.1:111 portmap"]  # portico-sim is it
    options = []  # of the simulator, and more

    def setUp(self):
        self.core_port = self.start_simulator()

    def start_simulator(self, raw_port=RAW_PORT):
        """The port of VXI-11's core channel."""
        self.simulator = subprocess.Popen(
            [PORTICO_SIM, "--port", str(raw_port), "--vxi11", "0", "--portmap", *self.options],
            text=True, stdout=subprocess.PIPE)
        self.addCleanup(self.end_simulator, self.simulator)
        raw, vxi11, *portmapper = [self.simulator.stdout.readline().rstrip("\n") for _ in range(2 + len(self.portmapper))]
        self.assertEqual(raw, f"listening on 127.0.0.1:{raw_port}")
        self.assertRegex(vxi11, r"^listening on 127\.0\.0\.1:\d+ vxi11$")
        self.assertEqual(portmapper, self.portmapper)
        return vxi11.split()[2].rsplit(":", 1)[1]

    def end_simulator(self, simulator):
        simulator.terminate()
        self.assertEqual(simulator.wait(PATIENCE), 0)
        self.assertEqual(simulator.stdout.read(), "")
        simulator.stdout.close()

    def lxi(self, command, *options):
        done = subprocess.run(["lxi", "scpi", "--address", "127.0.0.1", *options, command], capture_output=True,
                              timeout=PATIENCE)
        self.assertEqual(done.stderr, b"")
        self.assertEqual(done.returncode, 0)
        return done.stdout


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
    def test_raw(self):
        raw = ("--raw", "--port", str(RAW_PORT))
        self.assertEqual(self.lxi("*IDN?", *raw).decode().rstrip("\n"), IDENTITY)
        # It takes what comes with the first segment for the whole answer.
        block = self.lxi("TRAC:POIN 500;DATA?", *raw)
        self.assertEqual(block[:5], waveform(500))
        self.assertEqual(len(block), 5 + 500 + 1)

    def test_vxi11(self):
        self.assertEqual(self.lxi("*IDN?").decode().rstrip("\n"), IDENTITY)
        block = self.lxi("TRAC:POIN 50000;DATA?")
        self.assertEqual(block[:7], waveform(50000))
        self.assertEqual(len(block), 7 + 50000 + 1)

    def test_both_meet_one_instrument(self):
        self.lxi("*ESE 5", "--raw", "--port", str(RAW_PORT))
        self.assertEqual(self.lxi("*ESE?").decode().rstrip("\n"), "5")


class ByPyVisa:
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


class PyVisa(ByPyVisa, Interoperation):
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


class Replayed(ByPyVisa, Interoperation):
    """The same conversation with what portico-run has logged of it."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        log = f"{folder.name}/talk.log"
        done = subprocess.run([PORTICO_RUN, "--quiet", "--log", log, "SIM::dmm::INSTR"], text=True, capture_output=True,
                              timeout=PATIENCE, input="*IDN?\nTRAC:POIN 200000\nTRAC:DATA?\nSYST:ERR?\n")
        self.assertEqual(done.stderr, "")
        self.assertEqual(done.returncode, 0)
        self.options = ["--replay", log]
        super().setUp()

    def test_what_nobody_asked_is_undefined(self):
        instrument = self.open("TCPIP::127.0.0.1::INSTR")
        instrument.write("*ESE 5")
        self.assertEqual(instrument.query("SYST:ERR?").rstrip("\n"), '-113,"Undefined header"')


class Rpcbind(Interoperation):
    """The portmapper that most machines have runs already."""
    portmapper = []

    def setUp(self):
        # It gives up its groups, which the kernel allows nobody who is the superuser of his own network alone. strace lets it
        # believe that it has.
        rpcbind = subprocess.Popen(["strace", "-D", "-qq", "-o", "/dev/null", "-e", "inject=setgroups:retval=0",
                                    "rpcbind", "-f", "-d"], text=True, stderr=subprocess.PIPE)
        rest = threading.Thread(target=rpcbind.stderr.read)
        for end in (rpcbind.stderr.close, rest.join, rpcbind.wait, rpcbind.terminate):
            self.addCleanup(end)
        said = []
        for line in rpcbind.stderr:
            said.append(line)
            if "debugging enabled" in line:  # it listens
                break
        rest.start()
        self.assertIn("debugging enabled", "".join(said))
        super().setUp()

    def registered(self):
        """Where rpcbind knows VXI-11's core channel to be."""
        entries = subprocess.run(["rpcinfo", "-p", "127.0.0.1"], text=True, capture_output=True, check=True,
                                 timeout=PATIENCE).stdout
        return [entry.split()[1:4] for entry in entries.splitlines() if entry.split()[0] == "395183"]

    def test_clients_find_the_simulator_by_it(self):
        self.assertEqual(self.registered(), [["1", "tcp", self.core_port]])
        self.assertEqual(self.lxi("*IDN?").decode().rstrip("\n"), IDENTITY)
        done = subprocess.run([PORTICO_RUN, "TCPIP::127.0.0.1::INSTR"], input="*IDN?\n", text=True, capture_output=True,
                              timeout=PATIENCE)
        self.assertEqual(done.stderr, "")
        self.assertIn(f"< {IDENTITY}\n", done.stdout)

    def test_it_forgets_a_simulator_that_has_ended(self):
        self.simulator.terminate()
        self.simulator.wait(PATIENCE)
        self.assertEqual(self.registered(), [])

    def test_one_that_is_started_later_replaces_it_and_stays(self):
        first = self.simulator
        core_port = self.start_simulator(RAW_PORT + 1)
        self.assertEqual(self.registered(), [["1", "tcp", core_port]])
        first.terminate()
        first.wait(PATIENCE)
        self.assertEqual(self.registered(), [["1", "tcp", core_port]])


if __name__ == "__main__":
    unittest.main()
