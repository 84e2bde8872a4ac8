#!/usr/bin/env bash
# The format check sees a source that clang-format would change, in a clone and in a copy without history.
set -u
check=format
. "$(dirname "$0")/faults.sh"

passes "a clean tree"
write src/platform/Wild.cpp 'int   f( ){return 1 ;}\n'
sees "a source out of format" src/platform/Wild.cpp
write tests/Wild.h 'int*    p;\n'
sees "a header of the tests out of format" tests/Wild.h

command -v git > /dev/null || exit 0
git -C "$tree" init -q
git -C "$tree" add .
write src/platform/Untracked.cpp 'int   f( ){return 1 ;}\n'
passes "a file that is not tracked"
git -C "$tree" add .
sees "a tracked source out of format" src/platform/Untracked.cpp
