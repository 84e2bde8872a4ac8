"""The other direction: what the server says of a client that breaks the rules, and the rules one by one."""
import socket
import unittest

from hislip_peer import FIRST_ID, HEADER, ServerError, T, pack
from hislip_wire import RULES, Channel, HeaderError
from test_peer import IDN, Base


class Judged(Base):
    """What the server says of a client that breaks the rules."""

    def test_wrong_id_and_flag(self):
        self.serve()
        c = self.client()
        c.send("S", T.DataEND, 0, FIRST_ID + 4, b"VOLT 1\n")
        self.problem("0xFFFFFF04, not 0xFFFFFF00")
        c.send("S", T.DataEND, 1, FIRST_ID + 6, b"VOLT 1\n")
        self.problem("RMT-delivered")
        c.send("A", T.AsyncStatusQuery, 0, FIRST_ID + 8)
        self.problem("AsyncStatusQuery names message 0xFFFFFF08")

    def test_input_during_clear_is_dropped(self):
        self.serve()
        c = self.client()
        c._ask("A", T.AsyncDeviceClear, 0, 0, b"", T.AsyncDeviceClearAcknowledge)
        c.send("S", T.DataEND, 0, FIRST_ID, b"VOLT 1\n")
        c._ask("S", T.DeviceClearComplete, 0, 0, b"", T.DeviceClearAcknowledge)
        self.assertEqual(c.query(b"*IDN?"), IDN)
        self.assertEqual(self.server.received, [b"*IDN?"])

    def test_skipped_with_error(self):
        self.serve(max_size=100)
        c = self.client()
        for code, type_, control, payload in ((1, 99, 0, b"x"), (1, T.AsyncInitialize, 0, b""), (2, T.Data, 9, b"x"),
                                              (3, 200, 0, b"x" * 50), (4, T.DataEND, 0, b"x" * 5000)):
            c.send("S", type_, control, FIRST_ID, payload)
            with self.assertRaises(ServerError) as caught:
                c.read()
            self.assertEqual(caught.exception.code, code)
            self.problem("the client sent")
        self.assertEqual(c.query(b"*IDN?"), IDN)

    def raw(self, data):
        with socket.create_connection(("127.0.0.1", self.server.port)) as sock:
            sock.settimeout(5)
            sock.sendall(data)
            channel = Channel(sock, "D", "S", 1 << 20)
            while not (m := channel.take()):
                self.assertTrue(channel.fill())
            while channel.fill():
                pass
            return m

    def test_openings(self):
        self.serve()
        start = 0x0100 << 16 | 0x5A5A
        for code, data, words in ((1, b"GET / HTTP/1.1\r\n\r\n", "begins with"),
                                  (2, pack(T.DataEND, 0, FIRST_ID, b"*IDN?\n"), "before the connection"),
                                  (3, pack(T.AsyncInitialize, 0, 77), "no session"),
                                  (3, pack(T.Initialize, 0, start, b"hislip9"), "no sub-address"),
                                  (1, pack(T.Initialize, 0, start, b"hislip0\0"), "NUL")):
            m = self.raw(data)
            self.assertEqual((m.type, m.control), (T.FatalError, code))
            self.problem(words)

    def test_data_before_the_second_channel(self):
        self.serve()
        data = pack(T.Initialize, 0, 0x0100 << 16 | 0x5A5A, b"hislip0") + pack(T.DataEND, 0, FIRST_ID, b"*IDN?\n")
        self.assertEqual(self.raw(data).type, T.InitializeResponse)
        self.problem("wrong time")

    def test_every_rule(self):
        self.serve()
        for type_, (senders, channels, controls, zero, low, high) in RULES.items():
            good = HEADER.pack(b"HS", type_, controls[0], 0, low) + bytes(low)
            bad = [HEADER.pack(b"SH", type_, controls[0], 0, low), HEADER.pack(b"HS", type_ + 100, 0, 0, 0),
                   HEADER.pack(b"HS", type_, controls[0], 0, 1 << 40)]
            bad += [HEADER.pack(b"HS", type_, controls[-1] + 1, 0, low)] if len(controls) < 256 else []
            bad += [HEADER.pack(b"HS", type_, controls[0], 1, low)] if zero else []
            bad += [HEADER.pack(b"HS", type_, controls[0], 0, high + 1)] if high is not None else []
            for data, sender, where in [(good, senders[0], channels[0])] + [(b, senders[0], channels[0]) for b in bad]:
                channel = Channel(None, sender, where, 1024)
                channel.buffer += data
                if data is good:
                    self.assertEqual(channel.take().type, type_)
                else:
                    self.assertRaises(HeaderError, channel.take)


if __name__ == "__main__":
    unittest.main()
