#!/usr/bin/env bash
# zunwiz-opc when the disk, the permissions or the input are not what it hoped:
# a failed set leaves the file byte for byte as it was, with no temporary file and
# a non-zero status; a set keeps mode, owner and links; what is not a regular file
# is refused at once. Usage: opc-faults.sh ZUNWIZ-OPC (user|root)
# The root part needs a tmpfs mount, mknod and chown; without them it exits 77
# (skipped) and says why.
set -u
opc=$1
parte=${2:-user}
d=$(mktemp -d /tmp/zwopcfXXXXXX)
montado=
fim() {
  [ -n "$montado" ] && umount "$montado"
  rm -rf "$d"
}
trap fim EXIT
falhas=0
falha() { echo "FAIL: $*"; falhas=$((falhas + 1)); }

# An option file of about n bytes, with a variable V.
par() {
  printf "'Nome : T\r\n'Tipo : par\r\n'Data :\r\n'Versao :\r\n'Descricao :\r\n#DEF:IDE - D\r\nV [V]=1\r\n" >"$1"
  head -c "$2" /dev/zero | tr '\0' 'x' | fold -w 70 | sed 's/^/R [R]=/; s/$/\r/' >>"$1"
  printf "##\r\n" >>"$1"
}

# A set that must fail: non-zero status, a message, the file unchanged, nothing left.
falha_set() {
  local f=$1 nome
  nome=$(basename "$f")
  cp -p "$f" "$d/antes"
  shift
  if "$@" >"$d/out" 2>"$d/err"; then falha "set on $nome ended with status 0"; fi
  [ -s "$d/err" ] || falha "set on $nome said nothing"
  cmp -s "$f" "$d/antes" || falha "set on $nome changed the file"
  if ls -A "$(dirname "$f")" | grep -q '\.zw-'; then falha "set on $nome left a temporary file"; fi
  rm -f "$d/antes"
}

# A command on what is not a readable file must end at once with a message.
recusa() {
  local st
  timeout 5 "$opc" "$@" >/dev/null 2>"$d/err"
  st=$?
  [ $st -eq 124 ] && falha "$* did not end"
  [ $st -eq 0 ] && falha "$* ended with status 0"
  [ -s "$d/err" ] || falha "$* said nothing"
}

if [ "$parte" = user ]; then
  # A file-size limit below the new file's size.
  par "$d/lim.par" 300
  falha_set "$d/lim.par" bash -c "ulimit -f 1; exec '$opc' set '$d/lim.par' V $(head -c 2000 /dev/zero | tr '\0' y)"

  # Mode, a symbolic link and a hard link survive a set.
  par "$d/m.par" 100
  chmod 600 "$d/m.par"
  ln -s m.par "$d/s.par"
  ln "$d/m.par" "$d/h.par"
  "$opc" set "$d/s.par" V 2 || falha "set through a link"
  [ -L "$d/s.par" ] || falha "the symbolic link was replaced"
  [ "$(stat -c %i "$d/m.par")" = "$(stat -c %i "$d/h.par")" ] || falha "the hard link was broken"
  [ "$(stat -c %a "$d/m.par")" = 600 ] || falha "the mode changed"
  grep -q 'V \[V\]=2' "$d/h.par" || falha "the value was not written"

  # Invalid UTF-8 in a file with a mark stays in the lines not set.
  printf "\xef\xbb\xbf'Nome : T\r\n'Tipo\r\n'D\r\n'V\r\n'D\r\n#DEF:IDE - D\r\nA [A]=\xff\xfe\r\nV [V]=1\r\n##\r\n" >"$d/u.par"
  "$opc" set "$d/u.par" V 2 || falha "set on a file with invalid bytes"
  printf "\xef\xbb\xbf'Nome : T\r\n'Tipo\r\n'D\r\n'V\r\n'D\r\n#DEF:IDE - D\r\nA [A]=\xff\xfe\r\nV [V]=2\r\n##\r\n" >"$d/u.esp"
  cmp -s "$d/u.par" "$d/u.esp" || falha "the bytes of an untouched line changed"

  # A read-only file and a missing one.
  par "$d/ro.par" 100
  chmod 444 "$d/ro.par"
  [ "$(id -u)" = 0 ] || falha_set "$d/ro.par" "$opc" set "$d/ro.par" V 2
  falha_set "$d/lim.par" "$opc" set "$d/nao/existe.par" V 2

  # What is not a regular file, and a file larger than any option file.
  mkfifo "$d/fifo"
  truncate -s 65M "$d/grande.par"
  for f in /dev/zero "$d/fifo" "$d/grande.par" "$d"; do
    recusa dump "$f"
    recusa get "$f" V
    recusa set "$f" V 1
  done
  [ -p "$d/fifo" ] || falha "the FIFO was replaced"
else
  if [ "$(id -u)" != 0 ]; then
    echo "skipped: the tmpfs, mknod and chown cases need root"
    exit 77
  fi
  mkdir "$d/t"
  if ! mount -t tmpfs -o size=8k tmpfs "$d/t" 2>"$d/err"; then
    echo "skipped: tmpfs cannot be mounted here: $(cat "$d/err")"
    exit 77
  fi
  montado="$d/t"
  # Two pages: the old file takes one, the new one would need two.
  par "$d/t/cheio.par" 3000
  falha_set "$d/t/cheio.par" "$opc" set "$d/t/cheio.par" V "$(head -c 3000 /dev/zero | tr '\0' y)"

  par "$d/o.par" 100
  chown 1234:5678 "$d/o.par"
  "$opc" set "$d/o.par" V 2 || falha "set on a file of another user"
  [ "$(stat -c %u:%g "$d/o.par")" = 1234:5678 ] || falha "owner or group changed"

  mknod "$d/nulo" c 1 3  # a copy of /dev/null, never the real one
  recusa set "$d/nulo" V 1
  [ -c "$d/nulo" ] || falha "the device node was replaced"
fi

[ $falhas -eq 0 ] && echo "ok ($parte)"
exit $((falhas > 0))
