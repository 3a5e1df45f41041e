#!/usr/bin/env bash
# Looks for problems that the tests alone do not show. It runs the named jobs, or all of them one after the other:
#
#   tools/vigiar.sh [formato|sanitizadores|analise|fuzz|cobertura|pacote]...
#
#   formato        clang-format over every source; any difference is a failure
#   sanitizadores  all tests, also those of the window, with the address and undefined-behaviour sanitizers
#   analise        clang-tidy and cppcheck over every source
#   fuzz           every fuzz target for a short time (FUZZ_SECONDS, by default 30)
#   cobertura      the share of the core's branches that the tests take
#   pacote         the Debian packages: what they need, that they work unpacked, and which files open the window
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/preparar.sh"

pacotes_da_vigia=(clang clang-format libclang-rt-14-dev clang-tidy cppcheck llvm-14)
pacotes_da_conferencia=(appstream desktop-file-utils libglib2.0-bin lintian shared-mime-info)
export QT_QPA_PLATFORM=offscreen

# Runs the tests of a preset and shows only their summary, or all the output when a test fails.
testar() {
    local registro=$raiz/build/$1/testes.txt
    ctest --preset "$1" --output-log "$registro" >/dev/null 2>&1 || { cat "$registro"; return 1; }
    sed -n 's/^[0-9]*: \(.*no finding\)$/\1/p; /% tests passed/p' "$registro"
}

formato() {
    git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format --dry-run --Werror
    echo "clang-format: no difference in $(git ls-files '*.h' '*.cpp' | wc -l) sources"
}

sanitizadores() {
    construir asan -DQUILATADOR_TESTS=ON
    testar asan
}

# The sources are analysed with the options of a build with tests. The exit status of clang-tidy is 0 even when it
# warns, so that its output has to be searched; a crash or an unreadable source does change the status.
analise() {
    construir release -DQUILATADOR_TESTS=ON
    local registro=build/release/analise.txt estado=0
    cppcheck --project=build/release/compile_commands.json -j "$(nproc)" --quiet --inline-suppr --error-exitcode=1 \
        --enable=warning,performance,portability --library=googletest --library=qt --library=posix \
        --suppress='*:*_autogen*' || estado=1
    run-clang-tidy -quiet -p build/release "^$raiz/(src|tools|tests|fuzz)/" >"$registro" 2>&1 || estado=1
    sed -i 's/\x1b\[[0-9;]*m//g' "$registro"
    # a message about 'expr-type' concerns clang-tidy itself, not our sources
    if grep -E '(warning|error): |Stack dump|not found' "$registro" | grep -v "'expr-type'" | sort -u; then estado=1; fi
    ((estado == 0)) || return 1
    echo "clang-tidy and cppcheck: no finding in $(grep -c '^clang-tidy' "$registro") sources"
}

fuzz() {
    construir fuzz -DQUILATADOR_FUZZ_SECONDS="${FUZZ_SECONDS:-30}"
    testar fuzz
}

cobertura() {
    construir coverage -DQUILATADOR_TESTS=ON
    rm -rf build/coverage/perfis
    testar coverage
    llvm-profdata-14 merge -sparse -o build/coverage/perfil build/coverage/perfis/*.profraw
    local programas=() programa
    for programa in build/coverage/bin/*_test build/coverage/bin/quilatador-cli; do programas+=(-object "$programa"); done
    llvm-cov-14 report "${programas[@]:1}" -instr-profile=build/coverage/perfil -show-branch-summary \
        -show-region-summary=false src/common src/run src/layout src/tables src/returns src/validator >build/coverage/cobertura.txt
    echo "Branches of the core that tests take: $(awk 'END { print $NF }' build/coverage/cobertura.txt)"
}

pacote() {
    instalar "${pacotes_da_conferencia[@]}"
    tools/empacotar.sh >/dev/null
    tools/conferirPacotes.sh build/package/*.deb
}

trabalhos=("$@")
((${#trabalhos[@]})) || trabalhos=(formato sanitizadores analise fuzz cobertura pacote)
instalar "${pacotes_da_compilacao[@]}" "${pacotes_da_janela[@]}" "${pacotes_dos_testes[@]}" "${pacotes_da_vigia[@]}"
cd "$raiz"
for trabalho in "${trabalhos[@]}"; do
    case $trabalho in
    formato | sanitizadores | analise | fuzz | cobertura | pacote) ;;
    *) avisar "Não há o trabalho \"$trabalho\"." && exit 2 ;;
    esac
    avisar "$trabalho..."
    "$trabalho"
done
