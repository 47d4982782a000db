#!/usr/bin/env bash
# Sets everything up, builds, and runs every test twice: once plain (with the check that the
# installed package can be consumed), once under AddressSanitizer and UndefinedBehaviorSanitizer.
# After the plain run it builds the API reference and the Debian packages (scripts/package.sh) and
# uses the packages from a temporary root.
# In between, with clang, it runs every fuzz target for a short time (scripts/fuzz.sh), so the
# run still ends with the test summary.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
jobs=$(nproc 2>/dev/null || echo 2)

echo "== plain build and tests"
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$jobs"
ctest --test-dir build --output-on-failure -j"$jobs"

echo "== API reference (Doxygen, an undocumented public class or operation fails it)"
cmake --build build --target vyr_api_reference

echo "== Debian packages: built, checked by lintian, unpacked into a temporary root and used"
scripts/package.sh
tests/package/check.sh build-deb/packages tests/consumer build-deb/package-check

if command -v clang++ >/dev/null 2>&1; then
  echo "== fuzz targets (clang: libFuzzer, ASan + UBSan), 20 s each"
  scripts/fuzz.sh
else
  echo "== fuzz targets skipped: clang++ not found"
fi

echo "== sanitized build and tests (ASan + UBSan)"
cmake -S . -B build-sanitize -DCMAKE_BUILD_TYPE=Debug -DVYR_SANITIZE=ON >/dev/null
cmake --build build-sanitize -j"$jobs"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:strict_string_checks=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
ctest --test-dir build-sanitize --output-on-failure -j"$jobs"
