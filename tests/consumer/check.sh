#!/usr/bin/env bash
# Installs the build into a temporary prefix, runs the installed vyr-host (which must find
# libvyrcore through its run path and the "memory" provider beside it), then builds and runs the
# consumer programs (one for libvyrcore, one for libvyrmemory) twice: through
# find_package(vyrcore CONFIG) and through pkg-config.
# Usage: check.sh BUILD_DIR CONSUMER_SOURCE_DIR WORK_DIR
set -euo pipefail
build=$1 src=$2 work=$3

rm -rf "$work"
mkdir -p "$work"
prefix=$work/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null

echo "-- installed vyr-host"
host_output=$("$prefix/bin/vyr-host")
echo "$host_output"
grep -qx "  memory" <<<"$host_output"

echo "-- consumer through the CMake package"
cmake -S "$src" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/cmake" >/dev/null
"$work/cmake/consumer"
"$work/cmake/memory_consumer"

echo "-- consumer through pkg-config"
pcdir=$(dirname "$(find "$prefix" -name vyrcore.pc | head -n 1)")
export PKG_CONFIG_PATH=$pcdir
libdir=$(pkg-config --variable=libdir vyrcore)
# shellcheck disable=SC2046
g++ -std=c++17 -o "$work/pc-consumer" "$src/main.cpp" $(pkg-config --cflags --libs vyrcore) \
    -Wl,-rpath,"$libdir"
"$work/pc-consumer"
# shellcheck disable=SC2046
g++ -std=c++17 -o "$work/pc-memory-consumer" "$src/memory_main.cpp" \
    $(pkg-config --cflags --libs vyrmemory) -Wl,-rpath,"$libdir"
"$work/pc-memory-consumer"
