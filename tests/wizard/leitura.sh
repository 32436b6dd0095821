#!/usr/bin/env bash
# What the tools read, and the limits of a wizard's work, seen from outside: pipes,
# devices and folders where a picture, a rich-text file, the answers or a script
# should be are refused at once with their reason; a text too long for a control is
# cut, and a variable that doubles at every calculation pass is stopped, each told.
# Every command runs under timeout, so a read that waits for ever fails here.
# Usage: leitura.sh run ZUNWIZ-RUN | vbs VBS | check ZUNWIZ-CHECK
set -u
parte=$1
prog=$2
d=$(mktemp -d /tmp/zwlerXXXXXX)
trap 'rm -rf "$d"' EXIT
falhas=0
falha() { echo "FAIL: $*"; falhas=$((falhas + 1)); }

# Runs a command with a limit of 20 s; its status in $st, its output in $d/out and $d/err.
corre() {
  timeout 20 "$@" >"$d/out" 2>"$d/err"
  st=$?
  [ $st -eq 124 ] && falha "$* did not end"
}
tem() { grep -qF -- "$2" "$d/$1" || { falha "no line \"$2\" in $1:"; sed 's/^/    /' "$d/$1" | cut -c1-200 | head -20; }; }

mkfifo "$d/fundo.bmp" "$d/texto.rtf" "$d/respostas"

# A wizard of 30 pages: a picture, an icon and a rich-text file that are no files, a
# label with a text too long, and a variable that doubles at every pass.
{
  printf "'Nome : L\r\n'Tipo : PAR\r\n'Data :\r\n'Versao :\r\n'Descricao :\r\n"
  printf "#DEF - D\r\n[DimX]=500\r\n[DimY]=380\r\n[ImgFun]=%s\r\n[ImgIco]=/dev/zero\r\n[MsgCan]=Sair?\r\n##\r\n" "$d/fundo.bmp"
  printf "#VAR - V\r\n[S]=S & S & \"ab\"\r\n##\r\n"
  for i in $(seq 1 30); do printf "#PAG - P\r\n[IDE]=P%s\r\n##\r\n" "$i"; done
  printf "#CMP - a\r\n[Tip]=LAB\r\n[Ide]=La\r\n[Txt]=%s\r\n##\r\n" "$(head -c 70000 /dev/zero | tr '\0' a)"
  printf "#CMP - r\r\n[Tip]=RTF\r\n[Ide]=Rt\r\n[Txt]=[%s]\r\n##\r\n" "$d/texto.rtf"
} >"$d/l.par"
printf "CLOSE\n" >"$d/l.ans"

case $parte in
run)
  corre "$prog" --answers "$d/l.ans" -FP "$d/l.par"
  [ $st -eq 0 ] || falha "the wizard ended with status $st"
  tem out "refused picture $d/fundo.bmp (not a regular file)"
  tem out "refused icon /dev/zero (not a regular file)"
  tem out "refused rich text $d/texto.rtf (not a regular file)"
  tem out 'cut text of component "La" (line '
  tem out 'script 14 "Out of string space" line 0 "ExeCmd ""S=S & S & ""ab"""""'
  tem out "end unload"

  # Answers that are no file end the run at once, with the reason.
  for f in "$d/respostas" /dev/zero "$d"; do
    corre "$prog" --answers "$f" -FP "$d/l.par"
    [ $st -eq 1 ] || falha "answers $f: status $st, expected 1"
    tem err "cannot read the answers file $f (not a regular file)"
  done
  # Standard input that never ends a line is no answer (status 3), not a read for ever.
  timeout 20 "$prog" -FP "$d/l.par" </dev/zero >"$d/out" 2>"$d/err"
  st=$?
  [ $st -eq 3 ] || falha "answers from /dev/zero: status $st, expected 3"
  tem err "a line longer than 1048576 bytes is no answer"
  ;;
vbs)
  for f in "$d" /dev/zero "$d/respostas"; do
    corre "$prog" "$f"
    [ $st -eq 2 ] || falha "vbs $f: status $st, expected 2"
    tem err "vbs: cannot read $f (not a regular file)"
  done
  # Standard input that never ends is read up to a limit, then 14.
  printf 'a = WScript.StdIn.ReadAll\n' >"$d/tudo.vbs"
  printf 'a = WScript.StdIn.ReadLine\n' >"$d/linha.vbs"
  for f in tudo linha; do
    timeout 20 "$prog" "$d/$f.vbs" </dev/zero >"$d/out" 2>"$d/err"
    st=$?
    [ $st -eq 1 ] || falha "StdIn of /dev/zero ($f): status $st, expected 1"
    tem err "runtime error 14: Out of string space"
  done
  printf 'WScript.Echo "ok"\n' >"$d/ok.vbs"
  corre "$prog" "$d/ok.vbs"
  [ $st -eq 0 ] || falha "vbs of a script: status $st"
  tem out "ok"
  ;;
check)
  corre "$prog" "$d/l.par"
  tem out "picture \"$d/fundo.bmp\" of \"ImgFun\" cannot be read (not a regular file)"
  tem out "picture \"/dev/zero\" of \"ImgIco\" cannot be read (not a regular file)"
  tem out "rich-text file \"$d/texto.rtf\" cannot be read (not a regular file)"
  tem out "the calculation of S after group"
  ;;
esac

[ $falhas -eq 0 ] && echo "ok ($parte)"
exit $((falhas > 0))
