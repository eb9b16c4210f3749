#!/usr/bin/env bash
# Builds the release preset with its benchmarks, runs them and writes bench/RESULTS.md and RESULTS-postgres.md.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target rovanta-bench
build/release/bin/rovanta-bench --folder build/release --results bench/RESULTS.md
exec /usr/bin/python3 bench/postgres_bench.py build/release/bin/rovanta-automation --results bench/RESULTS-postgres.md
