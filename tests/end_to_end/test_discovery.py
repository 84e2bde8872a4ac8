"""Instruments that are found on a network. To be run by own_network.sh, which makes that network."""

import os
import socket
import struct
import subprocess
import tempfile
import threading
import unittest

PORTICO_RUN = os.environ["PORTICO_RUN"]
PORTICO_SIM = os.environ["PORTICO_SIM"]
PATIENCE = 60  # seconds; long, because a loaded machine is slow
SIMULATED = ["SIM::dmm::INSTR", "SIM::psu::INSTR", "SIM::scope::INSTR"]


AVAHI_DAEMON = os.environ["AVAHI_DAEMON"].split()  # set by own_network.sh, and by nobody else


class DiscoveryCase(unittest.TestCase):
    def announce(self, name, number, *services, text=()):
        """The instrument of that number, 192.0.2.1x, offers services, given as types with their ports, under a name."""
        records = "".join(f"<txt-record>{entry}</txt-record>" for entry in text)
        host = f"<host-name>instrument{number}.local</host-name>"
        offered = "".join(f"<service><type>{kind}</type>{host}<port>{port}</port>{records}</service>"
                          for kind, port in services)
        file = f"/etc/avahi/services/{name}.service"
        self.addCleanup(os.remove, file)
        with open(file, "w") as document:
            document.write(f"<?xml version='1.0'?><!DOCTYPE service-group SYSTEM 'avahi-service.dtd'>"
                           f"<service-group><name>{name}</name>{offered}</service-group>")

    def list(self, milliseconds, environment=None, within=()):
        """All that is listed, line by line."""
        done = subprocess.run([*within, PORTICO_RUN, "--list", "--list-time", str(milliseconds)], text=True,
                              capture_output=True, timeout=PATIENCE, env={**os.environ, **(environment or {})})
        self.assertEqual(done.stderr, "")
        self.assertEqual(done.returncode, 0)
        return done.stdout.splitlines()

    def list_until(self, *lines):
        """What is listed until all these lines have come."""
        listing = subprocess.Popen([PORTICO_RUN, "--list", "--list-time", str(int(PATIENCE * 1000))], text=True,
                                   stdout=subprocess.PIPE)
        self.addCleanup(listing.wait)
        self.addCleanup(listing.stdout.close)
        self.addCleanup(listing.kill)
        listed = []
        for line in listing.stdout:
            listed.append(line.rstrip("\n"))
            if set(lines) <= set(listed):
                return listed
        self.fail(f"{set(lines) - set(listed)} is missing in {listed}")


class Announced(DiscoveryCase):
    def test_each_protocol_has_its_name_and_tells_what_the_instrument_says_of_itself(self):
        self.announce("Meter", 1, ("_lxi._tcp", 80), ("_scpi-raw._tcp", 5025), ("_vxi-11._tcp", 111),
                      ("_hislip._tcp", 4880),
                      text=("txtvers=1", "Manufacturer=Tolvane", "Model=M7", "SerialNumber=SN1", "FirmwareVersion=1.0"))
        listed = self.list_until("TCPIP0::192.0.2.11::5025::SOCKET\tTolvane, M7, SN1, 1.0",
                                 "TCPIP0::192.0.2.11::inst0::INSTR\tTolvane, M7, SN1, 1.0",
                                 "TCPIP0::192.0.2.11::hislip0::INSTR\tTolvane, M7, SN1, 1.0")
        self.assertEqual(listed[:3], SIMULATED)
        names = [line.split("\t")[0] for line in listed]
        self.assertEqual(len(names), len(set(names)), names)  # though it is heard on two interfaces

    def test_one_that_says_nothing_has_the_name_of_its_service(self):
        self.announce("Old Meter", 2, ("_scpi-raw._tcp", 5555))
        self.list_until("TCPIP0::192.0.2.12::5555::SOCKET\tOld Meter")

    def test_one_with_a_web_page_alone_is_listed_for_vxi_11(self):
        self.announce("Web Meter", 3, ("_lxi._tcp", 80))
        self.list_until("TCPIP0::192.0.2.13::inst0::INSTR\tWeb Meter")

    def test_one_that_was_opened_before_is_listed_as_it_was_written_then(self):
        self.announce("Known Meter", 4, ("_vxi-11._tcp", 111))
        found = "TCPIP0::192.0.2.14::inst0::INSTR"
        self.list_until(found + "\tKnown Meter")
        with tempfile.TemporaryDirectory() as settings:
            os.mkdir(settings + "/Tolvane Portico")
            with open(settings + "/Tolvane Portico/Tolvane Portico.conf", "w") as file:
                file.write("[OpenedInstruments]\nName1=tcpip::192.0.2.14::instr\n")
            listed = self.list(1000, {"XDG_CONFIG_HOME": settings})
        self.assertEqual(listed[:4], ["tcpip::192.0.2.14::instr", *SIMULATED])
        self.assertFalse([line for line in listed if line.startswith(found)], listed)


