#!/usr/bin/env bash
# Front script: ./hx run [FILE...] | test [--tsan] | lint | build | fuzz [SECONDS] | bench | bench-big | deps
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
jobs=$(nproc 2>/dev/null || echo 2)

packages=(cmake ninja-build g++ ccache pkg-config qtbase5-dev qtbase5-dev-tools libqt5svg5-dev
          qttools5-dev qttools5-dev-tools libssl-dev libgdal-dev libproj-dev libgeos-dev libboost-dev
          fonts-dejavu-core fonts-noto-cjk fontconfig clang libclang-rt-14-dev poppler-utils
          postgresql-15-postgis-3)
lint_packages=(clang-format clang-tidy)
bench_packages=(mapserver-bin python3-mapnik hyperfine time)

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

configure() { # source dir, build dir, extra cmake args...
  local src=$1 dir=$2; shift 2
  local gen=()
  command -v ninja >/dev/null && gen=(-G Ninja)
  if [ ! -f "$dir/CMakeCache.txt" ]; then
    cmake -S "$src" -B "$dir" "${gen[@]}" "$@"
  else
    cmake "$dir" "$@" >/dev/null
  fi
}

release_build() {
  configure "$root" "$root/build/release" -DCMAKE_BUILD_TYPE=Release -DHX_BUILD_TESTS=OFF "$@"
  cmake --build "$root/build/release" -j "$jobs"
}

# The text parsers under libFuzzer (fuzz/): a small clang build of their sources alone.
fuzz_dir="$root/build/fuzz"
fuzz_targets=(scale_text coordinate_text permissive_number dms)

fuzz_build() {
  configure "$root/fuzz" "$fuzz_dir" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug >/dev/null
  cmake --build "$fuzz_dir" -j "$jobs" >"$fuzz_dir/build.log" 2>&1 || { cat "$fuzz_dir/build.log"; return 1; }
}

fuzz_run() { # seconds per target: prints the executions each reached; non-zero when one crashed
  local seconds=$1 failed=0 t log runs
  mkdir -p "$fuzz_dir/crashes"
  for t in "${fuzz_targets[@]}"; do
    log="$fuzz_dir/$t.log"
    mkdir -p "$fuzz_dir/corpus/$t"
    if "$fuzz_dir/fuzz_$t" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
         -artifact_prefix="$fuzz_dir/crashes/$t-" "$fuzz_dir/corpus/$t" "$root/fuzz/seeds/$t" >"$log" 2>&1; then
      runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
      echo "fuzz $t: ${runs:-?} executions in ${seconds} s, no crash"
    else
      echo "fuzz $t: FAILED (log: $log; input kept in $fuzz_dir/crashes)"
      grep -E -A2 '^property failed|ERROR: (libFuzzer|AddressSanitizer)|runtime error' "$log" | head -n 12 || true
      failed=1
    fi
  done
  return "$failed"
}

# Every tracked C++ file formatted as .clang-format says; prints the files that are not.
format_check() {
  local bad
  bad=$(cd "$root" && git ls-files -z '*.cpp' '*.h' |
        xargs -0 -n 40 -P "$jobs" clang-format --dry-run --Werror 2>&1 |
        sed -n 's/^\([^: ][^: ]*\):[0-9]*:[0-9]*: error: .*/\1/p' | sort -u)
  [ -z "$bad" ] && { echo "lint: formatting clean"; return 0; }
  echo "lint: not formatted (run: clang-format -i FILE):" >&2
  echo "$bad" | sed 's/^/  /' >&2
  return 1
}

# clang-tidy with .clang-tidy's checks over the library, the widgets and the programs (the tests are
# left out), through the sanitized build's compile commands and generated headers.
tidy_check() {
  local dir=$1 log=$1/clang-tidy.log
  if run-clang-tidy -p "$dir" -quiet -j "$jobs" "^$root/(objectmodel|mapcontrols|apps|designer|tools)/" \
       >"$log" 2>&1; then
    echo "lint: clang-tidy clean"
    return 0
  fi
  sed 's/\x1b\[[0-9;]*m//g' "$log" | grep -E -A3 ': (warning|error): ' >&2 || tail -n 20 "$log" >&2
  return 1
}

