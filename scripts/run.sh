#!/usr/bin/env bash
# Sets everything up, builds, and runs the main job.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc 2>/dev/null || echo 2)" >/dev/null
exec build/tools/vyr-host/vyr-host "$@"
