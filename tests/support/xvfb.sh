#!/usr/bin/env bash
# Runs a command on a virtual X server of its own: Xvfb on a display that is free
# (it picks the number itself, so runs side by side do not meet), named to the
# command by DISPLAY, and ended with it. With --wm the window manager openbox runs
# on it first, so that windows get the frames and title bars of a desktop.
# Usage: xvfb.sh [--wm] COMMAND [ARGS...]. Exits 77 (skipped) only where Xvfb, or
# openbox with --wm, is not installed; a server that does not start is a failure.
set -u
wm=0
if [ "${1:-}" = --wm ]; then wm=1; shift; fi
command -v Xvfb >/dev/null || { echo "xvfb.sh: Xvfb is not installed (scripts/deps.sh installs it)" >&2; exit 77; }
if [ $wm = 1 ] && ! command -v openbox >/dev/null; then
  echo "xvfb.sh: openbox is not installed (scripts/deps.sh installs it)" >&2
  exit 77
fi
dir=$(mktemp -d) || exit 1
xpid="" wpid=""
trap 'for p in $wpid $xpid; do kill "$p" 2>/dev/null; wait "$p" 2>/dev/null; done; rm -rf "$dir"' EXIT
# Xvfb writes its display number to descriptor 3 once it takes connections.
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$dir/ecra" 2>"$dir/erros" &
xpid=$!
espera() {  # waits up to 10 s for test $1 on file $2 to hold, while process $3 lives
  for _ in $(seq 100); do
    [ "$1" "$2" ] && return 0
    kill -0 "$3" 2>/dev/null || return 1
    sleep 0.1
  done
  return 1
}
if ! espera -s "$dir/ecra" $xpid; then
  echo "xvfb.sh: Xvfb did not start" >&2
  cat "$dir/erros" >&2
  exit 1
fi
export DISPLAY=":$(head -n 1 "$dir/ecra")"
if [ $wm = 1 ]; then
  # openbox runs its --startup command once it manages the screen.
  openbox --sm-disable --startup "touch $dir/wm" >/dev/null 2>&1 &
  wpid=$!
  if ! espera -e "$dir/wm" $wpid; then
    echo "xvfb.sh: openbox did not start" >&2
    exit 1
  fi
fi
"$@"
st=$?
exit $st
