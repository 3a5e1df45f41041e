# bash completion for quilatador-cli                       -*- shell-script -*-

_quilatador_cli() {
    local cur prev
    COMPREPLY=()
    cur=${COMP_WORDS[COMP_CWORD]}
    prev=${COMP_WORDS[COMP_CWORD - 1]}

    case $prev in
        --tipo)
            mapfile -t COMPREPLY < <(compgen -W 'ZUL702 ZUL708 TAV001' -- "$cur")
            return ;;
        --formato)
            mapfile -t COMPREPLY < <(compgen -W 'AAAAMMDD AAMMDD DDMMAAAA DDMMAA DDDA AADDD ADDD' -- "$cur")
            return ;;
        --pasta | --pasta-de-logs)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -d -- "$cur")
            return ;;
        --posicao | --primeiras)
            return ;;
    esac

    if [[ $cur == -* && $prev != --log ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--tipo --com-data --posicao --formato --primeiras --pasta --log
            --pasta-de-logs --abrir --json -q --silencioso -h --ajuda --versao' -- "$cur")
        return
    fi
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
}
complete -F _quilatador_cli quilatador-cli
