#!/usr/bin/env bash
# Every example as JSON keeps to the schema, and what is no card does not: schema.sh KRT SOURCES
set -euo pipefail
krt=$1
sources=$2
schema=$sources/docs/card.schema.json
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

# A repaired card is told, and is a card.
as_json() {
  "$krt" json "$1" > "$2" 2> "$place/told" || grep -q korjattuna "$place/told"
}

for card in "$sources"/examples/*.krt; do
  as_json "$card" "$place/$(basename "$card").json"
done
# Every kind of field; a style that none has is read as 0.
for style in {0..20}; do
  sed "s/^field(1).style=.*/field(1).style=$style/" "$sources/examples/tuotteet.krt" > "$place/card.krt"
  as_json "$place/card.krt" "$place/style$style.json"
done
for card in "$place"/*.json; do
  cards+=(-i "$card")
done
python3 -W ignore -m jsonschema "${cards[@]}" "$schema"
sed 's/"width"/"breadth"/' "$place/style0.json" > "$place/wrong.json"
! python3 -W ignore -m jsonschema -i "$place/wrong.json" "$schema" > /dev/null 2>&1
