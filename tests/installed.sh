#!/usr/bin/env bash
# Installs everything, moves it to where nobody said that it would be, and runs it there with sources and
# build out of sight: installed.sh CMAKE SOURCES BUILD
set -euo pipefail

# Behind its own door, where the machine lets it have one: sources and build are empty folders.
if [ "${1:-}" != hidden ]; then
  place=$(mktemp -d)
  trap 'rm -rf "$place"' EXIT
  unset DESTDIR
  "$1" --install "$3" --prefix "$place/first" > "$place/told"
  cp -r "$2/examples" "$place/examples"
  cp "${BASH_SOURCE[0]}" "$place/script"
  mv "$place/first" "$place/moved here"
  cd "$place"
  as_root=(unshare --mount --map-root-user)
  "${as_root[@]}" true 2> told || as_root=()
  "${as_root[@]}" bash "$place/script" hidden "$place" "$2" "$3"
  exit
fi
place=$2
if [ "$(id -u)" = 0 ]; then
  for folder in "$3" "$4"; do
    [ ! -e "$folder" ] || mount -t tmpfs none "$folder"
  done
fi

fail() {
  echo "$*"
  exit 1
}
prefix="$place/moved here"
share=$prefix/share
mkdir "$place/home"
export HOME=$place/home XDG_CONFIG_HOME=$place/home/config XDG_STATE_HOME=$place/home/state
export PATH="$prefix/bin:$PATH" QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
cd "$place/examples"

# The words behind Exec= as a desktop starts them: on their own, each %-field one word.
started_by() { # FILE FIELD VALUE...
  local line word
  line=$(sed -n 's/^Exec=//p' "$1")
  shift
  for word in $line; do
    case $word in
      %s) command+=(128) ;;
      %o) command+=("$place/thumbnail") ;;
      %F) command+=("$@") ;;
      %i) command+=("$1") ;;
      *) command+=("$word") ;;
    esac
  done
}

# The editor opens the card, whatever its name has in it, and finds its help.
kehystin --screenshot "$place/plain.png" asiakkaat.krt 2> "$place/told" || fail "$(cat "$place/told")"
kehystin --screenshot "$place/none.png" 2> "$place/told"
! cmp -s "$place/plain.png" "$place/none.png" || fail "no card was opened"
for name in "oma kortti.krt" "\"lainattu\" ja 'toinen'" $'rivi\nkaksi 100 %f %%.krt'; do
  cp asiakkaat.krt "$name"
  command=()
  started_by "$share/applications/kehystin.desktop" "$PWD/$name"
  "${command[0]}" --screenshot "$place/other.png" "${command[@]:1}" 2> "$place/told"
  cmp "$place/plain.png" "$place/other.png" || fail "not opened: $name"
  command=()
  started_by "$share/thumbnailers/kehystin.thumbnailer" "$PWD/$name"
  "${command[@]}" || fail "no thumbnail: $name"
  [ "$(head -c 4 "$place/thumbnail" | tail -c 3)" = PNG ] || fail "no picture: $name"
done
help=$prefix/lib/kehystin/editor55.chm
"$prefix/lib/kehystin/kehystin-help-reader" "$help" | grep -a velho.htm > "$place/told" || fail "no help"

# The tool, by its link.
krt check asiakkaat.krt
krt draw asiakkaat.krt -o "$place/card.pdf"

# What belongs to a desktop.
for size in 16 22 24 32 48 64 128 256 512; do
  [ -s "$share/icons/hicolor/${size}x$size/apps/kehystin.png" ] || fail "no icon of $size"
done
[ -s "$share/icons/hicolor/scalable/apps/kehystin.svg" ] || fail "no icon"
for page in man1/kehystin.1 man1/krt.1 fi/man1/kehystin.1 fi/man1/krt.1; do
  grep -q '^\.SH' "$share/man/$page" || fail "no manual: $page"
done

# Completion knows every command, and every option of each. It runs in shells that bear failures.
set +e
source "$share/bash-completion/completions/krt"
source "$share/bash-completion/completions/kehystin"
compopt() { :; } # means something only to a shell that completes
offered() {
  COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=()
  "_$1"
}
commands=$(krt --help | sed -n '/^Komennot/,/^$/s/^  \([a-z]*\) .*/\1/p')
[ "$(wc -w <<< "$commands")" -gt 5 ] || fail "no commands"
offered krt ""
[ "$(sort <<< "$commands")" = "$(printf '%s\n' "${COMPREPLY[@]}" | grep -v '^-' | sort)" ] || fail "commands"
for command in $commands; do
  offered krt "$command" -
  [ "$(krt "$command" --help | sed -n 's/^  \(-h,\)\?\(-[-a-z]*\).*/\2/p' | sort)" = \
    "$(printf '%s\n' "${COMPREPLY[@]}" | sort)" ] || fail "options of $command: ${COMPREPLY[*]}"
done
offered kehystin oma
[ "${COMPREPLY[*]}" = "oma kortti.krt" ] || fail "cards: ${COMPREPLY[*]}"
