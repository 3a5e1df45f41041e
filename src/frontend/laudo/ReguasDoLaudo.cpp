#include "frontend/laudo/ReguasDoLaudo.h"

#include "common/Falha.h"
#include "layout/ArquivoRemessaBD.h"
#include "run/PercursoDeLinhas.h"

#include <algorithm>
#include <map>
#include <utility>

namespace quilatador {

namespace {

using Pedacos = std::vector<PedacoDaRegua>;

/// A line without a layout, cut at a field of which only the positions are known.
Pedacos repartir(VistaTexto linha, const CampoDoAchado& campo) {
    Pedacos pedacos;
    const auto juntar = [&](VistaTexto nome, int inicio, int fim) {
        const VistaTexto texto =
            trecho(linha.substr(0, static_cast<std::size_t>(fim)), static_cast<std::size_t>(inicio));
        if (!texto.empty()) pedacos.push_back({Texto(nome), inicio, fim, Texto(texto), {}});
    };
    const int tamanho = static_cast<int>(linha.size());
    const int fim = std::min(campo.fim, tamanho);
    if (campo.inicio > 1) juntar({}, 1, std::min(campo.inicio - 1, tamanho));
    if (campo.inicio <= fim) juntar(campo.nome, campo.inicio, fim);
    if (fim < tamanho) juntar({}, fim + 1, tamanho);
    return pedacos;
}

bool temLugar(const Achado& achado) {
    return achado.campo && achado.campo->inicio >= 1 && achado.campo->fim >= achado.campo->inicio;
}

Pedacos reguaDa(VistaTexto linha, ArquivoRemessa* leiaute, const Achado& achado) {
    constexpr std::size_t maisTexto = 512;
    const RegistroRemessa* const registro = leiaute ? leiaute->adotarLinha(linha) : nullptr;
    Pedacos pedacos = registro ? regua(*registro) : temLugar(achado) ? repartir(linha, *achado.campo) : regua(linha);
    for (PedacoDaRegua& pedaco : pedacos)
        if (pedaco.texto.size() > maisTexto) pedaco.texto = pedaco.texto.substr(0, maisTexto);
    return pedacos;
}

} // namespace

std::optional<std::vector<Pedacos>> lerReguas(const Ambiente& ambiente, const ArquivoDasReguas& arquivo,
                                              std::span<const Achado* const> achados,
                                              const std::atomic<bool>& cancelado) {
    // A print return has the lines of the remittance that it answers.
    const auto leiaute = arquivo.tipo != TipoArquivo::TAV001 ? ArquivoRemessaBD::carregar(ambiente) : nullptr;
    std::vector<Pedacos> reguas(achados.size());
    std::multimap<std::int64_t, std::size_t> pedidas;
    for (std::size_t i = 0; i < achados.size(); ++i)
        if (achados[i]->linha > 0) pedidas.emplace(achados[i]->linha, i);
    PercursoDeLinhas percurso(ambiente, arquivo.caminho, cancelado);
    if (arquivo.versao && percurso.versao() != *arquivo.versao)
        throw Falha(numeroDeFalha::arquivoAlterado, "ReguasDoLaudo"_t, arquivoAlterado);
    while (!pedidas.empty()) {
        const std::optional<VistaTexto> linha = percurso.proxima();
        if (!linha) break;
        for (auto i = pedidas.begin(); i != pedidas.end() && i->first == percurso.lidas(); i = pedidas.erase(i))
            reguas[i->second] = reguaDa(*linha, leiaute.get(), *achados[i->second]);
    }
    if (!percurso.terminar()) return std::nullopt;
    return reguas;
}

} // namespace quilatador
