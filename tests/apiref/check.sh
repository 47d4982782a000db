#!/usr/bin/env bash
# The API reference's gate: Doxygen, configured exactly as for the reference, accepts a header
# whose public class and operations all carry a comment, and refuses one where a class and an
# operation carry none, naming both.
# Usage: check.sh DOXYGEN DOXYFILE FIXTURE_DIR WORK_DIR
set -euo pipefail
doxygen=$1 doxyfile=$2 fixtures=$3 work=$4

rm -rf "$work"
mkdir -p "$work"
# run HEADER: Doxygen over that one header, with every other setting of the reference.
run() {
  cat >"$work/Doxyfile" <<END
@INCLUDE = $doxyfile
INPUT = $fixtures/$1
OUTPUT_DIRECTORY = $work/out
USE_MDFILE_AS_MAINPAGE =
STRIP_FROM_PATH = $fixtures
END
  "$doxygen" "$work/Doxyfile" >"$work/$1.log" 2>&1
}

run Documented.h || { cat "$work/Documented.h.log"; echo "a documented header was refused" >&2; exit 1; }
if run Undocumented.h; then
  echo "an undocumented class and operation were accepted" >&2
  exit 1
fi
cat "$work/Undocumented.h.log"
grep -q "Compound TUndocumented is not documented" "$work/Undocumented.h.log"
grep -q "Member Forget() (function) of class TPartlyDocumented is not documented" \
  "$work/Undocumented.h.log"