class Simulators(DiscoveryCase):
    def simulator(self, *arguments, environment=None):
        """One that announces itself."""
        process = subprocess.Popen([PORTICO_SIM, "--port", "0", "--announce", *arguments], text=True,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, env={**os.environ, **(environment or {})})
        for close in (process.wait, process.stderr.close, process.stdout.close, process.terminate):
            self.addCleanup(close)
        return process

    @staticmethod
    def port(process):
        """The one that it tells in its next line."""
        return process.stdout.readline().split()[2].rsplit(":", 1)[1]

    def ask(self, name):
        return subprocess.run([PORTICO_RUN, name], input="*IDN?\n", text=True, capture_output=True, timeout=PATIENCE).stdout

    def test_an_announced_one_is_found_and_runs_under_the_name_that_was_found(self):
        process = self.simulator("--bind", "192.0.2.1")
        number = self.port(process)
        self.assertEqual(process.stdout.readline(), "announced as SIM-DMM SIM0001\n")
        name = f"TCPIP0::192.0.2.1::{number}::SOCKET"
        listed = self.list_until(name + "\tTOLVANE INSTRUMENTS, SIM-DMM, SIM0001, 1.0")
        self.assertFalse([line for line in listed if f"127.0.0.1::{number}::" in line], listed)
        self.assertIn("< TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0\n", self.ask(name))

    def test_all_that_it_listens_on_is_announced(self):
        process = self.simulator("--vxi11", "0", "--hislip", "0", "--bind", "192.0.2.1")
        names = [f"TCPIP0::192.0.2.1::{self.port(process)}::SOCKET",
                 f"TCPIP0::192.0.2.1::hislip0,{self.port(process)}::INSTR",
                 f"TCPIP0::192.0.2.1,{self.port(process)}::inst0::INSTR"]
        self.list_until(*[name + "\tTOLVANE INSTRUMENTS, SIM-DMM, SIM0001, 1.0" for name in names])
        for name in names:
            self.assertIn("< TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0\n", self.ask(name))

    def test_vxi_11_that_a_portmapper_knows_is_announced_at_the_portmappers_port(self):
        process = self.simulator("--vxi11", "0", "--portmap", "--bind", "192.0.2.1")
        for _ in range(2):
            core = self.port(process)
        name = "TCPIP0::192.0.2.1::inst0::INSTR"
        listed = self.list_until(name + "\tTOLVANE INSTRUMENTS, SIM-DMM, SIM0001, 1.0")
        self.assertFalse([line for line in listed if f",{core}::" in line], listed)
        self.assertIn("< TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0\n", self.ask(name))

    def test_one_that_was_started_again_is_found_where_it_is_now(self):
        for _ in range(2):  # the second time the network still knows of the first
            process = self.simulator("--device", "psu", "--bind", "192.0.2.1")
            number = self.port(process)
            self.list_until(f"TCPIP0::192.0.2.1::{number}::SOCKET\tTOLVANE INSTRUMENTS, SIM-PSU, SIM0002, 1.0")
            process.terminate()
            process.wait(PATIENCE)

    def test_one_that_listens_for_this_machine_alone_is_announced_to_it_alone(self):
        process = self.simulator("--device", "psu")
        number = self.port(process)
        self.assertEqual(process.stdout.readline(), "announced as SIM-PSU SIM0002\n")
        listed = self.list_until(f"TCPIP0::127.0.0.1::{number}::SOCKET\tTOLVANE INSTRUMENTS, SIM-PSU, SIM0002, 1.0")
        self.assertFalse([line for line in listed if f"192.0.2.1::{number}::" in line], listed)

    def test_two_alike_have_different_names(self):
        for name in ("SIM-SCOPE SIM0003", "SIM-SCOPE SIM0003 #2"):
            process = self.simulator("--device", "scope", "--bind", "192.0.2.1")
            self.port(process)
            self.assertEqual(process.stdout.readline(), f"announced as {name}\n")

    def test_without_a_bus_it_is_served_and_says_that_it_is_not_announced(self):
        process = self.simulator(environment={"DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nowhere"})
        number = self.port(process)
        self.assertEqual(process.stderr.readline(),
                         "portico-sim: not announced: the avahi daemon cannot be reached: Daemon not running\n")
        self.assertIn("< TOLVANE INSTRUMENTS", self.ask(f"TCPIP::127.0.0.1::{number}::SOCKET"))

    def test_a_daemon_that_comes_back_is_told_again(self):
        process = self.simulator("--bind", "192.0.2.1")
        self.port(process)
        self.assertTrue(process.stdout.readline().startswith("announced as "))
        subprocess.run([AVAHI_DAEMON[0], "--kill"], check=True)
        self.assertEqual(process.stderr.readline(), "portico-sim: not announced: the avahi daemon is not running\n")
        daemon = subprocess.Popen(AVAHI_DAEMON, stderr=subprocess.DEVNULL)
        unittest.addModuleCleanup(daemon.wait)
        unittest.addModuleCleanup(daemon.terminate)
        self.assertTrue(process.stdout.readline().startswith("announced as "))

    def test_it_ends_well_while_it_is_announced(self):
        process = self.simulator()
        self.port(process)
        self.assertTrue(process.stdout.readline().startswith("announced as "))
        process.terminate()
        self.assertEqual(process.wait(PATIENCE), 0)


