#!/bin/sh
# Runs the library's benchmarks through vbs_bench; with WINE_PEER=1 also times each
# Bench under wine's cscript, as a peer, when wine is installed.
bench="$1"
dir=$(dirname "$0")
for f in "$dir"/*.vbs; do
  "$bench" "$f"
  if [ "$WINE_PEER" = 1 ] && command -v wine >/dev/null; then
    tmp=$(mktemp --suffix=.vbs)
    { cat "$f"; printf '\r\nt = Timer\r\nBench\r\nWScript.Echo "cscript", Timer - t\r\n'; } > "$tmp"
    printf '%-12s ' "$(basename "$f")"
    wine cscript.exe //nologo "$(winepath -w "$tmp" 2>/dev/null)" 2>/dev/null | grep cscript | tr -d '\r'
    rm -f "$tmp"
  fi
done
