#!/usr/bin/env bash
# Every example as JSON keeps to the schema, and what is no card does not: schema.sh KRT SOURCES
set -euo pipefail
krt=$1
sources=$2
schema=$sources/docs/card.schema.json
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

for card in "$sources"/examples/*.krt; do
  "$krt" json "$card" > "$place/card.json" 2> "$place/told" || grep -q korjattuna "$place/told"
  python3 -W ignore -m jsonschema -i "$place/card.json" "$schema"
done
sed 's/"width"/"breadth"/' "$place/card.json" > "$place/wrong.json"
! python3 -W ignore -m jsonschema -i "$place/wrong.json" "$schema" > /dev/null 2>&1
