#!/usr/bin/env bash
# What is installed for cards without a window draws from where it stands: install.sh CMAKE BUILD CONFIG SOURCES
set -euo pipefail
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
unset DESTDIR

"$1" --install "$2" --config "$3" --component tools --prefix "$place" > "$place/told"
[ -x "$place/libexec/kehystin/krt-draw" ]
"$place/bin/krt" draw "$4/examples/asiakkaat.krt" -o "$place/card.png"
[ "$(head -c 4 "$place/card.png" | tail -c 3)" = PNG ]
