# shellcheck shell=bash disable=SC2034 # the scripts that source this file use the lists
#
# The scripts run.sh, test.sh and tools/vigiar.sh source this file. It lists the packages that the build needs, installs
# those that are missing, and builds what has changed without needless output.

pacotes_da_compilacao=(
    g++ cmake ninja-build
    libpugixml-dev libsqlite3-dev libssl-dev libcli11-dev nlohmann-json3-dev
)
pacotes_da_janela=(qt6-base-dev qt6-svg-dev)
pacotes_do_empacotamento=(dpkg-dev file)
pacotes_dos_testes=(libgtest-dev python3-jsonschema locales xvfb xauth openbox)

raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

avisar() {
    printf '%s\n' "$*" >&2
}

# Runs a command and shows its output only if the command fails.
calado() {
    local saida estado=0
    saida=$(mktemp)
    "$@" >"$saida" 2>&1 </dev/null || estado=$?
    ((estado == 0)) || cat "$saida" >&2
    rm -f "$saida"
    return "$estado"
}

# Prints those of the given packages that are not installed.
faltantes() {
    local instalados pacote
    instalados=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for pacote in "$@"; do
        grep -qxF "$pacote installed" <<<"$instalados" || printf '%s\n' "$pacote"
    done
}

# Installs those of the given packages that are missing. On a system without apt it only says what is needed.
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

# Configures and builds a preset: construir PRESET [OPTION]...
construir() {
    local preset=$1
    shift
    cd "$raiz" || return
    calado cmake --preset "$preset" "$@"
    calado cmake --build --preset "$preset"
}
