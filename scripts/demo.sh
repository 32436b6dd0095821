#!/usr/bin/env bash
# Installs the dependencies, builds ZunWiz and runs the bundled demo wizard (or the
# option file given). With a display it runs in its window. Without one, nobody
# could see or click a window, so zunwiz-run drives it instead: from this terminal
# when standard input is one (type help or ? for the answers that fit), otherwise
# unattended with the wizard's answers (NAME.ans beside NAME.par), printing the
# trace and the screenshots' folder and ending with the run's status.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/deps.sh
build=${BUILD_DIR:-build}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build" -j"$(nproc)" --target zunwiz zunwiz-run
demo=$(realpath "${1:-examples/demo/ZunWiz.par}")
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec "$build/src/app/zunwiz" -FP "$demo"
fi
run="$build/tools/zunwiz-run/zunwiz-run"
if [ -t 0 ]; then
  echo "No display: the wizard runs in this terminal. Type its answers (SEG, ANT, CNF, CAN, CLOSE, BOX 1...); help or ? lists those that fit." >&2
  exec "$run" -FP "$demo"
fi
ans="${demo%.*}.ans"
[ -f "$ans" ] || ans=/dev/null
shots="$(realpath -m "$build/demo-shots")"
rm -rf "$shots"
echo "No display and no terminal: the wizard runs unattended with the answers $ans." >&2
st=0
"$run" --answers "$ans" --shots "$shots" --trace - -FP "$demo" || st=$?
echo "Screenshots: $shots"
if [ -d "$shots" ]; then
  ls -1 "$shots" | sed 's/^/  /'
fi
echo "Status: $st"
exit "$st"
