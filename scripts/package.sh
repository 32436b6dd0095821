#!/usr/bin/env bash
# Builds the Debian package of ZunWiz with CPack and checks it with lintian.
#   bash scripts/package.sh          build (if needed) and package; the .deb lands in build/
#   bash scripts/package.sh --test   also install it with dpkg, run the demo wizard from
#                                    /usr/bin with zunwiz-run, and remove it again (as root)
# Lintian errors fail the script.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/deps.sh
SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo
need=()
for p in dpkg-dev fakeroot lintian file; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || need+=("$p")
done
if [ ${#need[@]} -gt 0 ]; then
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${need[@]}"
fi
build=${BUILD_DIR:-build}
[ -f "$build/CMakeCache.txt" ] || cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build" -j"$(nproc)"
rm -f "$build"/zunwiz_*.deb
(cd "$build" && cpack -G DEB >/dev/null)
deb=$(ls "$build"/zunwiz_*.deb)
echo "package: $deb"
# Lintian: errors fail; warnings are shown. Running as root is fine for a check.
lintian --fail-on error --allow-root "$deb"
echo "lintian: no errors"
if [ "${1:-}" = "--test" ]; then
  bash tests/package/install.sh "$deb"
fi
