#!/usr/bin/env bash
# Sets everything up, builds every benchmark program of bench/ (RelWithDebInfo, in build/) and
# runs them one after the other, so one command prints every figure. Arguments go to every
# program, e.g. --benchmark_repetitions=5 --benchmark_report_aggregates_only=true, or
# --benchmark_filter=... to pick figures.
# TZ is UTC unless the caller sets it; the date/time and logger programs set their own zone
# settings (TZ unset, TZ=UTC, TZ unset in an otherwise empty environment, TZ=Europe/Berlin),
# whatever the caller's.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
jobs=$(nproc 2>/dev/null || echo 2)
programs=($(sed -n 's/^vyr_add_benchmark(\([a-z_]*\) .*/\1/p' bench/CMakeLists.txt))

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$jobs" --target "${programs[@]}" >/dev/null

export TZ=${TZ-UTC}
for program in "${programs[@]}"; do
  echo "== $program (TZ=\"$TZ\", RelWithDebInfo)"
  "build/bench/$program" "$@"
done
