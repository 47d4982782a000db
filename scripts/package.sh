#!/usr/bin/env bash
# Builds the three Debian packages into build-deb/packages/ and checks them with lintian:
#   libvyrcore2_<version>_<arch>.deb     the libraries and the bundled providers
#   libvyrcore-dev_<version>_<arch>.deb  headers, links, CMake package, .pc files
#   vyr-host_<version>_<arch>.deb        the host program and its manual page
# The build is configured for /usr (so libraries go to /usr/lib/<multiarch>), with Debian's
# hardening flags, without the tests; cpack strips what it packs. Lintian errors fail the script;
# its warnings are printed (the README says why the remaining ones stay).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
jobs=$(nproc 2>/dev/null || echo 2)
export DEB_BUILD_MAINT_OPTIONS=hardening=+all
CXXFLAGS="$(dpkg-buildflags --get CXXFLAGS) $(dpkg-buildflags --get CPPFLAGS)"
LDFLAGS=$(dpkg-buildflags --get LDFLAGS)
export CXXFLAGS LDFLAGS

cmake -S . -B build-deb -DCMAKE_BUILD_TYPE=None -DCMAKE_INSTALL_PREFIX=/usr \
  -DVYR_BUILD_TESTS=OFF -DCMAKE_DISABLE_FIND_PACKAGE_benchmark=ON >/dev/null
cmake --build build-deb -j"$jobs" >/dev/null
rm -rf build-deb/packages
(cd build-deb && cpack -G DEB >/dev/null)

debs=(build-deb/packages/*.deb)
[ ${#debs[@]} -eq 3 ] || { echo "package: expected 3 packages, found ${#debs[@]}" >&2; exit 1; }
# lintian exits non-zero on errors only (its default --fail-on).
lintian --info "${debs[@]}"
for deb in "${debs[@]}"; do echo "package: $deb"; done
