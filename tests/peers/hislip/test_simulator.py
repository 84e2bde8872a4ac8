"""The peer's client against portico-sim, whose path the environment variable PORTICO_SIM tells."""
import os
import re
import subprocess
import unittest

from hislip_peer import FIRST_ID, Client, FatalServerError, ServerError, T

IDN = b"TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0\n"
INTERRUPTED = b'-410,"Query INTERRUPTED"\n'
NO_ERROR = b'0,"No error"\n'
MAV, ERRORS = 0x10, 0x04


class Simulator(unittest.TestCase):
    def setUp(self):
        self.program = subprocess.Popen([os.environ["PORTICO_SIM"], "--port", "0", "--hislip", "0"],
                                        stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.stop)
        for line in self.program.stdout:
            found = re.fullmatch(r"listening on 127\.0\.0\.1:(\d+) hislip\n", line)
            if found:
                self.port = int(found[1])
                return
        self.fail("portico-sim does not listen")

    def stop(self):
        self.program.terminate()
        self.assertEqual(self.program.wait(), 0)
        self.program.stdout.close()

    def client(self, **options):
        client = Client("127.0.0.1", self.port, **{"timeout": 20, **options})
        self.addCleanup(client.close)
        return client

    def lock(self, client, control, key=b"", timeout=0):
        return client._ask("A", T.AsyncLock, control, timeout, key, T.AsyncLockResponse).control


class Exchange(Simulator):
    def test_queries(self):
        c = self.client()
        self.assertEqual(c.server_version, 0x0100)
        self.assertEqual(c.query(b"*IDN?"), IDN)
        c.write(b"*ESE 5")
        self.assertEqual(c.query(b"*ESE?\r\n"), b"5\n")
        self.assertEqual(c.query(b"SYST:ERR?"), NO_ERROR)

    def test_answers_keep_the_clients_size(self):
        c = self.client(max_size=300)
        self.assertEqual(c.query(b"SIM:LENG? 5000"), b"5" * 5000 + b"\n")
        self.assertEqual(c.query(b"*IDN?"), IDN)

    def test_a_long_command_comes_in_pieces(self):
        c = self.client()
        c.server_max = 64
        c.write(b"*ESE 7" + b" " * 5000)
        self.assertEqual(c.query(b"*ESE?"), b"7\n")

    def test_a_megabyte(self):
        c = self.client()
        self.assertEqual(c.query(b"SIM:LENG? 3000000"), b"5" * 3000000 + b"\n")

    def test_ids_wrap(self):
        c = self.client()
        for number in range(300):
            self.assertEqual(c.query(b"SIM:ECHO? %d" % number), b"%d\n" % number)
        self.assertLess(c.last_end, FIRST_ID)
        self.assertEqual(c.query(b"SYST:ERR?"), NO_ERROR)

    def test_sessions_have_their_own_answers(self):
        first, second = self.client(), self.client()
        first.write(b"SIM:ECHO? 1")
        second.write(b"SIM:ECHO? 2")
        self.assertEqual(second.read(), b"2\n")
        self.assertEqual(first.read(), b"1\n")

    def test_local_and_trigger(self):
        c = self.client()
        for code in range(7):
            c.local(code)
        c.trigger()
        self.assertEqual(c.query(b"SIM:ECHO? 1"), b"1\n")


class Status(Simulator):
    def test_message_available(self):
        c = self.client()
        self.assertEqual(c.status(), 0)
        c.write(b"*IDN?")
        self.assertEqual(c.status(), MAV)
        self.assertEqual(c.read(), IDN)
        self.assertEqual(c.status(), 0)
        c.write(b"NONE?")
        self.assertEqual(c.status(), ERRORS)

    def test_a_client_that_names_its_next_message(self):
        c = self.client()
        c.write(b"*IDN?")
        m = c._ask("A", T.AsyncStatusQuery, 0, FIRST_ID + 2, b"", T.AsyncStatusResponse)
        self.assertEqual(m.control, MAV)
        self.assertEqual(c.read(), IDN)
        m = c._ask("A", T.AsyncStatusQuery, 1, FIRST_ID + 2, b"", T.AsyncStatusResponse)
        self.assertEqual(m.control, 0)
        c.rmt = 0
        self.assertEqual(c.query(b"SYST:ERR?"), NO_ERROR)

    def test_an_unread_answer_is_interrupted(self):
        c = self.client()
        c.write(b"*IDN?")
        self.assertEqual(c.status(), MAV)
        self.assertEqual(c.query(b"SIM:ECHO? 2"), b"2\n")
        self.assertEqual(c.dropped, [(FIRST_ID, IDN)])
        self.assertEqual(c.query(b"SYST:ERR?"), INTERRUPTED)
        self.assertEqual(c.query(b"SYST:ERR?"), NO_ERROR)

    def test_an_answer_that_is_overtaken_is_interrupted(self):
        c = self.client()
        c.write(b"SIM:DEL 0.2;ECHO? 1")
        self.assertEqual(c.query(b"SIM:ECHO? 2"), b"2\n")
        self.assertEqual(c.query(b"SYST:ERR?"), INTERRUPTED)
        self.assertEqual(c.interrupt_balance, 0)
        self.assertEqual(c.dropped, [])

    def test_clear(self):
        c = self.client()
        for _ in range(3):
            c.write(b"SIM:DEL 0.2;ECHO? 1")
            c.clear()
            self.assertEqual(c.query(b"SIM:ECHO? 2"), b"2\n")
        c.write(b"SIM:ENDL?")
        c.clear()
        self.assertEqual(c.query(b"SYST:ERR?"), NO_ERROR)

    def test_a_late_answer_is_read_on(self):
        c = self.client()
        c.write(b"SIM:DEL 0.2;ECHO? 1")
        with self.assertRaises(TimeoutError):
            c.read(0.05)
        self.assertEqual(c.read(), b"1\n")


