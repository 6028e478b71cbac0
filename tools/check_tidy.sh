#!/usr/bin/env bash
# check_tidy.sh [FILE...]: fails when clang-tidy finds something in the given sources, or in all that `dev` compiles.
# It takes minutes, so it is run by hand.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset dev >/dev/null
if [ $# -eq 0 ]; then mapfile -t files < <(git ls-files 'src/*.cpp' 'tools/*.cpp'); else files=("$@"); fi
printf '%s\0' "${files[@]}" | xargs -0 -n 4 -P "$(nproc)" clang-tidy -p build/dev --quiet
