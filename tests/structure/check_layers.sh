#!/usr/bin/env bash
# check_layers.sh ROOT LAYERS: every folder of ROOT/src includes only what it links, and links only what it includes.
# LAYERS has a line for each folder, as the build made it from the link lists: "FOLDER: FOLDER FOLDER ...". A folder
# that stands in a list stands for its rooms too.
set -u
layers=$(realpath "$2") && cd "$1" || exit 2

faults=0
fault() {
  echo "$1" >&2
  faults=$((faults + 1))
}

declare -A may_include unused known
while IFS=: read -r folder links; do
  may_include[$folder]=$links
  known[${folder%%/*}]=1
  for link in $links; do unused["$folder $link"]=1; done
done < "$layers"

# allows FOLDER TARGET: whether a link of FOLDER reaches TARGET or what it is a room of.
allows() {
  local link
  for link in "$2" "${2%/*}"; do
    [[ " ${may_include[$1]} " == *" $link "* ]] || continue
    unset "unused[$1 $link]"
    return 0
  done
  return 1
}

seen=0
while IFS=: read -r file line include; do
  seen=$((seen + 1))
  folder=${file#src/}
  folder=${folder%/*}
  [[ $include =~ [\"\<]([^\">]+)[\"\>] ]] || continue
  target=${BASH_REMATCH[1]}
  if [[ ! -v may_include[$folder] ]]; then
    fault "$file:$line: the folder $folder is not among the libraries"
  elif [[ $target != */* ]]; then
    [[ $include == *\"* ]] && fault "$file:$line: \"$target\" is not written from its folder's name"
  elif [[ $include == *\"* || -v known[${target%%/*}] ]]; then
    target=${target%/*}
    [[ $target == "$folder" ]] || allows "$folder" "$target" || fault "$file:$line: $folder may not include $target"
  fi
done < <(grep -rnE '^[[:space:]]*#[[:space:]]*include' src --include='*.h' --include='*.cpp')

if ((seen == 0)); then fault "no include was found in $1/src"; fi
if ((seen > 0)); then
  for link in "${!unused[@]}"; do fault "${link% *} links ${link#* } and includes nothing of it"; done
fi
exit $((faults > 0))
