"""The server: a table of queries on loopback, rules kept by default, broken as its switches say.

What a client does against the rules goes into `problems` as sentences; tests end by finding that list empty.
"""
import socket
import threading
from collections import deque
from contextlib import suppress

from hislip_switches import Switches
from hislip_wire import ANY_ID, ASYNC_LIMIT, FIRST_ID, HEADER, PROLOGUE, Channel, HeaderError, T, vendor_ok

VENDOR = int.from_bytes(b"ZZ", "big")
MAV, ERRORS = 0x10, 0x04
TABLE = {b"*IDN?": b"PEER,LOOPBACK,0,1.0", b"*OPC?": b"1", b"BLOCK?": b"#18ab\ncd\n\ne",
         b"LONG?": b"0123456789" * 1000, b"EMPTY?": b""}


class Gone(Exception):
    """The session has ended."""


class Session:
    def __init__(self, number, sync):
        self.number, self.channels = number, {"S": sync}
        self.inputs = deque()
        self.busy = self.held = self.clearing = self.dead = False
        self.client_max = ASYNC_LIMIT
        self.generation = 0
        self.overlapped = False
        self.reset()

    def reset(self):
        self.inputs.clear()
        self.parts = []
        self.expected_id = self.reply_id = FIRST_ID
        self.mav = self.rmt_expected = False

    def last_id(self):
        return (self.expected_id - 2) & 0xFFFFFFFF


