#include "tables/TabelaJet.h"

#include "tables/BytesJet.h"
#include "tables/TextoJet.h"

#include <algorithm>

namespace quilatador {

TabelaJet::TabelaJet(const ArquivoJet& arquivo, std::uint32_t pagina) : arquivo_(&arquivo), pagina_(pagina) {
    const std::string definicao = bytesDaDefinicao();
    mapa_ = numeroJet(definicao, formato().paginasUsadas, 4);
    temVariaveis_ = numeroJet(definicao, formato().colunasVariaveis, 2) > 0;
    lerColunas(definicao);
}

/// A definition may take several pages, each with the number of the next.
std::string TabelaJet::bytesDaDefinicao() const {
    constexpr std::size_t maisPaginas = 32; // more than the largest definition that Access allows
    std::string bytes;
    std::uint32_t proxima = pagina_;
    for (std::size_t lidas = 0; lidas == 0 || proxima != 0; ++lidas) {
        exigirIntegro(lidas < maisPaginas);
        const std::string_view parte = arquivo_->pagina(proxima, PaginaJet::Definicao);
        bytes.append(parte.substr(lidas == 0 ? 0 : lugarJet::continuacao));
        proxima = numeroJet(parte, lugarJet::proximaPagina, 4);
    }
    return bytes;
}

/// The entries of the columns follow those of the indexes, and the names of the columns come last.
void TabelaJet::lerColunas(std::string_view definicao) {
    const std::size_t quantas = numeroJet(definicao, formato().colunas, 2);
    const std::uint64_t indices = numeroJet(definicao, formato().indices, 4);
    const std::uint64_t inicio = formato().entradas + indices * formato().tamanhoDaEntrada;
    exigirIntegro(inicio + quantas * formato().coluna <= definicao.size());
    definicao.remove_prefix(static_cast<std::size_t>(inicio));
    for (std::size_t i = 0; i < quantas; ++i)
        colunas_.push_back(lerColuna(pedacoJet(definicao, i * formato().coluna, formato().coluna)));
    lerNomes(definicao.substr(quantas * formato().coluna));
}

ColunaJet TabelaJet::lerColuna(std::string_view entrada) const {
    return {.nome = {},
            .tipo = static_cast<TipoJet>(numeroJet(entrada, 0, 1)),
            .numero = numeroJet(entrada, formato().numeroDaColuna, 2),
            .fixa = (numeroJet(entrada, formato().sinais, 1) & colunaFixa) != 0,
            .lugar = numeroJet(entrada, formato().lugarFixo, 2),
            .tamanho = numeroJet(entrada, formato().tamanhoDaColuna, 2),
            .ordem = numeroJet(entrada, formato().lugarVariavel, 2)};
}

void TabelaJet::lerNomes(std::string_view nomes) {
    const std::size_t largura = formato().larguraDaContagem;
    for (ColunaJet& coluna : colunas_) {
        const std::size_t tamanho = numeroJet(nomes, 0, largura);
        coluna.nome = textoDeUtf8(utf8DoTextoJet(pedacoJet(nomes, largura, tamanho), formato().versao));
        nomes.remove_prefix(largura + tamanho);
    }
}

const ColunaJet* TabelaJet::coluna(VistaTexto nome) const noexcept {
    const auto achada =
        std::ranges::find_if(colunas_, [&](const ColunaJet& uma) { return iguaisSemCaixa(uma.nome, nome); });
    return achada == colunas_.end() ? nullptr : &*achada;
}

void TabelaJet::percorrer(const std::function<void(const LinhaJet&)>& receber) const {
    PonteirosJet ponteiros(*arquivo_);
    for (const std::uint32_t numero : arquivo_->paginasDoMapa(mapa_)) {
        const std::string_view pagina = arquivo_->pagina(numero, PaginaJet::Dados);
        exigirIntegro(numeroJet(pagina, lugarJet::proximaPagina, 4) == pagina_);
        for (std::size_t i = 0; i < arquivo_->vagas(pagina); ++i) {
            const VagaJet vaga = arquivo_->vaga(pagina, i);
            if (!vaga.escondida) receber(LinhaJet(formato(), temVariaveis_, ponteiros.linha(vaga), ponteiros));
        }
    }
}

} // namespace quilatador
