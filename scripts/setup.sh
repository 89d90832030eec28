#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, when missing.
set -euo pipefail

packages=(
  build-essential cmake pkg-config git
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  g++-arm-linux-gnueabihf libc6-dev-armhf-cross qemu-user
  abigail-tools gcovr clang libclang-rt-14-dev
  nlohmann-json3-dev libcli11-dev
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if ((${#missing[@]})); then
  echo "setup: installing ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
