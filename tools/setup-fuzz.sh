#!/usr/bin/env bash
# Installs clang and its libFuzzer runtime for tools/fuzz.sh (the ordinary
# build and tests do not need them). Does nothing when they are there.
set -euo pipefail

packages=(clang libclang-rt-14-dev)
missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" \
    || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  if [ "$(id -u)" -ne 0 ]; then
    echo "These packages are missing; run this command as root (or with sudo)." >&2
    exit 1
  fi
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -q
  apt-get install -y -q --no-install-recommends "${missing[@]}"
fi
