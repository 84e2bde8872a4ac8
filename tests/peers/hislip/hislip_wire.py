"""HiSLIP messages: header, what each field may hold, and a channel that cuts the byte stream into messages.

Written without a look at the C++ code that it is to test. A Channel never keeps more than one message of the agreed size
plus one receive: a declared length is judged before any of its bytes are waited for.
"""
import struct
from collections import namedtuple
from enum import IntEnum

HEADER = struct.Struct(">2sBBIQ")
PROLOGUE = b"HS"
FIRST_ID = 0xFFFFFF00
ANY_ID = 0xFFFFFFFF
ASYNC_LIMIT = 272

Message = namedtuple("Message", "type control parameter payload")


class T(IntEnum):
    Initialize = 0
    InitializeResponse = 1
    FatalError = 2
    Error = 3
    AsyncLock = 4
    AsyncLockResponse = 5
    Data = 6
    DataEND = 7
    DeviceClearComplete = 8
    DeviceClearAcknowledge = 9
    AsyncRemoteLocalControl = 10
    AsyncRemoteLocalResponse = 11
    Trigger = 12
    Interrupted = 13
    AsyncInterrupted = 14
    AsyncMaximumMessageSize = 15
    AsyncMaximumMessageSizeResponse = 16
    AsyncInitialize = 17
    AsyncInitializeResponse = 18
    AsyncDeviceClear = 19
    AsyncServiceRequest = 20
    AsyncStatusQuery = 21
    AsyncStatusResponse = 22
    AsyncDeviceClearAcknowledge = 23
    AsyncLockInfo = 24
    AsyncLockInfoResponse = 25


# sender (C client, D device), channel (S, A), control codes, "parameter must be 0", shortest and longest
# payload; None = as long as the channel allows
RULES = {
    T.Initialize: ("C", "S", (0,), False, 0, 256),
    T.InitializeResponse: ("D", "S", range(8), False, 0, 0),
    T.FatalError: ("CD", "SA", range(6), True, 0, None),
    T.Error: ("CD", "SA", range(6), True, 0, None),
    T.AsyncLock: ("C", "A", (0, 1), False, 0, 256),
    T.AsyncLockResponse: ("D", "A", range(4), True, 0, 0),
    T.Data: ("CD", "S", (0, 1), False, 0, None),
    T.DataEND: ("CD", "S", (0, 1), False, 0, None),
    T.DeviceClearComplete: ("C", "S", (0, 1), True, 0, 0),
    T.DeviceClearAcknowledge: ("D", "S", (0, 1), True, 0, 0),
    T.AsyncRemoteLocalControl: ("C", "A", range(7), False, 0, 0),
    T.AsyncRemoteLocalResponse: ("D", "A", (0,), True, 0, 0),
    T.Trigger: ("C", "S", (0, 1), False, 0, 0),
    T.Interrupted: ("D", "S", (0,), False, 0, 0),
    T.AsyncInterrupted: ("D", "A", (0,), False, 0, 0),
    T.AsyncMaximumMessageSize: ("C", "A", (0,), True, 8, 8),
    T.AsyncMaximumMessageSizeResponse: ("D", "A", (0,), True, 8, 8),
    T.AsyncInitialize: ("C", "A", (0,), False, 0, 0),
    T.AsyncInitializeResponse: ("D", "A", (0, 1), False, 0, 0),
    T.AsyncDeviceClear: ("C", "A", (0,), True, 0, 0),
    T.AsyncServiceRequest: ("D", "A", range(256), True, 0, 0),
    T.AsyncStatusQuery: ("C", "A", (0, 1), False, 0, 0),
    T.AsyncStatusResponse: ("D", "A", range(256), True, 0, 0),
    T.AsyncDeviceClearAcknowledge: ("D", "A", (0, 1), True, 0, 0),
    T.AsyncLockInfo: ("C", "A", (0,), True, 0, 0),
    T.AsyncLockInfoResponse: ("D", "A", (0, 1), False, 0, 0),
}
WHO = {"C": "the client", "D": "the server"}
WHERE = {"S": "synchronous", "A": "asynchronous"}


