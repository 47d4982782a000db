#!/usr/bin/env bash
# Installs the build into a temporary prefix, runs the installed vyr-host (which must find
# libvyrcore through its run path and the "memory" provider beside it), then builds and runs the
# consumer programs (one for libvyrcore, one for libvyrmemory) twice: through
# find_package(vyrcore CONFIG) and through pkg-config, the latter with the README's own compile
# line, which also builds and runs the README's first example.
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

echo "-- consumer through pkg-config, built and run exactly as the README says"
pcdir=$(dirname "$(find "$prefix" -name vyrcore.pc | head -n 1)")
export PKG_CONFIG_PATH=$pcdir
readme=$src/../../README.md
# The README's compile line, taken from the README itself so that the two cannot drift apart.
recipe=$(grep -m 1 -F -- '-Wl,-rpath,$(pkg-config --variable=libdir vyrcore)' "$readme")
[[ $recipe == g++* ]] || { echo "no pkg-config compile line in $readme" >&2; exit 1; }
# build_and_run NAME SOURCE PACKAGE: the recipe (for PACKAGE) on SOURCE as main.cpp, then ./a.out.
build_and_run() {
  local dir=$work/pkg-config/$1
  mkdir -p "$dir"
  cp "$2" "$dir/main.cpp"
  (cd "$dir" && eval "${recipe//vyrcore/$3}" && ./a.out)
}
build_and_run consumer "$src/main.cpp" vyrcore
build_and_run memory-consumer "$src/memory_main.cpp" vyrmemory
# The README's first example: making the logger and reading it when something fails.
awk '/^```cpp$/ { inside = 1; next } /^```$/ && inside { exit } inside' "$readme" \
    >"$work/readme-example.cpp"
build_and_run readme-example "$work/readme-example.cpp" vyrcore 2>"$work/readme-example.err"
cat "$work/readme-example.err"
grep -q "element is of type sint64" "$work/readme-example.err"
