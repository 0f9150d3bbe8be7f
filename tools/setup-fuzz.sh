#!/usr/bin/env bash
# Installs clang and its libFuzzer runtime for tools/fuzz.sh (the ordinary
# build and tests do not need them). Does nothing when they are there.
set -euo pipefail

packages=(clang libclang-rt-14-dev)
bash "$(dirname "$0")/install-missing.sh" "${packages[@]}"
