#!/usr/bin/env bash
# Checks the two Debian packages, given in any order, without installing them:
#
#   tools/conferirPacotes.sh PACKAGE...
#
# lintian has no complaint; the command line needs no Qt and works where it is unpacked; the window finds its libraries;
# a file manager opens the three types of files with it, and no ordinary text.
set -euo pipefail

fontes=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
obra=$(mktemp -d)
trap 'rm -rf "$obra"' EXIT
usr=$obra/raiz/usr

falhar() {
    printf '%s\n' "$*" >&2
    exit 1
}

# The package whose name is given first, of those that follow.
pacote() {
    local nome=$1 arquivo
    shift
    for arquivo in "$@"; do
        if [[ $(dpkg-deb --field "$arquivo" Package) == "$nome" ]]; then printf '%s\n' "$arquivo"; fi
    done
}

conferir_linha_de_comando() {
    ! dpkg-deb --field "$1" Depends | grep -i qt || falhar "$1 needs Qt."
    dpkg-deb --extract "$1" "$obra/raiz"
    cp "$fontes/samples/remessa-valida/remessa.rem" "$obra/"
    "$usr/bin/quilatador-cli" -q "$obra/remessa.rem" || falhar "The command line does not work where it is unpacked."
    local ligacao
    for ligacao in $(grep -o '](docs/[^)]*' "$usr/share/doc/quilatador-cli/LEIAME.md"); do
        [[ -f $usr/share/doc/quilatador-cli/${ligacao#']('} ]] || falhar "LEIAME.md names a missing ${ligacao#']('}."
    done
}

conferir_janela() {
    dpkg-deb --extract "$1" "$obra/raiz"
    ! ldd "$usr/bin/Quilatador" | grep 'not found' || falhar "The window misses libraries."
    desktop-file-validate "$usr"/share/applications/*.desktop
    appstreamcli validate --no-net "$usr"/share/metainfo/*.xml >"$obra/metainfo" || falhar "$(<"$obra/metainfo")"
}

# conferir_tipo TYPE FILE: under a name that tells nothing, FILE has that type.
conferir_tipo() {
    cp "$2" "$obra/arquivo"
    local tipo
    tipo=$(XDG_DATA_HOME=$obra/nada XDG_DATA_DIRS=$usr/share:/usr/share \
        gio info -a standard::content-type "$obra/arquivo" | sed -n 's/.*standard::content-type: //p')
    [[ $tipo == "$1" ]] || falhar "$2 is taken for $tipo, not for $1."
}

conferir_tipos() {
    XDG_DATA_HOME=$usr/share update-mime-database "$usr/share/mime"
    local caso tipo texto
    for caso in zul702:remessa-valida zul702:remessa-com-erros zul708:retorno-impressao tav001:retorno-liquidacao; do
        tipo=application/x-${caso%%:*}
        conferir_tipo "$tipo" "$(ls "$fontes/samples/${caso#*:}"/*.re[mt])"
        grep -q "^MimeType=.*$tipo;" "$usr"/share/applications/*.desktop || falhar "The window does not open $tipo."
    done
    for texto in 'A remessa: ZUL702' 'A retorno0 ZUL708' "A2$(printf '%77s' '')03" "A2$(printf '%63s%014d' '' 0)04"; do
        printf '%s\n' "$texto" >"$obra/texto"
        conferir_tipo text/plain "$obra/texto"
    done
}

lintian --allow-root --fail-on error,warning "$@"
conferir_linha_de_comando "$(pacote quilatador-cli "$@")"
conferir_janela "$(pacote quilatador "$@")"
conferir_tipos
echo "packages: no finding in $#"
