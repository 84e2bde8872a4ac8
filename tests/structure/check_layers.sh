#!/usr/bin/env bash
# check_layers.sh ROOT: every folder of ROOT/src includes only what stands below it.
set -u
cd "$1" || exit 2

everything_below_the_roof="framework platform richtext channel configuration instructions simulator drivers memory document views ui"
declare -A may_include=(
  [framework]=""
  [platform]="framework"
  [richtext]="framework platform"
  [configuration]="framework platform"
  [channel]="framework platform"
  [instructions]="framework channel"
  [simulator]="framework"
  [drivers]="framework platform simulator"
  [memory]="framework platform richtext"
  [document]="framework platform configuration"
  [views]="framework platform configuration document instructions"
  [terminal]="framework platform configuration instructions document views"
  [logtool]="framework platform configuration document"
  [ui]="framework platform configuration channel instructions document views"
  [qt]="framework platform richtext"
  [application]="$everything_below_the_roof"
)

faults=0
fault() {
  echo "$1" >&2
  faults=$((faults + 1))
}

seen=0
while IFS=: read -r file line include; do
  seen=$((seen + 1))
  folder=${file#src/}
  folder=${folder%%/*}
  [[ $include =~ [\"\<]([^\">]+)[\"\>] ]] || continue
  target=${BASH_REMATCH[1]}
  if [[ ! -v may_include[$folder] ]]; then
    fault "$file:$line: the folder $folder has no place among the layers"
  elif [[ $target != */* ]]; then
    [[ $include == *\"* ]] && fault "$file:$line: \"$target\" is not written from its folder's name"
  elif [[ $include == *\"* || -v may_include[${target%%/*}] ]]; then
    target=${target%%/*}
    [[ $target == "$folder" || " ${may_include[$folder]} " == *" $target "* ]] ||
      fault "$file:$line: $folder may not include $target"
  fi
done < <(grep -rnE '^[[:space:]]*#[[:space:]]*include' src --include='*.h' --include='*.cpp')

if ((seen == 0)); then fault "no include was found in $1/src"; fi
exit $((faults > 0))
