#!/usr/bin/env bash
# Installs what is missing, builds Orvane and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/setup-debian.sh
bash tools/build.sh
export QT_QPA_PLATFORM=offscreen
export ORVANE_AUDIO_SINK="${ORVANE_AUDIO_SINK:-fakesink sync=true}"
ctest --test-dir build --output-on-failure -j 2
