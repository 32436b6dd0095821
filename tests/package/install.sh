#!/usr/bin/env bash
# Installs the built package, runs the demo wizard from /usr/bin with zunwiz-run, checks
# what the package put in place, and removes it again. Needs root (CI is root).
set -euo pipefail
deb=$1
here=$(cd "$(dirname "$0")" && pwd)
SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo
if dpkg-query -W zunwiz >/dev/null 2>&1; then
  echo "package test: a zunwiz package is installed already; not touching it" >&2
  exit 1
fi
cleanup() { $SUDO dpkg --purge zunwiz >/dev/null 2>&1 || true; }
trap cleanup EXIT
# Dependencies the package names are Debian's; install them, then the package.
$SUDO dpkg -i "$deb" >/dev/null 2>&1 || DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq -f >/dev/null
dpkg-query -W -f='${Status}\n' zunwiz | grep -q "install ok installed"
fail=0
check() { if "$@"; then echo "ok: $*"; else echo "FAILED: $*"; fail=1; fi; }
# Every program the package holds has its manual page.
for b in zunwiz zunwiz-run zunwiz-check zunwiz-opc zunwiz-undo zunwiz-vbs; do check test -x /usr/bin/$b; done
for p in $(dpkg -L zunwiz | grep '^/usr/bin/'); do
  check test -f /usr/share/man/man1/$(basename "$p").1.gz
done
check test -d /etc/zunwiz/registry
check test -f /usr/share/applications/zunwiz.desktop
check test -f /usr/share/mime/packages/zunwiz.xml
check test -f /usr/share/org.kde.syntax-highlighting/syntax/zunwiz-par.xml
demo=/usr/share/doc/zunwiz/examples/demo
check test -f $demo/ZunWiz.par
# The Ansible module where Ansible finds it without being told.
check test -f /usr/share/ansible/plugins/modules/zunwiz.py
# The demo wizard, unattended, from the installed programs.
out=$(mktemp -d)
if [ -x /usr/bin/zunwiz-run ] && [ -f $demo/ZunWiz.ans ]; then
  ( cd "$out" && QT_QPA_PLATFORM=offscreen /usr/bin/zunwiz-run --answers $demo/ZunWiz.ans \
      --trace trace.txt -FP $demo/ZunWiz.par ) && st=0 || st=$?
  check test "$st" = 0
  check grep -q '^end unload' "$out/trace.txt"
  # The trace names the demo's folder where the case file writes "<DIR>".
  sed -i "s#$demo#<DIR>#g" "$out/trace.txt"
  if [ -f $demo/ZunWiz.trace ]; then check diff -u $demo/ZunWiz.trace "$out/trace.txt"; fi
fi
# The checker finds nothing wrong in the demo.
check /usr/bin/zunwiz-check $demo/ZunWiz.par
echo 'WScript.Echo 6 * 7' > "$out/t.vbs"
check test "$(/usr/bin/zunwiz-vbs "$out/t.vbs")" = 42
# The Ansible example from the package's doc folder, with the installed module
# found where Ansible looks by default.
if command -v ansible-playbook >/dev/null; then
  : > "$out/ansible.cfg"
  check env HOME="$out" ANSIBLE_LOCAL_TEMP="$out/al" ANSIBLE_REMOTE_TEMP="$out/ar" ANSIBLE_CONFIG="$out/ansible.cfg" \
    ANSIBLE_PYTHON_INTERPRETER=/usr/bin/python3 ansible-playbook -i localhost, -c local \
    /usr/share/doc/zunwiz/examples/ansible/demo.yml -e zunwiz_pasta="$out/demo" >/dev/null
  check test -f "$out/demo/ZunWiz.par"
  check grep -q '"op":"begin"' "$out/demo/install.jsonl"
fi
rm -rf "$out"
cleanup
trap - EXIT
check test ! -e /usr/bin/zunwiz
if [ $fail -ne 0 ]; then echo "package test: FAILED"; exit 1; fi
echo "package test: passed"
