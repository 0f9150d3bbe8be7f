#!/usr/bin/env bash
# Configures and builds Orvane in ./build (shared by the run and test commands).
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build