class Server:
    """Threads: one accepts, one reads each connection, one answers for each session; one condition tells all."""

    def __init__(self, table=None, switches=None, *, port=0, names=("hislip0",), max_size=1 << 20):
        self.table = {**TABLE, b"SYST:ERR?": self._next_error, **(table or {})}
        self.switches = switches or Switches()
        self.names, self.max_size = names, max_size
        self.cv = threading.Condition()
        self.sessions, self.channels, self.threads = {}, [], []
        self.received, self.commands, self.errors, self.problems, self.remote_local = [], [], [], [], []
        self.status, self.clears, self.triggers, self.releases, self.opened = 0, 0, 0, 0, 0
        self.closing = False
        self.listener = socket.create_server(("127.0.0.1", port))
        self.port = self.listener.getsockname()[1]
        self._start(self._accept)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    # what a test does
    def wait_for(self, condition, timeout=5.0):
        with self.cv:
            return self.cv.wait_for(condition, timeout)

    def wait_held(self, timeout=5.0):
        return self.wait_for(lambda: any(s.held for s in self.sessions.values()), timeout)

    def release(self):
        """The event that ends the delay of one held reply."""
        with self.cv:
            self.releases += 1
            self.cv.notify_all()

    def service_request(self, status):
        for s in list(self.sessions.values()):
            self._send(s, "A", T.AsyncServiceRequest, status)

    def drop_connections(self):
        for s in list(self.sessions.values()):
            self._kill(s)

    def close(self):
        with self.cv:
            self.closing = True
            self.cv.notify_all()
        self.listener.shutdown(socket.SHUT_RDWR)
        for channel in list(self.channels):
            self._shut(channel)
        for thread in self.threads:
            thread.join()
        self.listener.close()

    # connections
    def _start(self, function, *arguments):
        thread = threading.Thread(target=self._guard, args=(function, *arguments), daemon=True)
        self.threads.append(thread)
        thread.start()

    def _guard(self, function, *arguments):
        with suppress(Gone, OSError):
            function(*arguments)

    def _accept(self):
        while True:
            sock, _ = self.listener.accept()
            sock.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            channel = Channel(sock, "C", "S", ASYNC_LIMIT)
            channel.lock = threading.Lock()
            self.channels.append(channel)
            if self.closing:
                self._shut(channel)
            self._start(self._connection, channel)

    def _shut(self, channel):
        with suppress(OSError):
            channel.sock.shutdown(socket.SHUT_RDWR)

    def _kill(self, s):
        with self.cv:
            s.dead = True
            self.sessions.pop(s.number, None)
            self.cv.notify_all()
        for channel in s.channels.values():
            self._shut(channel)

    def _problem(self, sentence):
        with self.cv:
            self.problems.append(sentence)
            self.cv.notify_all()

    def _refuse(self, s, where, code, sentence):
        self._problem(sentence)
        self._send(s, where, T.FatalError, code, 0, sentence.encode()[:ASYNC_LIMIT - HEADER.size])
        self._kill(s)
        raise Gone

    def _connection(self, channel):
        s = Session(None, channel)
        try:
            s = self._first(s, channel)
            while True:
                m = self._receive(s, channel)
                (self._sync if channel.where == "S" else self._async)(s, m)
        finally:
            self._kill(s)
            self._shut(channel)
            self.channels.remove(channel)
            channel.sock.close()

    def _receive(self, s, channel):
        """The next message that can be used; Error for those that can be skipped."""
        codes = {"type": 1, "control": 2, "vendor": 3, "size": 4}
        where = next(w for w, c in s.channels.items() if c is channel)
        while True:
            try:
                m = channel.take()
            except HeaderError as error:
                if error.kind not in codes:
                    self._refuse(s, where, 1, str(error))
                self._problem(str(error))
                self._send(s, where, T.Error, codes[error.kind], 0, str(error).encode()[:256])
                continue
            if m:
                return m
            if not channel.fill():
                raise Gone

    def _first(self, s, channel):
        while len(channel.buffer) < HEADER.size:
            if not channel.fill():
                raise Gone
        if channel.buffer[2] == T.AsyncInitialize:
            channel.where = "A"  # only the first message tells which channel this is
        m = self._receive(s, channel)
        sw = self.switches
        if m.type == T.Initialize:
            if m.payload.decode("latin-1") not in self.names:
                self._refuse(s, "S", 3, f"there is no sub-address {m.payload!r}")
            if m.parameter >> 16 < 0x0100 or not vendor_ok(m.parameter & 0xFFFF):
                self._problem(f"Initialize with parameter 0x{m.parameter:08X}")
            channel.limit = self.max_size
            with self.cv:
                self.opened += 1
                s.number = self.opened & 0xFFFF
                self.sessions[s.number] = s
                s.overlapped = sw.overlapped
            bits = sw.overlapped | sw.encryption << 1 | sw.initial_encryption << 2
            self._send(s, "S", T.InitializeResponse, bits, sw.version << 16 | s.number)
            self._start(self._work, s)
            return s
        if m.type != T.AsyncInitialize:
            self._refuse(s, "S", 2, f"{m.type.name} came before the connection was initialized")
        found = self.sessions.get(m.parameter)
        if not found or "A" in found.channels:
            self._refuse(Session(None, channel), "S", 3, f"no session 0x{m.parameter:08X} waits for this channel")
        found.channels["A"] = channel
        if sw.encryption or sw.initial_encryption:
            self._refuse(found, "A", 5, "the client went on without the encryption that is mandatory")
        if sw.refuse_async == "fatal":
            self._send(found, "A", T.FatalError, 4, 0, b"no asynchronous channel left")
        if sw.refuse_async in ("close", "fatal"):
            self._kill(found)
            raise Gone
        if not sw.refuse_async:
            self._send(found, "A", T.AsyncInitializeResponse, int(sw.secure), VENDOR)
        return found

    def _send(self, s, where, type_, control=0, parameter=0, payload=b""):
        sw, channel = self.switches, s.channels.get(where)
        if type_ in sw.mute or channel is None:
            return
        struck = type_ == sw.on
        length = sw.length if struck and sw.length is not None else len(payload)
        data = HEADER.pack(sw.prologue if struck else PROLOGUE, type_, control, parameter, length) + payload
        cut = sw.cut if struck else None
        data = data[:cut]
        step = sw.drip or len(data) or 1
        with channel.lock:
            for at in range(0, len(data), step):
                channel.sock.sendall(data[at:at + step])
        if cut is not None:
            self._kill(s)
            raise Gone

    # synchronous channel: the reader queues, the worker answers
    def _sync(self, s, m):
        if m.type in (T.FatalError, T.Error):
            self._problem(f"the client sent {m.type.name} {m.control}: {m.payload!r}")
            return
        if m.type == T.DeviceClearComplete:
            return self._clear_complete(s, m)
        if "A" not in s.channels or m.type == T.Initialize:
            self._refuse(s, "S", 2 if m.type != T.Initialize else 3, f"{m.type.name} came at the wrong time")
        with self.cv:
            if s.clearing:  # sent before the clear was known
                return
            if m.parameter != s.expected_id:
                self.problems.append(f"{m.type.name} has message id 0x{m.parameter:08X}, not 0x{s.expected_id:08X}")
            s.expected_id = (m.parameter + 2) & 0xFFFFFFFF
            s.inputs.append(m)
            self.cv.notify_all()

    def _clear_complete(self, s, m):
        with self.cv:
            if not s.clearing:
                self.problems.append("DeviceClearComplete came without AsyncDeviceClear")
            self.cv.wait_for(lambda: not s.busy or s.dead or self.closing)
            s.reset()
            s.clearing = False
            s.overlapped = bool(m.control) or self.switches.stay_overlapped
            self.clears += 1
            self.cv.notify_all()
        self._send(s, "S", T.DeviceClearAcknowledge, int(s.overlapped))

    def _work(self, s):
        while True:
            with self.cv:
                s.busy = False
                self.cv.notify_all()
                self.cv.wait_for(lambda: (s.inputs and not s.clearing) or s.dead or self.closing)
                if s.dead or self.closing:
                    return
                m, generation, s.busy = s.inputs.popleft(), s.generation, True
                self._delivered(s, m.control, m)
                if m.type == T.Trigger:
                    self.triggers += 1
                    continue
                s.parts.append(m.payload)
                if m.type == T.Data:
                    continue
                message, s.parts = b"".join(s.parts), []
            self._execute(s, message, m.parameter, generation)

    def _delivered(self, s, flag, m):
        """RMT-delivered against what is expected."""
        if s.overlapped or (m.type == T.AsyncStatusQuery and not flag):
            return
        if flag != s.rmt_expected:
            self.errors.append((-410, "Query INTERRUPTED"))
        if flag and not s.rmt_expected:
            self.problems.append(f"{m.type.name} 0x{m.parameter:08X} says RMT-delivered, but no reply went out")
        s.rmt_expected = False
        s.mav = s.mav and not flag

    def _next_error(self, _):
        with self.cv:
            number, text = self.errors.pop(0) if self.errors else (0, "No error")
        return b'%d,"%s"' % (number, text.encode())

    def _execute(self, s, message, mid, generation):
        text = message.rstrip(b"\r\n")
        answer = text[6:] if text.upper().startswith(b"ECHO? ") else self.table.get(text.upper())
        with self.cv:
            self.received.append(text)
            if answer is None and b"?" in text:
                self.errors.append((-113, "Undefined header"))
            elif answer is None:
                self.commands.append(text)
            self.cv.notify_all()
        answer = answer(text) if callable(answer) else answer
        if answer is None or not self._held(s, generation):
            return
        with self.cv:
            interrupted = s.inputs and not s.overlapped and not self.switches.stale
            if interrupted:
                self.errors.append((-410, "Query INTERRUPTED"))
                newer = s.inputs[0].parameter
        if interrupted:
            self._send(s, "A", T.AsyncInterrupted, 0, newer)
            self._send(s, "S", T.Interrupted, 0, newer)
        elif self.switches.error:
            type_, code, words, where = self.switches.error
            self._send(s, where, type_, code, 0, words.encode())
            if type_ == T.FatalError:
                self._kill(s)
        else:
            self._reply(s, answer + b"\n", mid, generation)

    def _held(self, s, generation):
        """True when the reply is still wanted."""
        sw = self.switches
        with self.cv:
            if sw.late:
                known = self.releases
                sw.late -= sw.late > 0
                s.held = True
                self.cv.notify_all()
                self.cv.wait_for(lambda: self.releases > known or s.generation != generation or s.dead
                                 or self.closing or (sw.stale and s.inputs))
                s.held = False
            return s.generation == generation and not s.dead

    def _reply(self, s, data, mid, generation):
        sw = self.switches
        room = min(sw.fragment or len(data), s.client_max - HEADER.size)
        pieces = deque(data[at:at + room] for at in range(0, len(data), room))
        while pieces:
            piece = pieces.popleft()
            if sw.endless:
                pieces.append(piece)
            with self.cv:
                if s.generation != generation or s.dead or self.closing:
                    return
                type_ = T.Data if pieces else T.DataEND
                s.mav = True
                if s.overlapped:
                    mid, s.reply_id = s.reply_id, (s.reply_id + 2) & 0xFFFFFFFF
                elif not pieces:
                    s.rmt_expected = True
            wire_id = ANY_ID if sw.any_id and pieces else (mid + sw.id_shift) & 0xFFFFFFFF
            self._send(s, "S", type_, 0, wire_id, piece)

    # asynchronous channel
    def _async(self, s, m):
        if m.type == T.AsyncMaximumMessageSize:
            s.client_max = int.from_bytes(m.payload, "big")
            if s.client_max <= HEADER.size:
                self._refuse(s, "A", 3, f"a maximum message size of {s.client_max} leaves no room for data")
            self._send(s, "A", T.AsyncMaximumMessageSizeResponse, payload=self.max_size.to_bytes(8, "big"))
        elif m.type == T.AsyncDeviceClear:
            with self.cv:
                s.clearing = True
                s.generation += 1
                s.inputs.clear()
                s.parts = []
                self.cv.notify_all()
            self._send(s, "A", T.AsyncDeviceClearAcknowledge, int(s.overlapped or self.switches.overlapped))
        elif m.type == T.AsyncStatusQuery:
            self._settle(s, m)
            with self.cv:
                self._delivered(s, m.control, m)
                byte = self.status | MAV * s.mav | ERRORS * bool(self.errors)
            self._send(s, "A", T.AsyncStatusResponse, byte)
        elif m.type == T.AsyncRemoteLocalControl:
            self._settle(s, m)
            with self.cv:
                self.remote_local.append(m.control)
                self.cv.notify_all()
            self._send(s, "A", T.AsyncRemoteLocalResponse)
        elif m.type == T.AsyncLock:  # locks are answered, not kept
            self._send(s, "A", T.AsyncLockResponse, int(not self.switches.refuse_lock))
        elif m.type == T.AsyncLockInfo:
            self._send(s, "A", T.AsyncLockInfoResponse)
        else:
            self._problem(f"the client sent {m.type.name} {m.control} at the wrong time: {m.payload!r}")

    def _settle(self, s, m):
        """The two channels race: wait until the message that this one names has come and is dealt with."""
        with self.cv:
            if s.overlapped:  # there it names what the application has read
                return
            self.cv.wait_for(lambda: s.dead or self.closing or (m.parameter == s.last_id() and not s.inputs
                                                                and (s.held or not s.busy)), 1.0)
            if m.parameter != s.last_id():
                self._problem(f"{m.type.name} names message 0x{m.parameter:08X}, the last was 0x{s.last_id():08X}")
