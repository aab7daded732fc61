#!/bin/sh
# Runs each scenario of failing/ and compares what it prints with its first line, "# LINE: why".
runner=$1
folder=$(cd "$(dirname "$0")/failing" && pwd)
status=0
for file in "$folder"/*.scn; do
    wanted="$file:$(sed -n '1s/^# //p' "$file")"
    found=$("$runner" "$file") && found="passed: $found"
    if [ "$(printf '%s\n' "$found" | sed -n 1p)" != "$wanted" ]; then
        printf 'expected %s\nfound    %s\n' "$wanted" "$found"
        status=1
    fi
done
exit $status
