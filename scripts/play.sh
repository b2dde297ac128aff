#!/usr/bin/env bash
# Installs what is missing, builds Velkaro and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/install-deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build --target velkaro -j "$(nproc)"
exec ./build/app/velkaro
