# bash completion for quilatador-cli                       -*- shell-script -*-

_quilatador_cli() {
    local cur prev antes=
    COMPREPLY=()
    cur=${COMP_WORDS[COMP_CWORD]}
    prev=${COMP_WORDS[COMP_CWORD - 1]}

    # Of "--tipo=ZU" the shell makes three words where "=" is among its COMP_WORDBREAKS, else one.
    if [[ $cur == '=' ]]; then
        cur=
    elif [[ $prev == '=' ]]; then
        prev=${COMP_WORDS[COMP_CWORD - 2]}
    elif [[ $cur == --*=* ]]; then
        prev=${cur%%=*}
        antes=$prev=
        cur=${cur#*=}
    fi

    case $prev in
        --tipo)
            mapfile -t COMPREPLY < <(compgen -P "$antes" -W 'ZUL702 ZUL708 TAV001' -- "$cur")
            return ;;
        --formato)
            mapfile -t COMPREPLY < <(compgen -P "$antes" -W 'AAAAMMDD AAMMDD DDMMAAAA DDMMAA DDDA AADDD ADDD' -- "$cur")
            return ;;
        --pasta | --pasta-de-logs)
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -P "$antes" -d -- "$cur")
            return ;;
        --posicao | --primeiras | --linha)
            return ;;
    esac

    if [[ $cur == -* && $prev != --log && $prev != --csv && $prev != --conferir ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--tipo --com-data --posicao --formato --primeiras --completa --todos --csv
            --laudo --conferir --linha --sugerir-data --pasta --log --pasta-de-logs --abrir --json -q --silencioso -h --ajuda --help --versao --version' -- "$cur")
        return
    fi
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -P "$antes" -f -- "$cur")
}
complete -F _quilatador_cli quilatador-cli
