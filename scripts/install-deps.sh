#!/usr/bin/env bash
# Installs the Debian packages the build needs, only those that are missing.
# Safe to run again: a machine that has everything is left untouched.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  libgtest-dev libgmock-dev googletest libbenchmark-dev libcli11-dev
  qt6-base-dev qt6-base-dev-tools qt6-httpserver-dev qt6-websockets-dev
  qt6-charts-dev libqt6opengl6-dev libgl-dev qt6-translations-l10n
  clang libclang-rt-14-dev
  ccache
  poppler-utils fonts-liberation2 fonts-comic-neue fonts-inconsolata
  zlib1g-dev
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
  sudo_cmd=(sudo)
fi
"${sudo_cmd[@]}" apt-get update -q
DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
