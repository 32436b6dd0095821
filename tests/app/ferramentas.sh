#!/bin/bash
# The tools' own exits: --help and --version on zunwiz, zunwiz-run, zunwiz-opc,
# vbs, zunwiz-check and zunwiz-undo; zunwiz-run's statuses for a trace or shots that cannot be written and for a
# command line it does not take; at a terminal, its "help" and "?" and the prompts
# that name a box's buttons and an input box's default.
#   ferramentas.sh ZUNWIZ-RUN ZUNWIZ ZUNWIZ-OPC VBS CASES-DIR ZUNWIZ-CHECK ZUNWIZ-UNDO
set -u
run=$1 zunwiz=$2 opc=$3 vbs=$4 casos=$5 chk=$6 undo=$7
falhas=0
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

# espera NOME STATUS-ESPERADO STATUS-OBTIDO
espera() {
  if [ "$2" != "$3" ]; then
    echo "FAIL $1: status $3, expected $2"
    falhas=$((falhas + 1))
  fi
}
# contem NOME TEXTO PADRAO: the text holds the pattern (grep -E)
contem() {
  if ! grep -qE -- "$3" <<<"$2"; then
    echo "FAIL $1: no \"$3\" in:"
    echo "$2" | sed 's/^/    /'
    falhas=$((falhas + 1))
  fi
}

for t in "$run" "$zunwiz" "$opc" "$vbs" "$chk" "$undo"; do
  n=$(basename "$t")
  out=$("$t" --help </dev/null 2>&1); espera "$n --help" 0 $?
  contem "$n --help" "$out" '^usage: '
  out=$("$t" --version </dev/null 2>&1); espera "$n --version" 0 $?
  contem "$n --version" "$out" "^$n [0-9]+\.[0-9]+"
done
out=$("$run" --help); contem "zunwiz-run --help" "$out" 'BOX R, INPUT text'
contem "zunwiz-run --help" "$out" '5 the wizard could not be built'
contem "zunwiz --help" "$("$zunwiz" --help)" '8 the install failed'
contem "zunwiz-check --help" "$("$chk" --help)" 'Checking runs nothing'
for t in "$run" "$zunwiz"; do
  contem "$(basename "$t") --help" "$("$t" --help)" '--record FILE'
  contem "$(basename "$t") --help" "$("$t" --help)" '--keep-replaced DIR'
done
contem "zunwiz-undo --help" "$("$undo" --help)" '--dry-run'
contem "zunwiz-undo --help" "$("$undo" --help)" '2 the command line does not fit'
"$undo" --dry-run >/dev/null 2>&1; espera "zunwiz-undo --dry-run alone" 2 $?
"$zunwiz" --record >/dev/null 2>&1; espera "zunwiz --record alone" 1 $?

# A trace that cannot be written, a shots folder that is a file, a bad time limit.
par="$casos/caixa.par"
printf 'BOX 1\nCAN\n' >"$tmp/ans"
out=$("$run" --answers "$tmp/ans" --trace /dev/full -FP "$par" 2>&1); espera "--trace /dev/full" 7 $?
contem "--trace /dev/full" "$out" 'cannot write the trace'
out=$("$run" --answers "$tmp/ans" --trace /nonexistent/dir/t -FP "$par" 2>&1); espera "--trace in no folder" 7 $?
touch "$tmp/ficheiro"
out=$("$run" --answers "$tmp/ans" --trace "$tmp/t" --shots "$tmp/ficheiro" -FP "$par" 2>&1); espera "--shots FILE" 7 $?
contem "--shots FILE" "$out" 'shots folder'
out=$("$run" --answers "$tmp/ans" --trace "$tmp/t" --shots "$tmp/fotos" -FP "$par" 2>&1); espera "--shots DIR" 0 $?
"$run" --timeout dois --answers "$tmp/ans" -FP "$par" >/dev/null 2>&1; espera "--timeout dois" 1 $?

# At a terminal (a pseudo-terminal made by script(1)): help lists the buttons of the
# box in view with their BOX words, then the answers of the page; an input box's
# prompt shows its default.
if command -v script >/dev/null; then
  out=$(printf 'help\nBOX 0\n?\nCAN\n' | timeout 30 script -qec "$run -FP $par" /dev/null | tr -d '\r')
  contem "terminal box" "$out" 'box "Pergunta" "Continuar\?" \[BOX 1 Yes \(default\), BOX 0 No\]'
  contem "terminal box help" "$out" 'answers here: BOX 1 Yes \(default\), BOX 0 No'
  contem "terminal box answer" "$out" 'box 36 "Pergunta" "Continuar\?" -> 7'
  contem "terminal page help" "$out" 'CAN  clicks'
  contem "terminal end" "$out" 'end unload'
  out=$(printf 'help\nCHECK ckaceito 1\nOPTION optipo 2\nSEG\nBOX 0\n?\nINPUT x\nCAN\n' |
    timeout 30 script -qec "$run -FP $casos/run-answers.par" /dev/null | tr -d '\r')
  contem "terminal page help" "$out" 'CHECK ckAceito 0\|1'
  contem "terminal page help" "$out" 'OPTION OpTipo 1\.\.2'
  contem "terminal input" "$out" 'input "Destino" "Pasta\?" default "/opt/x"'
  contem "terminal input help" "$out" 'INPUT text'
  contem "terminal input answer" "$out" 'input "Destino" "Pasta\?" -> "x"'
  # A name is listed once, as its first component is spelt; a check box whose name
  # a label took first cannot be reached by an answer, so it is not listed.
  out=$(printf 'help\nCLOSE\n' | timeout 30 script -qec "$run -FP $casos/primeiro.par" /dev/null | tr -d '\r' |
    grep -E '^  (CHECK|OPTION) ' | tr '\n' ';')
  contem "terminal help by first name" "$out" '^  CHECK Aceito 0\|1;  OPTION Tipo 1\.\.2;$'
else
  echo "no script(1): the terminal part is left out"
fi

[ "$falhas" = 0 ] && echo "all passed"
exit $((falhas > 0))
