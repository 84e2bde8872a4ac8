"""Client and server against each other, and each switch noticed: python3 -m unittest"""
import select
import threading
import unittest

from hislip_peer import (ANY_ID, FIRST_ID, Client, ClosedError, FatalServerError, ProtocolError, RefusedError, Server,
                         ServerError, Switches, T)

IDN = b"PEER,LOOPBACK,0,1.0\n"
SHORT = 0.05


class Base(unittest.TestCase):
    def serve(self, table=None, port=0, names=("hislip0",), max_size=1 << 20, **switches):
        self.server = Server(table, Switches(**switches), port=port, names=names, max_size=max_size)
        self.addCleanup(self.server.close)
        return self.server

    def client(self, **options):
        client = Client("127.0.0.1", self.server.port, **{"timeout": 20, **options})
        self.addCleanup(client.close)
        return client

    def set(self, **switches):
        for name, value in switches.items():
            setattr(self.server.switches, name, value)

    def tearDown(self):
        self.server.wait_for(lambda: not any(s.busy and not s.held for s in self.server.sessions.values()))
        self.assertEqual(self.server.problems, self.expected_problems())

    def expected_problems(self):
        return []

    def problem(self, *words):
        """Wait for exactly one problem that holds the words, and forget it."""
        problems = self.server.problems
        self.assertTrue(self.server.wait_for(lambda: problems), "the server noticed nothing")
        for word in words:
            self.assertIn(word, problems[0])
        problems.clear()


class Rules(Base):
    def test_queries(self):
        self.serve()
        c = self.client()
        self.assertEqual(c.query(b"*IDN?"), IDN)
        self.assertEqual(c.query(b"BLOCK?\n"), b"#18ab\ncd\n\ne\n")
        self.assertEqual(c.query(b"EMPTY?"), b"\n")
        c.write(b"VOLT 1")
        self.assertEqual(c.query(b"echo? 7"), b"7\n")
        self.assertEqual(self.server.commands, [b"VOLT 1"])

    def test_unknown_query_gets_nothing(self):
        self.serve()
        c = self.client()
        with self.assertRaises(TimeoutError):
            c.query(b"NONE?", SHORT)
        self.assertEqual(c.query(b"SYST:ERR?"), b'-113,"Undefined header"\n')
        self.assertEqual(c.query(b"SYST:ERR?"), b'0,"No error"\n')

    def test_both_sizes_are_kept_apart(self):
        self.serve(max_size=40)
        c = self.client(max_size=300)
        long = b"ECHO? " + b"x" * 1000
        self.assertEqual(c.query(long), b"x" * 1000 + b"\n")
        self.assertGreater(c.sent, 40)
        self.assertEqual(c.query(b"*IDN?"), IDN)

    def test_status_and_rmt(self):
        self.serve()
        c = self.client()
        self.assertEqual(c.status(), 0)
        c.write(b"*IDN?")
        self.assertEqual(c.status(), 0x10)
        self.assertEqual(c.read(), IDN)
        self.assertEqual(c.status(), 0)
        c.write(b"NONE?")
        self.assertEqual(c.status(), 4)
        self.assertEqual(c.status(), 4)

    def test_unread_reply_is_an_interrupted_error(self):
        self.serve()
        c = self.client()
        c.write(b"*IDN?")
        self.assertEqual(c.status(), 0x10)
        self.assertEqual(c.query(b"ECHO? 2"), b"2\n")
        self.assertEqual(c.dropped, [(FIRST_ID, IDN)])
        self.assertEqual(c.query(b"SYST:ERR?"), b'-410,"Query INTERRUPTED"\n')

    def test_local_trigger_service_request(self):
        self.serve()
        c = self.client()
        c.local()
        c.trigger()
        c.local(2)
        self.assertEqual(self.server.remote_local, [6, 2])
        self.assertEqual(self.server.triggers, 1)
        self.server.service_request(0x50)
        self.assertEqual(c.status(), 0)
        self.assertEqual(c.service_requests, [0x50])

    def test_clear_resets_the_ids(self):
        self.serve()
        c = self.client()
        for _ in range(3):
            c.query(b"*IDN?")
            c.clear()
            self.assertEqual((c.sent, c.rmt), (0, 0))
        self.assertEqual(c.query(b"*IDN?"), IDN)
        self.assertEqual(self.server.clears, 3)

    def test_clear_discards_what_is_under_way(self):
        self.serve()
        c = self.client()
        c.write(b"*IDN?")
        select.select([c.channels["S"]], [], [], 5)
        c.clear()
        self.assertEqual(c.dropped, [(FIRST_ID, IDN)])
        self.assertEqual(c.query(b"ECHO? 2"), b"2\n")

    def test_ids_wrap(self):
        self.serve()
        c = self.client()
        for number in range(300):
            self.assertEqual(c.query(b"ECHO? %d" % number), b"%d\n" % number)
        self.assertLess(c.last_end, FIRST_ID)

    def test_two_clients(self):
        self.serve()
        results = {}

        def run(mark):
            client = self.client()
            results[mark] = [client.query(b"ECHO? %s%d" % (mark, i)) for i in range(200)]
        threads = [threading.Thread(target=run, args=(mark,)) for mark in (b"a", b"b")]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        for mark in (b"a", b"b"):
            self.assertEqual(results[mark], [b"%s%d\n" % (mark, i) for i in range(200)])

    def test_idle_close_is_seen_before_sending(self):
        self.serve()
        c = self.client()
        self.server.drop_connections()
        select.select([c.channels["S"]], [], [], 5)
        with self.assertRaisesRegex(ClosedError, "looking before sending"):
            c.write(b"*IDN?")
        self.assertEqual(self.server.received, [])
        self.assertEqual(self.client().query(b"*IDN?"), IDN)


