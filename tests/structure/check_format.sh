#!/usr/bin/env bash
# check_format.sh ROOT: every tracked source is as clang-format writes it. Skipped (77) where there is no clang-format.
set -u
cd "$1" || exit 2

tool=$(command -v clang-format || command -v clang-format-14) || exit 77
# The top of a clone lists what is tracked; a copy without history is taken as it lies there.
if [[ $(git rev-parse --show-toplevel 2> /dev/null) == "$(pwd -P)" ]]; then
  mapfile -t sources < <(git ls-files -- '*.h' '*.cpp' | while IFS= read -r file; do [[ -f $file ]] && echo "$file"; done)
else
  mapfile -t sources < <(find . -path ./build -prune -o \( -name '*.h' -o -name '*.cpp' \) -print)
fi
if ((${#sources[@]} == 0)); then
  echo "no source was found in $1" >&2
  exit 1
fi
"$tool" --dry-run -Werror "${sources[@]}"
