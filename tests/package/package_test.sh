#!/usr/bin/env bash
# Installs the built polyarc into a fresh prefix and makes its Debian
# packages, then uses each the way its users do: the installed program
# runs, and small C programs build against it with pkg-config and with
# find_package. Last, a project that embeds the sources with
# add_subdirectory gets the library alone.
#
# usage: package_test.sh SOURCE_DIR BUILD_DIR WORK_DIR C_COMPILER VERSION LIBDIR
set -euo pipefail
src=$1 build=$2 work=$3 cc=$4 version=$5 libdir=$6
consumer=$src/tests/package/consumer
rm -rf "$work"
mkdir -p "$work"
cd "$work"

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# Builds the consumer with pkg-config against PREFIX and runs it.
pkg_config_consumer() {
  local prefix=$1 out
  export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
  [ "$(pkg-config --modversion polyarc)" = "$version" ] || fail "pkg-config version in $prefix"
  # shellcheck disable=SC2046  # the flags are words
  "$cc" -std=c11 -Wall -Wextra -pedantic -Werror "$consumer/consumer.c" \
    $(pkg-config --cflags --libs polyarc) -o "$work/pc_consumer"
  out=$(LD_LIBRARY_PATH=$prefix/$libdir "$work/pc_consumer") || fail "pkg-config consumer: $out"
  [ "$out" = "polyarc $version: area 6" ] || fail "pkg-config consumer printed '$out'"
}

echo "== cmake --install into a fresh prefix"
prefix=$work/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
out=$("$prefix/bin/polyarc" --version 2>&1) || fail "the installed program does not start: $out"
[ "$out" = "polyarc $version" ] || fail "installed polyarc --version printed '$out'"
pkg_config_consumer "$prefix"

echo "== cpack -G DEB"
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work/deb" >/dev/null
runtime=$(echo "$work"/deb/libpolyarc[0-9]*_"$version"_*.deb)
dev=$(echo "$work"/deb/libpolyarc-dev_"$version"_*.deb)
tools=$(echo "$work"/deb/polyarc_"$version"_*.deb)
for deb in "$runtime" "$dev" "$tools"; do [ -f "$deb" ] || fail "no package $deb"; done
expect_files() {  # DEB PATTERN...: the package holds a file matching each pattern
  local deb=$1 list
  shift
  list=$(dpkg-deb -c "$deb")
  for pattern in "$@"; do
    grep -q -- "$pattern" <<<"$list" || fail "$(basename "$deb") lacks $pattern"
  done
}
expect_files "$runtime" "/usr/$libdir/libpolyarc.so.$version"
expect_files "$dev" "/usr/include/polyarc/records.h" "/usr/$libdir/libpolyarc.so -> " \
  "/usr/$libdir/pkgconfig/polyarc.pc" "/usr/$libdir/cmake/polyarc/polyarcConfig.cmake"
expect_files "$tools" "/usr/bin/polyarc"
! dpkg-deb -c "$runtime" | grep -q "/usr/include" || fail "headers in the runtime package"
dpkg-deb -f "$dev" Depends | grep -q libpolyarc || fail "the development package needs the runtime"

root=$work/root
for deb in "$runtime" "$dev" "$tools"; do dpkg-deb -x "$deb" "$root"; done
out=$("$root/usr/bin/polyarc" --version 2>&1) || fail "the packaged program does not start: $out"
pkg_config_consumer "$root/usr"

echo "== find_package(polyarc) against the packages' files"
cmake -S "$consumer" -B "$work/consumer" -DCMAKE_C_COMPILER="$cc" \
  -DCMAKE_PREFIX_PATH="$root/usr" >/dev/null
cmake --build "$work/consumer" >/dev/null
out=$("$work/consumer/consumer") || fail "find_package consumer: $out"
[ "$out" = "polyarc $version: area 6" ] || fail "find_package consumer printed '$out'"

echo "== add_subdirectory(polyarc) in another project"
# GoogleTest made unfindable: the embedded polyarc must not look for it.
cmake -S "$src/tests/package/embed" -B "$work/embed" -DCMAKE_C_COMPILER="$cc" \
  -DPOLYARC_SOURCE_DIR="$src" -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON >/dev/null
targets=$(cmake --build "$work/embed" --target help)
grep -q "\.\.\. polyarc$" <<<"$targets" || fail "no polyarc target when embedded"
for unwanted in polyarc_tests polyarc_cli polyarc_bench; do
  ! grep -q "\.\.\. $unwanted$" <<<"$targets" || fail "$unwanted is built when embedded"
done
echo "all package checks passed"
