# Completion of wynconfig's command line in bash: commands and options as --help lists them, and the
# names of what is in the store.

# _wynconfig_offer WORD...: takes the words that begin as what is being completed, in any case
_wynconfig_offer() {
  local word typed=${cur//\\/}
  for word; do
    [[ ${word^^} == "${typed^^}"* ]] || continue
    # Within quotes it stands as it is.
    [[ ${COMP_WORDS[COMP_CWORD]} == [\"\']* ]] || printf -v word %q "$word"
    COMPREPLY+=("$word")
  done
}

# _wynconfig_names ARGUMENT...: offers the names that a command lists, without their kinds
_wynconfig_names() {
  local names
  mapfile -t names < <("$program" ${root:+--store "$root"} "$@" 2>/dev/null)
  names=("${names[@]#session:}")
  _wynconfig_offer "${names[@]#format:}"
}

# _wynconfig_listed PATTERN ARGUMENT...: offers what --help has at the beginning of its lines
_wynconfig_listed() {
  local words
  mapfile -t words < <("$program" "${@:2}" --help 2>/dev/null | grep -oE -e "$1" | tr -d ' ' | sort -u)
  _wynconfig_offer "${words[@]}"
}

_wynconfig() {
  local program=${1/#\~/$HOME} cur=$2 previous=$3 command='' root='' arguments=() at word
  COMPREPLY=()
  for ((at = 1; at < COMP_CWORD; at++)); do
    word=${COMP_WORDS[at]}
    case $word in
      --store | --to)
        [[ ${COMP_WORDS[at + 1]} != = ]] || ((++at))
        ((++at))
        [[ $word != --store ]] || root=${COMP_WORDS[at]}
        ;;
      -*) ;;
      *) if [[ $command ]]; then arguments+=("$word"); else command=$word; fi ;;
    esac
  done
  root=${root//[\\\"\']/}
  root=${root/#\~/$HOME}
  [[ $previous != = ]] || previous=${COMP_WORDS[COMP_CWORD - 2]}
  [[ $cur != = ]] || cur=

  if [[ $previous == --store || $previous == --to ]]; then
    _wynconfig_files "$previous"
  elif [[ $cur == -* ]]; then
    [[ ! $command ]] || _wynconfig_listed '--[a-z-]+' "$command"
    _wynconfig_listed '--[a-z-]+'
  else
    _wynconfig_argument
  fi
}

# _wynconfig_files --store|--to: folders, or files as well
_wynconfig_files() {
  local kind=f
  [[ $1 != --store ]] || kind=d
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -$kind -- "$cur")
}

# Completes what is no option, by the command and the number of its arguments so far.
_wynconfig_argument() {
  case $command,${#arguments[@]} in
    ,*) _wynconfig_listed '^  [a-z]+ ' ;;
    list,0) _wynconfig_offer sessions formats ;;
    show,0 | delete,0) _wynconfig_names list ;;
    restore,0) _wynconfig_names deleted ;;
    refs,0 | rename,0) _wynconfig_names list formats ;;
    export,*) _wynconfig_names list sessions ;;
    import,0) _wynconfig_files --to ;;
    sql,0) _wynconfig_offer push pull ;;
    sql,1) _wynconfig_files --to ;;
    migrate,0) _wynconfig_files --store ;;
    migrate,*)
      root=${arguments[0]//[\\\"\']/}
      root=${root/#\~/$HOME}
      _wynconfig_names list sessions
      ;;
  esac
}

complete -F _wynconfig wynconfig
