# bash completion for velorix-batch. The options and the words of their values come from the program's
# own help, so that nothing here can fall behind it.
_velorix_batch() {
  local cur prev words cword split
  _init_completion -s || return
  local help value=
  help=$("$1" --help 2>/dev/null)
  [[ $help =~ $'\n  '"$prev"' '([^ ]+) ]] && value=${BASH_REMATCH[1]}
  case $value in
    FILE) _filedir ;;
    *'|'*) COMPREPLY=($(compgen -W "${value//|/ }" -- "$cur")) ;;
    ?*) ;; # a count, a code, numbers of records
    *)
      if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "$(sed -nE 's/^  (-[a-z],)?(--[a-z-]+).*/\2/p' <<<"$help")" -- "$cur"))
      else
        _filedir '@(ams|ran|are|asc|AMS|txt)'
      fi
      ;;
  esac
} && complete -F _velorix_batch velorix-batch
