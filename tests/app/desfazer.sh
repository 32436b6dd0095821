#!/bin/bash
# The install record and its undo, end to end, on the Notas example: an install
# run with --record whose lines match the files it left (size, hash, mode), a dry
# run that changes nothing, an undo that finds the machine as before (files,
# folders, modes, registry) and lists only the programs it cannot take back; a
# file the user changed after the install is kept and listed (status 1); a run
# killed half-way is undone as far as its record goes. With "raiz" it runs as root
# in the throwaway copy of the machine and installs for everybody.
#   desfazer.sh ZUNWIZ-RUN ZUNWIZ-UNDO NOTAS-DIR [raiz]
set -u
run=$1 undo=$2 notas=$3 modo=${4:-}
falhas=0
tmp=$(mktemp -d)
trap '[ -n "${ZW_GUARDA:-}" ] || rm -rf "$tmp"' EXIT
falha() {
  echo "FAIL $*"
  falhas=$((falhas + 1))
}
export QT_QPA_PLATFORM=offscreen
caso=$tmp/caso
mkdir "$caso"
export HOME=$caso XDG_CONFIG_HOME=$caso/.config XDG_DATA_HOME=$caso/.local/share
if [ "$modo" = raiz ]; then
  if [ "$(id -u)" != 0 ] || [ "${ZW_CAIXA:-}" != 1 ]; then
    echo "runs as root in the box (ctest -R caixa_undo)"
    exit 77
  fi
  ans=$notas/notas-raiz.ans
  areas=("$caso" /usr/local /usr/share/applications /etc/skel /etc/zunwiz)
  conf=/usr/local/share/notas/notas.conf
else
  export ZUNWIZ_REGISTRY=$caso/registo NOTAS_PARA=utilizador
  ans=$notas/notas.ans
  areas=("$caso")
  conf=$caso/.config/notas/notas.conf
fi

# Every entry of the areas with its kind, mode and owner, a file's size and time
# too, and the hash of every file of the run's own folder (the system's folders
# are too large to hash each time).
retrato() {
  for d in "${areas[@]}"; do
    [ -e "$d" ] || continue
    find "$d" -type d -printf '%p %y %m %U\n' -o -printf '%p %y %m %U %s %T@ %l\n'
  done | sort
  find "$caso" -type f -exec sha256sum {} + | sort
}
# A member of a record's line: campo LINE NAME (the texts written here hold no quote).
campo() { sed -n "s/.*\"$2\":\"\\{0,1\\}\\([^\",}]*\\).*/\\1/p" <<<"$1"; }

instala() {  # instala RECORD
  exec_=${exec_:-}
  $exec_ "$run" --record "$1" --keep-replaced "$tmp/guarda" --answers "$ans" --trace "$tmp/trace" -FP "$notas/notas.par"
}

