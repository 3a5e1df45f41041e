#include "gerarRemessa/Gerador.h"

#include "common/Falha.h"
#include "gerarRemessa/Liquidacao.h"
#include "gerarRemessa/Remessa.h"
#include "gerarRemessa/SaidaEmBlocos.h"

namespace quilatador::gerador {

namespace {

void exigir(bool condicao, VistaTexto descricao) {
    if (!condicao) throw Falha(numeroDeFalha::argumentoInvalido, "Gerador"_t, descricao);
}

void exigirEntre(std::optional<std::uint32_t> numero, std::uint32_t menor, std::uint32_t maior, VistaTexto oQue) {
    exigir(!numero || (*numero >= menor && *numero <= maior),
           junta(oQue, " de "_t, textoDe(menor), " a "_t, textoDe(maior), "!"_t));
}

} // namespace

void conferir(const Opcoes& opcoes) {
    if (opcoes.tipo == Tipo::TAV001) {
        exigir(!opcoes.guias && !opcoes.falhas, "Um TAV001 não tem guias nem falhas!"_t);
        exigirEntre(opcoes.registros, 0, maximoDePagamentos, "O número de pagamentos vai"_t);
        return;
    }
    exigir(!opcoes.guias || !opcoes.registros, "Informe o número de guias ou o de registros, não ambos!"_t);
    exigirEntre(opcoes.guias, 1, maximoDeGuias, "O número de guias vai"_t);
    exigirEntre(opcoes.registros, menorRemessa, maiorRemessa, "O número de registros vai"_t);
}

std::uint64_t gerar(const Opcoes& opcoes, std::ostream& destino) {
    conferir(opcoes);
    SaidaEmBlocos saida(destino);
    const std::uint64_t linhas =
        opcoes.tipo == Tipo::TAV001 ? gerarLiquidacao(opcoes, saida) : gerarRemessa(opcoes, saida);
    saida.descarregar();
    return linhas;
}

} // namespace quilatador::gerador
