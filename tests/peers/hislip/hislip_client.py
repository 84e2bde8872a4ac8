"""The client: version 1.0, synchronized mode, and a sentence for everything that the protocol does not allow."""
import select
import socket
from collections import deque
from time import monotonic

from hislip_wire import ANY_ID, ASYNC_LIMIT, FIRST_ID, HEADER, WHERE, Channel, HeaderError, T, pack, vendor_ok

VENDOR = int.from_bytes(b"ZZ", "big")
GO_TO_LOCAL = 6
PIECES_LIMIT = 1 << 20  # empty pieces without end cost memory as well


class PeerError(Exception):
    """The session cannot go on as asked; the text is one sentence."""


class ProtocolError(PeerError):
    """The server did what the protocol does not allow; the session is closed."""


class ClosedError(PeerError):
    """The connection is gone."""


class RefusedError(PeerError):
    """The server demands what a synchronized 1.0 client does not have; the session is closed."""


class ServerError(PeerError):
    """The server sent Error; the session goes on."""

    def __init__(self, message, where):
        self.code, self.text = message.control, message.payload.decode("utf-8", "replace")
        self.where = where
        super().__init__(f"the server sent {message.type.name} {self.code} on the {WHERE[where]} channel: {self.text}")


class FatalServerError(ServerError):
    """The server sent FatalError; the session is closed."""