# The record against the file system: the last size, hash and mode of each file
# line, and every folder made.
confere() {
  declare -A tam sha md
  while IFS= read -r l; do
    op=$(campo "$l" op)
    case $op in
      file-created | file-replaced | launcher-written)
        [[ $l == *'"registry":true'* ]] && continue
        p=$(campo "$l" path)
        tam[$p]=$(campo "$l" size) sha[$p]=$(campo "$l" sha256) md[$p]=$(campo "$l" mode)
        ;;
      folder-created) [ -d "$(campo "$l" path)" ] || falha "folder $(campo "$l" path) of the record is not there" ;;
    esac
  done <"$1"
  [ ${#sha[@]} -ge 5 ] || falha "only ${#sha[@]} files in the record"
  for p in "${!sha[@]}"; do
    if [ ! -f "$p" ]; then
      falha "file $p of the record is not there"
      continue
    fi
    [ "$(stat -c %s "$p")" = "${tam[$p]}" ] || falha "$p: size $(stat -c %s "$p"), recorded ${tam[$p]}"
    [ "$(sha256sum "$p" | cut -d' ' -f1)" = "${sha[$p]}" ] || falha "$p: hash differs from the record"
    [ "$(stat -c %04a "$p")" = "${md[$p]}" ] || falha "$p: mode $(stat -c %04a "$p"), recorded ${md[$p]}"
  done
}

# Undo's lines other than what it did: only the programs run, which no undo takes back.
so_programas() {
  grep -v '^removed \|^restored \|^moved \|^set \|^made ' <<<"$1" | grep -v '^not undone: program desktop-file-validate ' |
    grep . && falha "$2: undo said more than the programs"
}

antes=$(retrato)

# 1. An install with its record, checked, a dry run, then the undo.
instala "$tmp/r1"
st=$?
[ $st = 0 ] || falha "install: status $st"
tail -n1 "$tmp/r1" | grep -q '^{"op":"end","status":0}$' || falha "install: no end line with status 0"
head -n1 "$tmp/r1" | grep -q "^{\"op\":\"begin\",\"version\":1,\"wizard\":\"$notas/notas.par\"" || falha "install: begin line"
confere "$tmp/r1"
grep -q '"op":"reg-set","key":"HKEY_CURRENT_USER\\\\Software\\\\Zun\\\\Notas","name":"Pasta"' "$tmp/r1" ||
  falha "install: no reg-set line"
depois=$(retrato)
out=$("$undo" --dry-run "$tmp/r1" 2>/dev/null)
st=$?
[ $st = 1 ] || falha "dry run: status $st, expected 1 (programs cannot be undone)"
grep -q "^would remove file $conf$" <<<"$out" || falha "dry run: no \"would remove file $conf\""
[ "$(retrato)" = "$depois" ] || falha "the dry run changed something"
out=$("$undo" "$tmp/r1" 2>/dev/null)
st=$?
[ $st = 1 ] || falha "undo: status $st"
so_programas "$out" undo
[ "$(retrato)" = "$antes" ] || {
  falha "undo: the machine is not as before"
  diff <(echo "$antes") <(retrato) | head -20
}

# 2. A file the user changed after the install is kept and listed; once it is
# gone, the undo takes the rest back.
instala "$tmp/r2" || falha "second install: status $?"
echo "titulo=meu" >>"$conf"
mudado=$(sha256sum "$conf")
out=$("$undo" "$tmp/r2" 2>&1)
st=$?
[ $st = 1 ] || falha "undo of a changed file: status $st"
grep -qx "kept file $conf: changed since the install" <<<"$out" || falha "undo: the changed file is not listed"
grep -q "^kept folder $(dirname "$conf"): not empty$" <<<"$out" || falha "undo: its folder is not kept"
[ "$(sha256sum "$conf")" = "$mudado" ] || falha "undo: the changed file was touched"
rm "$conf"
out=$("$undo" "$tmp/r2" 2>/dev/null)
[ $? = 1 ] || falha "undo after the changed file went: status"
so_programas "$out" "second undo"
[ "$(retrato)" = "$antes" ] || falha "second undo: the machine is not as before"

# 3. A run killed half-way: the launcher's check hangs (a desktop-file-validate of
# ours that sleeps), the run is killed with SIGKILL; the record has whole lines
# and no end, and its undo takes back what it holds.
mkdir "$tmp/bin"
printf '#!/bin/sh\nexec sleep 60\n' >"$tmp/bin/desktop-file-validate"
chmod +x "$tmp/bin/desktop-file-validate"
(PATH=$tmp/bin:$PATH exec_=exec instala "$tmp/r3") &
pid=$!
for _ in $(seq 100); do
  grep -q '"op":"program-run"' "$tmp/r3" 2>/dev/null && break
  sleep 0.2
done
kill -9 $pid
wait $pid 2>/dev/null
dorme=$(campo "$(grep '"op":"program-run"' "$tmp/r3")" pid)
[ -n "$dorme" ] && kill "$dorme" 2>/dev/null
grep -q '"op":"end"' "$tmp/r3" && falha "killed run: an end line"
grep -q '"op":"launcher-written"' "$tmp/r3" || falha "killed run: the launcher before the program is not recorded"
[ "$(retrato)" != "$antes" ] || falha "killed run: nothing was installed"
out=$("$undo" "$tmp/r3" 2>&1)
st=$?
[ $st = 1 ] || falha "undo of the killed run: status $st: $out"
grep -q '^removed file .*/notas.svg$' <<<"$out" || falha "undo of the killed run: the copied files"
[ "$(retrato)" = "$antes" ] || {
  falha "undo of the killed run: the machine is not as before"
  diff <(echo "$antes") <(retrato) | head -20
}

# 4. Bad command lines and records.
"$undo" >/dev/null 2>&1
[ $? = 2 ] || falha "undo without a record: status"
"$undo" "$tmp/nenhum" >/dev/null 2>&1
[ $? = 2 ] || falha "undo of a missing record: status"
"$run" --keep-replaced "$tmp/g" -FP "$notas/notas.par" </dev/null >/dev/null 2>&1
[ $? = 1 ] || falha "--keep-replaced without --record: status"
"$run" --record "$caso" --answers "$ans" -FP "$notas/notas.par" >/dev/null 2>&1
[ $? = 7 ] || falha "a record that is a folder: status"

[ "$falhas" = 0 ] && echo "all passed"
exit $((falhas > 0))
