#!/usr/bin/env bash
# The check of the table of layers sees each way in which it can differ from the link lists.
set -u
check=layer_table
. "$(dirname "$0")/faults.sh"

# table ROW...: a document with these rows.
table() {
  mkdir -p "$tree/docs"
  {
    printf '%s\n' '# Architecture' '' '| folder | holds | may include |' '|---|---|---|'
    printf '%s\n' "$@" '' 'and so on'
  } > "$tree/docs/architecture.md"
}

base='| framework | the ground | nothing |'
seams='| platform | seams | framework |'
top='| instructions | work | framework |'
table "$base" "$seams" "$top"
passes "a true table"
table "$base" "$seams" '| instructions | work | framework, platform |'
sees "a folder too many in a list" docs/architecture.md
table "$base" '| platform | seams | nothing |' "$top"
sees "a folder too few in a list" docs/architecture.md
table "$base" "$seams"
sees "a folder without a row" docs/architecture.md
table "$base" "$seams" "$top" '| views | models | framework |'
sees "a row without a folder" docs/architecture.md
table
sees "a table without rows" docs/architecture.md

printf 'framework/errors: framework/text\nframework/text:\nplatform: framework framework/text\n' > "$tree/layers.txt"
table '| framework | the ground | |' '| framework/text | text | nothing |' '| framework/errors | errors | framework/text |' \
  '| platform | seams | framework/text, framework |'
passes "rooms, and lists in another order"
: > "$tree/layers.txt"
sees "no link lists at all" docs/architecture.md
