#!/usr/bin/env bash
# Measures this program against a yardstick or against another build of itself. The two sides run in turn, in pairs,
# and the result is the median of all pairs.
#
#   benchmarks/compare.sh [PARES]                   prints the table of docs/performance.md (yardstick: regua.cpp)
#   benchmarks/compare.sh --com OUTRO_BIN [PARES]   prints the time of this build divided by that of the other
#
# PARES is the number of pairs, by default 15. OUTRO_BIN is the folder that has the other build's quilatador-cli, its
# layout description and its code tables. The script builds what it needs under build/ and writes its files (about
# 1.5 GB) to a temporary folder.
set -euo pipefail

raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
outro=
if [[ ${1:-} == --com ]]; then
    outro=$(cd "${2:?Uso: benchmarks/compare.sh [--com OUTRO_BIN] [PARES]}" && pwd)
    [[ -x $outro/quilatador-cli ]] || { echo "compare.sh: não há quilatador-cli em $outro" >&2; exit 2; }
    shift 2
fi
pares=${1:-15}
[[ $pares =~ ^[1-9][0-9]*$ ]] || { echo "Uso: benchmarks/compare.sh [--com OUTRO_BIN] [PARES]" >&2; exit 2; }
pasta=$(mktemp -d)
trap 'rm -rf "$pasta"' EXIT

obra=$raiz/build/benchmarks
configurar() { cmake --preset release -S "$raiz" -B "$obra" -DQUILATADOR_BENCHMARKS=ON -DQUILATADOR_TESTS=OFF "$@"; }
com_janela=1
if ! configurar -DQUILATADOR_WINDOW=ON >"$pasta/cmake.txt" 2>&1; then
    com_janela=0 # without Qt its row is left out
    configurar -DQUILATADOR_WINDOW=OFF >"$pasta/cmake.txt"
fi
cmake --build "$obra" >>"$pasta/cmake.txt" || { cat "$pasta/cmake.txt" >&2; exit 2; }
bin=$obra/bin

cd "$pasta"
"$bin/gerarRemessa" --registros 999999 grande.rem >/dev/null
"$bin/gerarRemessa" --registros 10000 pequena.rem >/dev/null
"$bin/gerarRemessa" --tipo ZUL708 --registros 999999 impressao.ret >/dev/null
"$bin/gerarRemessa" --tipo TAV001 --registros 1000000 liquidacao.ret >/dev/null
# Each record gets an accented letter in a blank place, and so a finding.
LC_ALL=C sed 's/^\(.\{228\}\)./\1\xC9/' grande.rem >acentos.rem
# Each slip gets a fault, in turn a letter in the barcode, another total, an issue date with letters and no name.
LC_ALL=C awk '
    function por(posicao, texto) { $0 = substr($0, 1, posicao - 1) texto substr($0, posicao + length(texto)) }
    /^S/ { caso = guias++ % 4; parcelas = 0 }
    /^Y/ && caso == 0 && parcelas++ == 0 { por(41, "A") }
    /^S/ && caso == 1 { por(43, "000000000012345") }
    /^S/ && caso == 2 { por(31, "AB") }
    /^T/ && caso == 3 { por(29, sprintf("%50s", "")) }
    { print }' grande.rem >falhas.rem

em_turnos() { "$bin/emTurnos" "$pares" "$1" "$2"; }
analise() { echo "$1/quilatador-cli -q --log $2.log $3"; } # folder of the program, name of the log, input
completa() { echo "$(analise "$1" "$2" "$3") --completa"; }
sem_log_antigo() { echo "sh -c 'rm -f $1.log; exec $2'"; } # otherwise replacing the old log would cost time

com_outro() {
    linha() { # what, input
        printf '| %s | %s |\n' "$1" "$(em_turnos "$(sem_log_antigo a "$(analise "$bin" a "$2")")" \
            "$(sem_log_antigo b "$(analise "$outro" b "$2")")")"
    }
    echo "| what, this / other | wall | processor | peak MiB | other's peak MiB |"
    echo "|---|---|---|---|---|"
    linha "validation of 999,999 records" grande.rem
    linha "a special character in every record" acentos.rem
    linha "settlement report of 1,000,000 payments" liquidacao.ret
    linha "print return of 999,999 records" impressao.ret
    linha "validation of 10,000 records" pequena.rem
}

com_a_regua() {
    local bytes
    "$bin/gerarRemessa" --registros 100000 media.rem >/dev/null
    "$bin/quilatador-cli" -q --log relatorio.log liquidacao.ret
    bytes=$(stat -c %s relatorio.log)
    linha() { # what, goal, command A, command B
        printf '| %s | %s | %s |\n' "$1" "$2" "$(em_turnos "$3" "$4")"
    }
    contra_a_regua() { # what, goal, input
        linha "$1 / yardstick" "$2" "$(analise "$bin" a "$3")" "$bin/regua conferir $3 b.log 2>/dev/null"
    }
    echo "| what | goal | wall | processor | peak MiB | other's peak MiB |"
    echo "|---|---|---|---|---|---|"
    contra_a_regua "validation of 999,999 records" 2.5 grande.rem
    linha "the same / cat f f \| wc -c" 0.75 "$(analise "$bin" a grande.rem)" \
        "sh -c 'cat grande.rem grande.rem | wc -c' >/dev/null"
    linha "a special character in every record / fault-free" 3.0 "$(analise "$bin" a acentos.rem)" \
        "$(analise "$bin" b grande.rem)"
    linha "settlement report of 1,000,000 payments / as many bytes from memory" 2.0 \
        "$(sem_log_antigo a "$(analise "$bin" a liquidacao.ret)")" \
        "$(sem_log_antigo b "$bin/regua gravar $bytes b.log")"
    linha "complete check of 999,999 records behind their log / yardstick" 8 "$(completa "$bin" a grande.rem)" \
        "$bin/regua conferir grande.rem b.log 2>/dev/null"
    linha "a fault in every slip / complete check without faults" 2.0 "$(completa "$bin" a falhas.rem)" \
        "$(completa "$bin" b grande.rem)"
    contra_a_regua "print return of 999,999 records" 2.5 impressao.ret
    contra_a_regua "validation of 10,000 records" 3 pequena.rem
    if ((com_janela)); then
        printf '| %s | %s | %s |\n' "the open window (offscreen) / the command line, 999,999 records" 1.10 \
            "$(QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='default.warning=false' "$bin/janela" "$pares" grande.rem)"
    fi
    linha "memory: 999,999 records / 10,000 records" "+0.5 MiB" "$(analise "$bin" a grande.rem)" \
        "$(analise "$bin" b pequena.rem)"
    contar_instrucoes
}

contar_instrucoes() {
    command -v valgrind >/dev/null || return 0
    instrucoes() {
        valgrind --tool=callgrind --callgrind-out-file=/dev/null "$bin/quilatador-cli" -q --log a.log "$1" 2>&1 |
            sed -n 's/.*refs: *//p' | tr -d ,
    }
    local grande media
    grande=$(instrucoes grande.rem)
    media=$(instrucoes media.rem)
    echo
    echo "Instructions: $grande for 999,999 records, $media for 100,000: a ratio of $((grande * 100 / media))/100."
}

if [[ $outro ]]; then com_outro; else com_a_regua; fi
