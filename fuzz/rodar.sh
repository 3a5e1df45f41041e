#!/usr/bin/env bash
# Runs every fuzz target for a time, from seeds that the generator and the samples give and what earlier runs found:
#
#   fuzz/rodar.sh SECONDS [TARGET...]
#
# What is found lies in build/fuzz/achados; a finding that is mended moves to fuzz/regressao/TARGET as a test.
set -euo pipefail

raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
segundos=${1:?usage: fuzz/rodar.sh SECONDS [TARGET...]}
shift
alvos=("$@")
((${#alvos[@]})) || alvos=(fuzzLeiaute fuzzRemessa fuzzZUL708 fuzzTAV001 fuzzBanco)

CXX=clang++ cmake --preset fuzz -S "$raiz" >/dev/null
cmake --build "$raiz/build/fuzz" --target gerarRemessa "${alvos[@]}" >/dev/null
cmake --build "$raiz/build/fuzz" --target tabela_erros >/dev/null
bin=$raiz/build/fuzz/bin

semear() { # target, folder
    mkdir -p "$2"
    case $1 in
    fuzzLeiaute) cp "$raiz/data/Arquivo_ZUL702.xml" "$2/" ;;
    fuzzRemessa)
        cp "$raiz/samples/remessa-valida/remessa.rem" "$2/valida"
        cp "$raiz/samples/remessa-com-erros/remessa.rem" "$2/erros"
        for semente in 2 3 4; do "$bin/gerarRemessa" --guias 1 --semente $semente "$2/g$semente" >/dev/null; done
        ;;
    fuzzZUL708) cp "$raiz/samples/retorno-impressao/retorno.ret" "$2/" ;;
    fuzzTAV001) cp "$raiz/samples/retorno-liquidacao/retorno.ret" "$2/" ;;
    fuzzBanco) cp "$bin/TabelaErrosZUL.mdb" "$2/" ;;
    esac
    [[ -d $raiz/fuzz/regressao/$1 ]] && cp "$raiz/fuzz/regressao/$1"/* "$2/"
    true
}

mkdir -p "$raiz/build/fuzz/achados"
for alvo in "${alvos[@]}"; do
    corpo=$raiz/build/fuzz/corpo/$alvo
    semear "$alvo" "$corpo"
    echo "$alvo: $segundos s"
    "$bin/$alvo" -max_total_time="$segundos" -rss_limit_mb=1024 -timeout=20 -max_len=131072 -verbosity=0 \
        -print_final_stats=1 -dict="$raiz/fuzz/dicionario.txt" \
        -artifact_prefix="$raiz/build/fuzz/achados/$alvo-" "$corpo" 2>&1 | grep -v '^#' | tail -n 12
done
