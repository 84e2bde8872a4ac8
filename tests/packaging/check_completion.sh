#!/usr/bin/env bash
# check_completion.sh FILE FOLDER: holds the completion in FILE against the programs in FOLDER: it offers every option that
# they list and no other, and only values that they take.
set -u
programs=$2
. "$1"

faults=0
fault() {
  echo "$1" >&2
  faults=$((faults + 1))
}

# Readline's own part: notes what is asked of it.
compopt() { asked=$*; }

# offered LINE: sets offered to what is offered at the line's end, blanks between, and asked to what readline is to do.
offered() {
  COMP_LINE=$1 COMP_POINT=${#1} COMP_WORDBREAKS=${breaks-$' \t\n"\'><=;|&(:'}
  asked=
  _portico "${1%% *}"
  offered=${COMPREPLY[*]}
}
expect() { [[ $2 == "$3" ]] || fault "$1: \"$2\" instead of \"$3\""; }
at() { offered "$1" && expect "$1" "$offered" "$2"; }
files_at() { offered "$1" && expect "$1" "$offered, $asked" ", -o default"; }

sorted() { tr -s ' ,' '\n' | sort | xargs; }
options_of() { "$programs/$1" "${@:2}" --help | sed -nE 's/^  (-[^ ]*) .*/\1/p' | sorted; }

for program in portico-run portico-sim portico-log portico-tap; do
  [[ $(complete -p "$program") == "complete -F _portico $program" ]] || fault "$program is not completed"
done
seen=0
for command in portico-{run,sim,log,tap} "portico-log "{show,export,stats,errors,table,diff,cut,merge,blocks}; do
  read -ra words <<< "$command"
  listed=$(options_of "${words[@]}")
  seen=$((seen + $(wc -w <<< "$listed")))
  offered "$command -"
  expect "$command" "$(sorted <<< "$offered")" "$listed"
done
((seen >= 38)) || fault "only $seen options were found"

commands=$("$programs/portico-log" --help | sed -n '/^Subcommands:/,$s/^  \([a-z]*\) .*/\1/p' | xargs)
at "portico-log " "$commands"
expect "commands" "$commands" "show export stats errors table diff cut merge blocks"

# Names of options, and values that the programs take.
for protocol in SCPI Other; do
  names=$("$programs/portico-run" --protocol $protocol --option = SIM::dmm::INSTR 2>&1 | sed 's/.*; it has //; s/$/,/; s/,/=/g')
  at "portico-run --protocol $protocol --option " "$names"
  at "portico-run --protocol=$protocol --option=" "$names"
  expect "--option NAME" "$asked" "-o nospace"
  for name in $names; do
    offered "portico-run --option $name"
    for value in $offered; do
      "$programs/portico-run" --protocol $protocol --option "$name$value" SIM::none::INSTR < /dev/null > /dev/null 2>&1
      expect "portico-run --option $name$value" $? 3 # all is well but the instrument's name
    done
  done
done
at "portico-run --option SCPIProtocolOPCPacing=" "On Off"
at "portico-run --option SCPIProtocolTerminationCharacter=C" "CR CRLF"
at "portico-run --option SCPIProtocolPacingInterval=" ""
at "portico-run --protocol " "SCPI Other"
at "portico-run --protocol=O" "Other"
at "portico-run --timeout " ""
at "portico-run --repeat " "forever"
at "portico-run --repeat forever --every " ""
at "portico-run --repeat 3 --every 1 SIM::p" "psu::INSTR"
at "portico-sim --device " "dmm psu scope"
for device in dmm psu scope; do
  [[ $("$programs/portico-sim" --help) == *[\ ,]$device[\ ,$'\n']* ]] || fault "portico-sim's help tells no $device"
done
at "portico-sim --port " ""
files_at "portico-sim --replay "
at "portico-sim " ""
at "portico-tap --listen " ""
at "portico-tap " "SIM::dmm::INSTR SIM::psu::INSTR SIM::scope::INSTR"
files_at "portico-tap --log "
at "portico-log export --format " "csv json cmd"
for format in csv json cmd; do
  "$programs/portico-log" export --format $format / > /dev/null 2>&1
  expect "portico-log export --format $format" $? 1 # all is well but the file
done

# Instruments are offered once, and in front of files. Readline replaces what stands behind the last colon alone.
for name in SIM::dmm::INSTR SIM::psu::INSTR SIM::scope::INSTR; do
  "$programs/portico-run" $name < /dev/null || fault "portico-run does not open $name"
done
at "portico-run SIM::d" "dmm::INSTR"
at "portico-run --timeout 100 S" "SIM::dmm::INSTR SIM::psu::INSTR SIM::scope::INSTR"
at "portico-run --bench 10 *IDN? S" "SIM::dmm::INSTR SIM::psu::INSTR SIM::scope::INSTR"
at "portico-run --bench 10 " ""
expect "--bench N" "$asked" ""
files_at "portico-run --bench 10 *IDN? SIM::dmm::INSTR "
breaks=' ' at "portico-run SIM::d" "SIM::dmm::INSTR"
files_at "portico-run SIM::dmm::INSTR "
files_at "portico-run --log "
files_at "portico-run --log="
files_at "portico-log show conv"
files_at "portico-log export --format csv "
at "portico-log export --fo" "--format"
offered "portico-log blocks conversation.log --to " && expect "blocks --to" "$offered, $asked" ", -o dirnames"
at "portico-log cut conversation.log --to " ""
exit $((faults > 0))
