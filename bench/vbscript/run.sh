#!/bin/sh
# Runs the engine's benchmarks with vbs_bench (default: the Release build in
# build-release) beside the same algorithms in Lua 5.4, then the scripts under
# `wine cscript.exe` when wine is installed (set NO_WINE=1 to skip).
# vbs_bench and lua/run.lua each give the best processor time of five runs of a
# script's Bench; the two take turns script by script for ROUNDS rounds (5 by
# default), and the medians over the rounds are printed with their ratio, so
# that both sides see the same load. lua5.4 is installed when missing (never in CI).
dir=$(cd "$(dirname "$0")" && pwd)
bench=${1:-$dir/../../build-release/bench/vbscript/vbs_bench}
rounds=${ROUNDS:-5}
scripts="count countg fib concat concat1m arrays"
if ! command -v lua5.4 >/dev/null 2>&1 && [ -z "$CI" ]; then
  if [ "$(id -u)" = 0 ]; then apt-get install -y lua5.4 >/dev/null
  else sudo apt-get install -y lua5.4 >/dev/null; fi
fi
out=$(mktemp)
trap 'rm -f "$out"' EXIT
r=1
while [ "$r" -le "$rounds" ]; do
  for s in $scripts; do
    "$bench" "$dir/$s.vbs" | awk -v s="$s" '{ print "vbs", s, $3 }' >>"$out"
    if [ -f "$dir/lua/$s.lua" ] && command -v lua5.4 >/dev/null 2>&1; then
      (cd "$dir/lua" && lua5.4 run.lua "$s.lua") | awk -v s="$s" '{ print "lua", s, $3 }' >>"$out"
    fi
  done
  r=$((r + 1))
done
echo "medians of $rounds rounds, processor time (best of 5 runs each round); load: $(cut -d' ' -f1-3 /proc/loadavg)"
for s in $scripts; do
  v=$(awk -v s="$s" '$1 == "vbs" && $2 == s { print $3 }' "$out" | sort -g | awk '{ a[NR] = $1 } END { if (NR) print (NR % 2) ? a[(NR + 1) / 2] : (a[NR / 2] + a[NR / 2 + 1]) / 2 }')
  l=$(awk -v s="$s" '$1 == "lua" && $2 == s { print $3 }' "$out" | sort -g | awk '{ a[NR] = $1 } END { if (NR) print (NR % 2) ? a[(NR + 1) / 2] : (a[NR / 2] + a[NR / 2 + 1]) / 2 }')
  if [ -n "$l" ]; then
    awk -v s="$s" -v v="$v" -v l="$l" 'BEGIN { printf "%-9s vbs %.4f s   lua %.4f s   ratio %.2f\n", s, v, l, v / l }'
  else
    awk -v s="$s" -v v="$v" 'BEGIN { printf "%-9s vbs %.4f s\n", s, v }'
  fi
done
if command -v wine >/dev/null 2>&1 && [ -z "$NO_WINE" ]; then
  for s in $scripts; do
    printf 'cscript  '
    wine cscript.exe //nologo "$(winepath -w "$dir/$s.vbs" 2>/dev/null)" 2>/dev/null | tr -d '\r'
  done
fi