class Switched(Base):
    def fails(self, error, words, message=b"*IDN?", timeout=20, client=None):
        with self.assertRaisesRegex(error, words) as caught:
            (client or self.client()).query(message, timeout)
        return caught.exception

    def times_out_late(self):
        """A client whose query was held, seen from both sides."""
        c = self.client()
        self.fails(TimeoutError, "waiting for a reply", timeout=SHORT, client=c)
        self.assertTrue(self.server.wait_held())
        return c

    def interrupts(self, c):
        c.write(b"ECHO? 2")
        self.assertTrue(self.server.wait_for(lambda: any(s.inputs for s in self.server.sessions.values())))
        self.server.release()

    def test_overlapped(self):
        self.serve(overlapped=True)
        self.assertEqual(self.client().query(b"*IDN?"), IDN)
        self.assertEqual(self.server.clears, 1)

    def test_stays_overlapped(self):
        self.serve(overlapped=True, stay_overlapped=True)
        self.fails(RefusedError, "stays in overlapped mode")

    def test_versions(self):
        for version, secure in ((0x0100, False), (0x0101, False), (0x0200, False), (0x0200, True)):
            with self.subTest(version=version, secure=secure):
                self.serve(version=version, secure=secure)
                c = self.client()
                self.assertEqual((c.query(b"*IDN?"), c.server_version), (IDN, version))
        self.serve(version=0x00FF)
        self.fails(ProtocolError, "below 1.0")

    def test_encryption(self):
        for switch in ("encryption", "initial_encryption"):
            self.serve(version=0x0200, **{switch: True})
            self.fails(RefusedError, "encrypted")
            self.serve(version=0x0100, **{switch: True})
            self.fails(ProtocolError, "before 2.0")
        self.serve(secure=True)
        self.fails(ProtocolError, "secure connection in a version before 2.0")

    def test_wrong_ids(self):
        for shift in (2, -2, 1, 1 << 31):
            self.serve(id_shift=shift)
            self.fails(ProtocolError, "message id 0x")
        self.serve(id_shift=ANY_ID - FIRST_ID)
        self.fails(ProtocolError, "DataEND with message id 0xFFFFFFFF")

    def test_id_changes_within_a_reply(self):
        self.serve(fragment=4)
        c = self.client()
        c.write(b"VOLT 1")
        self.assertEqual(c.status(), 0)
        self.server._send(self.server.sessions[c.session], "S", T.Data, 0, FIRST_ID, b"x")
        self.fails(ProtocolError, "changed the message id", client=c)

    def test_an_id_is_answered_once(self):
        self.serve(id_shift=0)
        c = self.client()
        c.query(b"*IDN?")
        self.set(id_shift=-2)
        self.fails(ProtocolError, "0xFFFFFF00, which no unanswered", client=c)

    def test_any_id_is_allowed(self):
        self.serve(any_id=True, fragment=3)
        self.assertEqual(self.client().query(b"*IDN?"), IDN)

    def test_late_answer_read_on(self):
        self.serve(late=1, fragment=5)
        c = self.times_out_late()
        self.assertEqual(c.status(), 0)
        self.server.release()
        self.assertEqual(c.read(), IDN)
        self.assertEqual(c.query(b"ECHO? 2"), b"2\n")

    def test_late_then_clear(self):
        self.serve(late=1)
        c = self.times_out_late()
        c.clear()
        self.assertEqual(c.query(b"ECHO? 2"), b"2\n")
        self.assertEqual(c.dropped, [])

    def test_late_then_interrupted(self):
        self.serve(late=1)
        c = self.times_out_late()
        self.interrupts(c)
        self.assertEqual(c.read(), b"2\n")
        self.assertEqual(c.interrupt_balance, 0)
        self.assertEqual(c.query(b"SYST:ERR?"), b'-410,"Query INTERRUPTED"\n')

    def test_stale_answer_is_dropped_by_its_id(self):
        self.serve(late=1, stale=True, fragment=5)
        c = self.times_out_late()
        self.assertEqual(c.query(b"ECHO? 2"), b"2\n")
        self.assertEqual(c.dropped, [(FIRST_ID, IDN)])

    def test_interrupted_without_counterpart(self):
        self.serve(late=1, mute=(T.AsyncInterrupted,))
        c = self.times_out_late()
        self.interrupts(c)
        self.assertEqual(c.read(), b"2\n")
        c.timeout = SHORT
        with self.assertRaisesRegex(TimeoutError, "waiting for AsyncInterrupted"):
            c.write(b"ECHO? 3")
        self.serve(late=1, mute=(T.Interrupted,))
        c = self.times_out_late()
        self.interrupts(c)
        with self.assertRaisesRegex(TimeoutError, "reply"):
            c.read(0.2)  # may pass: the two channels race
            c.query(b"ECHO? 3", 0.2)

    def test_fragments_and_drip(self):
        for size in (1, 7, 100):
            self.serve(fragment=size)
            self.assertEqual(self.client().query(b"LONG?"), b"0123456789" * 1000 + b"\n")
            self.serve(drip=size)
            self.assertEqual(self.client().query(b"BLOCK?"), b"#18ab\ncd\n\ne\n")

    def test_endless(self):
        self.serve(endless=True)
        self.fails(ProtocolError, "over the limit of 1000 bytes", client=self.client(answer_limit=1000))
        c = self.client()
        self.fails(TimeoutError, "reply", timeout=SHORT, client=c)
        c.clear()
        self.set(endless=False)
        self.assertEqual(c.query(b"*IDN?"), IDN)

    def test_lengths(self):
        for length in ((1 << 64) - 1, 1 << 63, 1 << 31, (1 << 20) - 15):
            self.serve(length=length)
            self.fails(ProtocolError, "over the limit")
        self.serve(length=len(IDN) + 1)
        self.fails(TimeoutError, "36 bytes of an unfinished message", timeout=0.5)
        self.serve(length=len(IDN) - 3)
        self.fails(ProtocolError, "begins with")
        self.serve(on=T.InitializeResponse, length=1)
        self.fails(ProtocolError, "InitializeResponse with a payload of 1 bytes")
        self.serve(on=T.AsyncMaximumMessageSizeResponse, length=4)
        self.fails(ProtocolError, "payload of 4 bytes")

    def test_wrong_prologue(self):
        for on in (T.InitializeResponse, T.AsyncInitializeResponse, T.DataEND):
            self.serve(on=on, prologue=b"HZ")
            self.fails(ProtocolError, "begins with b'HZ'")

    def test_cut(self):
        for on in (T.InitializeResponse, T.AsyncInitializeResponse, T.DataEND):
            for count in (0, 1, 15, 16, 20):
                with self.subTest(on=on, count=count):
                    if on != T.DataEND and count >= 16:
                        continue
                    self.serve(on=on, cut=count)
                    self.fails(ClosedError, "closed the")
                    self.set(cut=None)
                    self.assertEqual(self.client().query(b"*IDN?"), IDN)

    def test_error_goes_on(self):
        for where in "SA":
            self.serve(error=(T.Error, 4, "much too large", where))
            c = self.client()
            error = self.fails(ServerError, "much too large", client=c)
            self.assertEqual((error.code, error.where), (4, where))
            self.set(error=None)
            self.assertEqual(c.query(b"*IDN?"), IDN)

    def test_fatal_error_ends(self):
        for where in "SA":
            self.serve(error=(T.FatalError, 3, "out of order", where))
            c = self.client()
            self.fails(FatalServerError, "FatalError 3 .* out of order", client=c)
            self.fails(ClosedError, "session is closed .*out of order", client=c)
        self.serve(error=(T.FatalError, 5, "no", "S"))
        self.fails(ProtocolError, "only version 2.0")

    def test_refused_async(self):
        self.serve(refuse_async="close")
        self.fails(ClosedError, "waiting for AsyncInitializeResponse")
        self.set(refuse_async="fatal")
        self.fails(FatalServerError, "no asynchronous channel left")
        self.set(refuse_async="mute")
        with self.assertRaisesRegex(TimeoutError, "AsyncInitializeResponse"):
            self.client(timeout=0.5)

    def test_mute(self):
        for type_, call in ((T.AsyncStatusResponse, "status"), (T.AsyncRemoteLocalResponse, "local"),
                            (T.AsyncDeviceClearAcknowledge, "clear"), (T.DeviceClearAcknowledge, "clear")):
            self.serve(mute=(type_,))
            c = self.client()
            c.timeout = SHORT
            with self.assertRaisesRegex(TimeoutError, type_.name):
                getattr(c, call)()
            with self.assertRaises(ClosedError):
                c.status()

    def test_unasked_messages(self):
        for where, type_, parameter, words in (("A", T.AsyncStatusResponse, 0, "nothing asked for"),
                                               ("S", T.DeviceClearAcknowledge, 0, "nothing asked for"),
                                               ("S", T.DataEND, FIRST_ID, "no message is unanswered"),
                                               ("S", T.Interrupted, FIRST_ID, "never sent"),
                                               ("S", T.AsyncInterrupted, FIRST_ID, "no business"),
                                               ("S", T.Trigger, FIRST_ID, "no business"),
                                               ("A", 28, 0, "message type 28"), ("A", 200, 0, "vendor specific")):
            self.serve()
            c = self.client()
            self.server._send(self.server.sessions[c.session], where, type_, 0, parameter)
            with self.assertRaisesRegex(ProtocolError, words):
                c.read()


if __name__ == "__main__":
    unittest.main()
