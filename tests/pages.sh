#!/usr/bin/env bash
# Every path that the pages for developers name is there, and every name that stands beside one in the
# list of rules is in that file: pages.sh SOURCES
set -euo pipefail
cd "$1"
missing=0
for page in CONTRIBUTING.md docs/architecture.md docs/rules.md README.md; do
  for path in $(grep -o '`[A-Za-z_.][A-Za-z_0-9./]*/[A-Za-z_0-9./]*`' "$page" | tr -d '`' | grep -v '^build/'); do
    [ -e "$path" ] || { echo "$page names $path, which is not there"; missing=1; }
  done
done
while IFS='`' read -r _ path _ name _; do
  grep -qw -- "$name" "$path" || { echo "docs/rules.md looks for $name in $path"; missing=1; }
done < <(grep -E '\| `[^`]+` \| `[^`]+` \|$' docs/rules.md)
exit $missing
