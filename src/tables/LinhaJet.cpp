#include "tables/LinhaJet.h"

#include "tables/BytesJet.h"
#include "tables/TextoJet.h"

#include <algorithm>
#include <array>
#include <bit>

namespace quilatador {

namespace {

constexpr std::size_t maiorTexto = 255; // in characters, for a column that is not a memo

/// Reads a little-endian number. The bytes must have exactly the length of its type.
template <typename Numero>
Numero lerValor(std::string_view bytes) {
    std::array<char, sizeof(Numero)> copia{};
    exigirIntegro(bytes.size() == copia.size());
    std::ranges::copy(bytes, copia.begin());
    if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(copia);
    return std::bit_cast<Numero>(copia);
}

} // namespace

bool ColunaJet::deNumeros() const noexcept {
    constexpr std::array tipos{TipoJet::Byte, TipoJet::Inteiro, TipoJet::Longo, TipoJet::Simples, TipoJet::Duplo};
    return std::ranges::find(tipos, tipo) != tipos.end();
}

/// A row consists of the number of columns, the fixed columns, the variable columns, the positions of the variable
/// columns from the last to the first, their number, and one bit per column that is set when the column is not null.
LinhaJet::LinhaJet(const FormatoJet& formato, bool comVariaveis, std::string_view bytes, PonteirosJet& ponteiros)
    : formato_(&formato), ponteiros_(&ponteiros), bytes_(bytes) {
    colunas_ = numeroJet(bytes_, 0, formato_->larguraDaContagem);
    const std::size_t mascara = (colunas_ + 7) / 8;
    exigirIntegro(bytes_.size() >= formato_->larguraDaContagem + mascara);
    naoNulas_ = bytes_.substr(bytes_.size() - mascara);
    if (comVariaveis) lerLugares(bytes_.size() - mascara);
}

/// `fim` is the position of the bits at the end of the row.
void LinhaJet::lerLugares(std::size_t fim) {
    const std::size_t largura = formato_->larguraDaContagem;
    const std::size_t lugarDaQuantidade = fim - largura;
    const std::size_t quantidade = numeroJet(bytes_, lugarDaQuantidade, largura);
    // In Jet 3 a position has one byte and reaches only 255. A list of jumps then names the columns from which on
    // another 256 is added.
    const std::size_t saltos = formato_->versao == VersaoJet::Jet3 ? (bytes_.size() - 1) / 256 : 0;
    const std::size_t ocupados = saltos + (quantidade + 1) * largura;
    exigirIntegro(quantidade <= colunas_ && ocupados <= lugarDaQuantidade);
    for (std::size_t i = 0, usados = 0; i <= quantidade; ++i) {
        while (usados < saltos && i == numeroJet(bytes_, lugarDaQuantidade - 1 - usados, 1))
            ++usados;
        const std::size_t entrada = lugarDaQuantidade - saltos - (i + 1) * largura;
        lugares_.push_back(numeroJet(bytes_, entrada, largura) + usados * 256);
    }
    exigirIntegro(lugares_.front() >= largura && std::ranges::is_sorted(lugares_) &&
                  lugares_.back() <= lugarDaQuantidade - ocupados);
}

bool LinhaJet::nula(const ColunaJet& coluna) const {
    if (coluna.numero >= colunas_ || (!coluna.fixa && coluna.ordem + 1 >= lugares_.size())) return true;
    return ((numeroJet(naoNulas_, coluna.numero / 8, 1) >> (coluna.numero % 8)) & 1u) == 0;
}

std::string_view LinhaJet::bytesDe(const ColunaJet& coluna) const {
    if (coluna.fixa) return pedacoJet(bytes_, formato_->larguraDaContagem + coluna.lugar, coluna.tamanho);
    return bytes_.substr(lugares_[coluna.ordem], lugares_[coluna.ordem + 1] - lugares_[coluna.ordem]);
}

ValorJet LinhaJet::valor(const ColunaJet& coluna) const {
    const std::string_view bytes = nula(coluna) ? std::string_view() : bytesDe(coluna);
    if (bytes.empty()) return {};
    switch (coluna.tipo) {
    case TipoJet::Byte:
        return std::int64_t{lerValor<std::uint8_t>(bytes)};
    case TipoJet::Inteiro:
        return std::int64_t{lerValor<std::int16_t>(bytes)};
    case TipoJet::Longo:
        return std::int64_t{lerValor<std::int32_t>(bytes)};
    case TipoJet::Simples:
        return double{lerValor<float>(bytes)};
    case TipoJet::Duplo:
        return lerValor<double>(bytes);
    case TipoJet::Caracteres:
        exigirIntegro(bytes.size() <= maiorTexto * formato_->larguraDaContagem);
        return utf8DoTextoJet(bytes, formato_->versao);
    case TipoJet::Memo:
        return utf8DoTextoJet(ponteiros_->textoLongo(bytes), formato_->versao);
    }
    return {};
}

} // namespace quilatador
