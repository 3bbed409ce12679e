#!/usr/bin/env bash
# Runs keyword_parser_fuzz for a bounded time over a scratch copy of the seed corpus.
# Usage: run.sh <build-dir> <seconds>. Fails on any crash, leak, timeout or memory blow-up;
# the input that caused it is kept in <build-dir>/fuzz-artifacts/.
set -euo pipefail
build=$(cd "${1:?usage: run.sh <build-dir> <seconds>}" && pwd)
seconds=${2:?usage: run.sh <build-dir> <seconds>}
here=$(cd "$(dirname "$0")" && pwd)
fuzzer="$build/tests/fuzz/keyword_parser_fuzz"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -R "$here/corpus" "$work/corpus"
mkdir -p "$build/fuzz-artifacts"

ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1} "$fuzzer" "$work/corpus" \
  -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=4096 \
  -artifact_prefix="$build/fuzz-artifacts/" -print_final_stats=1
