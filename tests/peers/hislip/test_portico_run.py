"""portico-run, whose path the environment variable PORTICO_RUN tells, against the peer's server. What it does against
the rules the server notices, and each test ends by finding nothing of that."""
import os
import socket
import subprocess
import unittest

from hislip_peer import ClosedError, T  # noqa: F401
from test_peer import IDN, Base

OFF = ("SCPIProtocolOPCPacing=Off", "SCPIProtocolAutoErrorChecking=Off")
ANSWER = "< " + IDN.decode()
PATIENT, BRIEF = 20000, 1000


class PorticoRun(Base):
    def run_program(self, *lines, timeout=PATIENT, name="hislip0"):
        command = [os.environ["PORTICO_RUN"], "--timeout", str(timeout)]
        for option in OFF:
            command += ["--option", option]
        command.append(f"TCPIP::127.0.0.1::{name},{self.server.port}::INSTR")
        return subprocess.run(command, input="".join(line + "\n" for line in lines), capture_output=True, text=True,
                              check=False)

    def answers(self, *lines, **options):
        """What stands for the answers, where all goes well."""
        run = self.run_program(*lines, **options)
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        return run.stdout

    def refused(self, words, **options):
        run = self.run_program("*IDN?", **options)
        self.assertEqual(run.returncode, 3)
        self.assertIn(words, run.stderr)

    def fails(self, words, *lines, **options):
        run = self.run_program(*lines, **options)
        self.assertEqual(run.returncode, 4)
        self.assertIn(words, run.stderr)
        return run.stdout

    def at_second_opening(self, **switches):
        """From then on the switches are these."""
        send = self.server._send

        def notice(s, where, type_, *rest, **named):
            if type_ == T.InitializeResponse and self.server.opened > 1:
                self.set(**switches)
            send(s, where, type_, *rest, **named)
        self.server._send = notice


class Rules(PorticoRun):
    def test_queries(self):
        self.serve()
        self.assertEqual(self.answers("*IDN?", "VOLT 1", "ECHO? 7"),
                         "> *IDN?\n" + ANSWER + "> VOLT 1\n> ECHO? 7\n< 7\n")
        self.assertEqual(self.server.commands, [b"VOLT 1"])

    def test_line_feeds_end_no_answer(self):
        self.serve()
        self.assertEqual(self.answers("BLOCK?", "*IDN?"), "> BLOCK?\n< #18ab\n< cd\n< \n< e\n> *IDN?\n" + ANSWER)

    def test_the_front_panel_is_given_back(self):
        self.serve()
        self.answers("*IDN?")
        self.assertEqual(self.server.remote_local, [6])

    def test_both_sizes_are_kept_apart(self):
        self.serve(max_size=40)
        self.assertIn("< " + "x" * 1000 + "\n", self.answers("ECHO? " + "x" * 1000, "*IDN?"))

    def test_many(self):
        self.serve()
        lines = [f"ECHO? {number}" for number in range(300)]
        self.assertEqual(self.answers(*lines), "".join(f"> ECHO? {n}\n< {n}\n" for n in range(300)))

    def test_a_close_while_idle_costs_no_command(self):
        self.serve()
        reply = self.server._reply

        def reply_and_drop(s, data, *rest):
            if data == b"drop\n":  # whoever has the answer has the end, too: both come in one segment
                for channel in s.channels.values():
                    channel.sock.setsockopt(socket.IPPROTO_TCP, socket.TCP_CORK, 1)
            reply(s, data, *rest)
            if data == b"drop\n":
                self.server.drop_connections()
        self.server._reply = reply_and_drop
        run = self.run_program("ECHO? drop", "VOLT 1", "*IDN?")
        self.assertIn("< drop\n", run.stdout)
        self.assertIn(ANSWER, run.stdout)
        self.assertEqual(run.returncode, 0)
        self.assertEqual(self.server.received, [b"ECHO? drop", b"VOLT 1", b"*IDN?"])


