#!/usr/bin/env bash
# test_suites.sh CTEST PROGRAM: ctest runs the suites of FaultySuites.cpp one by one, and sees whatever goes wrong.
set -u
ctest=$1 program=$2

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cat > "$place/CTestTestfile.cmake" <<END
include("$here/../../cmake/TestSuites.cmake")
add_suites(faulty "$program")
add_suites(missing "$place/missing")
END
"$ctest" --test-dir "$place" --output-on-failure --output-junit results.xml > "$place/log" 2>&1

# compare WHAT EXPECTED ACTUAL
compare() {
  [[ $2 == "$3" ]] && return
  printf '%s\nexpected:\n%s\nactual:\n%s\n' "$1" "$2" "$3" >&2
  cat "$place/log" >&2
  exit 1
}

compare "how ctest judges each suite" "\
faulty.Crashing fail
faulty.Ending fail
faulty.Good run
faulty.GoodMore fail
faulty.Idle fail
faulty.Large/Values fail
faulty.Mixed fail
faulty.Small/Values run
faulty.Types/0 run
faulty.Types/1 fail
missing notrun" "$(sed -nE 's/.*<testcase name="([^"]+)".* status="([^"]+)".*/\1 \2/p' "$place/results.xml" | LC_ALL=C sort)"

compare "which tests ctest's output names" "\
GoodMore.Fails
Large/Values.AreSmall/1
Mixed.Fails
Mixed.Throws
Types/1.AreSmall" "$(sed -nE 's/^\[  FAILED  \] ([^, ]+).* \([0-9]+ ms\)$/\1/p' "$place/log" | LC_ALL=C sort)"
