# Sourced by scripts/test and scripts/demo: installs the build dependencies
# that are missing (cmake, a C++ compiler; for the tests GoogleTest, the
# Boost headers, whose Boost.Geometry checks the Boolean operations, and the
# tools that the install, package and picture tests use; for the fuzz
# targets clang and its libFuzzer and sanitizer runtimes; for the benchmarks
# Google Benchmark and the rival libraries GEOS, Clipper 6 and the Boost
# headers) with apt-get when running as root on Debian; otherwise says what
# to install.
polyarc_missing_deps() {
  local missing=()
  command -v cmake >/dev/null 2>&1 || missing+=(cmake)
  command -v g++ >/dev/null 2>&1 || missing+=(g++)
  command -v make >/dev/null 2>&1 || missing+=(make)
  command -v nm >/dev/null 2>&1 || missing+=(binutils)
  if [ "${1:-}" = tests ]; then
    [ -f /usr/include/gtest/gtest.h ] || missing+=(libgtest-dev)
    command -v pkg-config >/dev/null 2>&1 || missing+=(pkg-config)
    command -v rsvg-convert >/dev/null 2>&1 || missing+=(librsvg2-bin)
    command -v dpkg-shlibdeps >/dev/null 2>&1 || missing+=(dpkg-dev)
    command -v file >/dev/null 2>&1 || missing+=(file)
    [ -f /usr/include/boost/geometry.hpp ] || missing+=(libboost-dev)
  fi
  if [ "${1:-}" = fuzz ]; then
    if ! command -v clang++ >/dev/null 2>&1; then
      missing+=(clang libclang-rt-dev)
    elif [ ! -f "$(clang++ -print-resource-dir)/lib/linux/libclang_rt.fuzzer-$(uname -m).a" ]; then
      missing+=("libclang-rt-$(clang++ -dumpversion | cut -d. -f1)-dev")
    fi
  fi
  if [ "${1:-}" = bench ]; then
    command -v pkg-config >/dev/null 2>&1 || missing+=(pkg-config)
    command -v python3 >/dev/null 2>&1 || missing+=(python3)
    [ -f /usr/include/benchmark/benchmark.h ] || missing+=(libbenchmark-dev)
    [ -f /usr/include/geos_c.h ] || missing+=(libgeos-dev)
    [ -f /usr/include/polyclipping/clipper.hpp ] || missing+=(libpolyclipping-dev)
    [ -f /usr/include/boost/geometry.hpp ] || missing+=(libboost-dev)
  fi
  echo "${missing[@]}"
}

polyarc_ensure_deps() {
  local missing
  missing=$(polyarc_missing_deps "$@")
  [ -z "$missing" ] && return 0
  if [ "$(id -u)" = 0 ] && command -v apt-get >/dev/null 2>&1; then
    echo "installing: $missing"
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq && apt-get install -y -qq $missing >/dev/null
  else
    echo "missing build dependencies: $missing (install them, e.g. apt-get install $missing)" >&2
    return 1
  fi
}
