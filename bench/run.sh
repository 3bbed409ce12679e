#!/usr/bin/env bash
# Builds the Release tree (build-release) when needed, runs every benchmark program in it, one at a
# time, and prints all RATIO lines as one table at the end.
# Usage: bash bench/run.sh [build-dir]
set -euo pipefail
cd "$(dirname "$0")/.."
dir="${1:-build-release}"
if [ ! -f "$dir/build.ninja" ]; then
  cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=Release -DORXSRV_BUILD_TESTS=OFF
fi
cmake --build "$dir"

ratios="$(mktemp)"
trap 'rm -f "$ratios"' EXIT
for program in "$dir"/bench/*Bench; do
  [ -x "$program" ] || continue
  name="$(basename "$program")"
  echo "== $name"
  "$program" | tee -a /dev/stderr | awk -v program="$name" '$1 == "RATIO" { print program, $2, $3 }' >> "$ratios"
done

echo
printf '%-28s %-44s %s\n' program ratio value
while read -r program name value; do
  printf '%-28s %-44s %s\n' "$program" "$name" "$value"
done < "$ratios"
