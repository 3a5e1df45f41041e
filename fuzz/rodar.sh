#!/usr/bin/env bash
# Runs one fuzz target for a time, from seeds that the generator and the samples give and what earlier runs found:
#
#   fuzz/rodar.sh BUILD TARGET SECONDS
#
# BUILD is a build of the preset "fuzz", whose tests are this script on every target ("ctest --preset fuzz"). What is
# found lies in BUILD/achados; a finding that is mended moves to fuzz/regressao/TARGET as a test.
set -euo pipefail

raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
obra=${1:?usage: fuzz/rodar.sh BUILD TARGET SECONDS}
alvo=${2:?}
segundos=${3:?}
bin=$obra/bin
corpo=$obra/corpo/$alvo
registro=$obra/$alvo.txt

mkdir -p "$corpo" "$obra/achados"
case $alvo in
fuzzLeiaute) cp "$raiz/data/Arquivo_ZUL702.xml" "$corpo/" ;;
fuzzRemessa | fuzzCompleta)
    cp "$raiz/samples/remessa-valida/remessa.rem" "$corpo/valida"
    cp "$raiz/samples/remessa-com-erros/remessa.rem" "$corpo/erros"
    for semente in 2 3 4; do "$bin/gerarRemessa" --guias 1 --semente $semente "$corpo/g$semente" >/dev/null; done
    ;;
fuzzZUL708) cp "$raiz/samples/retorno-impressao/retorno.ret" "$corpo/" ;;
fuzzTAV001) cp "$raiz/samples/retorno-liquidacao/retorno.ret" "$corpo/" ;;
fuzzBanco) cp "$bin/TabelaErrosZUL.mdb" "$corpo/" ;;
esac
if [[ -d $raiz/fuzz/regressao/$alvo ]]; then cp "$raiz/fuzz/regressao/$alvo"/* "$corpo/"; fi

if ! "$bin/$alvo" -max_total_time="$segundos" -rss_limit_mb=1024 -timeout=60 -max_len=131072 -print_final_stats=1 \
    -dict="$raiz/fuzz/dicionario.txt" -artifact_prefix="$obra/achados/$alvo-" "$corpo" >"$registro" 2>&1; then
    grep -v '^#' "$registro" | tail -n 60
    exit 1
fi
execucoes=$(sed -n 's/^stat::number_of_executed_units: *//p' "$registro")
echo "$alvo: $execucoes inputs in $segundos s, no finding"
((execucoes > 0))
