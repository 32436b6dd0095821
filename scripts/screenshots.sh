#!/usr/bin/env bash
# Takes the screenshots in docs/images: the background window (background.png) and
# the box that a missing option file brings up over it (missing-file.png), on a
# virtual X server (the X tools it needs are installed); then each page of the demo
# wizard (demo-NN-IDE.png) and of the component gallery (gallery-KIND.png), through
# zunwiz-run --shots driven by their answers files; and the option group in each
# colour mode (gallery-opc-modes.png), which zunwiz-opc-modes draws. Not part of CI.
set -euo pipefail
cd "$(dirname "$0")/.."
need=()
command -v Xvfb >/dev/null || need+=(xvfb)
command -v xdotool >/dev/null || need+=(xdotool)
command -v import >/dev/null || need+=(imagemagick)
command -v openbox >/dev/null || need+=(openbox)
if [ ${#need[@]} -gt 0 ]; then
  SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${need[@]}"
fi
build=${BUILD_DIR:-build}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$build" -j"$(nproc)" --target zunwiz zunwiz-run zunwiz-opc-modes
out=docs/images
mkdir -p "$out"

disp=":$((100 + $$ % 400))"
Xvfb "$disp" -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
xpid=$!
zpid=""
wpid=""
trap 'for p in $zpid $wpid $xpid; do kill "$p" 2>/dev/null; done' EXIT
export DISPLAY=$disp
for _ in $(seq 50); do xdotool getdisplaygeometry >/dev/null 2>&1 && break; sleep 0.1; done
# A window manager, so that the windows get their title bars and the maximised state.
openbox >/dev/null 2>&1 &
wpid=$!
sleep 1

# The missing-file run: the background window comes up, then the box over it.
QT_QPA_PLATFORM=xcb "$build/src/app/zunwiz" -FP /no/such.par &
zpid=$!
wins=()
for _ in $(seq 100); do
  mapfile -t wins < <(xdotool search --onlyvisible --name '^Wizzard$' 2>/dev/null || true)
  [ ${#wins[@]} -ge 2 ] && break
  sleep 0.1
done
[ ${#wins[@]} -ge 2 ] || { echo "the box did not come up" >&2; exit 1; }
sleep 1
import -window root "$out/missing-file.png"

# The box is the narrower of the two windows: minimised, it leaves the background
# window alone in view.
box="" boxw=100000
for w in "${wins[@]}"; do
  eval "$(xdotool getwindowgeometry --shell "$w")"
  if [ "$WIDTH" -lt "$boxw" ]; then box=$w; boxw=$WIDTH; fi
done
xdotool windowminimize "$box"
sleep 1
import -window root "$out/background.png"
echo "wrote $out/background.png and $out/missing-file.png"

# The demo's pages, off screen, as zunwiz-run enters them with the demo's answers.
demo=examples/demo
shots=$(mktemp -d)
# The demo's own answers (those CTest runs): they visit every page and answer "Não"
# in the printer page's box, so the shots never change the machine.
ans=$demo/ZunWiz.ans
"$build/tools/zunwiz-run/zunwiz-run" --answers "$ans" --trace /dev/null --shots "$shots" \
  -FP "$PWD/$demo/ZunWiz.par" || true
# One shot per page, the first time the answers enter it, numbered in that order.
rm -f "$out"/demo-*.png
n=0
declare -A visto=()
for f in "$shots"/*.png; do
  [ -e "$f" ] || continue
  ide=$(basename "$f" .png)
  ide=${ide#*-}
  [ "$ide" = box ] && continue
  [ -n "${visto[$ide]:-}" ] && continue
  visto[$ide]=1
  n=$((n + 1))
  cp "$f" "$out/demo-$(printf %02d $n)-$ide.png"
done
rm -rf "$shots"
echo "wrote $(ls "$out"/demo-*.png 2>/dev/null | wc -l) demo pages into $out"

# The gallery's three pages, the last shot of each (the answers click on the options
# page and enter it again), named by what they show.
shots=$(mktemp -d)
"$build/tools/zunwiz-run/zunwiz-run" --answers examples/gallery/ZunWiz.ans --trace /dev/null \
  --shots "$shots" -FP "$PWD/examples/gallery/ZunWiz.par"
declare -A nome=([LAB]=labels [CKB]=options [RTF]=richtext)
for ide in "${!nome[@]}"; do
  f=$(ls "$shots"/*-"$ide".png | tail -n 1)
  cp "$f" "$out/gallery-${nome[$ide]}.png"
done
rm -rf "$shots"
echo "wrote ${#nome[@]} gallery pages into $out"

# The option group in each colour mode: an option file always sets "N", so a small
# program lays the groups out over the gallery's picture and saves the window.
QT_QPA_PLATFORM=offscreen "$build/examples/gallery/zunwiz-opc-modes" "$out/gallery-opc-modes.png" \
  examples/gallery/fundo.bmp
echo "wrote $out/gallery-opc-modes.png"
