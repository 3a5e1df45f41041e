#include "tables/ArquivoJet.h"

#include "common/Falha.h"
#include "tables/FalhaDoBanco.h"

#include <algorithm>

namespace quilatador {

namespace {

/// More pages than the definition of a table with all the columns and indexes that it may have needs.
constexpr std::size_t maiorDefinicao = 32;
constexpr std::size_t maisColunas = 255;
constexpr std::size_t maisIndices = 255;
constexpr std::size_t maisLinhasPorPagina = 256; // a row's number is one byte
constexpr std::size_t maiorNome = 64;            // characters

Falha falha(int numero, VistaTexto descricao) {
    return {numero, "ArquivoJet", Texto(descricao)};
}

void exigir(bool condicao) {
    if (!condicao) throw falha(falhaDoBanco::danificado, "O banco de dados está danificado"_t);
}

/// A number of up to four bytes, which must lie inside `bytes`.
std::uint32_t numero(VistaTexto bytes, std::size_t posicao, std::size_t largura) {
    exigir(posicao <= bytes.size() && largura <= bytes.size() - posicao);
    std::uint32_t valor = 0;
    for (std::size_t i = 0; i < largura; ++i)
        valor |= std::uint32_t{static_cast<unsigned char>(bytes[posicao + i])} << (8 * i);
    return valor;
}

std::uint32_t numero8(VistaTexto bytes, std::size_t posicao) {
    return numero(bytes, posicao, 1);
}
std::uint32_t numero16(VistaTexto bytes, std::size_t posicao) {
    return numero(bytes, posicao, 2);
}
std::uint32_t numero32(VistaTexto bytes, std::size_t posicao) {
    return numero(bytes, posicao, 4);
}

/// Calls `receber` for each page that a bitmap marks; the first bit stands for the page `primeira`.
template <typename Receber>
void percorrerBits(VistaTexto bits, std::uint64_t primeira, Receber receber) {
    for (std::size_t i = 0; i < bits.size(); ++i)
        for (unsigned bit = 0, byte = static_cast<unsigned char>(bits[i]); byte != 0; ++bit, byte >>= 1)
            if ((byte & 1u) != 0) receber(primeira + 8 * i + bit);
}

/// A text up to its first NUL, of one (Jet 3) or two bytes a character.
Texto lerSenha(VistaTexto bytes, const FormatoJet& formato) {
    Texto senha;
    for (std::size_t i = 0; i < bytes.size(); i += formato.larguraDaContagem) {
        const std::uint32_t ponto = numero(bytes, i, formato.larguraDaContagem);
        if (ponto == 0) break;
        senha.push_back(static_cast<char>(formato.versao == VersaoJet::Jet3 ? static_cast<int>(ponto)
                                                                            : detalhe::codigo1252(ponto)));
    }
    return senha;
}

} // namespace

/// What a row must agree with.
struct ArquivoJet::Definicao {
    struct ColunaFixa {
        std::uint32_t numero;
        std::size_t lugar;
        std::size_t tamanho;
    };

