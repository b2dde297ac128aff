#!/usr/bin/env bash
# Installs what is missing, builds everything, tests and tools included, with warnings as errors
# and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh
cmake -S . -B build-test -DCMAKE_BUILD_TYPE=Debug -DVELKARO_WERROR=ON -DBUILD_TESTING=ON >/dev/null
cmake --build build-test -j "$(nproc)"

# No display: the tests must pass headless, as they do in CI.
export QT_QPA_PLATFORM=offscreen
cd build-test
ctest --output-on-failure --timeout 300