# The render, cancel and signal tests under ThreadSanitizer: the libraries and those tests alone, in
# build/tsan. A data race or lock-order inversion fails the test (TSan's exit code); what is known
# to be safe is suppressed, with the reason, in tests/tsan.supp.
tsan_tests=(tst_mapviewrender tst_layerrender tst_layercompose tst_eventsignal tst_canvas_render tst_featureread)
tsan_test() {
  local dir="$root/build/tsan"
  configure "$root" "$dir" -DCMAKE_BUILD_TYPE=Debug -DHX_TSAN=ON -DHX_SANITIZE=OFF -DHX_BUILD_TESTS=ON
  cmake --build "$dir" -j "$jobs" --target "${tsan_tests[@]}"
  local pattern
  pattern="/($(IFS='|'; echo "${tsan_tests[*]}"))\$"
  cd "$dir"
  QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$jobs" -R "$pattern" "$@"
}

sample_dir="$root/build/sample"
ensure_sample() {
  if [ ! -f "$sample_dir/region.gpkg" ] || [ ! -f "$sample_dir/hillshade.tif" ]; then
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
    if [ "${1:-}" = --tsan ]; then
      shift
      tsan_test "$@"
      exit
    fi
    dir="$root/build/asan"
    configure "$root" "$dir" -DCMAKE_BUILD_TYPE=Debug -DHX_SANITIZE=ON -DHX_BUILD_TESTS=ON
    cmake --build "$dir" -j "$jobs"
    cd "$dir"
    ctest_status=0
    QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$jobs" "$@" 2>&1 | tee "$dir/ctest.log" || ctest_status=$?
    # Then the parsers under the fuzzer for a short while (HX_FUZZ_SECONDS each, 0 to skip); ctest's
    # summary is repeated last, as the closing lines.
    fuzz_status=0
    fuzz_seconds=${HX_FUZZ_SECONDS:-10}
    if [ "$fuzz_seconds" != 0 ]; then
      { fuzz_build && fuzz_run "$fuzz_seconds"; } || fuzz_status=1
    fi
    sed -n '/tests passed, /,$p' "$dir/ctest.log"
    [ "$fuzz_status" = 0 ] || echo "hx: a fuzz target failed (see above)" >&2
    [ "$ctest_status" = 0 ] && [ "$fuzz_status" = 0 ] ;;
  lint)
    install_packages "${packages[@]}" "${lint_packages[@]}"
    dir="$root/build/asan"
    configure "$root" "$dir" -DCMAKE_BUILD_TYPE=Debug -DHX_SANITIZE=ON -DHX_BUILD_TESTS=ON
    cmake --build "$dir" -j "$jobs"
    format_status=0
    format_check || format_status=1
    tidy_check "$dir" && [ "$format_status" = 0 ] ;;
  fuzz)
    install_packages "${packages[@]}"
    fuzz_build
    fuzz_run "${1:-60}" ;;
  run)
    install_packages "${packages[@]}"
    release_build
    if [ $# -eq 0 ]; then
      ensure_sample
      set -- "$sample_dir/region.gpkg" "$sample_dir/elevation.tif" "$sample_dir/hillshade.tif"
    fi
    exec "$root/build/release/apps/hxmapviewer/hxmapviewer" "$@" ;;
  bench)
    install_packages "${packages[@]}" "${bench_packages[@]}"
    release_build -DHX_BUILD_BENCH=ON
    exec "$root/bench/run" "$root/build/release" "$@" ;;
  bench-big)  # a layer of five million features drawn from its source, beside MapServer
    install_packages "${packages[@]}" "${bench_packages[@]}"
    release_build -DHX_BUILD_BENCH=ON
    exec "$root/bench/run-big" "$root/build/release" "$@" ;;
  *)
    echo "usage: ./hx run [FILE...] | test [--tsan] [ctest args] | lint | build | fuzz [seconds per target, default 60] | bench | bench-big | deps" >&2
    [ "$cmd" = help ] || exit 2 ;;
esac
