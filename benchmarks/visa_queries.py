"""Asks an instrument the same question again and again: visa_queries.py NAME QUERY COUNT"""

import sys

import pyvisa

name, query, count = sys.argv[1:]
instrument = pyvisa.ResourceManager("@py").open_resource(name, read_termination="\n", write_termination="\r\n")
for _ in range(int(count)):
    instrument.query(query)
