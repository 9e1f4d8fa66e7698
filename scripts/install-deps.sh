#!/usr/bin/env bash
# Installs the Debian packages that building, testing and the tools need,
# skipping what is already there.  Usage: scripts/install-deps.sh [extra...]
set -euo pipefail
packages=(cmake make g++ pkgconf libpng-dev libcli11-dev "$@")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "installing: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
