#!/usr/bin/env bash
# Builds the release preset with its benchmarks, runs them and writes bench/RESULTS.md.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target rovanta-bench
exec build/release/bin/rovanta-bench --folder build/release --results bench/RESULTS.md
