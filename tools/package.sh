#!/usr/bin/env bash
# Sets everything up, builds the optimised programs and packs them: build/sheetwright_<version>_<architecture>.deb
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/set_up.sh

install_packages
build release installed
(cd build/release && cpack -G DEB -B .. | tail -1)
rm -rf build/_CPack_Packages
