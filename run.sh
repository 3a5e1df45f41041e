#!/usr/bin/env bash
# Installs what the build needs, builds the program and runs it:
#
#   ./run.sh                    checks the sample remittance and shows its log
#   ./run.sh ARQUIVO...         runs the command line with these arguments
#   ./run.sh --janela [ARG...]  runs the window
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/tools/preparar.sh"

# A build that is made only for running leaves out the tests, which need more packages.
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

# Checks a copy, so that the log is not written among the sources.
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
