"""Asks an instrument the same question again and again: visa_queries.py NAME QUERY COUNT. Prints the median in us."""

import statistics
import sys
import time

import pyvisa

name, query, count = sys.argv[1:]
instrument = pyvisa.ResourceManager("@py").open_resource(name, read_termination="\n", write_termination="\r\n")
taken = []
for _ in range(int(count)):
    start = time.perf_counter()
    instrument.query(query)
    taken.append(time.perf_counter() - start)
print(statistics.median(taken) * 1e6)
