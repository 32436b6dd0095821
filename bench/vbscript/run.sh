#!/bin/sh
# Runs the engine's benchmarks with vbs_bench (default: the Release build in
# build-release), then the same scripts under `wine cscript.exe` when wine is
# installed (set NO_WINE=1 to skip). vbs_bench gives the best of five runs of
# each script's Bench procedure; under cscript each script times one run with Timer.
dir=$(cd "$(dirname "$0")" && pwd)
bench=${1:-$dir/../../build-release/bench/vbscript/vbs_bench}
scripts="count countg fib concat arrays"
for s in $scripts; do "$bench" "$dir/$s.vbs"; done
if command -v wine >/dev/null 2>&1 && [ -z "$NO_WINE" ]; then
  for s in $scripts; do
    printf 'cscript  '
    wine cscript.exe //nologo "$(winepath -w "$dir/$s.vbs" 2>/dev/null)" 2>/dev/null | tr -d '\r'
  done
fi
