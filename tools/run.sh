#!/usr/bin/env bash
# Installs what is missing, builds Orvane and starts it. Arguments go to the player.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/setup-debian.sh
bash tools/build.sh
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  cat >&2 <<'MSG'
No display is available. To run Orvane on a virtual X server:
  xvfb-run -s "-screen 0 1280x800x24" build/bin/orvane
MSG
  exit 1
fi
exec build/bin/orvane "$@"
