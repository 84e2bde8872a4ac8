#!/usr/bin/env bash
# The size check sees one line too many, and only that.
set -u
check=sizes
. "$(dirname "$0")/faults.sh"

write_lines src/framework/Full.h 150
write_lines src/framework/Full.cpp 400
write_lines apps/Full.cpp 400
write_lines tests/Full.cpp 750
write_lines tests/Full.h 750
passes "files that just fit"
write_lines src/framework/Long.h 151
sees "a header of 151 lines" src/framework/Long.h
write_lines src/framework/Long.cpp 401
sees "a source of 401 lines" src/framework/Long.cpp
write_lines apps/Long.cpp 401
sees "a program's source of 401 lines" apps/Long.cpp
write_lines tests/Long.cpp 751
sees "a test of 751 lines" tests/Long.cpp
write_lines tests/Long.sh 751
sees "a script of 751 lines" tests/Long.sh
