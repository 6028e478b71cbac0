#!/usr/bin/env bash
# Fails when a test leans on what its neighbour in a batch includes or names: compiles every file alone, without sanitizers.
# It takes minutes, so it is run by hand.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset dev -B build/alone -D LUMIDEX_BATCHES=OFF -D LUMIDEX_SANITIZE=OFF >/dev/null
cmake --build build/alone
