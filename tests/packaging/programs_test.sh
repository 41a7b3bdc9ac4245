#!/bin/bash
# What an installed program has to have.
#
#   programs_test.sh hardened FOLDER PROGRAM...   each is hardened, and holds no path of FOLDER
#   programs_test.sh described PAGES PROGRAM=PAGE...
#                           man page PAGE names each option and command that PROGRAM's --help names,
#                           and so do the completions for it, where there are some
set -u
failed=0
fail() { echo "$*"; failed=1; }

is_hardened() {
  local program=$1 headers dynamic symbols
  headers=$(readelf --wide --file-header --program-headers --notes "$program") || { fail "$program can't be read"; return; }
  dynamic=$(readelf --wide --dynamic "$program")
  symbols=$(readelf --wide --dyn-syms "$program")
  grep -q 'Type: *DYN' <<< "$headers" || fail "$program isn't position independent"
  grep -q 'GNU_RELRO' <<< "$headers" || fail "$program has no RELRO"
  grep -q 'BIND_NOW\|Flags:.*NOW' <<< "$dynamic" || fail "$program binds late"
  ! grep 'GNU_STACK' <<< "$headers" | grep -q 'E *0x' || fail "$program has an executable stack"
  grep -q '__stack_chk_fail' <<< "$symbols" || fail "$program has no stack protector"
  # The player calls nothing that has a fortified form.
  [ "${program##*/}" = quillbox-sound ] || grep -q '__[a-z]*_chk@' <<< "$(grep -v __stack_chk <<< "$symbols")" ||
    fail "$program isn't fortified"
  # Debian's start files lack the mark of it, so the linker leaves it out: look for the instruction.
  [ "$(uname -m)" != x86_64 ] || [ "$(LC_ALL=C grep -a -o -P '\xf3\x0f\x1e\xfa' "$program" | wc -l)" -gt 20 ] ||
    fail "$program has no control-flow protection"
  ! grep -q -a -F "$folder/" "$program" || fail "$program holds the path $folder"
}

commands_of() { "$1" --help | sed -n -E 's/^(usage:| +) dl ([a-z]+).*/\2/p; /^Subcommands:/,$s/^  ([a-z]+) .*/\1/p'; }

words_of_help() {
  local command
  { "$1" --help
    ! "$1" --help | grep -q '^Subcommands:' || for command in $(commands_of "$1"); do "$1" "$command" --help; done
  } | grep -o -E -- '(^| |,)--[a-z][a-z-]+' | tr -d ' ,' | sort -u
  commands_of "$1"
}

is_described() {
  local program=${1%%=*} page=${1#*=} word file words
  words=$(words_of_help "$program")
  [ -n "$words" ] || { fail "$program tells nothing about itself"; return; }
  for word in $words; do
    for file in "$pages/man/$page.1" "$pages/completion/$page.bash" "$pages/completion/_$page" "$pages/completion/$page.fish"; do
      case $file in */man/*) ;; *) [ -e "$file" ] || continue ;; esac
      sed 's/\\-/-/g; s/-l \([a-z]\)/--\1/g' "$file" | grep -q -w -e "$word" || fail "${file##*/} doesn't name $word"
    done
  done
}

case $1 in
  hardened) folder=$2; shift 2; for program; do is_hardened "$program"; done ;;
  described) pages=$2; shift 2; for pair; do is_described "$pair"; done ;;
esac
exit $failed