class Switched(PorticoRun):
    def test_overlapped(self):
        self.serve(overlapped=True)
        self.assertIn(ANSWER, self.answers("*IDN?"))
        self.assertEqual(self.server.clears, 1)
        self.serve(overlapped=True, stay_overlapped=True)
        self.refused("it stays in overlapped mode, which is not supported")

    def test_versions(self):
        for version, secure in ((0x0100, False), (0x0101, False), (0x0200, False), (0x0200, True)):
            with self.subTest(version=version, secure=secure):
                self.serve(version=version, secure=secure)
                self.assertIn(ANSWER, self.answers("*IDN?"))
        self.serve(version=0x00FF)
        self.refused("it speaks HiSLIP 0.255, which is not supported")

    def test_encryption(self):
        for switch in ("encryption", "initial_encryption"):
            self.serve(version=0x0200, **{switch: True})
            self.refused("encrypted connection required, not supported")

    def test_refused_second_connection(self):
        self.serve(refuse_async="close")
        self.refused("the instrument closed it")
        self.set(refuse_async="fatal")
        self.refused("no asynchronous channel left")
        self.set(refuse_async="mute")
        self.refused("Timeout expired before the connection was made", timeout=BRIEF)

    def test_a_late_answer_is_nobody_elses(self):
        for stale in (False, True):
            self.serve(late=1, stale=stale, fragment=5)
            output = self.fails("Timeout expired before the answer was complete", "*IDN?", "ECHO? 2", timeout=BRIEF)
            self.assertIn("> ECHO? 2\n< 2\n", output)
            self.assertEqual((self.server.clears, self.server.opened), (1, 1))

    def test_wrong_ids(self):
        for shift in (2, -2, 1, 1 << 31):
            self.serve(id_shift=shift)
            output = self.fails("Timeout expired before the answer was complete", "*IDN?", timeout=BRIEF)
            self.assertNotIn("PEER", output)

    def test_any_id_and_pieces(self):
        self.serve(any_id=True, fragment=3)
        self.assertIn(ANSWER, self.answers("*IDN?"))
        for size in (1, 7):
            self.serve(drip=size)
            self.assertIn(ANSWER, self.answers("*IDN?"))

    def test_endless(self):
        self.serve(endless=True)
        self.fails("Timeout expired before the answer was complete", "*IDN?", timeout=BRIEF)

    def test_broken_messages(self):
        for words, switches in (("more than was agreed", {"length": (1 << 64) - 1}),
                                ("more than was agreed", {"length": 1 << 31}),
                                ("the message header is none of HiSLIP", {"prologue": b"HZ"}),
                                ("The instrument closed the connection", {"cut": 0}),
                                ("The instrument closed the connection", {"cut": 15}),
                                ("The instrument closed the connection", {"cut": 20})):
            with self.subTest(**switches):
                self.serve(**switches)
                self.at_second_opening(**{name: T.DataEND if name == "on" else b"HS" if name == "prologue" else None
                                          for name in switches})
                output = self.fails(words, "*IDN?", "ECHO? 2", timeout=BRIEF)
                self.assertIn("> ECHO? 2\n< 2\n", output)

    def test_broken_openings(self):
        for on in (T.InitializeResponse, T.AsyncInitializeResponse, T.AsyncMaximumMessageSizeResponse):
            self.serve(on=on, prologue=b"HZ")
            self.refused("the message header is none of HiSLIP")
            self.serve(on=on, cut=8)
            self.refused("the instrument closed it")
            self.serve(on=on, length=1 << 62)
            self.refused("more than was agreed")

    def test_errors(self):
        for where in "SA":
            self.serve(error=(T.Error, 4, "much too large", where))
            self.fails("error 4, message too large (much too large)", "*IDN?", timeout=BRIEF)
            self.serve(error=(T.FatalError, 3, "out of order", where))
            self.fails("fatal error 3, bad initialization sequence (out of order)", "*IDN?")

    def test_mute(self):
        self.serve(mute=(T.AsyncRemoteLocalResponse,))
        self.assertIn(ANSWER, self.answers("*IDN?", timeout=BRIEF))
        self.serve(late=1, mute=(T.AsyncDeviceClearAcknowledge,))
        output = self.fails("Timeout expired before the answer was complete", "*IDN?", "ECHO? 2", timeout=BRIEF)
        self.assertIn("> ECHO? 2\n< 2\n", output)
        self.assertEqual(self.server.opened, 3)  # each connection that follows a failure is cleared, but the last

    def test_service_requests_are_passed_over(self):
        def announce(_):
            for _ in range(50):
                self.server.service_request(0x50)
            return b"announced"
        self.serve({b"ANNOUNCE?": announce})
        self.assertIn("< announced\n", self.answers("ANNOUNCE?", "*IDN?"))


class Names(PorticoRun):
    def test_another_device(self):
        self.serve()
        self.refused("check the device name hislip7", name="hislip7")
        self.problem("there is no sub-address")


if __name__ == "__main__":
    unittest.main()