class HeaderError(Exception):
    """A field that the protocol does not allow; `kind` says which one."""

    def __init__(self, kind, sentence):
        super().__init__(sentence)
        self.kind = kind


def vendor_ok(vendor):
    return all(0x20 < byte < 0x7F for byte in vendor.to_bytes(2, "big"))


def pack(type_, control, parameter, payload=b""):
    return HEADER.pack(PROLOGUE, type_, control, parameter, len(payload)) + payload


def check(sender, where, limit, prologue, type_, control, parameter, length):
    who, channel = WHO[sender], WHERE[where]
    if prologue != PROLOGUE:
        raise HeaderError("prologue", f"{who} sent a header that begins with {prologue!r} instead of {PROLOGUE!r} "
                                      f"on the {channel} channel")
    if type_ >= 128:
        raise HeaderError("vendor", f"{who} sent the vendor specific message type {type_}, which nobody agreed on")
    if type_ not in RULES:
        raise HeaderError("type", f"{who} sent message type {type_}, which version 1.0 does not have")
    senders, channels, controls, zero, low, high = RULES[type_]
    name = T(type_).name
    if sender not in senders or where not in channels:
        raise HeaderError("type", f"{who} sent {name} on the {channel} channel, where it has no business")
    if type_ in (T.Data, T.DataEND) and sender == "D":
        controls = (0,)  # RMT-delivered belongs to the client
    if control not in controls:
        raise HeaderError("control", f"{who} sent {name} with control code {control}")
    if zero and parameter:
        raise HeaderError("parameter", f"{who} sent {name} with parameter 0x{parameter:08X} instead of 0")
    if length > limit - HEADER.size:
        raise HeaderError("size", f"{who} sent {name} with a payload of {length} bytes; with its header that is "
                                  f"over the limit of {limit} bytes on the {channel} channel")
    if length < low or (high is not None and length > high):
        raise HeaderError("length", f"{who} sent {name} with a payload of {length} bytes")


class Channel:
    """One socket; `sender` is who is at the other end."""

    def __init__(self, sock, sender, where, limit):
        self.sock, self.sender, self.where, self.limit = sock, sender, where, limit
        self.buffer = bytearray()
        self.eof = False
        self.skip = 0

    def fileno(self):
        return self.sock.fileno()

    def fill(self):
        """One receive; False when the other end has closed."""
        try:
            got = self.sock.recv(65536)
        except (ConnectionError, OSError) as error:
            if isinstance(error, (BlockingIOError, TimeoutError)):
                return True
            got = b""
        self.buffer += got
        self.eof = not got
        return not self.eof

    def take(self):
        """The next whole message or None; a HeaderError leaves the payload to be skipped."""
        if self.skip:
            dropped = min(self.skip, len(self.buffer))
            del self.buffer[:dropped]
            self.skip -= dropped
        if self.skip or not self.buffer:
            return None
        start = bytes(self.buffer[:2])
        if len(self.buffer) < HEADER.size:
            if not PROLOGUE.startswith(start):  # stray bytes must not wait for sixteen
                check(self.sender, self.where, self.limit, start, 0, 0, 0, 0)
            return None
        fields = HEADER.unpack_from(self.buffer)
        try:
            check(self.sender, self.where, self.limit, *fields)
        except HeaderError:
            del self.buffer[:HEADER.size]
            self.skip = fields[4]
            raise
        end = HEADER.size + fields[4]
        if len(self.buffer) < end:
            return None
        payload = bytes(self.buffer[HEADER.size:end])
        del self.buffer[:end]
        if fields[1] in (T.FatalError, T.Error, T.Initialize, T.AsyncLock) and payload.endswith(b"\0"):
            raise HeaderError("length", f"{WHO[self.sender]} ended the text of {T(fields[1]).name} with a NUL")
        return Message(T(fields[1]), *fields[2:4], payload)

    def unfinished(self):
        return f"{len(self.buffer)} bytes of an unfinished message" if self.buffer else "nothing unfinished"
