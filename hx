#!/usr/bin/env bash
# Front script: ./hx run [FILE...] | test | build | bench | deps
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
jobs=$(nproc 2>/dev/null || echo 2)

packages=(cmake ninja-build g++ ccache pkg-config qtbase5-dev qtbase5-dev-tools libqt5svg5-dev
          qttools5-dev qttools5-dev-tools libgdal-dev libproj-dev libboost-dev fonts-dejavu-core fontconfig
          poppler-utils)
bench_packages=(mapserver-bin python3-mapnik hyperfine)

missing() {
  local p out=()
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || out+=("$p")
  done
  echo "${out[@]:-}"
}

install_packages() {
  local todo
  todo=$(missing "$@")
  [ -z "$todo" ] && return 0
  echo "hx: installing $todo"
  local cmd=(env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $todo)
  if [ "$(id -u)" = 0 ]; then
    apt-get update -q >/dev/null && "${cmd[@]}"
  elif command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
    sudo apt-get update -q >/dev/null && sudo "${cmd[@]}"
  else
    echo "hx: missing packages; run as root:  apt-get update && apt-get install -y $todo" >&2
    exit 1
  fi
}

configure() { # dir, extra cmake args...
  local dir=$1; shift
  local gen=()
  command -v ninja >/dev/null && gen=(-G Ninja)
  if [ ! -f "$dir/CMakeCache.txt" ]; then
    cmake -S "$root" -B "$dir" "${gen[@]}" "$@"
  else
    cmake "$dir" "$@" >/dev/null
  fi
}

release_build() {
  configure "$root/build/release" -DCMAKE_BUILD_TYPE=Release -DHX_BUILD_TESTS=OFF "$@"
  cmake --build "$root/build/release" -j "$jobs"
}

sample_dir="$root/build/sample"
ensure_sample() {
  if [ ! -f "$sample_dir/region.gpkg" ]; then
    "$root/build/release/tools/hxsamplegen/hxsamplegen" --out "$sample_dir"
  fi
}

cmd=${1:-help}; shift || true
case "$cmd" in
  deps)
    install_packages "${packages[@]}" ;;
  build)
    install_packages "${packages[@]}"
    release_build ;;
  test)
    install_packages "${packages[@]}"
    dir="$root/build/asan"
    configure "$dir" -DCMAKE_BUILD_TYPE=Debug -DHX_SANITIZE=ON -DHX_BUILD_TESTS=ON
    cmake --build "$dir" -j "$jobs"
    cd "$dir"
    QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$jobs" "$@" ;;
  run)
    install_packages "${packages[@]}"
    release_build
    if [ $# -eq 0 ]; then
      ensure_sample
      set -- "$sample_dir/region.gpkg" "$sample_dir/elevation.tif"
    fi
    exec "$root/build/release/apps/hxmapviewer/hxmapviewer" "$@" ;;
  bench)
    install_packages "${packages[@]}" "${bench_packages[@]}"
    release_build -DHX_BUILD_BENCH=ON
    exec "$root/bench/run" "$root/build/release" "$@" ;;
  *)
    echo "usage: ./hx run [FILE...] | test [ctest args] | build | bench | deps" >&2
    [ "$cmd" = help ] || exit 2 ;;
esac