class Client:
    """Single-threaded: every wait watches both channels, so nothing on the asynchronous one is missed."""

    def __init__(self, host, port, name="hislip0", *, timeout=2.0, max_size=1 << 20, answer_limit=64 << 20):
        self.timeout, self.answer_limit = timeout, answer_limit
        self.service_requests, self.dropped, self.errors = [], [], []
        self.channels, self.why_closed, self.server_version = {}, None, None
        self.allowed, self.awaited, self.answers = {"S": (), "A": ()}, {}, {}
        self.clearing = False
        self._reset()
        try:
            self._open(host, port, name.encode("ascii"), max_size)
        except BaseException as error:
            self.close(str(error))
            raise

    def _reset(self):
        self.sent = 0  # ids given out since open or clear
        self.unanswered, self.last_end = set(), None
        self.rmt = 0
        self.replies = deque()
        self._drop_parts()
        self.interrupt_balance = 0  # AsyncInterrupted minus Interrupted

    def _drop_parts(self):
        self.parts, self.part_bytes, self.part_id = [], 0, ANY_ID

    def _connect(self, host, port, where, limit):
        sock = socket.create_connection((host, port), self.timeout)
        sock.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.channels[where] = Channel(sock, "D", where, limit)

    def _open(self, host, port, name, max_size):
        self._connect(host, port, "S", max_size)
        m = self._ask("S", T.Initialize, 0, 0x0100 << 16 | VENDOR, name, T.InitializeResponse)
        self.server_version, self.session = m.parameter >> 16, m.parameter & 0xFFFF
        overlap_preferred = m.control & 1
        if self.server_version < 0x0100:
            self._fail(f"the server answered with protocol version 0x{self.server_version:04X}, below 1.0")
        if m.control & 6 and self.server_version < 0x0200:
            self._fail(f"the server set encryption bits (control code {m.control}) in a version before 2.0")
        if m.control & 6:
            raise RefusedError("the server demands an encrypted connection, which is not supported")
        self._connect(host, port, "A", ASYNC_LIMIT)
        m = self._ask("A", T.AsyncInitialize, 0, self.session, b"", T.AsyncInitializeResponse)
        if m.control and self.server_version < 0x0200:
            self._fail("the server offered a secure connection in a version before 2.0")
        if m.parameter >> 16 or not vendor_ok(m.parameter & 0xFFFF):
            self._fail(f"the server sent the vendor id 0x{m.parameter:08X}, which is not two ASCII characters")
        self.allowed = {"S": (T.Data, T.DataEND, T.Interrupted), "A": (T.AsyncServiceRequest, T.AsyncInterrupted)}
        m = self._ask("A", T.AsyncMaximumMessageSize, 0, 0, max_size.to_bytes(8, "big"),
                      T.AsyncMaximumMessageSizeResponse)
        self.server_max = int.from_bytes(m.payload, "big")
        if self.server_max <= HEADER.size:
            self._fail(f"the server's maximum message size of {self.server_max} bytes leaves no room for data")
        if overlap_preferred:
            self.clear()

    def _fail(self, sentence):
        self.close(sentence)
        raise ProtocolError(sentence)

    def _id(self, number):
        return (FIRST_ID + 2 * number) & 0xFFFFFFFF

    def _was_sent(self, mid):
        distance = (mid - FIRST_ID) & 0xFFFFFFFF
        return distance % 2 == 0 and distance // 2 < self.sent

    def send(self, where, type_, control, parameter, payload=b""):
        """Any message, right or wrong: tests of a server's judgement use it directly."""
        if where not in self.channels:
            raise ClosedError(f"the session is closed ({self.why_closed})")
        sock = self.channels[where].sock
        sock.settimeout(self.timeout)
        try:
            sock.sendall(pack(type_, control, parameter, payload))
        except OSError as error:  # a message may be half out: nothing can follow it
            self.close(f"sending failed: {error}")
            raise ClosedError(f"sending message type {int(type_)} on the {WHERE[where]} channel failed: "
                              f"{error}") from error

    def _pump(self, deadline, what, late=False):
        """Wait for bytes on either channel and judge every message they complete; true when that was the last try.

        Bytes that never stop coming must not outrun the deadline, so a caller hands the answer in again as `late`.
        """
        if not self.channels:
            raise ClosedError(f"the session is closed ({self.why_closed})")
        ended = [c for c in self.channels.values() if c.eof]
        wait = 0 if ended else max(0.0, deadline - monotonic())
        ready = select.select([c for c in self.channels.values() if not c.eof], [], [], wait)[0]
        if not ready and ended:
            sentence = (f"the server closed the {WHERE[ended[0].where]} channel while {what} "
                        f"({ended[0].unfinished()}, {len(self.parts)} pieces of a reply)")
            self.close(sentence)
            raise ClosedError(sentence)
        if late or not ready:
            waiting = ", ".join(f"{WHERE[c.where]}: {c.unfinished()}" for c in self.channels.values())
            raise TimeoutError(f"no answer in time while {what} ({waiting}, {len(self.parts)} "
                               f"pieces of a reply)")
        for channel in ready:
            channel.sock.settimeout(0)
            channel.fill()
        for channel in ready:
            try:
                while m := channel.take():
                    self._judge(m, channel.where)
            except HeaderError as error:
                self._fail(str(error))
        return monotonic() > deadline

    def _judge(self, m, where):
        if m.type in (T.FatalError, T.Error) and m.control == 5 and (self.server_version or 0x0200) < 0x0200:
            self._fail(f"the server sent {m.type.name} 5, which only version 2.0 has")
        if m.type == T.FatalError:
            error = FatalServerError(m, where)
            self.close(str(error))
            raise error
        if m.type == T.Error:
            self.errors.append(ServerError(m, where))
        elif m.type == self.awaited.get(where):
            self.awaited[where], self.answers[where] = None, m
            if m.type == T.DeviceClearAcknowledge:
                self.clearing = False
                self._reset()
        elif m.type not in self.allowed[where]:
            self._fail(f"the server sent {m.type.name} on the {WHERE[where]} channel, which nothing asked for")
        elif m.type == T.AsyncServiceRequest:
            self.service_requests.append(m.control)
        elif self.clearing or (self.interrupt_balance > 0 and m.type in (T.Data, T.DataEND)):
            self.dropped.append((m.parameter, m.payload))
        elif m.type in (T.Interrupted, T.AsyncInterrupted):
            self._interrupted(m)
        else:
            self._gather(m)

    def _interrupted(self, m):
        if not self._was_sent(m.parameter):
            self._fail(f"the server sent {m.type.name} for message id 0x{m.parameter:08X}, which was never sent")
        self.interrupt_balance += 1 if m.type == T.AsyncInterrupted else -1
        if abs(self.interrupt_balance) > self.sent:
            self._fail(f"the server sent {m.type.name} again and again without its counterpart")
        if m.type == T.Interrupted:
            self.dropped += [(self.part_id, part) for part in self.parts] + list(self.replies)
            self.replies.clear()
            self._drop_parts()

    def _gather(self, m):
        mid = m.parameter
        if not self.unanswered:
            self._fail(f"the server sent {m.type.name} though no message is unanswered")
        if mid not in self.unanswered and (mid != ANY_ID or m.type == T.DataEND):
            self._fail(f"the server sent {m.type.name} with message id 0x{mid:08X}, which no unanswered message has")
        if self.part_id != ANY_ID and mid not in (self.part_id, ANY_ID):
            self._fail(f"the server changed the message id within a reply from 0x{self.part_id:08X} to 0x{mid:08X}")
        self.part_id = mid if mid != ANY_ID else self.part_id
        self.parts.append(m.payload)
        self.part_bytes += len(m.payload)
        if self.part_bytes > self.answer_limit or len(self.parts) > PIECES_LIMIT:
            self._fail(f"the server's reply is over the limit of {self.answer_limit} bytes or {PIECES_LIMIT} pieces")
        if m.type == T.DataEND:
            self.replies.append((mid, b"".join(self.parts)))
            self._drop_parts()
            # replies come in order: with this one, all older messages stay without
            self.unanswered = {i for i in self.unanswered if 0 < (i - mid) & 0xFFFFFFFF < 1 << 31}

    def _raise_error(self, channels):
        for error in self.errors:
            if error.where in channels:
                self.errors.remove(error)
                raise error

    def _ask(self, where, type_, control, parameter, payload, expected):
        deadline = monotonic() + self.timeout
        self.awaited[where] = expected
        self.send(where, type_, control, parameter, payload)
        try:
            late = False
            while where not in self.answers:
                self._raise_error(where)
                late = self._pump(deadline, f"waiting for {expected.name}", late)
        except TimeoutError as error:  # nothing would tell its late answer from the next one
            self.close(str(error))
            raise
        finally:
            self.awaited[where] = None
        return self.answers.pop(where)

    def _before_sending(self):
        deadline = monotonic() + self.timeout
        try:
            while monotonic() < deadline:
                self._pump(0, "looking before sending")
        except TimeoutError:
            pass
        late = False
        while self.interrupt_balance < 0:
            late = self._pump(deadline, "waiting for AsyncInterrupted", late)

    def _next(self, type_, payload=b""):
        mid, rmt, self.rmt = self._id(self.sent), self.rmt, 0
        self.sent += 1
        if type_ == T.DataEND:
            self.unanswered.add(mid)
            self.last_end = mid
        self.send("S", type_, rmt, mid, payload)

    def write(self, message):
        """One program message; a line feed is added where none ends it."""
        message = message if message.endswith(b"\n") else message + b"\n"
        self._before_sending()
        room = self.server_max - HEADER.size
        pieces = [message[i:i + room] for i in range(0, len(message), room)]
        for piece in pieces[:-1]:
            self._next(T.Data, piece)
        self._next(T.DataEND, pieces[-1])

    def trigger(self):
        self._before_sending()
        self._next(T.Trigger)

    def read(self, timeout=None):
        """The reply to the last message as it came, its line feed included; after a time-out it can go on."""
        deadline = monotonic() + (self.timeout if timeout is None else timeout)
        late = False
        while True:
            while self.replies:
                mid, reply = self.replies.popleft()
                if mid == self.last_end:
                    self.rmt = 1
                    return reply
                self.dropped.append((mid, reply))
            self._raise_error("SA")
            late = self._pump(deadline, "waiting for a reply", late)

    def query(self, message, timeout=None):
        self.write(message)
        return self.read(timeout)

    def status(self):
        rmt, self.rmt = self.rmt, 0
        return self._ask("A", T.AsyncStatusQuery, rmt, self._id(self.sent - 1), b"", T.AsyncStatusResponse).control

    def local(self, code=GO_TO_LOCAL):
        self._ask("A", T.AsyncRemoteLocalControl, code, self._id(self.sent - 1), b"", T.AsyncRemoteLocalResponse)

    def clear(self):
        """Device clear, asking for synchronized mode."""
        self.clearing = True
        try:
            self._ask("A", T.AsyncDeviceClear, 0, 0, b"", T.AsyncDeviceClearAcknowledge)
            m = self._ask("S", T.DeviceClearComplete, 0, 0, b"", T.DeviceClearAcknowledge)
        finally:
            self.clearing = False
        if m.control & 1:
            self.close("the server stays in overlapped mode")
            raise RefusedError("the server stays in overlapped mode, which is not supported")

    def close(self, why="closed by the client"):
        self.why_closed = self.why_closed or why
        for channel in self.channels.values():
            channel.sock.close()
        self.channels = {}
