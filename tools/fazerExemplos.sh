#!/bin/sh
# Generates the input files below samples/ again. Do this only on purpose, and read the diff before you commit it.
#
#   tools/fazerExemplos.sh PATH-TO-gerarRemessa
set -eu

if [ $# -ne 1 ]; then
    echo "Uso: tools/fazerExemplos.sh CAMINHO-DE-gerarRemessa" >&2
    exit 2
fi
gerar=$1
exemplos=$(dirname "$0")/../samples

mkdir -p "$exemplos/remessa-valida" "$exemplos/remessa-com-erros" "$exemplos/remessa-terceira-guia" \
         "$exemplos/retorno-impressao" "$exemplos/retorno-liquidacao"
"$gerar" --guias 5 "$exemplos/remessa-valida/remessa.rem"
"$gerar" --guias 3 --falhas "$exemplos/remessa-com-erros/remessa.rem"
"$gerar" --tipo ZUL708 --guias 5 "$exemplos/retorno-impressao/retorno.ret"
"$gerar" --tipo TAV001 --registros 12 "$exemplos/retorno-liquidacao/retorno.ret"

# In the third slip the first installment asks for another amount than its barcode, and the third one is due in 2009.
LC_ALL=C sed -e '51s/^\(.\{22\}\).\{15\}/\1000000000308940/' -e '53s/^\(.\{14\}\)2099/\12009/' \
    "$exemplos/remessa-valida/remessa.rem" >"$exemplos/remessa-terceira-guia/remessa.rem"
