#!/usr/bin/env bash
# Prints the table of docs/performance.md: this program against a yardstick, as medians of side-by-side pairs.
#
#   benchmarks/compare.sh PATH-TO-limit.cpp [PAIRS]     PAIRS is 15 unless given
#
# Builds what it needs under build/, and writes its files (about 1.5 GB) to a temporary folder.
set -euo pipefail

raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
regua=${1:?usage: benchmarks/compare.sh PATH-TO-limit.cpp [PAIRS]}
pares=${2:-15}
pasta=$(mktemp -d)
trap 'rm -rf "$pasta"' EXIT

obra=$raiz/build/benchmarks
configurar() { cmake --preset release -S "$raiz" -B "$obra" -DQUILATADOR_BENCHMARKS=ON -DQUILATADOR_TESTS=OFF "$@"; }
com_janela=1
if ! configurar -DQUILATADOR_WINDOW=ON >"$pasta/cmake.txt" 2>&1; then
    com_janela=0 # without Qt its row is left out
    configurar -DQUILATADOR_WINDOW=OFF >"$pasta/cmake.txt"
fi
cmake --build "$obra" >>"$pasta/cmake.txt"
bin=$obra/bin
g++ -std=c++17 -O3 -march=x86-64-v2 -o "$pasta/limit" "$regua"

cd "$pasta"
"$bin/gerarRemessa" --registros 999999 grande.rem >/dev/null
"$bin/gerarRemessa" --registros 10000 pequena.rem >/dev/null
"$bin/gerarRemessa" --registros 100000 media.rem >/dev/null
"$bin/gerarRemessa" --tipo ZUL708 --registros 999999 impressao.ret >/dev/null
"$bin/gerarRemessa" --tipo TAV001 --registros 1000000 liquidacao.ret >/dev/null
# An accented letter in a blank place of every record.
LC_ALL=C sed 's/^\(.\{228\}\)./\1\xC9/' grande.rem >acentos.rem
"$bin/quilatador-cli" -q --log relatorio.log liquidacao.ret
bytes=$(stat -c %s relatorio.log)

cli="$bin/quilatador-cli -q"
linha() { # what, goal, command A, command B
    printf '| %s | %s | %s |\n' "$1" "$2" "$("$bin/emTurnos" "$pares" "$3" "$4")"
}
echo "| what | goal | wall | processor | peak MiB | other's peak MiB |"
echo "|---|---|---|---|---|---|"
linha "validation of 999,999 records / limit validate" 2.5 "$cli --log a.log grande.rem" "./limit validate grande.rem b.log 2>/dev/null"
linha "the same / cat f f \| wc -c" 0.75 "$cli --log a.log grande.rem" "sh -c 'cat grande.rem grande.rem | wc -c' >/dev/null"
linha "a special character in every record / fault-free" 3.0 "$cli --log a.log acentos.rem" "$cli --log b.log grande.rem"
linha "settlement report of 1,000,000 payments / limit raw" 2.0 "sh -c 'rm -f a.log; exec $cli --log a.log liquidacao.ret'" "sh -c 'rm -f b.log; exec ./limit raw $bytes b.log'"
linha "print return of 999,999 records / limit validate" 2.5 "$cli --log a.log impressao.ret" "./limit validate impressao.ret b.log 2>/dev/null"
linha "validation of 10,000 records / limit validate" 3 "$cli --log a.log pequena.rem" "./limit validate pequena.rem b.log 2>/dev/null"
if ((com_janela)); then
    printf '| %s | %s | %s |\n' "the open window (offscreen) / the command line, 999,999 records" 1.10 \
        "$(QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='default.warning=false' "$bin/janela" "$pares" grande.rem)"
fi
linha "memory: 999,999 records / 10,000 records" "+0.5 MiB" "$cli --log a.log grande.rem" "$cli --log b.log pequena.rem"

if command -v valgrind >/dev/null; then
    instrucoes() { valgrind --tool=callgrind --callgrind-out-file=/dev/null $cli --log a.log "$1" 2>&1 | sed -n 's/.*refs: *//p' | tr -d ,; }
    grande=$(instrucoes grande.rem)
    media=$(instrucoes media.rem)
    echo
    echo "Instructions: $grande for 999,999 records, $media for 100,000: a ratio of $((grande * 100 / media))/100."
fi
