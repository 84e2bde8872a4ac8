# Completion in bash for portico-run, portico-sim, portico-log and portico-tap. A test holds it against what --help lists.

# _portico_offer WORD...: those that begin with $word. Readline completes no more than what stands behind the last
# character that breaks words.
_portico_offer() {
  local tail=$word
  if [[ $COMP_WORDBREAKS == *=* ]]; then tail=${tail##*=}; fi
  if [[ $COMP_WORDBREAKS == *:* ]]; then tail=${tail##*:}; fi
  local head=${word%"$tail"} found
  while IFS= read -r found; do COMPREPLY+=("${found#"$head"}"); done < <(compgen -W "$*" -- "$word")
}

# _portico_option: for --option of portico-run, a name and an equals sign, or a name with a value.
_portico_option() {
  local name=${word%%=*}
  if [[ $word != *=* ]]; then
    compopt -o nospace
    if [[ ${words[*]} =~ --protocol[\ =]Other ]]; then
      _portico_offer OtherProtocol{IntervalPacing,PacingInterval,TerminationCharacter}=
    else
      _portico_offer SCPIProtocol{OPCPacing,IntervalPacing,PacingInterval,AutoReadAfterQuery,AutoErrorChecking}= \
        SCPIProtocol{ErrorCheckingCommand,TerminationCharacter}=
    fi
    return
  fi
  case $name in
    *TerminationCharacter) _portico_offer "$name"={Auto,CR,LF,CRLF,LFCR} ;;
    *PacingInterval | *ErrorCheckingCommand) ;;
    *) _portico_offer "$name"={On,Off} ;;
  esac
}

_portico() {
  local program=${1##*/} line=${COMP_LINE:0:COMP_POINT} options positional=0 index
  local -a words
  read -ra words <<< "$line"
  if [[ $line == *[[:blank:]] ]]; then words+=(""); fi
  local word=${words[-1]} previous=${words[-2]}
  COMPREPLY=()

  local with_value='--protocol|--option|--log|--replay|--session|--timeout|--list-time|--device|--listen|--port|--vxi11|--hislip|--bind|--seed|--fault|--format|--bench|--bench-csv|--get|--repeat|--every'
  for ((index = 1; index < ${#words[@]} - 1; ++index)); do
    # Each has two values: the query behind the number, the file behind the query.
    if [[ ${words[index]} == --bench || ${words[index]} == --get ]]; then positional=$((positional - 1)); fi
    if [[ ${words[index]} != -?* && ! ${words[index - 1]} =~ ^($with_value)$ ]]; then positional=$((positional + 1)); fi
  done
  if [[ $word =~ ^($with_value)= ]]; then
    previous=${word%%=*}
    word=${word#*=}
  fi

  if ((${#words[@]} > 3)) && [[ ${words[-3]} == --get ]]; then
    compopt -o default
    return
  fi
  case $previous in
    --protocol) _portico_offer SCPI Other ;;
    --option) _portico_option ;;
    --log | --bench-csv | --replay) compopt -o default ;;
    --device) _portico_offer dmm psu scope ;;
    --format) _portico_offer csv json cmd ;;
    --timeout | --list-time | --listen | --port | --vxi11 | --hislip | --bind | --seed | --fault | --bench | --get | --every | --tolerance | --session | --from) ;;
    --to) if [[ ${words[1]} == blocks ]]; then compopt -o dirnames; fi ;;
    --repeat) _portico_offer forever ;;
    *)
      options='-h --help --version'
      case "$program ${words[*]:1}" in
        portico-run*) options+=' --protocol --option --read-after-query --log --overwrite --timeout --stop-on-error --repeat --every --quiet --timing --get --list --list-time --bench --bench-csv' ;;
        portico-sim*) options+=' --device --replay --session --strict --port --vxi11 --portmap --hislip --serial --announce --bind --seed --fault' ;;
        portico-tap*) options+=' --listen --vxi11 --hislip --bind --log --overwrite --show --timeout' ;;
        'portico-log export '*) options='-h --help --format' ;;
        'portico-log blocks '*) options='-h --help --to --session' ;;
        'portico-log cut '*) options='-h --help --session --from --to' ;;
        'portico-log diff '*) options='-h --help --tolerance' ;;
        'portico-log '[a-z]*' '*) options='-h --help' ;;
      esac
      if [[ $word == -* ]]; then
        _portico_offer "$options"
      elif [[ $program =~ ^portico-(run|tap)$ && $positional == 0 ]]; then
        _portico_offer SIM::{dmm,psu,scope}::INSTR
      elif [[ $program == portico-log && $positional == 0 ]]; then
        _portico_offer show export stats errors table diff cut merge blocks
      elif [[ ! $program =~ ^portico-(sim|tap)$ && $positional -ge 0 ]]; then
        compopt -o default
      fi
      ;;
  esac
}

complete -F _portico portico-run portico-sim portico-log portico-tap