class Locks(Simulator):
    def test_exclusive(self):
        first, second = self.client(), self.client()
        self.assertEqual(self.lock(first, 1), 1)
        self.assertEqual(self.lock(second, 1), 0)
        info = second._ask("A", T.AsyncLockInfo, 0, 0, b"", T.AsyncLockInfoResponse)
        self.assertEqual((info.control, info.parameter), (1, 1))
        second.write(b"*ESE?")
        with self.assertRaises(TimeoutError):
            second.read(0.05)
        self.assertEqual(first.query(b"*ESE 3;*ESE?"), b"3\n")
        self.assertEqual(self.lock(first, 0, timeout=first.last_end), 1)
        self.assertEqual(second.read(), b"3\n")

    def test_shared(self):
        first, second, third = self.client(), self.client(), self.client()
        self.assertEqual(self.lock(first, 1, b"key"), 1)
        self.assertEqual(self.lock(second, 1, b"key"), 1)
        self.assertEqual(self.lock(third, 1, b"other"), 0)
        self.assertEqual(self.lock(first, 0, timeout=FIRST_ID - 2), 2)
        self.assertEqual(self.lock(first, 0, timeout=FIRST_ID - 2), 3)

    def test_a_connection_that_ends_frees_its_lock(self):
        first, second = self.client(), self.client()
        self.assertEqual(self.lock(first, 1), 1)
        first.close()
        self.assertEqual(self.lock(second, 1, timeout=20000), 1)


class Judged(Simulator):
    """What portico-sim says of a client that breaks the rules."""

    def error(self, c, where, code):
        with self.assertRaises(ServerError) as caught:
            c.read()
        self.assertNotIsInstance(caught.exception, FatalServerError)
        self.assertEqual((caught.exception.code, caught.exception.where), (code, where))
        self.assertEqual(c.query(b"*IDN?"), IDN)

    def fatal(self, c, code):
        with self.assertRaises(FatalServerError) as caught:
            c.read()
        self.assertEqual(caught.exception.code, code)

    def test_errors(self):
        c = self.client()
        for where, type_, control, code in (("S", 30, 0, 1), ("A", 30, 0, 1), ("S", T.AsyncStatusQuery, 0, 1),
                                            ("A", T.Data, 0, 1), ("S", 200, 0, 3), ("A", 200, 0, 3),
                                            ("A", T.AsyncLock, 2, 2), ("A", T.AsyncRemoteLocalControl, 7, 2)):
            with self.subTest(where=where, type=int(type_)):
                c.send(where, type_, control, 0, b"payload")
                self.error(c, where, code)

    def test_too_large(self):
        c = self.client()
        c.send("S", T.DataEND, 0, FIRST_ID, b"\n" * ((1 << 20) + 1))
        self.error(c, "S", 4)

    def test_prologue(self):
        for where in "SA":
            c = self.client()
            c.channels[where].sock.sendall(b"stray bytes of any kind")
            self.fatal(c, 1)

    def test_initialize_again(self):
        c = self.client()
        c.send("S", T.Initialize, 0, 0x0100 << 16, b"hislip0")
        self.fatal(c, 3)

    def test_another_device(self):
        with self.assertRaises(FatalServerError) as caught:
            self.client(name="hislip1")
        self.assertEqual(caught.exception.code, 3)


if __name__ == "__main__":
    unittest.main()
