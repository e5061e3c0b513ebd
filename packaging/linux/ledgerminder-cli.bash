# Completion of ledgerminder-cli for bash: commands, options, files, and the tables that can be
# exported. It stands alone, without the functions of bash-completion.

# Names with spaces arrive whole, and folders get their slash.
_ledgerminder_cli_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_ledgerminder_cli_folders() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -d -- "$1")
}

_ledgerminder_cli_words() {
  mapfile -t COMPREPLY < <(compgen -W "$2" -- "$1")
}

_ledgerminder_cli() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  local tables="fgPractices fgSessions fgInvoices fgPensionA fgPensionB fgPensionSolo fgExpenses
                fgEvents fgPensionPayments"
  COMPREPLY=()

  # The command is the first word that is neither an option nor the value of one.
  local at=1
  while [ "$at" -lt "$COMP_CWORD" ]; do
    case ${COMP_WORDS[at]} in
      --dir | --now | --answer) at=$((at + 2)) ;;
      --*) at=$((at + 1)) ;;
      *) break ;;
    esac
  done

  if [ "$at" -ge "$COMP_CWORD" ]; then
    case $before in
      --dir) _ledgerminder_cli_folders "$word" ;;
      --now) ;;
      --answer) _ledgerminder_cli_words "$word" "yes no cancel ok" ;;
      --help | --version) ;;
      *) _ledgerminder_cli_words "$word" "init demo run pdf template export report ics forms
                                          --dir --now --answer --force --help --version" ;;
    esac
    return
  fi

  local place=$((COMP_CWORD - at)) kind=${COMP_WORDS[at + 1]}
  case ${COMP_WORDS[at]} in
    demo)
      case $place in
        1) _ledgerminder_cli_folders "$word" ;;
        2) _ledgerminder_cli_words "$word" "--years" ;;
        3) _ledgerminder_cli_words "$word" "1 2 3 4 5 6 7 8 9 10" ;;
      esac
      ;;
    run) [ "$place" -ne 1 ] || _ledgerminder_cli_files "$word" ;;
    pdf)
      if [ "$place" -eq 1 ]; then
        _ledgerminder_cli_words "$word" "info import sample"
      elif [ "$place" -eq 2 ] || { [ "$place" -eq 3 ] && [ "$kind" = import ]; }; then
        _ledgerminder_cli_files "$word"
      fi
      ;;
    template)
      if [ "$place" -eq 1 ]; then
        _ledgerminder_cli_words "$word" "encipher decipher check"
      elif [ "$place" -eq 2 ] || { [ "$place" -eq 3 ] && [ "$kind" != check ]; }; then
        _ledgerminder_cli_files "$word"
      fi
      ;;
    export)
      case $place in
        1) _ledgerminder_cli_words "$word" "xml xls csv" ;;
        2) _ledgerminder_cli_files "$word" ;;
        3) _ledgerminder_cli_words "$word" "$tables" ;;
      esac
      ;;
    report)
      if [ "$before" = --csv ]; then
        _ledgerminder_cli_files "$word"
      elif [ "$place" -gt 3 ]; then
        _ledgerminder_cli_words "$word" "day month --csv"
      fi
      ;;
    ics)
      if [ "$place" -eq 1 ]; then
        _ledgerminder_cli_words "$word" "export import"
      elif [ "$place" -eq 2 ]; then
        _ledgerminder_cli_files "$word"
      elif [ "$kind" = export ] && [[ $before != --@(from|to|practice) ]]; then
        _ledgerminder_cli_words "$word" "--from --to --practice --rfc5545"
      fi
      ;;
    forms) [ "$place" -ne 1 ] || _ledgerminder_cli_words "$word" "check" ;;
  esac
}

complete -F _ledgerminder_cli ledgerminder-cli
