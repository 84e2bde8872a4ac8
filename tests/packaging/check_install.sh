#!/usr/bin/env bash
# check_install.sh CMAKE BUILD VERSION WINDOW: installs the build into a new place and looks at what lies there.
# WINDOW is 1 if the build has the window.
set -u
cmake=$1 build=$2 version=$3 window=$4

place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
"$cmake" --install "$build" --prefix "$place" > "$place/log" || { cat "$place/log" >&2; exit 1; }

faults=0
fault() {
  echo "$1" >&2
  faults=$((faults + 1))
}
must_exist() { [[ -s $place/$1 ]] || fault "$1 is missing or empty"; }

must_be_gzip() { gzip -t "$place/$1" || fault "$1 is missing or not compressed"; }

for file in README.md LICENSE copyright docs/portico-run.md docs/formats/log.md docs/formats/command-lists.md \
  examples/first-steps.cmd; do
  must_exist "share/doc/portico/$file"
done

for program in portico-run portico-log portico-sim portico-tap; do
  must_exist "bin/$program"
  must_be_gzip "share/man/man1/$program.1.gz"
  must_exist "share/bash-completion/completions/$program"
  [[ $("$place/bin/$program" --version) == "$program $version" ]] || fault "$program does not tell version $version"
done

must_be_gzip share/doc/portico/changelog.gz
must_be_gzip share/doc/portico/changelog.Debian.gz
[[ $(zcat "$place/share/doc/portico/changelog.Debian.gz") == "portico ($version-"*") "* ]] ||
  fault "the package's changes do not begin with version $version"

# The rule that messages about USB instruments name; the seat gets its access at 73.
rule=70-portico-usbtmc.rules
must_exist "lib/udev/rules.d/$rule"
((${rule%%-*} < 73)) || fault "the udev rule comes too late"
grep -q '^SUBSYSTEM=="usbmisc", KERNEL=="usbtmc\[0-9\]\*", TAG+="uaccess"$' "$place/lib/udev/rules.d/$rule" ||
  fault "the udev rule does not give the seat access"

# The driver serves a program in C and one in Python.
must_exist include/portico/TVSCPI_32.h
library=lib/$(gcc -dumpmachine)/portico/libportico-driver.so
must_exist "$library"
library=$place/$library
exported=$(nm -D --defined-only "$library" | sed 's/.* //' | sort | xargs)
header=$(grep -o 'TVSCPI_[A-Za-z0-9_]*(' "$place/include/portico/TVSCPI_32.h" | tr -d '(' | sort | xargs)
[[ $exported == "$header" ]] || fault "the library exports \"$exported\" instead of \"$header\""
(($(wc -w <<< "$header") == 9)) || fault "the header does not tell nine functions"
examples=$place/share/doc/portico/examples/driver
gcc -std=c11 -Wall -Wextra -Wpedantic -Werror -I"$place/include" "$examples/query.c" -o "$place/query" \
  -L"${library%/*}" -lportico-driver "-Wl,-rpath,${library%/*}" || fault "the example in C does not build"
# A library that was built with the sanitizer wants that loaded first.
first=$(ldd "$library" | sed -n 's/.* => \(.*libasan[^ ]*\) .*/\1/p')
for query in "env ASAN_OPTIONS=detect_leaks=0 LD_PRELOAD=$first $place/query" \
  "env ASAN_OPTIONS=detect_leaks=0 LD_PRELOAD=$first PORTICO_DRIVER=$library /usr/bin/python3 $examples/query.py"; do
  answer=$($query SIM::dmm::INSTR SYST:VERS?) || fault "$query fails"
  [[ $answer == 1999.0 ]] || fault "$query answers \"$answer\""
  told=$($query nonsense '*IDN?' 2>&1) && fault "$query opens nonsense"
  [[ $told == "The instrument name is not valid: "*. ]] || fault "$query says \"$told\""
done

# Every option that a program tells is on its page.
options_of() { "$place/bin/$@" --help | grep -oE -- '--[a-z][a-z-]*' | sort -u; }
page_of() { zcat "$place/share/man/man1/$1.1.gz" | sed 's/\\-/-/g'; }
seen=0
while read -r program option; do
  seen=$((seen + 1))
  page_of "$program" | grep -qE -- "$option([^a-z-]|\$)" || fault "the page of $program is silent about $option"
done < <(
  for program in portico-run portico-sim portico-log portico-tap; do options_of "$program" | sed "s/^/$program /"; done
  for command in show export stats errors; do options_of portico-log "$command" | sed 's/^/portico-log /'; done
)
((seen >= 20)) || fault "only $seen options were found"

if [[ $window == 1 ]]; then
  must_exist bin/portico
  must_be_gzip share/man/man1/portico.1.gz
  entry=share/applications/portico.desktop
  must_exist "$entry"
  must_exist "bin/$(sed -n 's/^Exec=//p' "$place/$entry")"
  must_exist "share/icons/hicolor/scalable/apps/$(sed -n 's/^Icon=//p' "$place/$entry").svg"
  desktop-file-validate "$place/$entry" >&2 || fault "the desktop entry is not valid"
  metadata=share/metainfo/localhost.tolvane.portico.metainfo.xml
  appstreamcli validate --no-net "$place/$metadata" >&2 || fault "what software centres are told is not valid"
  must_exist "share/applications/$(sed -n 's/.*<launchable type="desktop-id">\(.*\)<.*/\1/p' "$place/$metadata")"
  while read -r program; do must_exist "bin/$program"; done < <(sed -n 's/.*<binary>\(.*\)<.*/\1/p' "$place/$metadata")
  must_exist share/portico/commands/SCPI-99.txt
  must_exist share/portico/help/topics.txt
  must_exist share/doc/portico/docs/manual/index.md # where the README says it is
  while read -r _ page; do must_exist "share/portico/help/${page%%#*}"; done \
    < <(grep -v '^#' "$place/share/portico/help/topics.txt")
else
  for file in bin/portico share/applications share/metainfo share/portico; do
    [[ ! -e $place/$file ]] || fault "$file is there, but no window"
  done
fi
exit $((faults > 0))
