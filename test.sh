#!/usr/bin/env bash
# Installs what the build needs, builds everything as users run it, and runs every test. Arguments are passed to ctest
# ("./test.sh -R LeitorDeLinhas").
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/tools/preparar.sh"

instalar "${pacotes_da_compilacao[@]}" "${pacotes_da_janela[@]}" "${pacotes_dos_testes[@]}"
avisar "Compilando e testando..."
construir release -DQUILATADOR_TESTS=ON

export QT_QPA_PLATFORM=offscreen # the window's tests need no screen
registro=$raiz/build/release/testes.txt
if ctest --preset release "$@" >"$registro" 2>&1; then
    sed -n '/tests passed/,$p' "$registro"
else
    cat "$registro"
    exit 1
fi
