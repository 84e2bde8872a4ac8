#!/usr/bin/env bash
# check_sizes.sh ROOT: headers of at most 150 lines and sources of at most 400 in the programs; nothing over 750.
set -u
cd "$1" || exit 2

longest_header=150
longest_source=400
longest_file=750

faults=0
seen=0
while IFS= read -r file; do
  seen=$((seen + 1))
  limit=$longest_file
  case $file in
    src/*.h | apps/*.h) limit=$longest_header ;;
    src/*.cpp | apps/*.cpp) limit=$longest_source ;;
  esac
  lines=$(wc -l < "$file")
  if ((lines > limit)); then
    echo "$file: $lines lines, at most $limit" >&2
    faults=$((faults + 1))
  fi
done < <(for folder in src apps tests fuzz benchmarks cmake; do
  [[ -d $folder ]] && find "$folder" -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.sh' -o -name '*.py' \
    -o -name '*.cmake' -o -name CMakeLists.txt \)
done)

if ((seen == 0)); then
  echo "no source was found in $1" >&2
  exit 1
fi
exit $((faults > 0))
