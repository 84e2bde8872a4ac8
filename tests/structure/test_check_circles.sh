#!/usr/bin/env bash
# The check of circles sees those of headers, and those that go by way of sources.
set -u
check=circles
. "$(dirname "$0")/faults.sh"

passes "a clean tree"
write src/framework/A.cpp '#include "framework/A.h"\n'
write src/framework/A_posix.cpp '#include "framework/A.h"\n#include "framework/B.h"\n'
write src/framework/B.h '#include "framework/Base.h"\n'
passes "a header with its sources"
write src/framework/B.cpp '#include "framework/C.h"\n'
write src/framework/C.h '#include "framework/A.h"\n'
sees "a circle by way of sources" src/framework/C.h
write src/framework/Base.h '#include "framework/B.h"\n'
sees "a circle of headers" src/framework/Base.h
write src/framework/Base.h ''
passes "what is left"

rm -r "$tree/src" && mkdir "$tree/src"
write src/empty.txt ''
sees "a tree without sources" src/empty.txt
