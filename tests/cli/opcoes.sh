#!/bin/bash
# The options that the help lists are those of the documents and of the completion, and the completion knows what may
# follow them. Arguments: the program, and the folder of the sources.
set -u
programa=$1
fontes=$2
falhas=0

falhar() {
    echo "$*" >&2
    falhas=$((falhas + 1))
}

opcoes=$("$programa" --ajuda | grep -oE -- '--[a-z][a-z-]+' | sort -u)
[[ $(wc -w <<<"$opcoes") -gt 10 ]] || falhar "no options in the help"
for documento in README.md LEIAME.md data/man/quilatador-cli.1.in data/completions/quilatador-cli.bash; do
    for opcao in $opcoes; do
        sed 's/\\-/-/g' "$fontes/$documento" | grep -qE -- "(^|[^-])$opcao([^a-z-]|$)" || falhar "$documento lacks $opcao"
    done
done

# shellcheck source=/dev/null
source "$fontes/data/completions/quilatador-cli.bash"
compopt() { :; } # which works only within a real completion

# What completes the last of the words that the shell makes of a command line.
completar() {
    local esperado=$1
    shift
    COMP_WORDS=(quilatador-cli "$@")
    COMP_CWORD=$#
    _quilatador_cli
    [[ ${COMPREPLY[*]} == "$esperado" ]] || falhar "$*: ${COMPREPLY[*]}, not $esperado"
}

cd "$fontes" || exit 1
completar 'ZUL702 ZUL708' --tipo ZU
completar 'ZUL702 ZUL708 TAV001' --tipo =
completar 'TAV001' --tipo = T
completar '--tipo=TAV001' --tipo=T
completar 'AADDD' --formato = AAD
completar 'samples' --pasta = samp
completar 'README.md' --log = READ
completar '' --posicao = 2
completar '--com-data' -q --com-
completar 'README.md' --csv READ
completar 'README.md' --conferir READ
completar 'README.md' --laudo = READ
completar 'LICENSE' -q LIC
exit $((falhas > 0))
