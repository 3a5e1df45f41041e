#!/bin/sh
# Runs a program on a display of its own, once a window manager is at work there: naTela.sh PROGRAM [ARGUMENT]...
if [ -z "$NA_TELA" ]; then
    NA_TELA=$(mktemp -d) || exit 1
    export NA_TELA
    xvfb-run -a "$0" "$@"
    estado=$?
    rm -r "$NA_TELA"
    exit "$estado"
fi
openbox --startup "touch $NA_TELA/pronto" 2>/dev/null &
while [ ! -e "$NA_TELA/pronto" ]; do sleep 0.1; done
"$@"
