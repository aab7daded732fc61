#!/usr/bin/env bash
# The tool for Windows over the examples, in a folder of its own: krt.sh RUN KRT PAINTER SOURCES
set -euo pipefail
run=$1
krt=$2
painter=$3
examples=$4/examples
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
cp "$examples"/*.krt .

failed=0
# What it is to give, and its words; what it writes is in out and err.
expect() {
  local wanted=$1 status=0
  shift
  "$run" "$krt" "$@" >out 2>err </dev/null || status=$?
  [ "$status" = "$wanted" ] || tell "krt $* gives $status and not $wanted: $(cat err)"
}
tell() {
  echo "$*"
  failed=1
}
same() { cmp -s "$1" "$2" || tell "$1 and $2 differ"; }
says() { grep -qF -- "$2" "$1" || tell "no \"$2\" in $1: $(cat "$1")"; }

expect 0 check asiakkaat.krt 'Z:'"${folder//\//\\}"'\laskut.krt'
expect 1 check rikki.krt
says out 'rikki.krt: '
# Bytes go through the streams as they are, letters of any language through words and names.
expect 0 repair --always asiakkaat.krt
same out asiakkaat.krt
cp rikki.krt 'Ω 日本.krt'
expect 1 repair --in-place 'Ω 日本.krt'
same rikki.krt 'Ω 日本.krt~'
cp 'Ω 日本.krt' korjattu.krt
expect 0 check --json korjattu.krt
expect 1 repair rikki.krt -o 'uusi ä.krt'
same 'uusi ä.krt' korjattu.krt
expect 0 json asiakkaat.krt
cp out kortti.json
expect 0 make kortti.json -o tehty.krt
same tehty.krt asiakkaat.krt
# Whoever has read enough ends the tool without a word.
"$run" "$krt" json kolmesataa.krt kolmesataa.krt 2>err | head -c 10 >out || true
[ ! -s err ] || tell "words for nobody: $(cat err)"
expect 0 links vanha.krt
says out 'vanha.krt: 1 Nimi: 2'
expect 1 diff vanha.krt asiakkaat.krt
says out 'kortista on tullut toinen kortti'
expect 0 form asiakkaat.krt -o 'sivu.html'
says sivu.html '</form>'
expect 0 rescue
# No shell there finds the files that a pattern stands for.
mkdir kaikki
cp vanha.krt laskut.krt kaikki/
cp rikki.krt kaikki/rikki.krt~
cp rikki.krt kaikki/.rikki.krt
expect 0 links 'kaikki\*.KRT'
says out 'kaikki\vanha.krt: '
says out 'kaikki\laskut.krt: '
expect 0 links 'v?n*a.krt'
says out 'vanha.krt: '
expect 2 check 'ei*.krt'
says err 'ei*.krt: ei voi lukea: nimi ei kelpaa'
# What cannot be read or written is told, and nothing is lost or left over it.
expect 2 check puuttuu.krt
says err 'puuttuu.krt: ei voi lukea: tiedostoa tai hakemistoa ei ole'
expect 2 repair --always vanha.krt -o 'a<b>.krt'
says err 'nimi ei kelpaa'
expect 2 repair --always vanha.krt -o 'ei\ole\x.krt'
expect 2 repair --always vanha.krt -o vanha.krt/x.krt
says err 'polussa on tiedosto, joka ei ole hakemisto'
expect 2 form vanha.krt -o .\\VANHA.krt
says err 'on tiedosto, josta luetaan'
expect 0 repair --always vanha.krt -o nul
expect 2 draw asiakkaat.krt -o kuva.png
says err 'krt: krt-draw: piirtävää ohjelmaa ei ole asennettu krt:n viereen'
same vanha.krt "$examples/vanha.krt"
[ -z "$(find . -name '.krt.*')" ] || tell 'unfinished files are left'

# What lies beside it paints: a program of that name, or else the editor.
mkdir vieressä
cp "$krt" vieressä/krt.exe
krt=$folder/vieressä/krt.exe
for name in kehystin krt-draw; do
  cp "$painter" vieressä/$name.exe
  expect 0 draw asiakkaat.krt -o $name.png
  says $name.png 'card.name=Asiakkaat'
done
# It is told of the card as the user calls it.
deep=$(printf 'kansio/%.0s' {1..40})
mkdir -p $deep
cp asiakkaat.krt $deep
expect 0 draw ${deep}asiakkaat.krt -o kuva.png
grep -qx "${deep}asiakkaat.krt" kuva.png || tell "another name: $(tail -n 5 kuva.png)"
# A thumbnail is waited for a second, and what takes longer ends with the tool.
sed 's/^card.name=Asiakkaat/card.name=hidas/' asiakkaat.krt >hidas.krt
expect 1 draw hidas.krt --size 64 -o hidas.png
[ ! -e hidas.png ] || tell 'a picture that was not waited for'
exit $failed