    std::uint32_t pagina = 0;
    std::uint32_t paginasUsadas = 0;
    std::uint32_t paginasLivres = 0;
    bool temVariaveis = false;
    std::vector<ColunaFixa> fixas; ///< in the order of their numbers
};

ArquivoJet::ArquivoJet(Texto bytes) : bytes_(std::move(bytes)) {
    const auto reconhecer = [&](const FormatoJet& formato) {
        if (numero32(bytes_, lugarJet::versao) == static_cast<std::uint32_t>(formato.versao)) formato_ = &formato;
        return formato_ == &formato;
    };
    formato_ = nullptr;
    const bool comAssinatura = VistaTexto(bytes_).starts_with(lugarJet::assinatura);
    if (!comAssinatura || bytes_.size() < jet3.pagina || !(reconhecer(jet3) || reconhecer(jet4)))
        throw falha(falhaDoBanco::naoReconhecido, "Formato de banco de dados não reconhecido"_t);
    exigir(bytes_.size() % formato_->pagina == 0);
    paginas_ = static_cast<std::uint32_t>(bytes_.size() / formato_->pagina);
    decifrar();
}

void ArquivoJet::decifrar() {
    const std::span tudo(bytes_);
    const auto cabecalho = tudo.first(formato_->pagina);
    cifrarCabecalhoJet(cabecalho, *formato_);
    const std::uint32_t chave = numero32(bytes_, lugarJet::chave);
    for (std::uint32_t n = 1; chave != 0 && n < paginas_; ++n)
        cifrarJet(tudo.subspan(n * formato_->pagina, formato_->pagina), chave ^ n);
    std::ranges::fill(cabecalho.subspan(lugarJet::chave, 4), '\0');
    mascararSenhaJet(cabecalho, *formato_);
    senha_ = lerSenha(VistaTexto(bytes_).substr(lugarJet::senha, formato_->senha), *formato_);
    mascararSenhaJet(cabecalho, *formato_);
    cifrarCabecalhoJet(cabecalho, *formato_);
}

void ArquivoJet::verificarTabela(std::uint32_t numeroDaPagina) const {
    const Definicao definicao = lerDefinicao(numeroDaPagina);
    exigir(!linhaEm(definicao.paginasLivres).empty());
    for (const std::uint32_t usada : paginasDoMapa(definicao.paginasUsadas))
        verificarPagina(pagina(usada, PaginaJet::Dados), definicao);
}

VistaTexto ArquivoJet::pagina(std::uint32_t numeroDaPagina, PaginaJet tipo) const {
    exigir(numeroDaPagina > 0 && numeroDaPagina < paginas_);
    const VistaTexto bytes = VistaTexto(bytes_).substr(numeroDaPagina * formato_->pagina, formato_->pagina);
    exigir(numero8(bytes, 0) == static_cast<std::uint32_t>(tipo));
    return bytes;
}

/// The row at a place: its page in the upper three bytes, its number on it in the lowest.
VistaTexto ArquivoJet::linhaEm(std::uint32_t lugar) const {
    const VistaTexto bytes = pagina(lugar >> 8, PaginaJet::Dados);
    const std::uint32_t linha = lugar & 0xFF;
    const std::size_t contagem = formato_->contagemDeLinhas;
    exigir(linha < numero16(bytes, contagem));
    const std::size_t inicio = numero16(bytes, contagem + 2 + 2 * linha);
    const std::size_t fim = linha == 0 ? bytes.size() : numero16(bytes, contagem + 2 * linha) & linhaJet::lugar;
    exigir(inicio <= fim && fim <= bytes.size()); // so it has no sign either, which would be added to the place
    return bytes.substr(inicio, fim - inicio);
}

/// A definition of several pages as one text.
Texto ArquivoJet::bytesDaDefinicao(std::uint32_t numeroDaPagina) const {
    Texto bytes;
    for (std::size_t lidas = 0; numeroDaPagina != 0 || lidas == 0; ++lidas) {
        exigir(lidas < maiorDefinicao);
        const VistaTexto parte = pagina(numeroDaPagina, PaginaJet::Definicao);
        bytes.append(parte.substr(lidas == 0 ? 0 : lugarJet::continuacao));
        numeroDaPagina = numero32(parte, lugarJet::proximaPagina);
    }
    return bytes;
}

ArquivoJet::Definicao ArquivoJet::lerDefinicao(std::uint32_t numeroDaPagina) const {
    const Texto bytes = bytesDaDefinicao(numeroDaPagina);
    Definicao definicao{.pagina = numeroDaPagina,
                        .paginasUsadas = numero32(bytes, formato_->paginasUsadas),
                        .paginasLivres = numero32(bytes, formato_->paginasLivres),
                        .temVariaveis = numero16(bytes, formato_->colunasVariaveis) > 0,
                        .fixas = {}};
    const std::size_t colunas = numero16(bytes, formato_->colunas);
    const std::size_t indices = numero32(bytes, formato_->indices);
    exigir(colunas > 0 && colunas <= maisColunas && indices <= maisIndices);
    std::size_t lugar = formato_->entradas + indices * formato_->tamanhoDaEntrada;
    for (std::size_t i = 0; i < colunas; ++i, lugar += formato_->coluna) {
        const std::uint32_t numeroDaColuna = numero16(bytes, lugar + formato_->numeroDaColuna);
        exigir(numeroDaColuna <= maisColunas);
        if ((numero8(bytes, lugar + formato_->sinais) & colunaFixa) == 0) continue;
        const bool booleana = numero8(bytes, lugar) == 1; // its value is in the row's null mask
        const std::size_t tamanho = booleana ? 0 : numero16(bytes, lugar + formato_->tamanhoDaColuna);
        definicao.fixas.push_back({numeroDaColuna, numero16(bytes, lugar + formato_->lugarFixo), tamanho});
    }
    for (std::size_t i = 0; i < colunas; ++i) {
        const std::size_t nome = numero(bytes, lugar, formato_->larguraDaContagem);
        exigir(nome > 0 && nome <= maiorNome * formato_->larguraDaContagem);
        lugar += formato_->larguraDaContagem + nome;
    }
    exigir(lugar <= bytes.size());
    std::ranges::stable_sort(definicao.fixas, {}, &Definicao::ColunaFixa::numero);
    return definicao;
}

/// The pages of a map: in the row itself, or in map pages of which the row has the numbers.
std::vector<std::uint32_t> ArquivoJet::paginasDoMapa(std::uint32_t lugar) const {
    std::vector<std::uint32_t> paginas;
    const auto guardar = [&](std::uint64_t numeroDaPagina) {
        exigir(numeroDaPagina < paginas_);
        paginas.push_back(static_cast<std::uint32_t>(numeroDaPagina));
    };
    const VistaTexto mapa = linhaEm(lugar);
    constexpr std::size_t cabeca = 5; // kind, first page
    const std::uint32_t tipo = numero8(mapa, 0);
    exigir(tipo <= 1 && mapa.size() >= cabeca);
    if (tipo == 0) {
        percorrerBits(mapa.substr(cabeca), numero32(mapa, 1), guardar);
        return paginas;
    }
    constexpr std::size_t cabecaDaPagina = 4;
    const std::uint64_t bitsPorPagina = (formato_->pagina - cabecaDaPagina) * 8;
    for (std::size_t i = 0; i < (mapa.size() - 1) / 4; ++i) {
        const std::uint32_t paginaDoMapa = numero32(mapa, 1 + 4 * i);
        if (paginaDoMapa != 0)
            percorrerBits(pagina(paginaDoMapa, PaginaJet::Mapa).substr(cabecaDaPagina), i * bitsPorPagina, guardar);
    }
    return paginas;
}

void ArquivoJet::verificarPagina(VistaTexto pagina, const Definicao& definicao) const {
    exigir(numero32(pagina, lugarJet::proximaPagina) == definicao.pagina);
    const std::size_t contagem = formato_->contagemDeLinhas;
    const std::size_t linhas = numero16(pagina, contagem);
    exigir(linhas <= maisLinhasPorPagina);
    const std::size_t lugares = contagem + 2;
    std::size_t fim = pagina.size();
    for (std::size_t i = 0; i < linhas; ++i) {
        const std::uint32_t lugar = numero16(pagina, lugares + 2 * i);
        const std::size_t inicio = lugar & linhaJet::lugar;
        exigir(inicio >= lugares + 2 * linhas && inicio <= fim);
        if ((lugar & linhaJet::saltada) == 0) verificarLinha(pagina.substr(inicio, fim - inicio), definicao);
        fim = inicio;
    }
}

/// A row is: number of columns, fixed columns, variable ones, the places of these from the last to the first, their
/// number, and a bit for each column that is not null.
void ArquivoJet::verificarLinha(VistaTexto linha, const Definicao& definicao) const {
    const std::size_t largura = formato_->larguraDaContagem;
    const std::size_t colunas = numero(linha, 0, largura);
    const std::size_t mascara = (colunas + 7) / 8;
    exigir(colunas <= maisColunas && linha.size() >= largura + mascara);
    std::size_t variaveis = 0;
    if (definicao.temVariaveis) {
        const auto lugares = lugaresVariaveis(linha, linha.size() - mascara);
        variaveis = lugares.size() - 1;
        exigir(variaveis <= colunas && lugares.front() >= largura && std::ranges::is_sorted(lugares));
    }
    const std::size_t fixas = std::min(colunas - variaveis, definicao.fixas.size());
    for (std::size_t i = 0; i < fixas; ++i)
        exigir(largura + definicao.fixas[i].lugar + definicao.fixas[i].tamanho <= linha.size());
}

/// Where the variable columns of a row start, and where the last ends. `fim` is the place of the row's null mask.
std::vector<std::size_t> ArquivoJet::lugaresVariaveis(VistaTexto linha, std::size_t fim) const {
    const std::size_t largura = formato_->larguraDaContagem;
    const std::size_t lugarDaQuantidade = fim - largura;
    const std::size_t quantidade = numero(linha, lugarDaQuantidade, largura);
    // Places of one byte do not reach further than 255: Jet 3 then has jumps, the columns from which 256 is added.
    const std::size_t saltos = formato_->versao == VersaoJet::Jet3 ? (linha.size() - 1) / 256 : 0;
    const std::size_t tabela = lugarDaQuantidade - saltos;
    exigir(tabela <= lugarDaQuantidade && tabela >= (quantidade + 1) * largura);
    std::vector<std::size_t> lugares;
    for (std::size_t i = 0, usados = 0; i <= quantidade; ++i) {
        while (usados < saltos && i == numero8(linha, lugarDaQuantidade - 1 - usados))
            ++usados;
        lugares.push_back(numero(linha, tabela - (i + 1) * largura, largura) + usados * 256);
    }
    exigir(lugares.back() <= tabela - (quantidade + 1) * largura);
    return lugares;
}

/// The head has the length, in its two uppermost bits where the text is, and the place of its first piece.
Texto ArquivoJet::textoLongo(VistaTexto cabeca) const {
    constexpr std::size_t tamanhoDaCabeca = 12;
    constexpr std::uint32_t naLinha = 0x80000000;
    constexpr std::uint32_t inteiro = 0x40000000;
    const std::uint32_t sinais = numero32(cabeca, 0);
    const std::size_t tamanho = sinais & ~(naLinha | inteiro);
    std::uint32_t lugar = numero32(cabeca, 4);
    exigir(tamanho <= bytes_.size() && cabeca.size() >= tamanhoDaCabeca);
    if ((sinais & naLinha) != 0) return Texto(cabeca.substr(tamanhoDaCabeca, tamanho));
    if ((sinais & inteiro) != 0) return Texto(linhaEm(lugar).substr(0, tamanho));
    Texto bytes;
    while (bytes.size() < tamanho) {
        const VistaTexto pedaco = linhaEm(lugar);
        lugar = numero32(pedaco, 0);
        exigir(pedaco.size() > sizeof lugar);
        bytes.append(pedaco.substr(sizeof lugar));
    }
    bytes.resize(tamanho);
    return bytes;
}

} // namespace quilatador
