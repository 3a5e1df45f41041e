#!/usr/bin/env bash
# Installs what the build needs, makes the two Debian packages and says where they are.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/preparar.sh"

instalar "${pacotes_da_compilacao[@]}" "${pacotes_da_janela[@]}" "${pacotes_do_empacotamento[@]}"
avisar "Empacotando..."
cd "$raiz"
rm -f build/package/*.deb # those of another version must not be taken for the new ones
calado cmake --workflow --preset package
ls "$raiz"/build/package/*.deb
