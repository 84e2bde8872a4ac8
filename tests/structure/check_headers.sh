#!/usr/bin/env bash
# check_headers.sh ROOT: each header of ROOT/src may be included twice, and the source of its name, if there is one,
# includes it before anything else. So building the source shows that the header stands alone.
set -u
cd "$1/src" || exit 2

faults=0
complain() {
  echo "src/$1: $2" >&2
  faults=$((faults + 1))
}

seen=0
while IFS= read -r header; do
  seen=$((seen + 1))
  first=$(grep -m 1 '^[[:space:]]*#' "$header")
  [[ $first =~ ^#(pragma\ once|ifndef\ [A-Z0-9_]+_H)$ ]] || complain "$header" "nothing guards it at its beginning"
  for source in "${header%.h}.cpp" "${header%.h}_posix.cpp"; do
    [[ -f $source ]] || continue
    first=$(grep -m 1 '^[[:space:]]*#[[:space:]]*include' "$source")
    [[ $first == "#include \"$header\"" ]] || complain "$source" "includes something before $header"
  done
done < <(find . -name '*.h' -printf '%P\n')

if ((seen == 0)); then
  echo "no header was found in $1/src" >&2
  exit 1
fi
exit $((faults > 0))
