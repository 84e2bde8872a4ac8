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

for file in README.md CHANGELOG.md LICENSE copyright docs/portico-run.md docs/formats/log.md examples/first-steps.cmd; do
  must_exist "share/doc/portico/$file"
done

for program in portico-run portico-log portico-sim; do
  must_exist "bin/$program"
  must_exist "share/man/man1/$program.1"
  [[ $("$place/bin/$program" --version) == "$program $version" ]] || fault "$program does not tell version $version"
done

# Every option that a program tells is on its page.
options_of() { "$place/bin/$@" --help | grep -oE -- '--[a-z][a-z-]*' | sort -u; }
page_of() { sed 's/\\-/-/g' "$place/share/man/man1/$1.1"; }
seen=0
while read -r program option; do
  seen=$((seen + 1))
  page_of "$program" | grep -qE -- "$option([^a-z-]|\$)" || fault "the page of $program is silent about $option"
done < <(
  for program in portico-run portico-sim portico-log; do options_of "$program" | sed "s/^/$program /"; done
  for command in show export stats; do options_of portico-log "$command" | sed 's/^/portico-log /'; done
)
((seen >= 20)) || fault "only $seen options were found"

if [[ $window == 1 ]]; then
  must_exist bin/portico
  must_exist share/man/man1/portico.1
  entry=share/applications/portico.desktop
  must_exist "$entry"
  must_exist "bin/$(sed -n 's/^Exec=//p' "$place/$entry")"
  must_exist "share/icons/hicolor/scalable/apps/$(sed -n 's/^Icon=//p' "$place/$entry").svg"
  if command -v desktop-file-validate > /dev/null; then
    desktop-file-validate "$place/$entry" >&2 || fault "the desktop entry is not valid"
  fi
  must_exist share/portico/help/topics.txt
  while read -r _ page; do must_exist "share/portico/help/${page%%#*}"; done \
    < <(grep -v '^#' "$place/share/portico/help/topics.txt")
else
  for file in bin/portico share/applications share/portico; do
    [[ ! -e $place/$file ]] || fault "$file is there, but no window"
  done
fi
exit $((faults > 0))
