"""The peer's face: client and server for one import."""
from hislip_client import (Client, ClosedError, FatalServerError, PeerError, ProtocolError, RefusedError,  # noqa: F401
                           ServerError)
from hislip_server import Server, Switches  # noqa: F401
from hislip_wire import ANY_ID, FIRST_ID, HEADER, PROLOGUE, T, pack  # noqa: F401
