# bash completion for quillbox-dl
_quillbox_dl() {
  [ "$COMP_CWORD" = 1 ] || return
  mapfile -t COMPREPLY < <(compgen -W "authorize check revoke open --help --version" -- "${COMP_WORDS[1]}")
}
complete -F _quillbox_dl quillbox-dl
