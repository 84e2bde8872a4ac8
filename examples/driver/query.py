#!/usr/bin/env python3
"""Asks an instrument one question:  query.py INSTRUMENT QUERY

The library is found where the package puts it, or where PORTICO_DRIVER says.
"""

import ctypes
import os
import sys
import sysconfig

FOLDER = f"/usr/lib/{sysconfig.get_config_var('MULTIARCH')}/portico"
LIBRARY = os.environ.get("PORTICO_DRIVER", f"{FOLDER}/libportico-driver.so")


class DriverError(Exception):
    pass


class Instrument:
    """An open instrument; to be used with `with`, which closes it."""

    def __init__(self, name):
        self._driver = ctypes.CDLL(LIBRARY)
        self._session = ctypes.c_int32(0)
        self._check(self._driver.TVSCPI_init(name.encode("cp1252"), 0, 0, ctypes.byref(self._session)))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._driver.TVSCPI_close(self._session)

    def _check(self, status):
        if status != 0:
            message = ctypes.create_string_buffer(256)
            self._driver.TVSCPI_error_message(self._session, status, message)
            raise DriverError(message.value.decode("cp1252").rstrip("\n"))

    def write(self, command):
        """A command ends in a carriage return; the driver adds what the instrument's interface wants behind it."""
        self._check(self._driver.TVSCPI_WriteInstrData(self._session, command.encode("cp1252") + b"\r"))

    def read(self, size=1 << 20):
        """One answer, as bytes: it may hold a block."""
        buffer = ctypes.create_string_buffer(size)
        count = ctypes.c_int32(0)
        self._check(self._driver.TVSCPI_ReadInstrData(self._session, size, buffer, ctypes.byref(count)))
        return buffer.raw[: count.value - 1]  # the last byte is no data


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: query.py INSTRUMENT QUERY")
    try:
        with Instrument(sys.argv[1]) as instrument:
            instrument.write(sys.argv[2])
            print(instrument.read().decode("cp1252"))
    except DriverError as error:
        sys.exit(str(error))


if __name__ == "__main__":
    main()
