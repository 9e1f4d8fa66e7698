#!/usr/bin/env bash
# Installs the Debian packages that building, testing and the tools need,
# skipping what is already there.  Usage: scripts/install-deps.sh [extra...]
set -euo pipefail
packages=(cmake make g++ pkgconf libgtest-dev libgmock-dev libpng-dev "$@")
# The other platforms (docs/platforms.md): the 32-bit x86 compilers, the
# ARM64 cross compiler and the user-mode emulator.  g++-12-multilib rather
# than the g++-multilib meta-package, which conflicts with cross compilers.
packages+=(g++-12-multilib g++-aarch64-linux-gnu qemu-user)
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
