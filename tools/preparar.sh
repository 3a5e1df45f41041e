# shellcheck shell=bash disable=SC2034 # the lists are for the scripts that source this file
#
# Sourced by run.sh and test.sh: what the build needs of the machine, and how to build without noise.
# Nothing is done twice: packages that are there are left alone, and only what changed is built.

pacotes_da_compilacao=(
    g++ cmake ninja-build
    libpugixml-dev libsqlite3-dev libcli11-dev nlohmann-json3-dev
)
pacotes_da_janela=(qt6-base-dev qt6-svg-dev)
pacotes_dos_testes=(libgtest-dev locales)

raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

avisar() {
    printf '%s\n' "$*" >&2
}

# Runs a command without its output, which is shown only where it fails.
calado() {
    local saida estado=0
    saida=$(mktemp)
    "$@" >"$saida" 2>&1 </dev/null || estado=$?
    ((estado == 0)) || cat "$saida" >&2
    rm -f "$saida"
    return "$estado"
}

# Those of the packages given that the machine lacks.
faltantes() {
    local instalados pacote
    instalados=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for pacote in "$@"; do
        grep -qxF "$pacote installed" <<<"$instalados" || printf '%s\n' "$pacote"
    done
}

# Installs what is missing of the packages given. On a system that is no Debian it only says what is needed.
instalar() {
    if ! { command -v dpkg-query && command -v apt-get; } >/dev/null; then
        avisar "Este sistema não tem apt: instale o equivalente destes pacotes do Debian 12: $*"
        return 0
    fi
    local faltam como_superusuario=()
    mapfile -t faltam < <(faltantes "$@")
    ((${#faltam[@]} > 0)) || return 0
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            avisar "Faltam pacotes, e só o superusuário pode instalá-los. Como root, execute:" \
                   "apt-get update && apt-get install -y ${faltam[*]}"
            return 1
        fi
        como_superusuario=(sudo)
    fi
    avisar "Instalando: ${faltam[*]}"
    calado "${como_superusuario[@]}" apt-get update
    calado "${como_superusuario[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${faltam[@]}"
}

# Configures a preset, with the options given, and builds it.
construir() {
    local preset=$1
    shift
    cd "$raiz" || return
    calado cmake --preset "$preset" "$@"
    calado cmake --build --preset "$preset"
}
