#!/usr/bin/env bash
# The Debian packages as a user meets them, without installing anything into this machine: the
# three .deb files are unpacked into a temporary root, each must hold its share of the files, the
# unpacked vyr-host must find the providers bundled beside the unpacked libvyrcore, and the
# consumer programs are built against the unpacked -dev package, once through its CMake package
# and once through its pkg-config files, and run.
# Usage: check.sh PACKAGE_DIR CONSUMER_SOURCE_DIR WORK_DIR
set -euo pipefail
packages=$1 src=$(realpath "$2") work=$(realpath -m "$3")

rm -rf "$work"
mkdir -p "$work"
root=$work/root
multiarch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
libdir=usr/lib/$multiarch

# Each package by name, and the files it must hold (and the others must not).
declare -A expected=(
  [libvyrcore2]="./$libdir/libvyrcore.so.2 ./$libdir/libvyrmemory.so.2 ./$libdir/libmemory.nsp.so
                 ./$libdir/liblinux.nsp.so ./usr/share/doc/libvyrcore2/copyright"
  [libvyrcore-dev]="./$libdir/libvyrcore.so ./$libdir/libvyrmemory.so ./usr/include/vyrcore/vyrcore.h
                    ./$libdir/cmake/vyrcore/vyrcoreConfig.cmake ./$libdir/pkgconfig/vyrcore.pc
                    ./$libdir/pkgconfig/vyrmemory.pc ./usr/share/doc/libvyrcore-dev/copyright"
  [vyr-host]="./usr/bin/vyr-host ./usr/share/man/man1/vyr-host.1.gz ./usr/share/doc/vyr-host/copyright"
)
for name in "${!expected[@]}"; do
  deb=$(find "$packages" -maxdepth 1 -name "${name}_*.deb")
  [ -n "$deb" ] || { echo "no package $name in $packages" >&2; exit 1; }
  contents=$(dpkg-deb -c "$deb" | awk '{print $6}')
  for file in ${expected[$name]}; do
    grep -qx -- "$file" <<<"$contents" || { echo "$name lacks $file" >&2; exit 1; }
  done
  dpkg-deb -x "$deb" "$root"
done
echo "-- packages unpacked into $root"

echo "-- unpacked vyr-host"
# No run path in a system directory: the loader is told where the unpacked libraries lie.
host_output=$(LD_LIBRARY_PATH="$root/$libdir" "$root/usr/bin/vyr-host")
echo "$host_output"
grep -qx "Library directory: $root/$libdir" <<<"$host_output"
grep -qx "  linux" <<<"$host_output"
grep -qx "  memory" <<<"$host_output"

echo "-- consumer through the unpacked CMake package"
cmake -S "$src" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$root/usr" >/dev/null
cmake --build "$work/cmake" >/dev/null
grep -q "$root/$libdir/libvyrcore.so" "$work/cmake/CMakeFiles/consumer.dir/link.txt"
"$work/cmake/consumer"
"$work/cmake/memory_consumer"

echo "-- consumer through the unpacked pkg-config files"
# The .pc files name /usr: the sysroot puts the unpacked root in front of every path they give,
# and /usr/include and the multiarch directory must not be dropped as system paths here.
export PKG_CONFIG_SYSROOT_DIR=$root PKG_CONFIG_LIBDIR=$root/$libdir/pkgconfig
export PKG_CONFIG_ALLOW_SYSTEM_CFLAGS=1 PKG_CONFIG_ALLOW_SYSTEM_LIBS=1
for program in main:vyrcore memory_main:vyrmemory; do
  source=${program%%:*} package=${program##*:}
  # shellcheck disable=SC2046  # the flags are meant to split
  g++ -std=c++17 "$src/$source.cpp" -o "$work/$source" $(pkg-config --cflags --libs "$package") \
    -Wl,-rpath,"$root/$libdir"
  "$work/$source"
done
