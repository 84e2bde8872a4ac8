REM First steps with a multimeter. Run on the built-in simulated one:
REM   portico-run SIM::dmm::INSTR examples/first-steps.cmd
*RST
*CLS
*IDN?

REM Ten volts DC, at ten power line cycles.
CONF:VOLT:DC 10
SENS:VOLT:DC:NPLC 10
SENS:VOLT:DC:NPLC?
READ?

REM A question mark inside quotes makes no query.
DISP:TEXT "READY?"
DISP:TEXT?
DISP:TEXT:CLE

REM Two queries in one line.
MEAS:VOLT:DC?;:MEAS:RES?
