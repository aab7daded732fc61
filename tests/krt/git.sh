#!/usr/bin/env bash
# What the manual has git do works as it says: git.sh KRT SOURCES
set -euo pipefail
krt=$1
sources=$2
command -v git > /dev/null || { echo "SKIPPED: there is no git"; exit 77; }
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
export HOME=$place GIT_CONFIG_NOSYSTEM=1 GIT_PAGER=cat PATH=${krt%/*}:$PATH
export GIT_AUTHOR_NAME=a GIT_AUTHOR_EMAIL=a@b GIT_COMMITTER_NAME=a GIT_COMMITTER_EMAIL=a@b

git init -q "$place/cards"
cd "$place/cards"
commands=$(sed -n "s/^    \(git config .*\|echo .*gitattributes\)$/\1/p" "$sources/docs/krt.md")
[ "$(wc -l <<< "$commands")" -eq 5 ]
eval "$commands"

for card in asiakkaat rikki; do
  cp "$sources/examples/$card.krt" .
done
echo "ei kortti" > muu.krt
git add -A
git commit -qm "Cards"
sed -i 's/^\(field(4).caption=\)Yritys/\1Firma/' asiakkaat.krt
sed -i 's/^\(field(1).caption=\)Esine/\1Tavara/' rikki.krt
echo "vieläkään ei" > muu.krt

krt() { "$krt" "$@"; }
git add -A
! eval "$(sed -n "s/^    \(git diff --cached .*\)$/\1/p" "$sources/docs/krt.md" | sed "s|krt check|'$krt' check|")" > found
grep -q '^rikki.krt: ' found
git reset -q

git diff > shown
grep -q '^+      "caption": "Tavara",' shown
grep -q '^-      "caption": "Yritys",' shown
grep -q '^+vieläkään ei' shown
# Told by meaning, not by line.
git difftool asiakkaat.krt > told
grep -q 'Firma' told
! grep -q 'caption=' told
