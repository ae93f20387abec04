#!/usr/bin/env bash
# Sets everything up and runs all tests twice: optimised, and under the address and undefined-behaviour sanitizers.
set -euo pipefail
cd "$(dirname "$0")"
. tools/set_up.sh

install_packages
for preset in release asan; do
    build "$preset"
    echo "== Tests, preset $preset"
    ctest --preset "$preset" --output-on-failure
done
