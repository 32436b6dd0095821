#!/usr/bin/env bash
# Runs the "zunwiz" module's playbook (modulo.yml, which runs the demo example
# first) with Debian's ansible-core against this machine, and the module's own
# unit tests. Everything is written inside one temporary folder: Ansible's home,
# its local and remote temporary folders, the wizard's copy and destination.
#   ansible.sh ZUNWIZ-RUN ZUNWIZ-CHECK
# Status 77 (skipped) when ansible-playbook is not installed, outside CI.
set -euo pipefail
run=$(realpath "$1"); chk=$(realpath "$2")
here=$(cd "$(dirname "$0")" && pwd)
mod=$(cd "$here/../../packaging/ansible" && pwd)
if ! command -v ansible-playbook >/dev/null; then
  echo "ansible-playbook is not installed (scripts/deps.sh installs ansible-core)" >&2
  [ -n "${CI:-}" ] && exit 1
  exit 77
fi
caso=$(mktemp -d "${TMPDIR:-/tmp}/zw-ansible.XXXXXX")
trap 'rm -rf "$caso"' EXIT
export HOME=$caso/home TMPDIR=$caso/tmp
export ANSIBLE_LOCAL_TEMP=$caso/ansible-local ANSIBLE_REMOTE_TEMP=$caso/ansible-remote
export ANSIBLE_LIBRARY=$mod ANSIBLE_PYTHON_INTERPRETER=/usr/bin/python3
export ANSIBLE_NOCOLOR=1 ANSIBLE_RETRY_FILES_ENABLED=0
# No ansible.cfg of the machine or of a folder above is read: an empty one of its own.
export ANSIBLE_CONFIG=$caso/ansible.cfg
export XDG_CONFIG_HOME=$caso/home/.config XDG_DATA_HOME=$caso/home/.local/share
export XDG_RUNTIME_DIR=$caso/run ZUNWIZ_REGISTRY=$caso/registo
mkdir -p "$HOME" "$TMPDIR" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
cd "$caso"
: > ansible.cfg

# The module's documentation is valid YAML that ansible-doc can show.
doc=$(ansible-doc -M "$mod" zunwiz)
grep -q -- '= wizard' <<<"$doc"
/usr/bin/python3 -m unittest discover -s "$here" -p 'test_*.py' 2>&1

ansible-playbook -i localhost, -c local "$here/modulo.yml" \
  -e "caso=$caso zunwiz_run=$run zunwiz_check=$chk zunwiz_pasta=$caso/demo"
