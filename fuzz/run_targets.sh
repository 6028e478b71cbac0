#!/usr/bin/env bash
# run_targets.sh SECONDS [TARGET...]: runs the fuzz targets (all of them if none is named) one after the other for so
# long each, on the corpora and dictionaries here. What they find goes to build/fuzz/found/TARGET; ends with 1 if
# anything was found. Needs `cmake --preset fuzz && cmake --build --preset fuzz`.
set -uo pipefail
cd "$(dirname "$0")/.."
seconds=${1:?how many seconds for each target}
shift
bin=build/fuzz/bin
[ $# -gt 0 ] || set -- $(cd $bin && printf '%s\n' fuzz_* | sed 's/^fuzz_//')
export ASAN_OPTIONS=${ASAN_OPTIONS:-allocator_may_return_null=1}
export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$PWD/tests/leaks.supp:print_suppressions=0}
found=0
for target in "$@"; do
  mkdir -p "build/fuzz/grown/$target" "build/fuzz/found/$target"
  dictionary=()
  [ -e "fuzz/dictionaries/$target.dict" ] && dictionary=("-dict=fuzz/dictionaries/$target.dict")
  if "$bin/fuzz_$target" "build/fuzz/grown/$target" "fuzz/corpus/$target" "${dictionary[@]}" -max_total_time="$seconds" \
    -timeout=10 -rss_limit_mb=2048 -max_len=16384 -artifact_prefix="build/fuzz/found/$target/" \
    2>"build/fuzz/found/$target.log"; then
    echo "$target: nothing found, $(grep -o '^Done.*' "build/fuzz/found/$target.log")"
  else
    echo "$target: FOUND, see build/fuzz/found/$target.log"
    found=1
  fi
done
exit $found
