#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, when any is missing. Quiet, no prompt.
set -euo pipefail

packages=(cmake make g++ pkg-config libboost-dev libgtest-dev libgmock-dev libbenchmark-dev
          libxml2-dev zlib1g-dev libxml2-utils
          libcurl4-openssl-dev python3-pyftpdlib clang libclang-rt-14-dev e2fsprogs mount tzdata
          dpkg-dev file lintian doxygen groff-base)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "setup: installing ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq </dev/null >/dev/null
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null >/dev/null
