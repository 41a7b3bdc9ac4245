# bash completion for quillbox-replay
_quillbox_replay() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words
  case $before in
    --settings | --reports | --out) compopt -o default; return ;;
    --region) words="en-US en-GB de-DE fr-FR de-CH sv-SE pt-BR" ;;
    --account | --at | --title) return ;;
    *) case ${COMP_WORDS[1]} in
         "$word") words="evaluate report script batch --help --version" ;;
         evaluate) words="--settings --account --reports --region --at --save --help" ;;
         report) words="--title --reports --region --out --help" ;;
         script) words=--help; [[ $word == -* ]] || { compopt -o default; return; } ;;
         *) words=--help ;;
       esac ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -F _quillbox_replay quillbox-replay
