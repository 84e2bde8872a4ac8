#!/usr/bin/env bash
# check_layer_table.sh ROOT LAYERS: the table in ROOT/docs/architecture.md is what the build links. A row is
# "| FOLDER | what it holds | FOLDER, FOLDER, ... |", with "nothing" for none; one whose last cell is empty names a
# folder that has rooms only. LAYERS is as check_layers.sh has it.
set -u
layers=$(realpath "$2") && cd "$1" || exit 2

# Both as lines "FOLDER: FOLDER FOLDER ...", the lists in the order of the alphabet.
sorted() {
  while IFS=: read -r folder links; do
    echo "$folder: $(tr ' ' '\n' <<< "$links" | sed '/^$/d' | sort | paste -sd ' ')"
  done | sort
}
linked=$(sorted < "$layers")
written=$(sed -nE 's/^\| *([a-z0-9_/]+) *\|[^|]*\| *([^|]*[^| ]) *\|$/\1: \2/p' docs/architecture.md |
  grep -v '^folder:' | sed 's/,/ /g; s/: nothing$/: /' | sorted)
# A build without the window has no toolkit.
if ! grep -q '^qt' "$layers"; then written=$(grep -v '^qt' <<< "$written"); fi

if [[ -z $linked || $linked != "$written" ]]; then
  echo "docs/architecture.md (<) and the link lists (>) differ:" >&2
  diff <(echo "$written") <(echo "$linked") >&2
  exit 1
fi
