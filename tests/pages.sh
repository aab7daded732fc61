#!/usr/bin/env bash
# Every path that the pages for developers name is there: pages.sh SOURCES
set -euo pipefail
cd "$1"
missing=0
for page in CONTRIBUTING.md docs/architecture.md README.md; do
  for path in $(grep -o '`[A-Za-z_.][A-Za-z_0-9./]*/[A-Za-z_0-9./]*`' "$page" | tr -d '`' | grep -v '^build/'); do
    [ -e "$path" ] || { echo "$page names $path, which is not there"; missing=1; }
  done
done
exit $missing
