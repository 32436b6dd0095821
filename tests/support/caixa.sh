#!/usr/bin/env bash
# Runs a command as root in a throwaway copy of this machine: a private mount
# namespace where "/" is an overlay whose writes land in a tmpfs, with fresh
# tmpfs on /tmp and /dev/shm, and /dev, /proc and /sys read-only. The command
# may create, replace and delete anything, in /, /etc and /tmp included; none
# of it reaches the machine's own folders, and all of it goes when it ends.
# ZW_CAIXA=1 tells the tests inside that they may.
# Usage: caixa.sh COMMAND [ARGS...]. Exits 77 (skipped) where the box cannot be
# built (not root, no unshare, no overlay), with the reason on standard error.
set -u
if [ "$(id -u)" != 0 ]; then echo "caixa: needs root" >&2; exit 77; fi
command -v unshare >/dev/null || { echo "caixa: no unshare" >&2; exit 77; }
# The inner part runs in the new namespace; it gets the command as "$@".
interior='
set -e
mount --make-rprivate /
d=$(mktemp -d /dev/shm/zwcaixaXXXXXX 2>/dev/null || mktemp -d)
mount -t tmpfs -o mode=0755 caixa "$d"
mkdir "$d/sup" "$d/trab" "$d/raiz"
if ! mount -t overlay overlay -o "lowerdir=/,upperdir=$d/sup,workdir=$d/trab" "$d/raiz" 2>/dev/null; then
  echo "caixa: no overlay file system here" >&2; exit 77
fi
# The folders of the kernel are seen read-only: nothing that runs in the box can make,
# delete or rename an entry of /dev, /proc or /sys (device nodes still take
# reads and writes, as /dev/null and /dev/full must); shared memory is private.
for m in proc sys dev; do
  mount --rbind "/$m" "$d/raiz/$m"
  mount -o remount,bind,ro "$d/raiz/$m"
done
mount -t tmpfs -o mode=1777 shm "$d/raiz/dev/shm"
mount -t tmpfs -o mode=1777 tmp "$d/raiz/tmp"
cwd=$(pwd)
export ZW_CAIXA=1 TMPDIR=/tmp
exec chroot "$d/raiz" /bin/sh -c "cd \"\$0\" 2>/dev/null || cd /; exec \"\$@\"" "$cwd" "$@"
'
exec unshare -m /bin/bash -c "$interior" caixa "$@"
