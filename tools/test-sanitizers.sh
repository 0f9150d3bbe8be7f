#!/usr/bin/env bash
# Builds Orvane with AddressSanitizer and UndefinedBehaviorSanitizer in
# ./build-asan and runs the whole test suite there. Any invalid memory access,
# undefined behaviour or leak fails the test it happened in; the only leaks
# let through are those wholly inside system libraries (see
# tools/sanitizer-leaks.supp). Extra arguments go to ctest (-R, -E, ...).
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/setup-debian.sh
# Set for the build too: it runs the sanitized demo generator.
export ASAN_OPTIONS="detect_leaks=1:halt_on_error=1"
export LSAN_OPTIONS="suppressions=$PWD/tools/sanitizer-leaks.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DORVANE_SANITIZE=ON \
      -DORVANE_BUILD_BENCHMARKS=OFF "${launcher[@]}" >/dev/null
cmake --build build-asan -j "${ORVANE_JOBS:-2}"

export QT_QPA_PLATFORM=offscreen
export ORVANE_AUDIO_SINK="${ORVANE_AUDIO_SINK:-fakesink sync=true}"
ctest --test-dir build-asan --output-on-failure -j 2 "$@"
