#include "jet/LinhaJet.h"

#include <bit>

namespace quilatador {

namespace {

/// A text of Jet 4 where that is shorter: its mark, then one byte for each character.
Texto comprimido(VistaTexto texto) {
    return junta("\xFF\xFE", texto);
}

Texto bytesDoValor(TipoJet tipo, const ValorJet& valor, const FormatoJet& formato,
                   const std::function<Texto(const Texto&)>& guardarLongo) {
    Texto bytes;
    if (const auto* numero = std::get_if<double>(&valor)) {
        if (tipo == TipoJet::Duplo || tipo == TipoJet::DataHora) {
            juntarNumero(bytes, std::bit_cast<std::uint64_t>(*numero), sizeof(double));
        } else if (tipo == TipoJet::Simples) {
            juntarNumero(bytes, std::bit_cast<std::uint32_t>(static_cast<float>(*numero)), sizeof(float));
        } else {
            juntarNumero(bytes, static_cast<std::uint64_t>(static_cast<std::int64_t>(*numero)), tamanhoFixo(tipo));
        }
    } else if (const auto* texto = std::get_if<Texto>(&valor)) {
        bytes = textoJet(*texto, formato);
        if (tipo == TipoJet::Memo) bytes = guardarLongo(bytes);
    }
    return bytes;
}

/// The columns from which 256 is added to the one-byte places of a Jet 3 row, the last of them first. `semSaltos` is
/// the length of the row without them.
Texto saltos(const std::vector<std::size_t>& lugares, std::size_t semSaltos) {
    std::size_t quantos = 0;
    while (quantos != (semSaltos + quantos - 1) / 256)
        ++quantos;
    Texto tabela;
    for (std::size_t salto = quantos; salto > 0; --salto) {
        std::size_t coluna = 0;
        while (coluna < lugares.size() && lugares[coluna] < 256 * salto)
            ++coluna;
        tabela.push_back(static_cast<char>(coluna == lugares.size() ? 0xFF : coluna)); // only the row's tail is there
    }
    return tabela;
}

} // namespace

void juntarNumero(Texto& destino, std::uint64_t numero, std::size_t bytes) {
    for (std::size_t i = 0; i < bytes; ++i)
        destino.push_back(static_cast<char>(numero >> (8 * i) & 0xFF));
}

void gravarNumero(Texto& destino, std::size_t posicao, std::uint64_t numero, std::size_t bytes) {
    Texto pedaco;
    juntarNumero(pedaco, numero, bytes);
    destino.replace(posicao, bytes, pedaco);
}

std::size_t tamanhoFixo(TipoJet tipo) noexcept {
    switch (tipo) {
    case TipoJet::Byte:
        return 1;
    case TipoJet::Inteiro:
        return 2;
    case TipoJet::Longo:
    case TipoJet::Simples:
        return 4;
    case TipoJet::Duplo:
    case TipoJet::DataHora:
        return 8;
    case TipoJet::Binario:
    case TipoJet::Caracteres:
    case TipoJet::Ole:
    case TipoJet::Memo:
        break;
    }
    return 0;
}

Texto textoJet(VistaTexto texto, const FormatoJet& formato) {
    if (formato.versao == VersaoJet::Jet3) return Texto(texto);
    Texto largo;
    bool comprimivel = texto.size() > 2;
    for (const char c : texto) {
        const auto codigo = static_cast<unsigned char>(c);
        const unsigned ponto = codigo >= 0x80 && codigo < 0xA0 ? detalhe::altos[codigo - 0x80u] : codigo;
        juntarNumero(largo, ponto, 2);
        comprimivel = comprimivel && ponto > 0 && ponto <= 0xFF;
    }
    return comprimivel ? comprimido(texto) : largo;
}

/// Number of columns, fixed columns, variable ones, the places of these from the end of the last to the start of the
/// first, their number, and a bit for each column that is not null.
Texto montarLinhaJet(const std::vector<ColunaJet>& colunas, const std::vector<ValorJet>& valores,
                     const FormatoJet& formato, const std::function<Texto(const Texto&)>& guardarLongo) {
    const std::size_t largura = formato.larguraDaContagem;
    Texto linha;
    Texto variaveis;
    Texto mascara((colunas.size() + 7) / 8, '\0');
    std::vector<std::size_t> lugares;
    juntarNumero(linha, colunas.size(), largura);
    for (std::size_t i = 0; i < colunas.size(); ++i) {
        Texto bytes = bytesDoValor(colunas[i].tipo, valores[i], formato, guardarLongo);
        if (valores[i].index() != 0) mascara[i / 8] = static_cast<char>(mascara[i / 8] | 1 << (i % 8));
        const std::size_t fixo = tamanhoFixo(colunas[i].tipo);
        bytes.resize(fixo == 0 ? bytes.size() : fixo);
        if (fixo == 0) lugares.push_back(variaveis.size());
        (fixo == 0 ? variaveis : linha).append(bytes);
    }
    if (lugares.empty()) return linha + mascara;
    for (std::size_t& lugar : lugares)
        lugar += linha.size();
    linha += variaveis;
    lugares.push_back(linha.size());
    for (std::size_t i = lugares.size(); i > 0; --i)
        juntarNumero(linha, lugares[i - 1], largura);
    if (formato.versao == VersaoJet::Jet3) linha += saltos(lugares, linha.size() + largura + mascara.size());
    juntarNumero(linha, lugares.size() - 1, largura);
    return linha + mascara;
}

} // namespace quilatador
