#!/usr/bin/env bash
# check_circles.sh ROOT: no file of ROOT/src includes itself by way of others. A header and its sources count as one:
# Clock.h, Clock.cpp and Clock_posix.cpp.
set -u
cd "$1/src" || exit 2

unit='([A-Za-z0-9/]+)(_[a-z]+)?\.(h|cpp)'
includes=$(grep -rEo '^ *# *include "[^"]+"' --include='*.h' --include='*.cpp' . |
  sed -nE "s@^\./$unit: *# *include \"$unit\"@\1 \4@p")
if [[ -z $includes ]]; then
  echo "no include was found in $1/src" >&2
  exit 1
fi
tsort <<< "$includes" > /dev/null # tells a circle's members, and fails
