#!/usr/bin/env bash
# check_manual.sh ROOT: the links and images of README.md, docs/*.md and the manual lead somewhere; every page of the
# manual is reached from its index, and needs nothing outside its folder; every help topic has its page.
set -u
cd "$1" || exit 2

manual=docs/manual
faults=0
fault() {
  echo "$1" >&2
  faults=$((faults + 1))
}

# text_of FILE: without its blocks of code.
text_of() {
  awk '/^ *```/ { code = !code; next }
       { if (!code && !(blank && /^    /)) print; blank = /^ *$/ || (blank && /^    /) }' "$1"
}

# links_of FILE: the targets of its links and images, one a line.
links_of() { text_of "$1" | sed 's/`[^`]*`//g' | grep -oE '\]\([^)]*\)' | sed -E 's/^\]\(([^ ]*).*\)$/\1/'; }

# anchors_of FILE: what its headings are called in links.
anchors_of() {
  text_of "$1" | sed -nE 's/^#+ +//p' | tr '[:upper:]' '[:lower:]' | sed -E 's/[^a-z0-9 _-]//g; s/ /-/g'
}

# resolve FILE TARGET: the path from the root that the target means in that file.
resolve() {
  local path=${2%%#*}
  if [[ -z $path ]]; then echo "$1"; else realpath -m --relative-to=. "$(dirname "$1")/$path"; fi
}

# check_target WHERE FILE TARGET
check_target() {
  local path
  path=$(resolve "$2" "$3")
  if [[ ! -e $path ]]; then
    fault "$1: there is no $3"
  elif [[ $3 == *#* ]] && ! anchors_of "$path" | grep -qxF -- "${3#*#}"; then
    fault "$1: $path has no heading for $3"
  elif [[ $2 == "$manual"/* && $path != "$manual"/* ]]; then
    fault "$1: $3 leads out of the manual, which is installed alone"
  fi
}

shopt -s nullglob
pages=("$manual"/*.md)
documents=(README.md docs/*.md "${pages[@]}")
for document in "${documents[@]}"; do
  while IFS= read -r target; do
    [[ $target == *://* || $target == mailto:* ]] || check_target "$document" "$document" "$target"
  done < <(links_of "$document")
done

declare -A reached=()
ahead=("$manual/index.md")
while ((${#ahead[@]})); do
  page=${ahead[0]}
  ahead=("${ahead[@]:1}")
  [[ -v reached[$page] || $page != *.md || ! -e $page ]] && continue
  reached[$page]=1
  while IFS= read -r target; do
    [[ $target == *://* ]] || ahead+=("$(resolve "$page" "$target")")
  done < <(links_of "$page")
done
for page in "${pages[@]}"; do
  [[ -v reached[$page] ]] || fault "$page: no way leads there from $manual/index.md"
done

topics=0
while read -r topic target rest; do
  [[ -z $topic || $topic == \#* ]] && continue
  topics=$((topics + 1))
  if [[ -z $target || -n $rest ]]; then
    fault "$manual/topics.txt: \"$topic\" is not followed by one page"
  else
    check_target "$manual/topics.txt" "$manual/topics.txt" "$target"
  fi
done < <(cat "$manual/topics.txt")

if ((${#pages[@]} == 0 || topics == 0)); then fault "no manual was found in $1"; fi
exit $((faults > 0))