class PortMapper:
    """Answers at the portmapper's port of all addresses, from 192.0.2.1, with what `answers` makes of a call's number.
    `strangers` make answers that come from 127.0.0.2 in front of it."""

    def __init__(self, answers, strangers=()):
        self.answers = answers
        self.strangers = strangers
        self.calls = []
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.socket.bind(("", 111))
        self.one = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.one.bind(("192.0.2.1", 0))
        self.stranger = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.stranger.bind(("127.0.0.2", 0))
        self.thread = threading.Thread(target=self._serve)
        self.thread.start()

    def _serve(self):
        while True:
            call, caller = self.socket.recvfrom(65536)
            if not call:
                return
            self.calls.append(call)
            for make in self.strangers:
                self.stranger.sendto(make(call[:4]), caller)
            for make in self.answers:
                self.one.sendto(make(call[:4]), caller)

    def close(self):
        self.one.sendto(b"", ("192.0.2.1", 111))
        self.thread.join()
        for each in (self.socket, self.one, self.stranger):
            each.close()


ACCEPTED = struct.pack(">IIIII", 1, 0, 0, 0, 0)  # a reply, accepted, an empty verifier, success


def port(number):
    return lambda xid: xid + ACCEPTED + struct.pack(">I", number)


class Broadcast(DiscoveryCase):
    def answer(self, *answers, strangers=()):
        mapper = PortMapper(answers, strangers)
        self.addCleanup(mapper.close)
        return mapper

    def test_one_that_answers_is_listed_once(self):
        mapper = self.answer(port(1024), port(1024))
        listed = self.list_until("TCPIP0::192.0.2.1::inst0::INSTR")
        self.assertEqual(listed.count("TCPIP0::192.0.2.1::inst0::INSTR"), 1)
        call = mapper.calls[0]
        self.assertEqual(call[4:], struct.pack(">IIIIIIIIIIIII", 0, 2, 100000, 2, 3, 0, 0, 0, 0, 0x0607AF, 1, 6, 0))

    def test_answers_that_are_none_are_ignored(self):
        self.answer(port(1024), strangers=(
            lambda xid: b"",
            lambda xid: xid,
            lambda xid: os.urandom(28),
            lambda xid: xid + bytes(24),  # a call
            lambda xid: bytes(4) + port(1024)(xid)[4:],  # the answer to something else
            lambda xid: port(1024)(xid)[:-1],
            lambda xid: port(0)(xid),  # no VXI-11 there
            lambda xid: port(65536)(xid),
            lambda xid: xid + struct.pack(">IIII", 1, 0, 0, 0xFFFFFFFF) + bytes(40000),  # an endless verifier
            lambda xid: xid + struct.pack(">IIIII", 1, 0, 0, 0, 1) + port(1024)(xid),  # there is no such program
        ))
        listed = self.list_until("TCPIP0::192.0.2.1::inst0::INSTR")
        self.assertFalse([line for line in listed if "127.0.0.2" in line], listed)


class Alone(DiscoveryCase):
    """Machines that lack what others have."""

    def test_without_network_bus_and_daemon_the_local_ones_are_listed(self):
        listed = self.list(200, {"DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nowhere"}, within=("unshare", "--net"))
        self.assertEqual(listed[:3], SIMULATED)
        self.assertFalse([line for line in listed if line.startswith("TCPIP")], listed)

    def test_without_avahis_library_the_local_ones_are_listed(self):
        hide = "mount --bind /dev/null /usr/lib/*/libavahi-client.so.3 && exec \"$@\""
        listed = self.list(200, within=("unshare", "--mount", "sh", "-c", hide, "sh"))
        self.assertEqual(listed[:3], SIMULATED)

    def test_a_bus_that_hangs_holds_nothing_up(self):
        self.answered = socket.socket(socket.AF_UNIX)
        self.addCleanup(self.answered.close)
        with tempfile.TemporaryDirectory() as folder:
            self.answered.bind(folder + "/bus")
            self.answered.listen()  # and nothing more
            listed = self.list(200, {"DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={folder}/bus"})
        self.assertEqual(listed[:3], SIMULATED)


if __name__ == "__main__":
    unittest.main()
