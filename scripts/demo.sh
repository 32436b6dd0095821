#!/usr/bin/env bash
# Installs the dependencies, builds ZunWiz and runs the bundled demo wizard.
# Without a display it runs under a virtual X server (Xvfb).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/deps.sh
build=${BUILD_DIR:-build}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build" -j"$(nproc)" --target zunwiz zunwiz-run
demo=$(realpath "${1:-examples/demo/ZunWiz.par}")
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "No display: the wizard runs on a virtual screen. To drive it from this terminal instead, type its answers (SEG, ANT, CNF, CAN, BOX 1...) to: $build/tools/zunwiz-run/zunwiz-run -FP $demo" >&2
  exec xvfb-run -a -s "-screen 0 1280x800x24" "$build/src/app/zunwiz" -FP "$demo"
fi
exec "$build/src/app/zunwiz" -FP "$demo"
