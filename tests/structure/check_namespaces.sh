#!/usr/bin/env bash
# check_namespaces.sh ROOT: the folders of ROOT/src whose classes the contract names stand in `portico`, every other
# folder with its rooms in `portico::FOLDER`.
set -u
cd "$1" || exit 2

contract=" application channel configuration document framework instructions platform ui views "

faults=0
fault() {
  echo "$1" >&2
  faults=$((faults + 1))
}

seen=0
while IFS= read -r file; do
  seen=$((seen + 1))
  folder=${file#src/}
  folder=${folder%%/*}
  spaces=$(sed -nE 's/^namespace (portico[A-Za-z:]*) \{.*/\1/p' "$file")
  if [[ -z $spaces ]]; then
    grep -q '^extern "C"' "$file" || fault "$file: no namespace"
  elif [[ $contract == *" $folder "* ]]; then
    for space in $spaces; do
      inner=${space#portico}
      inner=${inner#::}
      inner=${inner%%::*}
      [[ -n $inner && -d src/$inner ]] && fault "$file: $space, and not portico"
    done
  else
    grep -qx "portico::$folder" <<< "$spaces" || fault "$file: $spaces, and not portico::$folder"
  fi
done < <(find src -name '*.h' -o -name '*.cpp')

if ((seen == 0)); then fault "no source was found in $1/src"; fi
exit $((faults > 0))
