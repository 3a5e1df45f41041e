#!/usr/bin/env bash
# Builds the program, first installing what that needs, and runs it:
#
#   ./run.sh                    the sample remittance is checked, and its log shown
#   ./run.sh ARQUIVO...         the command line, with these arguments
#   ./run.sh --janela [ARG...]  the window
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/tools/preparar.sh"

# The tests, which need more packages, are left out of a build that is made for running.
preparar() {
    local preset=$1
    shift
    instalar "$@"
    if [[ -f $raiz/build/$preset/build.ninja ]]; then
        (construir "$preset")
    else
        avisar "Compilando..."
        (construir "$preset" -DQUILATADOR_TESTS=OFF)
    fi
}

# A copy is checked, so that the log does not lie among the sources.
mostrar_exemplo() {
    local pasta=$raiz/build/exemplo estado=0
    mkdir -p "$pasta"
    rm -f "$pasta/remessa.log"
    cp "$raiz/samples/remessa-valida/remessa.rem" "$pasta/"
    "$1" --log "$pasta/remessa.log" "$pasta/remessa.rem" || estado=$?
    [[ ! -f $pasta/remessa.log ]] || iconv -f cp1252 -t utf-8 "$pasta/remessa.log" | tr -d '\r'
    return "$estado"
}

if [[ ${1-} == --janela ]]; then
    preparar release "${pacotes_da_compilacao[@]}" "${pacotes_da_janela[@]}"
    exec "$raiz/build/release/bin/Quilatador" "${@:2}"
fi

preparar no-window "${pacotes_da_compilacao[@]}"
programa=$raiz/build/no-window/bin/quilatador-cli
(($# > 0)) && exec "$programa" "$@"
mostrar_exemplo "$programa"
