#!/usr/bin/env bash
# Builds the readers' fuzz targets in ./build-fuzz and runs each for SECONDS
# (60 by default) on its seeds, then prints per target the executions and the
# findings (crashes, leaks, time-outs over 1 s, undefined behaviour). A
# finding's input is kept in build-fuzz/findings/<target>/; the inputs that
# reached new code are kept in build-fuzz/corpus/<target>/ for the next run.
# Exits 1 when anything was found. With ORVANE_FUZZ_RUNS=N a target also
# stops after N executions (whichever comes first).
#   tools/fuzz.sh [SECONDS] [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(config language subtitles playlist_orx playlist_m3u)

bash tools/setup-fuzz.sh
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
      -DORVANE_FUZZ=ON -DORVANE_BUILD_BENCHMARKS=OFF "${launcher[@]}" >/dev/null
cmake --build build-fuzz -j "${ORVANE_JOBS:-2}" --target "${targets[@]/#/fuzz_}"

export QT_QPA_PLATFORM=offscreen
# Leaks wholly inside the system's libraries are theirs, not the readers'.
export LSAN_OPTIONS="suppressions=$PWD/tools/sanitizer-leaks.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
# Recording where each allocation was made costs a quarter of the speed; a
# finding is replayed with its input for the whole report (see the README).
export ASAN_OPTIONS="${ASAN_OPTIONS:-malloc_context_size=0}"
runs=()
[ -z "${ORVANE_FUZZ_RUNS:-}" ] || runs=(-runs="$ORVANE_FUZZ_RUNS")
found=0
summary=()
for target in "${targets[@]}"; do
  corpus=build-fuzz/corpus/$target
  findings=build-fuzz/findings/$target
  log=build-fuzz/fuzz-$target.log
  mkdir -p "$corpus" "$findings"
  echo "== fuzz_$target for $seconds s (log: $log)"
  status=0
  build-fuzz/bin/fuzz_"$target" "$corpus" build-fuzz/fuzz-seeds/"$target" \
    -dict=fuzz/dictionaries/"$(sed 's/playlist_.*/playlist/' <<<"$target")".dict \
    -max_total_time="$seconds" -timeout=1 -rss_limit_mb=2048 -max_len=16384 \
    -artifact_prefix="$findings/" -print_final_stats=1 "${runs[@]}" >"$log" 2>&1 || status=$?
  executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  # The time taken, shorter than SECONDS when ORVANE_FUZZ_RUNS was reached first.
  elapsed=$(sed -n 's/^Done [0-9]* runs in \([0-9]*\) second.*/\1/p' "$log" | tail -1)
  count=$(find "$findings" -type f | wc -l)
  [ "$status" -eq 0 ] || [ "$count" -gt 0 ] || count=1  # ended badly without leaving an input
  [ "$count" -eq 0 ] || { found=1; tail -40 "$log"; }
  summary+=("$(printf '%-14s %12s executions in %s s, %s findings' "$target" "${executions:-?}" "${elapsed:-$seconds}" "$count")")
done
printf '%s\n' "${summary[@]}"
exit "$found"
