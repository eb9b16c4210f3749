#!/usr/bin/env bash
# Builds the release preset with its benchmarks, runs them and writes bench/RESULTS.md.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target rovanta-bench

folder=$(mktemp -d /var/tmp/rovanta-bench-XXXXXX)
# Everybody may pass through: the server runs as another user than root.
chmod 755 "$folder"
# A run that is broken off leaves its server behind.
clean_up() {
    for server in "$folder"/bench-server-*; do
        tests/support/postgres_server.sh stop "$server"
    done
    rm -rf "$folder"
}
trap clean_up EXIT
build/release/bin/rovanta-bench --folder "$folder" --results bench/RESULTS.md
