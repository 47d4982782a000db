#!/usr/bin/env bash
# Builds the fuzz targets of fuzz/ with clang (libFuzzer, AddressSanitizer, UndefinedBehavior-
# Sanitizer) into build-fuzz/ and runs each one from its seed corpus, one after the other.
# Arguments are passed to every target; without any, each runs for 20 seconds (the CI run).
#   scripts/fuzz.sh                      # 20 s per target
#   scripts/fuzz.sh -runs=10000000       # ten million executions per target
# Inputs that reach new code are kept in build-fuzz/corpus/<target>/ (the seed corpus in the tree
# is only read); a crash, a sanitizer report or an input slower than 10 s is written to
# build-fuzz/artifacts/ and fails the script (after the other targets have run).
# VYR_FUZZ_SANITIZERS=undefined builds without AddressSanitizer into build-fuzz-undefined/ (its
# own corpus and artifacts): several times faster, for the long runs.
set -euo pipefail
cd "$(dirname "$0")/.."

targets=(datetime objectpath value xml zonefile)
options=("$@")
[ ${#options[@]} -gt 0 ] || options=(-max_total_time=20)
jobs=$(nproc 2>/dev/null || echo 2)

sanitizers=${VYR_FUZZ_SANITIZERS:-address,undefined}
out=build-fuzz
[ "$sanitizers" = address,undefined ] || out="build-fuzz-${sanitizers//,/-}"

cmake -S . -B "$out" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
  -DVYR_FUZZ=ON -DVYR_FUZZ_SANITIZERS="$sanitizers" -DVYR_BUILD_TESTS=OFF >/dev/null
cmake --build "$out" -j"$jobs" --target "${targets[@]/#/vyr_fuzz_}" >/dev/null

mkdir -p "$out/artifacts"
failed=()
for target in "${targets[@]}"; do
  mkdir -p "$out/corpus/$target"
  log="$out/$target.log"
  status=0
  "$out/fuzz/vyr_fuzz_$target" -max_len=4096 -timeout=10 -print_final_stats=1 \
    -artifact_prefix="$out/artifacts/$target-" "${options[@]}" \
    "$out/corpus/$target" "fuzz/corpus/$target" >"$log" 2>&1 || status=$?
  if [ "$status" -ne 0 ]; then
    tail -n 40 "$log"
    echo "fuzz: $target FAILED (exit status $status); the log is $log" >&2
    failed+=("$target")
    continue
  fi
  echo "fuzz: $target: $(grep -E '^Done ' "$log"), $(grep -E 'stat::average_exec_per_sec' "$log" | awk '{print $2}') exec/s"
done
[ ${#failed[@]} -eq 0 ] || { echo "fuzz: failed: ${failed[*]}" >&2; exit 1; }
