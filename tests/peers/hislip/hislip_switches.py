"""What the server can be told to do; the defaults keep the rules."""
from dataclasses import dataclass

from hislip_wire import PROLOGUE, T


@dataclass
class Switches:
    """All may be set at any time, by a function in the table too, so that a single query is struck."""
    overlapped: bool = False        # prefer overlapped mode
    stay_overlapped: bool = False   # and keep it after device clear
    version: int = 0x0100           # what InitializeResponse says: 0x0100, 0x0101, 0x0200
    encryption: bool = False        # 2.0: mandatory encryption
    initial_encryption: bool = False
    secure: bool = False            # 2.0: AsyncInitializeResponse says that encryption could be had
    refuse_async: str = ""          # "close", "fatal" or "mute"
    late: int = 0                   # so many next replies are held until release(); -1 = all
    stale: bool = False             # new input releases a held reply, which goes out with its old id
    id_shift: int = 0               # added to the message ids of replies
    any_id: bool = False            # Data with 0xFFFFFFFF, which is allowed
    fragment: int = 0               # Data pieces of N bytes
    drip: int = 0                   # every message in sends of N bytes
    endless: bool = False           # Data without DataEND
    on: int = T.DataEND             # the type of message that prologue, length and cut strike
    prologue: bytes = PROLOGUE
    length: int = None              # payload length that the header claims
    cut: int = None                 # close after N bytes of the message
    error: tuple = None             # (T.Error or T.FatalError, code, text, "S" or "A") in place of a reply
    mute: tuple = ()                # types that are never sent
    refuse_lock: bool = False
