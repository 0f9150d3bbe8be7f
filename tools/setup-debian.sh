#!/usr/bin/env bash
# Installs the Debian 12 packages Orvane needs to build, run and test.
# Does nothing when they are all there already.
set -euo pipefail

packages=(
  g++ cmake ninja-build pkg-config
  qt6-base-dev qt6-svg-dev libgl-dev qt6-translations-l10n
  libgstreamer1.0-dev libgstreamer-plugins-base1.0-dev
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-plugins-bad
  gstreamer1.0-plugins-ugly gstreamer1.0-libav gstreamer1.0-tools
  gstreamer1.0-plugins-base-apps
  libgtest-dev googletest
  xvfb xauth fonts-dejavu-core dbus playerctl
  desktop-file-utils appstream shared-mime-info libxml2-utils dpkg-dev file
)

bash "$(dirname "$0")/install-missing.sh" "${packages[@]}"
